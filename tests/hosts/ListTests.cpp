#include "ConsoleHarness.h"
#include "DisplayText.h"

#include <sstream>

namespace
{

class ListCommand : public ConsoleTest
{
  protected:
    static std::vector<std::string> Subjects(const std::vector<std::string>& options)
    {
        std::vector<std::string> arguments = {"list"};
        arguments.insert(arguments.end(), options.begin(), options.end());
        std::vector<std::string> subjects;
        for (const Json& reminder : SucceedJson(arguments))
        {
            subjects.push_back(reminder["subject"]);
        }
        return subjects;
    }

    static std::string AddSubject(const std::string& subject, const std::string& due,
                                  const std::vector<std::string>& more = {})
    {
        std::vector<std::string> arguments = AddArguments(due, more);
        arguments[8] = subject;
        return Succeed(arguments);
    }
};

using Texts = std::vector<std::string>;

TEST_F(ListCommand, NoStore_IsAnEmptyList)
{
    EXPECT_EQ("No reminders.", Succeed({"list"}));
    EXPECT_EQ("No such reminders.", Succeed({"list", "--filter", "today"}));
    EXPECT_EQ(Json::array(), SucceedJson({"list"}));
    EXPECT_EQ("", Snapshot());
}

TEST_F(ListCommand, Order_IsDueTimeThenKeyAndNoDueTimeLast)
{
    WriteText("{a-0}", L"Subject", L"no due time");
    AddSubject("late", "2950-05-01");
    AddSubject("early", "2950-03-01");
    AddSubject("same, second key", "2950-04-01");
    AddSubject("same, third key", "2950-04-01");
    EXPECT_EQ((Texts{"early", "same, second key", "same, third key", "late", "no due time"}), Subjects({}));
}

TEST_F(ListCommand, Recent_EndsBelow31DaysAfterTheDueTime)
{
    AddSubject("x", "2950-03-01T12:00Z");
    EXPECT_EQ(Texts{"x"}, Subjects({"--filter", "recent", "--at", "2949-01-01T12:00Z"}));
    EXPECT_EQ(Texts{"x"}, Subjects({"--filter", "recent", "--at", "2950-03-01T12:00Z"}));
    EXPECT_EQ(Texts{"x"}, Subjects({"--filter", "recent", "--at", "2950-04-01T11:59:59Z"}));
    EXPECT_EQ(Texts{}, Subjects({"--filter", "recent", "--at", "2950-04-01T12:00Z"}));
}

TEST_F(ListCommand, Today_IsTheLocalDateOfTheDueTime)
{
    AddSubject("x", "2950-03-04T09:00");
    EXPECT_EQ(Texts{}, Subjects({"--filter", "today", "--at", "2950-03-03T23:59:59"}));
    EXPECT_EQ(Texts{"x"}, Subjects({"--filter", "today", "--at", "2950-03-04T00:00"}));
    EXPECT_EQ(Texts{"x"}, Subjects({"--filter", "today", "--at", "2950-03-04T23:59:59"}));
    EXPECT_EQ(Texts{}, Subjects({"--filter", "today", "--at", "2950-03-05T00:00"}));
}

TEST_F(ListCommand, Due_BeginsAtTheReminderTime)
{
    AddSubject("x", "2950-03-04T09:00", {"--lead", "1h"});
    EXPECT_EQ(Texts{}, Subjects({"--filter", "due", "--at", "2950-03-04T07:59:59"}));
    EXPECT_EQ(Texts{"x"}, Subjects({"--filter", "due", "--at", "2950-03-04T08:00"}));
    EXPECT_EQ(Texts{"x"}, Subjects({"--filter", "DUE", "--at", "2960-03-04T08:00"}));
}

TEST_F(ListCommand, DueOfASnoozedReminder_WaitsForItsSnoozeTime)
{
    const std::string key = AddSubject("x", "2020-03-04T09:00");
    EXPECT_EQ(Texts{"x"}, Subjects({"--filter", "due"}));
    Succeed({"snooze", key, "1d"});
    EXPECT_EQ(Texts{}, Subjects({"--filter", "due"}));
    EXPECT_EQ(Texts{"x"}, Subjects({"--filter", "due", "--at", "2950-01-01"}));
}

TEST_F(ListCommand, DismissedReminder_IsNotDueAnyMore)
{
    const std::string key = AddSubject("x", "2020-03-04T09:00");
    Succeed({"dismiss", key});
    EXPECT_EQ(Texts{}, Subjects({"--filter", "due"}));
    Succeed({"undismiss", key});
    EXPECT_EQ(Texts{"x"}, Subjects({"--filter", "due"}));
}

TEST_F(ListCommand, At_MovesRecurringRemindersOnWithoutWriting)
{
    AddSubject("x", "2950-03-04T09:00", {"--daily", "1", "--lead", "1h"});
    const std::string before = Snapshot();
    const auto dueAt = [](const std::string& at) {
        return SucceedJson({"list", "--at", at})[0]["due"].get<std::string>().substr(0, 19);
    };
    EXPECT_EQ("2950-03-04T09:00:00", dueAt("2950-03-05T07:59:59"));
    EXPECT_EQ("2950-03-05T09:00:00", dueAt("2950-03-05T08:00"));
    EXPECT_EQ("2950-12-24T09:00:00", dueAt("2950-12-24T08:30"));
    EXPECT_EQ("2950-03-04T09:00:00",
              SucceedJson({"list", "--at", "2950-12-24"})[0]["nextDue"].get<std::string>().substr(0, 19));
    EXPECT_EQ(before, Snapshot());
}

TEST_F(ListCommand, WideTerminal_HasKeysInAColumn)
{
    const std::string key =
        AddSubject("Bericht", "2950-03-04T09:00", {"--document-title", "Plan", "--weekdays"});
    std::istringstream lines(Succeed({"list", "--at", "2950-03-01"}, 140));
    std::string heading;
    std::string row;
    std::getline(lines, heading);
    std::getline(lines, row);
    EXPECT_NE(std::string::npos, heading.find("SUBJECT  DOCUMENT  REPEATS        WHEN           KEY"));
    EXPECT_NE(std::string::npos, row.find("pending  Bericht  Plan      every weekday  Due in 3 days  " + key))
        << row;
}

TEST_F(ListCommand, AnyTerminal_ShowsKeysWholeAndLinesThatFit)
{
    const std::string key = AddSubject(
        "\xE9\x80\xB1\xE6\xAC\xA1\xE3\x83\xAC\xE3\x83\x9D\xE3\x83\xBC\xE3\x83\x88 of a very long name "
        "that goes on and on",
        "2950-03-04T09:00",
        {"--document-title", "An equally long title", "--yearly", "--month", "5", "--the", "last", "--of",
         "weekend-day"});
    for (std::size_t width = 46; width < 260; ++width)
    {
        const std::string text = Succeed({"list"}, width);
        EXPECT_NE(std::string::npos, text.find(key)) << width;
        std::istringstream lines(text);
        for (std::string line; std::getline(lines, line);)
        {
            EXPECT_LE(ts::console::DisplayWidth(line), width) << line;
        }
    }
}

TEST_F(ListCommand, DistanceBelowARow_IsShownAsSoonAsItFits)
{
    const std::string key = AddSubject("Bericht", "2950-03-04T09:00");
    const std::string note = "  " + key + "  Due in 3 days";
    EXPECT_NE(std::string::npos, Succeed({"list", "--at", "2950-03-01"}, note.size()).find(note));
    const std::string narrower = Succeed({"list", "--at", "2950-03-01"}, note.size() - 1);
    EXPECT_EQ(std::string::npos, narrower.find("Due in"));
    EXPECT_NE(std::string::npos, narrower.find(key));
}

TEST_F(ListCommand, DocumentWithoutTitle_IsNamedByItsFile)
{
    AddSubject("x", "2950-03-04T09:00");
    EXPECT_NE(std::string::npos, Succeed({"list"}).find("  plan.map  "));
}

TEST_F(ListCommand, Status_SaysWhatHolds)
{
    const std::string key = AddSubject("x", "2950-03-04T09:00", {"--lead", "1h"});
    const auto statusAt = [](const std::string& at) {
        return SucceedJson({"list", "--at", at})[0]["status"].get<std::string>();
    };
    EXPECT_EQ("RemindPending", statusAt("2950-03-03T09:00"));
    EXPECT_EQ("DueTodayPending", statusAt("2950-03-04T07:00"));
    EXPECT_EQ("DueTodayActive", statusAt("2950-03-04T08:30"));
    EXPECT_EQ("Overdue", statusAt("2950-03-04T09:00:01"));
    Succeed({"edit", key, "--lead", "1d"});
    EXPECT_EQ("RemindActive", statusAt("2950-03-03T09:30"));
    const std::pair<const char*, const char*> rows[] = {{"2950-03-01", "  pending  "},
                                                        {"2950-03-03T09:30", "  active  "},
                                                        {"2950-03-04T08:30", "  today, active  "},
                                                        {"2950-03-05", "  overdue  "}};
    for (const auto& [at, text] : rows)
    {
        EXPECT_NE(std::string::npos, Succeed({"list", "--at", at}).find(text)) << at;
    }
    Succeed({"snooze", key, "1h"});
    EXPECT_NE(std::string::npos, Succeed({"list"}).find("  snoozed  "));
    Succeed({"dismiss", key});
    EXPECT_NE(std::string::npos, Succeed({"list"}).find("  dismissed  "));
}

TEST_F(ListCommand, WrongUse_IsRefused)
{
    ExpectFailure(2, "--filter takes all", {"list", "--filter", "soon"});
    ExpectFailure(2, "--filter takes all", {"list", "--filter", ""});
    ExpectFailure(2, "--at", {"list", "--at", "2026-02-30"});
    ExpectFailure(2, "extra", {"list", "extra"});
    ExpectFailure(2, "--unknown", {"list", "--unknown"});
}

} // namespace
