#include "ConsoleHarness.h"
#include "TimeText.h"

#include <random>

namespace
{

class NextCommand : public ConsoleTest
{
  protected:
    static std::vector<std::string> Next(const std::string& key, const std::string& from,
                                         const std::string& count)
    {
        std::vector<std::string> times;
        for (const Json& time : SucceedJson({"next", key, "--from", from, "--count", count}))
        {
            times.push_back(time.get<std::string>().substr(0, 16));
        }
        return times;
    }
};

using Texts = std::vector<std::string>;

TEST_F(NextCommand, Occurrences_AreStrictlyLater)
{
    const std::string key = Add("2950-05-04T09:00", {"--daily", "2"});
    EXPECT_EQ((Texts{"2950-05-04T09:00", "2950-05-06T09:00"}), Next(key, "2950-05-04T08:59:59", "2"));
    EXPECT_EQ((Texts{"2950-05-06T09:00", "2950-05-08T09:00"}), Next(key, "2950-05-04T09:00", "2"));
    EXPECT_EQ((Texts{"2950-05-06T09:00"}), Next(key, "2950-05-06T08:59:59", "1"));
    EXPECT_EQ((Texts{"2950-05-08T09:00"}), Next(key, "2950-05-06T09:00", "1"));
}

TEST_F(NextCommand, LeadTime_DoesNotShiftThem)
{
    const std::string key = Add("2950-03-04T09:00", {"--daily", "1", "--lead", "2w"});
    EXPECT_EQ((Texts{"2950-03-07T09:00"}), Next(key, "2950-03-06T09:00", "1"));
}

TEST_F(NextCommand, Default_IsFiveFromNow)
{
    const std::string key = Add("2950-03-04T09:00", {"--monthly", "1", "--day", "31"});
    const Json json = SucceedJson({"next", key});
    ASSERT_EQ(5u, json.size());
    EXPECT_EQ("2950-03-31T09:00", json[0].get<std::string>().substr(0, 16));
    EXPECT_EQ("2950-04-30T09:00", json[1].get<std::string>().substr(0, 16));
    EXPECT_EQ("2950-07-31T09:00", json[4].get<std::string>().substr(0, 16));
}

TEST_F(NextCommand, Text_IsALineForEach)
{
    const std::string key = Add("2950-03-04T09:00", {"--daily", "1"});
    EXPECT_EQ(ts::console::ShortTime(CTime(2950, 3, 4, 9, 0, 0)) + "\n" +
                  ts::console::ShortTime(CTime(2950, 3, 5, 9, 0, 0)),
              Succeed({"next", key, "--count", "2"}));
}

TEST_F(NextCommand, NotRecurring_HasNone)
{
    const std::string key = Add("2950-03-04T09:00");
    EXPECT_EQ("The reminder does not repeat.", Succeed({"next", key}));
    EXPECT_EQ(Json::array(), SucceedJson({"next", key}));
}

TEST_F(NextCommand, EndOfTheCalendar_EndsThem)
{
    const std::string key = Add("2999-11-30T09:00", {"--monthly", "6", "--day", "30"});
    EXPECT_EQ((Texts{"2999-11-30T09:00", "3000-05-30T09:00", "3000-11-30T09:00"}),
              Next(key, "2026-01-01", "9"));
    EXPECT_EQ(Texts{}, Next(key, "3000-12-01", "9"));
    EXPECT_EQ("No occurrence follows.", Succeed({"next", key, "--from", "3000-12-01"}));
}

TEST_F(NextCommand, PatternThatDoesNotAdvance_Stops)
{
    const std::string key = Add("2950-03-04T09:00", {"--daily", "1"});
    for (const DWORD days : {0u, 0xFFFFFFFFu, 0x80000000u})
    {
        WriteDword(key, L"RecurrenceOption2", days);
        EXPECT_EQ(Texts{}, Next(key, "2950-03-04T09:00", "5")) << days;
        EXPECT_EQ(Texts{"2950-03-04T09:00"}, Next(key, "2950-03-03T09:00", "5")) << days;
    }
    WriteDword(key, L"RecurrenceType", 7);
    EXPECT_EQ(Texts{}, Next(key, "2950-03-04T09:00", "5"));
}

TEST_F(NextCommand, WeeklyWithoutADay_HasNone)
{
    const std::string key = Add("2950-03-04T09:00", {"--weekly", "1", "--on", "mon"});
    WriteDword(key, L"RecurrenceOption2", 0);
    EXPECT_EQ(Texts{}, Next(key, "2960-01-01", "5"));
}

TEST_F(NextCommand, DamagedPattern_Fails)
{
    const std::string key = Add("2950-03-04T09:00", {"--monthly", "1", "--the", "last", "--of", "day"});
    WriteDword(key, L"RecurrenceOption4", 9);
    ExpectFailure(1, "is damaged", {"next", key, "--from", "2960-01-01"});
}

TEST_F(NextCommand, Property_NEqualsStepsOfTheLibraryWhereverItBegins)
{
    const std::vector<std::string> patterns[] = {{"--daily", "3"},
                                                 {"--weekdays"},
                                                 {"--weekly", "2", "--on", "sun,wed,fri"},
                                                 {"--monthly", "5", "--day", "31"},
                                                 {"--monthly", "1", "--the", "third", "--of", "weekday"},
                                                 {"--yearly", "--month", "2", "--day", "29"}};
    std::mt19937 random(42);
    for (const auto& pattern : patterns)
    {
        const std::string key = Add("2900-01-15T12:00", pattern);
        CcvReminderData record{CString(std::wstring(key.begin(), key.end()).c_str())};
        ASSERT_TRUE(record.LoadDataFromRegistry(ts::kRemindersPath));
        for (int round = 0; round < 20; ++round)
        {
            const CTime from = record.GetNextDueDate() + CTimeSpan(std::int64_t{random() % 1'000'000'000});
            CTime expected = record.GetNextDueDate();
            while (expected <= from)
            {
                expected = record.GetNextRecurrentTime(expected);
            }
            const Json json = SucceedJson({"next", key, "--from", TimeArgument(from), "--count", "3"});
            for (std::size_t index = 0; index < 3; ++index)
            {
                EXPECT_EQ(TimeArgument(expected), json[index])
                    << testing::PrintToString(pattern) << " from " << TimeArgument(from);
                expected = record.GetNextRecurrentTime(expected);
            }
        }
    }
}

TEST_F(NextCommand, FarAwayTimes_AreReachedAtOnce)
{
    const std::string key = Add("2026-01-05T12:00", {"--daily", "1"});
    WriteInt64(key, L"NextRecurrentDueDate", 86400 * 5 + 43200);
    EXPECT_EQ(1000u, SucceedJson({"next", key, "--from", "2990-01-01", "--count", "1000"}).size());
    EXPECT_EQ(1u, SucceedJson({"next", key, "--from", "1970-01-02", "--count", "1"}).size());
}

TEST_F(NextCommand, WrongUse_IsRefused)
{
    const std::string key = Add("2950-03-04T09:00", {"--daily", "1"});
    for (const char* count : {"0", "-1", "1001", "x", "", "99999999999999999999"})
    {
        ExpectFailure(2, "--count takes a number from 1 to 1000", {"next", key, "--count", count});
    }
    ExpectFailure(2, "--from", {"next", key, "--from", "now"});
    ExpectFailure(2, "KEY", {"next"});
}

} // namespace
