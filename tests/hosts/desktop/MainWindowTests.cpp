#include "tests/hosts/desktop/DesktopProgramTest.h"

#include "ResourceIds.h"
#include "tests/support/WindowDriver.h"

#include <algorithm>
#include <commctrl.h>
#include <set>

// The main window of the program, used from another process.

namespace
{

using namespace ts::test;
using Subjects = std::vector<std::wstring>;

constexpr UINT kOpenReminderMessage = WM_APP + 121;
constexpr int kSubjectControl = 1001;

class MainWindowTest : public DesktopProgramTest
{
  protected:
    /// With the window in the foreground, so that keys reach it.
    static void AwaitWindow(const HostProcess& host)
    {
        ASSERT_TRUE(host.ShowsWindow());
        ASSERT_TRUE(WaitUntil([] { return GetForegroundWindow() == MainWindowHandle(); }));
    }
    static HWND AwaitDialog(const HostProcess& host, const std::wstring& title)
    {
        HWND dialog = nullptr;
        EXPECT_TRUE(WaitUntil(
            [&]
            {
                dialog = FindDialog(host.ProcessId(), title);
                return dialog != nullptr && GetForegroundWindow() == dialog;
            }))
            << std::string(title.begin(), title.end());
        return dialog;
    }
    static bool Lists(const Subjects& subjects)
    {
        return WaitUntil([&] { return ListedSubjects() == subjects; });
    }
    static bool IsFocusedIn(HWND window, int id)
    {
        return WaitUntil(
            [&]
            {
                const HWND focus = FocusOf(window);
                return focus != nullptr && GetDlgCtrlID(focus) == id;
            });
    }
    static void OpenIndex(WPARAM wParam, LPARAM index)
    {
        SendMessageW(MainWindowHandle(), kOpenReminderMessage, wParam, index);
    }
};

TEST_F(MainWindowTest, AddByKeyboard_WritesTheStore)
{
    const HostProcess host;
    AwaitWindow(host);
    PressKeys({VK_CONTROL, 'N'});
    AwaitDialog(host, L"Choose a Topic");
    PressKeys({VK_DOWN});
    PressKeys({VK_RETURN});
    HWND entry = nullptr;
    ASSERT_TRUE(WaitUntil(
        [&]
        {
            entry = FindDialog(host.ProcessId());
            return entry != nullptr && GetDlgItem(entry, kSubjectControl) != nullptr;
        }));
    ASSERT_TRUE(IsFocusedIn(entry, kSubjectControl));
    TypeKeys(L"Call");
    ASSERT_TRUE(WaitUntil([&] { return TextOf(GetDlgItem(entry, kSubjectControl)) == L"Call"; }));
    PressKeys({VK_RETURN});
    EXPECT_TRUE(WaitUntil([] { return StoredSubjects() == Subjects{L"Call"}; }));
    EXPECT_TRUE(Lists({L"Call"}));
    EXPECT_TRUE(WaitUntil([] { return SelectedSubject() == L"Call"; }));
    const CcvReminderDataCollectionManager manager(false);
    const CcvReminderData& stored = *manager.GetReminderByIndex(0);
    EXPECT_TRUE(stored.GetReminderKey() == L"{" + stored.GetMapGuid() + L"-0}");
    EXPECT_TRUE(stored.GetDocumentTitle() == L"Product launch");
    EXPECT_TRUE(stored.GetObjectTitle() == L"Press release");
    EXPECT_FALSE(stored.GetObjectGuid().IsEmpty());
    EXPECT_FALSE(stored.GetDocumentPath().IsEmpty());
}

TEST_F(MainWindowTest, CancelledTopic_WritesNothing)
{
    const HostProcess host;
    AwaitWindow(host);
    PressKeys({VK_CONTROL, 'N'});
    const HWND dialog = AwaitDialog(host, L"Choose a Topic");
    PressKeys({VK_ESCAPE});
    EXPECT_TRUE(WaitUntil([&] { return IsWindow(dialog) == FALSE; }));
    EXPECT_EQ(Subjects{}, StoredSubjects());
    EXPECT_TRUE(IsFocusedIn(MainWindowHandle(), IDC_REMINDER_LIST));
}

TEST_F(MainWindowTest, EditByKeyboard_ChangesTheSelectedReminderAndKeepsTheSnooze)
{
    Add(L"First");
    const CString key = Add(L"Second");
    const HostProcess host;
    AwaitWindow(host);
    ASSERT_TRUE(Lists({L"First", L"Second"}));
    PressKeys({VK_DOWN});
    ASSERT_TRUE(WaitUntil([] { return SelectedSubject() == L"Second"; }));
    PressKeys({VK_RETURN});
    const HWND dialog = AwaitDialog(host, L"Second");
    ASSERT_TRUE(IsFocusedIn(dialog, kSubjectControl));
    // Snoozed by somebody else while the dialog is open.
    RunReminders(L"snooze " + std::wstring(key) + L" 2h");
    TypeKeys(L"Other");
    PressKeys({VK_RETURN});
    EXPECT_TRUE(Lists({L"First", L"Other"}));
    EXPECT_EQ(L"Other", SelectedSubject());
    CcvReminderData stored(key);
    ASSERT_TRUE(stored.LoadDataFromRegistry(ts::kRemindersPath));
    EXPECT_TRUE(stored.GetSubject() == L"Other");
    EXPECT_TRUE(stored.IsSnoozed());
}

TEST_F(MainWindowTest, ReminderDeletedWhileItIsEdited_StaysDeletedAndTheUserIsTold)
{
    const CString key = Add(L"First");
    Add(L"Second");
    const HostProcess host;
    AwaitWindow(host);
    ASSERT_TRUE(Lists({L"First", L"Second"}));
    PressKeys({VK_CONTROL, 'E'});
    AwaitDialog(host, L"First");
    RunReminders(L"delete " + std::wstring(key));
    ASSERT_TRUE(Lists({L"Second"}));
    PressKeys({VK_RETURN});
    AwaitDialog(host, L"Tessaly");
    PressKeys({VK_RETURN});
    EXPECT_TRUE(WaitUntil([&] { return FindDialog(host.ProcessId()) == nullptr; }));
    EXPECT_EQ(Subjects{L"Second"}, StoredSubjects());
}

TEST_F(MainWindowTest, DeleteKey_DeletesTheSelectedReminderAndSelectsTheNext)
{
    Add(L"First");
    Add(L"Second");
    const HostProcess host;
    AwaitWindow(host);
    ASSERT_TRUE(Lists({L"First", L"Second"}));
    PressKeys({VK_DELETE});
    EXPECT_TRUE(Lists({L"Second"}));
    EXPECT_EQ(L"Second", SelectedSubject());
    EXPECT_EQ(Subjects{L"Second"}, StoredSubjects());
    PressKeys({VK_DELETE});
    EXPECT_TRUE(Lists({}));
    EXPECT_FALSE(IsWindowEnabled(GetDlgItem(MainWindowHandle(), ID_REMINDER_EDIT)));
    EXPECT_TRUE(IsWindowVisible(GetDlgItem(MainWindowHandle(), IDC_EMPTY_HINT)));
}

TEST_F(MainWindowTest, ManageByMnemonic_OpensOnceAndCloses)
{
    Add(L"First");
    const HostProcess host;
    AwaitWindow(host);
    PressKeys({VK_CONTROL, 'M'});
    const HWND manage = AwaitDialog(host, L"");
    ASSERT_NE(nullptr, manage);
    SendMessageW(MainWindowHandle(), WM_COMMAND, ID_REMINDER_MANAGE, 0);
    EXPECT_TRUE(WaitUntil([&] { return GetForegroundWindow() == manage; }));
    PressKeys({VK_ESCAPE});
    EXPECT_TRUE(WaitUntil([&] { return IsWindow(manage) == FALSE; }));
    SendMessageW(MainWindowHandle(), WM_COMMAND, ID_REMINDER_MANAGE, 0);
    EXPECT_TRUE(WaitUntil([&] { return FindDialog(host.ProcessId()) != nullptr; }));
    PostMessageW(MainWindowHandle(), WM_CLOSE, 0, 0);
    EXPECT_EQ(0u, host.ExitCode());
}

TEST_F(MainWindowTest, ChangesByAnotherProcess_AppearAndKeepTheSelection)
{
    const CString first = Add(L"First");
    Add(L"Second");
    const HostProcess host;
    AwaitWindow(host);
    ASSERT_TRUE(Lists({L"First", L"Second"}));
    PressKeys({VK_END});
    ASSERT_TRUE(WaitUntil([] { return SelectedSubject() == L"Second"; }));
    SendMessageW(MainWindowHandle(), WM_COMMAND, ID_REMINDER_MANAGE, 0);
    const HWND manage = FindDialog(host.ProcessId());
    constexpr int kManageList = 1030;
    const auto managed = [&]
    { return SendMessageW(GetDlgItem(manage, kManageList), LVM_GETITEMCOUNT, 0, 0); };
    EXPECT_EQ(2, managed());
    RunReminders(L"add --document x --map 6B1D7C5E-0F43-4C0B-9A35-3F1B8E6A2D01 --topic "
                 L"0A9E44C2-7B1D-4E55-8C90-1F2E3D4C5B6A --subject Third --due 2951-01-01");
    // The map has no title and so comes under its file's name.
    EXPECT_EQ((Subjects{L"First", L"Second", L"Third"}), ListedSubjects());
    EXPECT_EQ(L"Second", SelectedSubject());
    EXPECT_EQ(3, managed());
    RunReminders(L"delete " + std::wstring(first));
    EXPECT_EQ((Subjects{L"Second", L"Third"}), ListedSubjects());
    EXPECT_EQ(L"Second", SelectedSubject());
    EXPECT_EQ(2, managed());
}

TEST_F(MainWindowTest, OpenMessage_SelectsTheTopicOfTheIndexAndRestoresTheWindow)
{
    for (const wchar_t* name : {L"First", L"Second", L"Third"})
    {
        Add(name);
    }
    const HostProcess host;
    AwaitWindow(host);
    const Subjects stored = StoredSubjects();
    for (const int index : {2, 0, 1})
    {
        ShowWindow(MainWindowHandle(), SW_MINIMIZE);
        OpenIndex(0, index);
        EXPECT_EQ(stored.at(static_cast<std::size_t>(index)), SelectedSubject());
        EXPECT_FALSE(IsIconic(MainWindowHandle()));
        EXPECT_TRUE(WaitUntil([] { return GetForegroundWindow() == MainWindowHandle(); }));
    }
}

TEST_F(MainWindowTest, OpenMessageOutOfRange_IsIgnored)
{
    Add(L"First");
    Add(L"Second");
    const HostProcess host;
    AwaitWindow(host);
    ASSERT_TRUE(WaitUntil([] { return SelectedSubject() == L"First"; }));
    ShowWindow(MainWindowHandle(), SW_MINIMIZE);
    const std::pair<WPARAM, LPARAM> messages[] = {
        {0, -1}, {0, 2}, {0, LPARAM{1} << 32}, {0, (LPARAM{1} << 32) + 1}, {1, 1}};
    for (const auto& [wParam, index] : messages)
    {
        OpenIndex(wParam, index);
        EXPECT_TRUE(IsIconic(MainWindowHandle())) << index;
        EXPECT_EQ(L"First", SelectedSubject()) << index;
    }
}

TEST_F(MainWindowTest, CloseWhileADialogIsOpen_IsRefusedAndLeavesTheDialog)
{
    Add(L"First");
    const HostProcess host;
    AwaitWindow(host);
    PressKeys({VK_CONTROL, 'E'});
    const HWND dialog = AwaitDialog(host, L"First");
    SendMessageW(MainWindowHandle(), WM_CLOSE, 0, 0);
    SendMessageW(MainWindowHandle(), WM_COMMAND, ID_REMINDER_DELETE, 0);
    EXPECT_TRUE(IsWindow(dialog));
    PressKeys({VK_ESCAPE});
    EXPECT_TRUE(WaitUntil([&] { return IsWindow(dialog) == FALSE; }));
    EXPECT_EQ(Subjects{L"First"}, StoredSubjects());
    PostMessageW(MainWindowHandle(), WM_CLOSE, 0, 0);
    EXPECT_EQ(0u, host.ExitCode());
}

TEST_F(MainWindowTest, EditedInTheManageWindow_KeepsTheMainWindowFromClosing)
{
    Add(L"First");
    const HostProcess host;
    AwaitWindow(host);
    SendMessageW(MainWindowHandle(), WM_COMMAND, ID_REMINDER_MANAGE, 0);
    const HWND manage = AwaitDialog(host, L"");
    constexpr int kEditButton = 1025;
    PostMessageW(manage, WM_COMMAND, kEditButton, 0);
    ASSERT_TRUE(WaitUntil([&] { return IsWindowEnabled(manage) == FALSE; }));
    SendMessageW(MainWindowHandle(), WM_CLOSE, 0, 0);
    EXPECT_TRUE(IsWindow(manage));
    ASSERT_TRUE(WaitUntil([&] { return GetForegroundWindow() == GetLastActivePopup(manage); }));
    PressKeys({VK_ESCAPE});
    ASSERT_TRUE(WaitUntil([&] { return IsWindowEnabled(manage) != FALSE; }));
    PostMessageW(MainWindowHandle(), WM_CLOSE, 0, 0);
    EXPECT_EQ(0u, host.ExitCode());
}

TEST_F(MainWindowTest, RemindersAddedWhileItStarts_AreListed)
{
    for (int round = 0; round < 3; ++round)
    {
        const HostProcess host;
        // Without a window it cannot be told.
        std::set<std::wstring> untold;
        std::wstring last;
        while (MainWindowHandle() == nullptr)
        {
            untold.insert(last);
            last = std::to_wstring(round) + L"." + std::to_wstring(untold.size());
            Add(last);
        }
        untold.erase(L"");
        ASSERT_FALSE(untold.empty());
        ASSERT_TRUE(host.ShowsWindow());
        EXPECT_TRUE(WaitUntil(
            [&]
            {
                const Subjects listed = ListedSubjects();
                return std::ranges::includes(std::set(listed.begin(), listed.end()), untold);
            }))
            << untold.size();
    }
}

TEST_F(MainWindowTest, DamagedReminder_IsListedBesideTheOthers)
{
    Add(L"Sound");
    const CString key = Add(L"Damaged");
    CcvReminderData damaged(key);
    ASSERT_TRUE(damaged.LoadDataFromRegistry(ts::kRemindersPath));
    damaged.SetRecurrenceType(EcvReminderRecurrenceType::Monthly);
    damaged.SetMonthlyOccurenceType(EcvReminderMonthlyOccurence::OrdinalDayType);
    damaged.SetMonthlyReminderDayIntegralType(static_cast<EcvReminderDayIntegralType>(9));
    damaged.SetMonthlyReminderPattern2Month(1);
    damaged.SetNextDueDate(CTime(2025, 1, 1, 0, 0, 0));
    ASSERT_TRUE(damaged.SaveDataToRegistry(ts::kRemindersPath));
    const HostProcess host;
    AwaitWindow(host);
    EXPECT_TRUE(Lists({L"Sound", L"Damaged"}));
}

} // namespace
