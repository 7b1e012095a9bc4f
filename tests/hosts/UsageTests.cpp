#include "ConsoleHarness.h"

namespace
{

class Usage : public ConsoleTest
{
};

constexpr const char* kCommands[] = {"list",
                                     "show",
                                     "next",
                                     "find",
                                     "add",
                                     "edit",
                                     "snooze",
                                     "dismiss",
                                     "undismiss",
                                     "delete",
                                     "move",
                                     "watch",
                                     "open-appointment",
                                     "outlook-check",
                                     "options"};

TEST_F(Usage, Nothing_PrintsHelpAndIsWrongUse)
{
    const Outcome outcome = Reminders({});
    EXPECT_EQ(2, outcome.code);
    EXPECT_EQ("reminders: a command is needed\n", outcome.err);
    for (const char* command : kCommands)
    {
        EXPECT_NE(std::string::npos, outcome.out.find(std::string("\n  ") + command + " ")) << command;
    }
}

TEST_F(Usage, Help_OfEveryCommandHasAnExampleOfItself)
{
    EXPECT_NE(std::string::npos, Succeed({"--help"}).find("Example:\n  reminders "));
    for (const char* command : kCommands)
    {
        for (const char* flag : {"--help", "-h"})
        {
            const std::string help = Succeed({command, flag});
            EXPECT_NE(std::string::npos, help.find(std::string("Example:\n  reminders ") + command)) << help;
        }
    }
}

TEST_F(Usage, Help_GoesBeforeMissingArguments)
{
    EXPECT_EQ(0, Reminders({"snooze", "--help"}).code);
    EXPECT_EQ(0, Reminders({"add", "--subject", "x", "--help"}).code);
}

TEST_F(Usage, Version_IsPrinted)
{
    const std::string version = Succeed({"--version"});
    EXPECT_EQ(0u, version.find("reminders "));
    EXPECT_NE(std::string::npos, version.find('.'));
}

TEST_F(Usage, WrongUse_IsOneLineAndExitCode2)
{
    const std::string key = Add("2950-03-04");
    const std::vector<std::string> rows[] = {
        {"unknown"},
        {"--unknown"},
        {"--filter", "all"},
        {""},
        {"\xE9\x80\xB1"},
        {"LIST"},
        {"list", "show"},
        {"list", "--json=maybe"},
        {"list", "--at"},
        {"list", "--at", "2026-01-01", "--at", "2026-01-02"},
        {"show"},
        {"show", "a", "b"},
        {"snooze"},
        {"dismiss"},
        {"dismiss", "a", "b"},
        {"undismiss"},
        {"delete"},
        {"move"},
        {"watch", "now"},
        {"open-appointment"},
        {"outlook-check", "now"},
        {"list", "--no-outlook"},
        {"snooze", key, "1h", "--no-outlook=maybe"},
        {"edit"},
        {"add"},
    };
    for (const auto& arguments : rows)
    {
        ExpectFailure(2, "--help)", arguments);
    }
}

TEST_F(Usage, UnknownCommand_IsNamed)
{
    ExpectFailure(2, "there is no command 'unknown'", {"unknown", "list"});
    ExpectFailure(2,
                  "there is no command 'a\xEF\xBF\xBD"
                  "b'",
                  {"a\nb"});
}

TEST_F(Usage, KeyNamedLikeACommand_IsAKey)
{
    WriteText("list", L"Subject", L"odd");
    EXPECT_EQ("odd", SucceedJson({"show", "list"})["subject"]);
}

} // namespace
