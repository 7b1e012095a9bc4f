#include "tests/hosts/desktop/DesktopProgramTest.h"

#include "ResourceIds.h"

#include <algorithm>
#include <random>

namespace
{

class KillTest : public DesktopProgramTest
{
};

TEST_F(KillTest, ProgramKilledAtRandomMoments_LosesNothingAndStartsAgain)
{
    constexpr unsigned kSeed = 20261121;
    std::mt19937 random(kSeed);
    std::vector<std::wstring> expected;
    for (int round = 0; round < 8; ++round)
    {
        const std::wstring name = L"Round " + std::to_wstring(round);
        Add(name);
        expected.push_back(name);
        const HostProcess host;
        // From before it has a window to when it works on messages.
        Sleep(std::uniform_int_distribution<DWORD>(0, 400)(random));
        for (int message = 0; message < 3; ++message)
        {
            PostMessageW(MainWindowHandle(), ts::kSynchronizationMessage, 0, 0);
        }
        host.Kill();
        EXPECT_EQ(Program::kKilled, host.ExitCode());
        ASSERT_EQ(expected, StoredSubjects()) << "seed " << kSeed << " round " << round;
    }
    const HostProcess host;
    ASSERT_TRUE(host.ShowsWindow());
    EXPECT_TRUE(WaitUntil([&] { return ListedSubjects() == expected; })) << "seed " << kSeed;
}

TEST_F(KillTest, ProgramKilledWhileItDeletes_LeavesEachReminderWholeOrGone)
{
    constexpr unsigned kSeed = 20261122;
    constexpr int kCount = 20;
    std::mt19937 random(kSeed);
    for (int round = 0; round < 5; ++round)
    {
        RegDeleteTreeW(HKEY_CURRENT_USER, ts::kRemindersPath);
        for (int number = 0; number < kCount; ++number)
        {
            Add(L"Reminder " + std::to_wstring(10 + number));
        }
        const std::vector<std::wstring> before = StoredSubjects();
        const HostProcess host;
        ASSERT_TRUE(host.ShowsWindow());
        // The first row each time, so the reminders go in the order of their names.
        for (int number = 0; number < kCount; ++number)
        {
            PostMessageW(MainWindowHandle(), WM_COMMAND, ID_REMINDER_DELETE, 0);
        }
        Sleep(std::uniform_int_distribution<DWORD>(0, 60)(random));
        host.Kill();
        EXPECT_EQ(Program::kKilled, host.ExitCode());
        std::vector<std::wstring> left = StoredSubjects();
        std::ranges::sort(left);
        std::vector<std::wstring> rest = before;
        std::ranges::sort(rest);
        rest.erase(rest.begin(), rest.end() - static_cast<std::ptrdiff_t>(left.size()));
        EXPECT_EQ(rest, left) << "seed " << kSeed << " round " << round;
    }
}

TEST_F(KillTest, ProgramKilledWithADialogOpen_StartsAgain)
{
    Add(L"First");
    {
        const HostProcess host;
        ASSERT_TRUE(host.ShowsWindow());
        PostMessageW(MainWindowHandle(), WM_COMMAND, ID_REMINDER_EDIT, 0);
        ASSERT_TRUE(WaitUntil([&] { return FindDialog(host.ProcessId()) != nullptr; }));
        host.Kill();
        EXPECT_EQ(Program::kKilled, host.ExitCode());
    }
    ASSERT_TRUE(WaitUntil([] { return MainWindowHandle() == nullptr; }));
    const HostProcess again;
    EXPECT_TRUE(again.ShowsWindow());
    EXPECT_EQ(std::vector<std::wstring>{L"First"}, StoredSubjects());
}

} // namespace
