#include "ConsoleHarness.h"
#include "DisplayText.h"
#include "hosts/common/RegistryHandle.h"
#include "hosts/common/Utf8.h"

#include <random>

namespace
{

class DamagedStore : public ConsoleTest
{
  protected:
    /// A reminder whose due time raises an error.
    static std::string AddRaising()
    {
        const std::string key = Add("2000-03-04T09:00", {"--monthly", "1", "--the", "last", "--of", "day"});
        WriteInt64(key, L"NextRecurrentDueDate", 952156800);
        WriteDword(key, L"RecurrenceOption4", 9);
        return key;
    }

    static std::vector<std::string> Keys(const std::string& filter)
    {
        std::vector<std::string> keys;
        for (const Json& reminder : SucceedJson({"list", "--filter", filter}))
        {
            keys.push_back(reminder["key"]);
        }
        return keys;
    }
};

using Texts = std::vector<std::string>;

TEST_F(DamagedStore, DueTimeThatRaises_HidesNoOther)
{
    const std::string damaged = AddRaising();
    const std::string sound = Add("2950-03-04T09:00");
    EXPECT_EQ((Texts{sound, damaged}), Keys("all"));
    EXPECT_EQ((Texts{sound, damaged}), Keys("recent"));
    EXPECT_EQ(Texts{}, Keys("today"));
    EXPECT_EQ(Texts{}, Keys("due"));
    const Json json = SucceedJson({"show", damaged});
    EXPECT_TRUE(json["due"].is_null());
    EXPECT_TRUE(json["reminderTime"].is_null());
    EXPECT_TRUE(json["status"].is_null());
    EXPECT_FALSE(json["nextDue"].is_null());
    EXPECT_NE(std::string::npos, Succeed({"list"}).find("  damaged  "));
    EXPECT_NE(std::string::npos, Succeed({"show", damaged}).find("Status      damaged\n"));
}

TEST_F(DamagedStore, DueTimeThatRaises_WhileSnoozedIsDueAtItsSnoozeTime)
{
    const std::string damaged = AddRaising();
    Succeed({"snooze", damaged, "1h"});
    EXPECT_FALSE(SucceedJson({"show", damaged})["reminderTime"].is_null());
    EXPECT_EQ(Texts{}, Keys("due"));
    EXPECT_EQ(1u, SucceedJson({"list", "--filter", "due", "--at", "2950-01-01"}).size());
}

TEST_F(DamagedStore, TimesOutOfAnyCalendar_AreNull)
{
    for (const std::int64_t seconds :
         {std::numeric_limits<std::int64_t>::min(), std::int64_t{-1'000'000}, std::int64_t{0},
          std::int64_t{99'999'999'999}, std::numeric_limits<std::int64_t>::max()})
    {
        for (const DWORD type : {0u, 1u, 2u, 3u, 4u, 5u, 0xFFFFFFFFu})
        {
            WriteInt64("{x-0}", L"NextRecurrentDueDate", seconds);
            WriteInt64("{x-0}", L"InitialDueDate", seconds);
            WriteInt64("{x-0}", L"SnoozeTime", seconds);
            WriteInt64("{x-0}", L"Reminder", seconds);
            WriteDword("{x-0}", L"RecurrenceType", type);
            const Json json = SucceedJson({"show", "{x-0}"});
            EXPECT_TRUE(json["nextDue"].is_null()) << seconds;
            EXPECT_TRUE(json["initialDue"].is_null()) << seconds;
            EXPECT_TRUE(json["snoozeTime"].is_null()) << seconds;
            EXPECT_EQ(seconds, json["leadSeconds"]);
            EXPECT_EQ(0, Reminders({"list"}).code);
            EXPECT_EQ(0, Reminders({"show", "{x-0}"}).code);
        }
    }
}

TEST_F(DamagedStore, UnknownRecurrenceType_IsItsNumber)
{
    WriteInt64("{x-0}", L"NextRecurrentDueDate", 31'000'000'000);
    WriteDword("{x-0}", L"RecurrenceType", 7);
    EXPECT_EQ(7, SucceedJson({"show", "{x-0}"})["recurrenceType"]);
    WriteDword("{x-0}", L"RecurrenceType", 0xFFFFFFFF);
    EXPECT_EQ(-1, SucceedJson({"show", "{x-0}"})["recurrenceType"]);
    EXPECT_NE(std::string::npos, Succeed({"show", "{x-0}"}).find("unknown pattern"));
}

TEST_F(DamagedStore, OptionsThatTheTypeDoesNotUse_ReadZero)
{
    const std::string key = Add("2950-03-04T09:00", {"--daily", "2"});
    WriteDword(key, L"RecurrenceOption5", 5);
    EXPECT_EQ((std::vector<int>{0, 2, 0, 0, 0, 0}),
              SucceedJson({"show", key})["recurrenceOptions"].get<std::vector<int>>());
}

TEST_F(DamagedStore, OptionsOutOfRange_AreNamedAsUnknown)
{
    const std::string key = Add("2950-03-04T09:00", {"--yearly", "--month", "5", "--day", "17"});
    for (const auto& [name, value] : {std::pair{L"RecurrenceOption1", 9u}, {L"RecurrenceOption3", 13u}})
    {
        WriteDword(key, name, value);
        EXPECT_NE(std::string::npos, Succeed({"show", key}).find("unknown pattern"));
    }
}

TEST_F(DamagedStore, TextsThatSteerATerminal_NeverReachItRaw)
{
    const std::wstring hostile = L"\x1B[2J\x1B]0;x\x07 \x9B"
                                 L"31m \x202E evil \x7F\x2028";
    for (const wchar_t* name : {L"Subject", L"DocumentTitle", L"ObjectTitle", L"DocumentPath", L"MapGuid",
                                L"ObjectGuid", L"OutlookEntryId", L"OutlookObjectGuid"})
    {
        WriteText("{x-0}", name, hostile);
    }
    WriteText(ts::hosts::ToUtf8(L"{k\x1B\x9B}"), L"Subject", L"key");
    for (const std::vector<std::string>& arguments : {std::vector<std::string>{"list"},
                                                      {"show", "{x-0}"},
                                                      {"list", "--json"},
                                                      {"show", "{x-0}", "--json"},
                                                      {"show", "unknown\x1B[2J"}})
    {
        const Outcome outcome = Reminders(arguments);
        std::string text = outcome.out + outcome.err;
        std::erase(text, '\n');
        // What remains printable after the line feeds are gone holds no control character.
        EXPECT_EQ(text, ts::console::Printable(text));
    }
    EXPECT_EQ(ts::hosts::ToUtf8(hostile), SucceedJson({"show", "{x-0}"})["subject"]);
}

TEST_F(DamagedStore, LoneSurrogates_AreReplacedInEveryOutput)
{
    WriteText("{x-0}", L"Subject", {L'a', wchar_t(0xD83D), L'b'});
    EXPECT_EQ("a\xEF\xBF\xBD"
              "b",
              SucceedJson({"show", "{x-0}"})["subject"]);
    EXPECT_NE(std::string::npos, Succeed({"list"}).find("a\xEF\xBF\xBD"
                                                        "b"));
}

TEST_F(DamagedStore, VeryLongTexts_AreCutInTheListAndWholeInJson)
{
    WriteText("{x-0}", L"Subject", std::wstring(200'000, L'\u9031'));
    EXPECT_LT(Succeed({"list"}).size(), 1000u);
    EXPECT_EQ(600'000u, SucceedJson({"show", "{x-0}"})["subject"].get<std::string>().size());
}

TEST_F(DamagedStore, RandomValues_EveryCommandReturnsAndReadingWritesNothing)
{
    const wchar_t* const names[] = {L"DocumentPath",      L"MapGuid",
                                    L"ObjectGuid",        L"OutlookObjectGuid",
                                    L"OutlookEntryId",    L"DocumentTitle",
                                    L"ObjectTitle",       L"Flags",
                                    L"Subject",           L"NextRecurrentDueDate",
                                    L"InitialDueDate",    L"Reminder",
                                    L"SnoozeTime",        L"RecurrenceType",
                                    L"RecurrenceOption1", L"RecurrenceOption2",
                                    L"RecurrenceOption3", L"RecurrenceOption4",
                                    L"RecurrenceOption5", L"RecurrenceOption6"};
    constexpr unsigned kSeed = 314159;
    std::mt19937 random(kSeed);
    for (int round = 0; round < 30; ++round)
    {
        const std::string key = "{r-" + std::to_string(round) + "}";
        for (const wchar_t* name : names)
        {
            constexpr DWORD kTypes[] = {REG_SZ, REG_DWORD, REG_BINARY, REG_BINARY, REG_MULTI_SZ, REG_QWORD};
            constexpr std::size_t kSizes[] = {0, 1, 3, 4, 4, 8, 8, 9, 30};
            std::string bytes(kSizes[random() % std::size(kSizes)], '\0');
            for (char& byte : bytes)
            {
                byte = static_cast<char>(random() % 3 == 0 ? random() : random() % 5);
            }
            WriteRaw(key, name, kTypes[random() % std::size(kTypes)], bytes);
        }
        // Most types are made real ones, so that the patterns are walked.
        WriteDword(key, L"RecurrenceType", random() % 6);
        const std::string before = Snapshot();
        EXPECT_EQ(0, Reminders({"show", key}).code) << kSeed << " " << round;
        EXPECT_EQ(key, SucceedJson({"show", key, "--at", "2100-01-01"})["key"]) << kSeed << " " << round;
        EXPECT_LE(Reminders({"next", key}).code, 1) << kSeed << " " << round;
        EXPECT_EQ(before, Snapshot()) << kSeed << " " << round;
        EXPECT_LE(Reminders({"dismiss", key}).code, 1) << kSeed << " " << round;
    }
    for (const char* filter : {"all", "recent", "today", "due"})
    {
        EXPECT_EQ(0, Reminders({"list", "--filter", filter}).code);
    }
    EXPECT_EQ(30u, Keys("all").size());
}

TEST_F(DamagedStore, StoreThatCannotBeRead_Fails)
{
    // A deleted key answers every call with an error that is not "not found". The tests after this one go on
    // in another key of the sandbox, because the sandbox's own key has no handle that could be set again.
    static ts::hosts::RegistryHandle rest;
    ts::hosts::RegistryHandle dead;
    for (const wchar_t* name : {L"Rest", L"Dead"})
    {
        ASSERT_EQ(ERROR_SUCCESS, RegSetKeyValueW(HKEY_CURRENT_USER, name, L"x", REG_SZ, nullptr, 0));
    }
    ASSERT_EQ(ERROR_SUCCESS, rest.Open(HKEY_CURRENT_USER, L"Rest", KEY_ALL_ACCESS));
    ASSERT_EQ(ERROR_SUCCESS, dead.Open(HKEY_CURRENT_USER, L"Dead", KEY_ALL_ACCESS));
    ASSERT_EQ(ERROR_SUCCESS, RegDeleteKeyW(HKEY_CURRENT_USER, L"Dead"));
    ASSERT_EQ(ERROR_SUCCESS, RegOverridePredefKey(HKEY_CURRENT_USER, dead.Get()));
    for (const std::vector<std::string>& arguments : {std::vector<std::string>{"list"},
                                                      {"show", "{x-0}"},
                                                      {"delete", "{x-0}"},
                                                      {"find", "p", kMap, kTopic},
                                                      {"move", "a", "b", kMap}})
    {
        ExpectFailure(1, "cannot read the reminders", arguments);
    }
    ExpectFailure(1, "could not be written", AddArguments("2950-03-04"));
    EXPECT_EQ(ERROR_SUCCESS, RegOverridePredefKey(HKEY_CURRENT_USER, rest.Get()));
}

} // namespace
