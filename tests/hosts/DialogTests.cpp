#include "ConsoleHarness.h"

#include "App.h"
#include "tests/support/ManyRounds.h"
#include "tests/support/WindowDriver.h"

#include <functional>
#include <sstream>

namespace
{

using namespace ts::test;

constexpr int kSubject = 1001;
constexpr int kLeadTime = 1004;
constexpr int kToggleRecurrence = 1064;
constexpr int kDaily = 1068;

bool Always()
{
    return true;
}

/// Runs the program for a user who sees the dialog and does something to it.
Outcome WithDialog(const std::vector<std::string>& arguments, const std::function<void(HWND)>& use)
{
    std::ostringstream out;
    std::ostringstream err;
    ts::console::Session session{out, err, 100, CTimeSpan(30), Always};
    const WhenShown shown(L"#32770", use);
    const int code = ts::console::Run(arguments, session);
    EXPECT_TRUE(shown.Happened());
    return {code, out.str(), err.str()};
}

void Press(HWND dialog, int button)
{
    Click(GetDlgItem(dialog, button), 3, 3);
}

void TypeSubject(HWND dialog, const wchar_t* text)
{
    SetFocus(GetDlgItem(dialog, kSubject));
    SendMessageW(GetDlgItem(dialog, kSubject), EM_SETSEL, 0, -1);
    TypeText(text);
}

/// "add --dialog" with nothing but what every reminder needs.
std::vector<std::string> DialogArguments()
{
    return {"add", "--document", "C:\\maps\\plan.map", "--map", kMap, "--topic", kTopic, "--dialog"};
}

class DialogOption : public ConsoleTest
{
  protected:
    void SetUp() override
    {
        ConsoleTest::SetUp();
        ts::SetInterfaceLanguage(L"en");
    }
    void TearDown() override { ts::SetInterfaceLanguage(nullptr); }
};

TEST_F(DialogOption, AddWithOk_StoresWhatWasEntered)
{
    const Outcome outcome = WithDialog(DialogArguments(),
                                       [](HWND dialog)
                                       {
                                           EXPECT_EQ(L"Add Reminder", TextOf(dialog));
                                           TypeSubject(dialog, L"Call");
                                           Press(dialog, kToggleRecurrence);
                                           Press(dialog, kDaily);
                                           Press(dialog, IDOK);
                                       });
    EXPECT_EQ(0, outcome.code) << outcome.err;
    EXPECT_EQ(std::string("{") + kMap + "-0}\n", outcome.out);
    const Json json = SucceedJson({"show", std::string("{") + kMap + "-0}"});
    EXPECT_EQ("Call", json["subject"]);
    EXPECT_EQ("daily", json["recurrenceType"]);
    EXPECT_EQ("C:\\maps\\plan.map", json["documentPath"]);
}

TEST_F(DialogOption, AddWithCancel_StoresNothing)
{
    const std::string before = Snapshot();
    const Outcome outcome = WithDialog(DialogArguments(), [](HWND dialog) { Press(dialog, IDCANCEL); });
    EXPECT_EQ(0, outcome.code);
    EXPECT_EQ("Not added.\n", outcome.out);
    EXPECT_EQ(before, Snapshot());
}

TEST_F(DialogOption, EditWithOk_ShowsTheReminderAndStoresTheChange)
{
    const std::string key = Add("2950-03-04T09:00", {"--weekly", "2", "--on", "tue", "--title", "Topic"});
    const Json before = SucceedJson({"show", key});
    const Outcome outcome = WithDialog({"edit", key, "--dialog", "--lead", "3h"},
                                       [](HWND dialog)
                                       {
                                           EXPECT_EQ(L"Send report", TextOf(dialog));
                                           EXPECT_EQ(L"Send report", TextOf(GetDlgItem(dialog, kSubject)));
                                           EXPECT_EQ(L"3 hours", TextOf(GetDlgItem(dialog, kLeadTime)));
                                           TypeSubject(dialog, L"Other");
                                           Press(dialog, IDOK);
                                       });
    EXPECT_EQ(0, outcome.code) << outcome.err;
    EXPECT_EQ(0U, outcome.out.find("Changed. Due "));
    const Json after = SucceedJson({"show", key});
    EXPECT_EQ("Other", after["subject"]);
    EXPECT_EQ(3 * 3600, after["leadSeconds"]);
    for (const char* same : {"initialDue", "nextDue", "recurrenceOptions", "objectTitle", "mapGuid"})
    {
        EXPECT_EQ(before[same], after[same]) << same;
    }
}

TEST_F(DialogOption, EditWithCancel_ChangesNothing)
{
    const std::string key = Add("2950-03-04T09:00");
    const std::string before = Snapshot();
    const Outcome outcome = WithDialog({"edit", key, "--dialog"},
                                       [](HWND dialog)
                                       {
                                           TypeSubject(dialog, L"Other");
                                           Press(dialog, IDCANCEL);
                                       });
    EXPECT_EQ(0, outcome.code);
    EXPECT_EQ("Not changed.\n", outcome.out);
    EXPECT_EQ(before, Snapshot());
}

TEST_F(DialogOption, NoDisplay_OneLineAndNothingStored)
{
    const std::string key = Add("2950-03-04T09:00");
    // The tests' own screen cannot be seen by anybody.
    ExpectFailure(1, "the dialog cannot be shown: there is no display", {"edit", key, "--dialog"});
    ExpectFailure(1, "the dialog cannot be shown: there is no display", DialogArguments());
}

TEST_F(DialogOption, WrongArgumentsBesideIt_AreRefusedFirst)
{
    ExpectFailure(1, "no reminder", {"edit", "{unknown-0}", "--dialog"});
    std::vector<std::string> arguments = DialogArguments();
    arguments[4] = "x";
    ExpectFailure(2, "--map is no GUID", arguments);
}

TEST_F(DialogOption, ManyRounds_LeaveNothingBehind)
{
    const std::string key = Add("2950-03-04T09:00", {"--weekly", "2", "--on", "tue"});
    const auto round = [&key]
    {
        EXPECT_EQ(0, WithDialog(DialogArguments(), [](HWND dialog) { Press(dialog, IDCANCEL); }).code);
        EXPECT_EQ(0, WithDialog({"edit", key, "--dialog"}, [](HWND dialog) { Press(dialog, IDOK); }).code);
    };
    ExpectRoundsLeaveNothing(5, round);
}

} // namespace
