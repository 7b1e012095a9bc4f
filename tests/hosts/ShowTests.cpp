#include "ConsoleHarness.h"
#include "Strings.h"

#include <array>

namespace
{

class ShowCommand : public ConsoleTest
{
};

TEST_F(ShowCommand, Json_HasExactlyTheFields)
{
    const Json json = SucceedJson({"show", Add("2950-03-04T09:00")});
    std::vector<std::string> names;
    for (const auto& [name, value] : json.items())
    {
        names.push_back(name);
    }
    EXPECT_EQ((std::vector<std::string>{"key",
                                        "documentPath",
                                        "mapGuid",
                                        "objectGuid",
                                        "outlookObjectGuid",
                                        "outlookEntryId",
                                        "documentTitle",
                                        "objectTitle",
                                        "subject",
                                        "initialDue",
                                        "nextDue",
                                        "due",
                                        "dueIn",
                                        "reminderTime",
                                        "snoozeTime",
                                        "leadSeconds",
                                        "status",
                                        "snoozed",
                                        "dismissed",
                                        "recurrenceType",
                                        "recurrenceOptions"}),
              names);
    EXPECT_TRUE(json["snoozeTime"].is_null());
    EXPECT_EQ(6u, json["recurrenceOptions"].size());
}

TEST_F(ShowCommand, Json_IsTheSameObjectAsInTheList)
{
    const std::string key = Add("2950-03-04T09:00", {"--daily", "2", "--lead", "1d"});
    EXPECT_EQ(SucceedJson({"list", "--at", "2950-04-01"})[0],
              SucceedJson({"show", key, "--at", "2950-04-01"}));
}

TEST_F(ShowCommand, DueIn_IsToldInTheChosenLanguage)
{
    const std::string key = Add("2950-03-04T09:00");
    const std::vector<std::array<std::string, 3>> rows = {
        {"en", "2950-03-04T07:00", "Due in 2 hours"},
        {"de", "2950-03-04T07:00", "F\xC3\xA4llig in 2 Stunden"},
        {"fr", "2950-03-04T07:00",
         "\xC3\x89"
         "ch\xC3\xA9"
         "ance dans 2 heures"},
        {"DE", "2950-03-14T09:00",
         "Seit 1 Woche \xC3\xBC"
         "berf\xC3\xA4llig"},
        {"fr", "2950-03-14T09:00", "En retard de 1 semaine"},
    };
    for (const auto& [language, at, expected] : rows)
    {
        EXPECT_EQ(expected, SucceedJson({"show", key, "--at", at, "--language", language})["dueIn"]);
        EXPECT_EQ(expected, SucceedJson({"list", "--at", at, "--language", language})[0]["dueIn"]);
        EXPECT_NE(std::string::npos,
                  Succeed({"show", key, "--at", at, "--language", language}).find(expected));
        EXPECT_NE(std::string::npos, Succeed({"list", "--at", at, "--language", language}).find(expected));
    }
}

TEST_F(ShowCommand, DueIn_OfAReminderWithoutDueTime_IsNull)
{
    const std::string key = Add("2950-03-04T09:00", {"--weekly", "1", "--on", "mon"});
    WriteInt64(key, L"NextRecurrentDueDate", 0);
    WriteDword(key, L"RecurrenceOption2", 0);
    EXPECT_TRUE(SucceedJson({"show", key})["dueIn"].is_null());
}

TEST_F(ShowCommand, Tooltip_IsTheMarkup)
{
    const std::string key = Add("2950-03-04T09:00");
    WriteText(key, L"Subject", L"R&D <b>");
    const std::string english =
        Succeed({"show", key, "--tooltip", "--at", "2950-03-04T09:00", "--language", "en"});
    EXPECT_EQ(0u, english.find("<b>R&amp;D &lt;b&gt;</b><br>Due now"));
    const std::string german =
        Succeed({"show", key, "--tooltip", "--at", "2950-03-04T09:00", "--language", "de"});
    EXPECT_NE(std::string::npos, german.find("</b><br>Jetzt f\xC3\xA4llig"));
    EXPECT_EQ(english.substr(english.rfind(' ')), german.substr(german.rfind(' ')))
        << "the date is the user's";
}

TEST_F(ShowCommand, TooltipOfADamagedPattern_IsAClearFailure)
{
    const std::string key = Add("2000-03-04T09:00", {"--monthly", "1", "--day", "4"});
    WriteDword(key, L"RecurrenceOption2", 0);
    WriteInt64(key, L"NextRecurrentDueDate", 952'000'000);
    ExpectFailure(1, "there is no due time", {"show", key, "--tooltip"});
}

TEST_F(ShowCommand, LanguageAndTooltip_WrongUse)
{
    const std::string key = Add("2950-03-04T09:00");
    ExpectFailure(2, "--language takes en, de or fr, not 'es'", {"show", key, "--language", "es"});
    ExpectFailure(2, "--language takes en, de or fr, not 'es'", {"list", "--language", "es"});
    ExpectFailure(2, "--json", {"show", key, "--tooltip", "--json"});
}

TEST_F(ShowCommand, OutlookIdentifiers_AreShown)
{
    const std::string key = Add("2950-03-04T09:00");
    WriteText(key, L"OutlookObjectGuid", L"{guid}");
    WriteText(key, L"OutlookEntryId", L"00AB");
    const Json json = SucceedJson({"show", key});
    EXPECT_EQ("{guid}", json["outlookObjectGuid"]);
    EXPECT_EQ("00AB", json["outlookEntryId"]);
    EXPECT_NE(std::string::npos, Succeed({"show", key}).find("00AB"));
}

TEST_F(ShowCommand, Text_NamesWhatIsThere)
{
    const std::string key = Add("2950-03-04T09:00", {"--title", "My topic", "--lead", "90m"});
    const std::string text = Succeed({"show", key});
    for (const char* part :
         {"Subject     Send report\n", "Topic       My topic\n", "Status      pending\n",
          "Repeats     once\n", "Lead time   90 minutes\n", "Path        C:\\maps\\plan.map\n"})
    {
        EXPECT_NE(std::string::npos, text.find(part)) << part << text;
    }
    EXPECT_NE(std::string::npos, text.find("Key         " + key)) << text;
    EXPECT_EQ(std::string::npos, text.find("Snoozed until"));
}

TEST_F(ShowCommand, KeyInAnotherCase_IsTheSameReminder)
{
    Add("2950-03-04T09:00");
    EXPECT_EQ("Send report", SucceedJson({"show", "{{6b1d7c5e-0f43-4c0b-9a35-3f1b8e6a2d01}-0}"})["subject"]);
}

TEST_F(ShowCommand, UnknownKey_FailsForEveryCommandThatTakesOne)
{
    const std::string key = Add("2950-03-04T09:00");
    WriteText(key + "\\below", L"Subject", L"not a reminder");
    const std::string unknown[] = {"{x-0}",
                                   "",
                                   key + "\\below",
                                   key + "\\",
                                   "\\" + key,
                                   "..",
                                   std::string(300, 'x'),
                                   "\xE9\x80\xB1",
                                   key.substr(0, key.size() - 1)};
    for (const std::string& wrong : unknown)
    {
        for (const std::vector<std::string>& arguments : {std::vector<std::string>{"show", wrong},
                                                          {"show", wrong, "--json"},
                                                          {"next", wrong},
                                                          {"next", wrong, "--json"},
                                                          {"snooze", wrong, "1h"},
                                                          {"dismiss", wrong},
                                                          {"undismiss", wrong},
                                                          {"delete", wrong},
                                                          {"edit", wrong, "--subject", "x"}})
        {
            ExpectFailure(1, "there is no reminder '" + wrong + "'", arguments);
        }
    }
}

TEST_F(ShowCommand, KeyInOtherCase_IsTheSameKey)
{
    std::string key = Add("2950-03-04T09:00");
    const Json json = SucceedJson({"show", key});
    EXPECT_EQ(json, SucceedJson({"show", ts::console::ToLower(key)}));
}

} // namespace
