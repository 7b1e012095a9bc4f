#include "ConsoleHarness.h"

namespace
{

class EditCommand : public ConsoleTest
{
  protected:
    /// Edits the reminder and returns the names of the JSON fields that changed.
    static std::vector<std::string> Changed(const std::string& key, const std::vector<std::string>& options)
    {
        const Json before = SucceedJson({"show", key, "--at", "2940-01-01"});
        std::vector<std::string> arguments = {"edit", key};
        arguments.insert(arguments.end(), options.begin(), options.end());
        EXPECT_EQ(0u, Succeed(arguments).find("Changed."));
        const Json after = SucceedJson({"show", key, "--at", "2940-01-01"});
        std::vector<std::string> names;
        for (const auto& [name, value] : after.items())
        {
            if (before[name] != value)
            {
                names.push_back(name);
            }
        }
        return names;
    }
};

using Names = std::vector<std::string>;

TEST_F(EditCommand, OneOption_ChangesOnlyItsField)
{
    const std::string key = Add("2950-03-04T09:00", {"--title", "Topic", "--weekly", "2", "--on", "mon"});
    EXPECT_EQ(Names{"documentPath"}, Changed(key, {"--document", "D:\\x.map"}));
    EXPECT_EQ(Names{"mapGuid"}, Changed(key, {"--map", kOtherMap}));
    EXPECT_EQ(Names{"objectGuid"}, Changed(key, {"--topic", kOtherMap}));
    EXPECT_EQ(Names{"objectTitle"}, Changed(key, {"--title", ""}));
    EXPECT_EQ(Names{"documentTitle"}, Changed(key, {"--document-title", "Plan"}));
    EXPECT_EQ(Names{"subject"}, Changed(key, {"--subject", "Other"}));
    EXPECT_EQ((Names{"reminderTime", "leadSeconds"}), Changed(key, {"--lead", "1d"}));
    EXPECT_EQ((Names{"reminderTime", "leadSeconds"}), Changed(key, {"--lead", "0m"}));
}

TEST_F(EditCommand, DueTimeOfARecurringReminder_CountsThePatternFromThere)
{
    const std::string key = Add("2950-03-04T09:00", {"--weekly", "2", "--on", "mon"});
    EXPECT_EQ((Names{"initialDue", "nextDue", "due", "reminderTime"}),
              Changed(key, {"--due", "2950-06-02T10:00"}));
    // 2 June 2950 is a Tuesday; the pattern goes on to the Monday of the week two weeks later.
    EXPECT_EQ("2950-06-15T10:00:00",
              SucceedJson({"show", key})["initialDue"].get<std::string>().substr(0, 19));
}

TEST_F(EditCommand, NewPattern_TakesTheOldOneAwayAndCountsFromTheFirstDueTime)
{
    const std::string key = Add("2950-03-04T09:00", {"--monthly", "3", "--the", "last", "--of", "day"});
    Succeed({"edit", key, "--weekdays"});
    const Json json = SucceedJson({"show", key});
    EXPECT_EQ("daily", json["recurrenceType"]);
    EXPECT_EQ((std::vector<int>{1, 0, 0, 0, 0, 0}), json["recurrenceOptions"].get<std::vector<int>>());
    EXPECT_EQ("2950-03-31T09:00:00", json["nextDue"].get<std::string>().substr(0, 19));
    EXPECT_EQ(json["nextDue"], json["initialDue"]);
}

TEST_F(EditCommand, Once_KeepsTheOccurrenceInForce)
{
    const CTime start = CTime::GetCurrentTime() - CTimeSpan(10 * 86400 + 3600);
    const std::string key = Add(TimeArgument(start), {"--daily", "2"});
    const Json before = SucceedJson({"show", key});
    Succeed({"edit", key, "--once"});
    const Json after = SucceedJson({"show", key});
    EXPECT_EQ("none", after["recurrenceType"]);
    EXPECT_EQ(before["due"], after["nextDue"]);
    EXPECT_EQ(before["due"], after["initialDue"]);
}

TEST_F(EditCommand, PathMapAndTopicAtOnce_ChangeThisReminderOnly)
{
    const std::string key = Add("2950-03-04T09:00");
    const std::string twin = Add("2950-03-04T09:00");
    EXPECT_EQ((Names{"documentPath", "mapGuid", "objectGuid"}),
              Changed(key, {"--document", "D:\\x.map", "--map", kOtherMap, "--topic", kOtherMap}));
    EXPECT_EQ("C:\\maps\\plan.map", SucceedJson({"show", twin})["documentPath"]);
    EXPECT_EQ(key, Succeed({"find", "D:\\x.map", kOtherMap, kOtherMap}));
    EXPECT_EQ(2u, SucceedJson({"list"}).size());
}

TEST_F(EditCommand, StatesOfSnoozeAndDismissal_Stay)
{
    const std::string key = Add("2950-03-04T09:00");
    Succeed({"snooze", key, "1h"});
    EXPECT_EQ(Names{"subject"}, Changed(key, {"--subject", "Other"}));
    Succeed({"dismiss", key});
    EXPECT_EQ(Names{"subject"}, Changed(key, {"--subject", "Another"}));
    EXPECT_EQ(true, SucceedJson({"show", key})["dismissed"]);
}

TEST_F(EditCommand, WrongUse_ChangesNothing)
{
    const std::string key = Add("2950-03-04T09:00", {"--weekly", "2", "--on", "mon"});
    const std::pair<std::vector<std::string>, const char*> rows[] = {
        {{}, "nothing to change"},
        {{"--subject", ""}, "--subject must not be empty"},
        {{"--subject", "x", "--map", "x"}, "--map is no GUID"},
        {{"--subject", "x", "--due", "2026-02-30"}, "does not exist"},
        {{"--subject", "x", "--lead", "x"}, "is no span"},
        {{"--subject", "x", "--daily", "0"}, "--daily takes"},
        {{"--day", "5"}, "--day goes with"},
        {{"--subject", "x", "--due", "3000-12-30", "--yearly", "--month", "1", "--day", "1"},
         "no occurrence"},
    };
    for (const auto& [options, reason] : rows)
    {
        std::vector<std::string> arguments = {"edit", key};
        arguments.insert(arguments.end(), options.begin(), options.end());
        ExpectFailure(2, reason, arguments);
        if (options.size() > 2 && std::string(reason) != "no occurrence")
        {
            arguments[1] = "{unknown-0}";
            ExpectFailure(2, reason, arguments);
        }
    }
}

TEST_F(EditCommand, ReminderWithoutADueTime_NeedsOneForAPattern)
{
    WriteText("{x-0}", L"Subject", L"empty");
    ExpectFailure(1, "give one with --due", {"edit", "{x-0}", "--daily", "1"});
    Succeed({"edit", "{x-0}", "--daily", "1", "--due", "2950-01-01"});
    EXPECT_EQ("2950-01-01T00:00:00", SucceedJson({"show", "{x-0}"})["due"].get<std::string>().substr(0, 19));
}

} // namespace
