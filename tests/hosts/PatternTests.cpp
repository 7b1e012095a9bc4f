#include "ConsoleHarness.h"

namespace
{

/// Adding reminders of every pattern, and refusing what is none.
class Pattern : public ConsoleTest
{
};

struct Row
{
    const char* title;
    const char* due;
    std::vector<std::string> options;
    const char* type;
    std::vector<int> slots;
    const char* initial;
    const char* text;
};

const Row kRows[] = {
    {"none", "2950-03-04T09:00", {}, "none", {0, 0, 0, 0, 0, 0}, "2950-03-04T09:00", "once"},
    {"once", "2950-03-04T09:00", {"--once"}, "none", {0, 0, 0, 0, 0, 0}, "2950-03-04T09:00", "once"},
    {"daily",
     "2950-03-04T09:00",
     {"--daily", "1"},
     "daily",
     {0, 1, 0, 0, 0, 0},
     "2950-03-04T09:00",
     "every day"},
    {"every 3 days",
     "2950-03-04T09:00",
     {"--daily", "3"},
     "daily",
     {0, 3, 0, 0, 0, 0},
     "2950-03-04T09:00",
     "every 3 days"},
    {"weekdays from a Saturday",
     "2950-05-02T09:00",
     {"--weekdays"},
     "daily",
     {1, 0, 0, 0, 0, 0},
     "2950-05-04T09:00",
     "every weekday"},
    {"weekly",
     "2950-03-03T09:00",
     {"--weekly", "2", "--on", "mon,thu"},
     "weekly",
     {2, 18, 0, 0, 0, 0},
     "2950-03-05T09:00",
     "every 2 weeks on Mon, Thu"},
    {"weekly by long names and repeats",
     "2950-03-03T09:00",
     {"--weekly", "1", "--on", "SUNDAY", "--on", "Saturday,wed"},
     "weekly",
     {1, 73, 0, 0, 0, 0},
     "2950-03-04T09:00",
     "every week on Wed, Sat, Sun"},
    {"day of the month",
     "2950-03-04T09:00",
     {"--monthly", "3", "--day", "31"},
     "monthly",
     {0, 31, 3, 0, 0, 0},
     "2950-03-31T09:00",
     "every 3 months on day 31"},
    {"second Tuesday",
     "2950-03-04T09:00",
     {"--monthly", "1", "--the", "second", "--of", "tuesday"},
     "monthly",
     {1, 0, 0, 1, 4, 1},
     "2950-03-10T09:00",
     "every month on the second Tuesday"},
    {"first day",
     "2950-03-01T09:00",
     {"--monthly", "2", "--the", "First", "--of", "DAY"},
     "monthly",
     {1, 0, 0, 0, 128, 2},
     "2950-03-01T09:00",
     "every 2 months on the first day"},
    {"last weekday",
     "2950-03-04T09:00",
     {"--monthly", "1", "--the", "last", "--of", "weekday"},
     "monthly",
     {1, 0, 0, 4, 256, 1},
     "2950-03-31T09:00",
     "every month on the last weekday"},
    {"date of the year",
     "2950-03-04T09:00",
     {"--yearly", "--month", "5", "--day", "17"},
     "yearly",
     {0, 17, 5, 0, 0, 0},
     "2950-05-17T09:00",
     "every year on 17 May"},
    {"29 February",
     "2952-01-04T09:00",
     {"--yearly", "--month", "feb", "--day", "29"},
     "yearly",
     {0, 29, 2, 0, 0, 0},
     "2952-02-29T09:00",
     "every year on 29 February"},
    {"last weekend day of May",
     "2950-03-04T09:00",
     {"--yearly", "--month", "May", "--the", "last", "--of", "weekend-day"},
     "yearly",
     {1, 0, 0, 4, 512, 5},
     "2950-05-31T09:00",
     "every year on the last weekend day of May"},
};

TEST_F(Pattern, Add_StoresOptionsAndFirstDueTime)
{
    for (const Row& row : kRows)
    {
        const std::string key = Add(row.due, row.options);
        const Json json = SucceedJson({"show", key});
        EXPECT_EQ(row.type, json["recurrenceType"]) << row.title;
        EXPECT_EQ(row.slots, json["recurrenceOptions"].get<std::vector<int>>()) << row.title;
        const std::string initial = json["initialDue"].get<std::string>();
        EXPECT_EQ(std::string(row.initial) + ":00", initial.substr(0, 19)) << row.title;
        EXPECT_EQ(initial, json["nextDue"]) << row.title;
        const std::string shown = Succeed({"show", key});
        EXPECT_NE(std::string::npos, shown.find(std::string("Repeats     ") + row.text + "\n"))
            << row.title << "\n"
            << shown;
    }
}

TEST_F(Pattern, StartInThePast_NextDueIsTodayOrLater)
{
    const CTime now = CTime::GetCurrentTime();
    const CTime start = now - CTimeSpan(100 * 86400 + 3600);
    const std::string key = Add(TimeArgument(start), {"--daily", "1"});
    const Json json = SucceedJson({"show", key});
    EXPECT_EQ(TimeArgument(start), json["initialDue"]);
    CcvReminderData expected{CString()};
    expected.SetRecurrenceType(EcvReminderRecurrenceType::Daily);
    expected.SetDailyRecurrenceNumber(1);
    const CTime next =
        CcvReminderDataUtilities::CalculateInitialUpcomingDailyRecurrentDueTime(start, &expected);
    EXPECT_EQ(TimeArgument(next), json["nextDue"]);
    EXPECT_GT(next, now - CTimeSpan(86400));
}

/// Options that make no pattern, and a piece of the answer.
std::vector<std::pair<std::vector<std::string>, const char*>> Refused()
{
    return {
        {{"--daily", "0"}, "--daily takes a number from 1"},
        {{"--daily", "-1"}, "--daily takes a number from 1"},
        {{"--daily", "x"}, "--daily takes a number from 1"},
        {{"--daily", "1.5"}, "--daily takes a number from 1"},
        {{"--daily", ""}, "--daily takes a number from 1"},
        {{"--daily", "10000"}, "--daily takes a number from 1"},
        {{"--daily", "99999999999"}, "--daily takes a number from 1"},
        {{"--weekly", "1"}, "at least one day"},
        {{"--weekly", "0", "--on", "mon"}, "--weekly takes a number from 1"},
        {{"--weekly", "1", "--on", ""}, "no day of the week"},
        {{"--weekly", "1", "--on", "mon,,tue"}, "no day of the week"},
        {{"--weekly", "1", "--on", "mon,"}, "no day of the week"},
        {{"--weekly", "1", "--on", "foo"}, "'foo' is no day of the week"},
        {{"--weekly", "1", "--on", "[mon,tue]"}, "no day of the week"},
        {{"--on", "mon"}, "--on goes with --weekly"},
        {{"--monthly", "1"}, "need --day, or --the and --of"},
        {{"--monthly", "0", "--day", "1"}, "--monthly takes a number from 1"},
        {{"--monthly", "1", "--day", "0"}, "--day takes a number from 1 to 31"},
        {{"--monthly", "1", "--day", "32"}, "--day takes a number from 1 to 31"},
        {{"--monthly", "1", "--the", "fifth", "--of", "day"}, "--the takes first"},
        {{"--monthly", "1", "--the", "last", "--of", "holiday"}, "--of takes day"},
        {{"--monthly", "1", "--the", "last"}, "--the and --of go together"},
        {{"--monthly", "1", "--of", "day"}, "--the and --of go together"},
        {{"--monthly", "1", "--day", "1", "--the", "last", "--of", "day"}, "either --day or"},
        {{"--monthly", "1", "--day", "1", "--month", "3"}, "--month goes with --yearly"},
        {{"--day", "1"}, "--day goes with"},
        {{"--the", "last", "--of", "day"}, "--the and --of go with"},
        {{"--of", "day"}, "--the and --of go with"},
        {{"--yearly"}, "need --day, or --the and --of"},
        {{"--yearly", "--day", "1"}, "--yearly needs --month"},
        {{"--yearly", "--month", "13", "--day", "1"}, "--month takes a number from 1 to 12"},
        {{"--yearly", "--month", "0", "--day", "1"}, "--month takes a number from 1 to 12"},
        {{"--yearly", "--month", "2", "--day", "30"}, "February has no day 30"},
        {{"--yearly", "--month", "april", "--day", "31"}, "April has no day 31"},
        {{"--daily", "1", "--weekdays"}, "give only one of"},
        {{"--daily", "1", "--yearly", "--month", "1", "--day", "1"}, "give only one of"},
        {{"--once", "--weekdays"}, "give only one of"},
        {{"--daily", "1", "--daily", "2"}, "--daily"},
    };
}

TEST_F(Pattern, ThatCannotBe_IsRefusedAndNothingWritten)
{
    Add("2950-01-01");
    for (const auto& [options, reason] : Refused())
    {
        ExpectFailure(2, reason, AddArguments("2950-03-04T09:00", options));
    }
}

TEST_F(Pattern, WithoutAnOccurrenceLeftInTheCalendar_IsRefused)
{
    ExpectFailure(2, "no occurrence from 3000-12-15",
                  AddArguments("3000-12-15T09:00", {"--monthly", "1", "--day", "1"}));
    ExpectFailure(2, "no occurrence from 3000-12-15",
                  AddArguments("3000-12-15T09:00", {"--yearly", "--month", "3", "--day", "1"}));
}

} // namespace
