#include "tests/hosts/OtherWindows.h"
#include "tests/hosts/service/ServiceProgram.h"
#include "tests/support/WindowDriver.h"

// The README's example of a host, as whoever builds it meets it.

namespace
{

using ts::test::TextOf;

constexpr int kList = 1030;
constexpr int kSubject = 1021;

using ReadmeHostExample = ServiceProgramTest;

TEST_F(ReadmeHostExample, FollowsAnotherProgramAndClosesWithEscape)
{
    const std::string key = Add(Now() + CTimeSpan(86'400));
    const Program example(L"", L"readme_host_example.exe");
    HWND dialog = nullptr;
    ASSERT_TRUE(WaitUntil([&] { return (dialog = FindDialog(example.ProcessId())) != nullptr; }));
    const auto subject = [&] { return TextOf(GetDlgItem(dialog, kSubject)); };
    const auto rows = [&] { return RowCount(GetDlgItem(dialog, kList)); };
    EXPECT_TRUE(WaitUntil([&] { return rows() == 1 && subject() == L"s100"; }));

    RunReminders(L"edit --no-outlook " + std::wstring(key.begin(), key.end()) + L" --subject Other");
    EXPECT_TRUE(WaitUntil([&] { return rows() == 1 && subject() == L"Other"; }));
    Add(Now() + CTimeSpan(90'000));
    EXPECT_TRUE(WaitUntil([&] { return rows() == 2; }));

    ASSERT_TRUE(WaitUntil([&] { return FocusOf(dialog) != nullptr; }));
    PostMessageW(FocusOf(dialog), WM_KEYDOWN, VK_ESCAPE, 1);
    EXPECT_EQ(0u, example.ExitCode());
    EXPECT_EQ("", example.ReadAll());
    EXPECT_TRUE(Exists(key));
}

} // namespace
