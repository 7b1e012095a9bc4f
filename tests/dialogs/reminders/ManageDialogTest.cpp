#include "dialogs/CcvMfcManageRemindersDialogInternal.h"
#include "tests/dialogs/reminders/ManageHarness.h"
#include "tests/support/HeapKind.h"
#include "tests/support/ManyRounds.h"

namespace
{

using namespace ts::test;

TEST_F(ManageTest, Opened_ListsRecentRemindersAndSelectsTheFirst)
{
    AddThree();
    m_store.Add(L"old", Noon() - CTimeSpan(31 * kSecondsPerDay));
    Open();
    EXPECT_EQ(L"Manage Reminders", TextOf(Dialog()));
    EXPECT_EQ((Texts{L"once", L"daily", L"later"}), Subjects());
    EXPECT_EQ(0, List().GetSelectedIndex());
    EXPECT_EQ(L"once", ItemText(IDC_REMINDER_SUBJECT));
    EXPECT_EQ(IDC_REMINDERS, FocusedItem());
    EXPECT_EQ(static_cast<UINT>(BST_CHECKED), IsDlgButtonChecked(Dialog(), IDC_FILTER_RECENT));
    EXPECT_EQ(Dialog(), GetForegroundWindow());
    for (const int button : {IDC_OPEN_REMINDER, IDC_EDIT_REMINDER, IDC_DELETE_REMINDER, IDCANCEL})
    {
        EXPECT_TRUE(IsEnabled(button)) << button;
    }
}

TEST_F(ManageTest, EmptyList_EnablesNothing)
{
    Open();
    for (const int button : {IDC_OPEN_REMINDER, IDC_EDIT_REMINDER, IDC_DELETE_REMINDER})
    {
        EXPECT_FALSE(IsEnabled(button)) << button;
    }
    EXPECT_TRUE(IsShown(IDC_NOTHING_SELECTED));
    EXPECT_FALSE(IsShown(IDC_REMINDER_SUBJECT));
    Command(IDC_DELETE_REMINDER);
    Command(IDC_EDIT_REMINDER);
    PumpMessages();
    EXPECT_TRUE(IsWindowEnabled(Dialog())) << "nothing is asked";
    Synchronize();
    PumpMessages();
    EXPECT_TRUE(IsOpen()) << "it does not close itself";
}

TEST_F(ManageTest, RadioButtons_ChangeTheFilterAtOnce)
{
    AddThree();
    Open();
    PressButton(IDC_FILTER_TODAY);
    EXPECT_EQ((Texts{L"once", L"daily"}), Subjects());
    PressButton(IDC_FILTER_RECENT);
    EXPECT_EQ((Texts{L"once", L"daily", L"later"}), Subjects());
    List().SelectRow(2);
    PressMnemonic(L't');
    EXPECT_EQ((Texts{L"once", L"daily"}), Subjects());
    EXPECT_EQ(1, List().GetSelectedIndex()) << "the last, for the row that is gone";
    PressMnemonic(L'r');
    EXPECT_EQ(3, List().GetItemCount());
}

TEST_F(ManageTest, Tab_GoesRound)
{
    AddThree();
    Open();
    std::vector<int> visited;
    for (int step = 0; step < 6; ++step)
    {
        PressKey(VK_TAB);
        visited.push_back(FocusedItem());
    }
    EXPECT_EQ((std::vector<int>{IDC_FILTER_RECENT, IDC_OPEN_REMINDER, IDC_EDIT_REMINDER, IDC_DELETE_REMINDER,
                                IDCANCEL, IDC_REMINDERS}),
              visited);
}

TEST_F(ManageTest, EachWayToClose_ChangesNothing)
{
    AddThree();
    for (int way = 0; way < 4; ++way)
    {
        Open();
        switch (way)
        {
        case 0:
            PressKey(VK_ESCAPE);
            break;
        case 1:
            PressKey(VK_RETURN);
            break;
        case 2:
            SystemCommand(SC_CLOSE);
            break;
        default:
            Command(IDOK);
            break;
        }
        EXPECT_FALSE(IsOpen()) << way;
    }
    EXPECT_FALSE(m_store.Load(m_once)->IsDimissed());
    EXPECT_EQ(Noon() + CTimeSpan(60), NextDue(m_daily));
}

TEST_F(ManageTest, Open_PostsTheReminderAndTakesTheFocusBack)
{
    const ApplicationWindow application(ts::kMainWindowClass);
    AddThree();
    Open();
    PressKey(VK_DOWN);
    PressButton(IDC_OPEN_REMINDER);
    MSG message{};
    EXPECT_NE(FALSE, PeekMessageW(&message, Dialog(), WM_SETFOCUS, WM_SETFOCUS, PM_NOREMOVE));
    PumpMessages();
    EXPECT_EQ((Rows{m_daily}), application.Opened());
}

/// Keeps what it is told of its screens.
class WatchedManage : public CcvMfcManageRemindersDialogInternal
{
  public:
    using CcvMfcManageRemindersDialogInternal::CcvMfcManageRemindersDialogInternal;
    void OnScreenView(const CString& name, EcvFeedbackType type, EcvSendFeedback send) override
    {
        m_screens.emplace_back(name.GetString());
        EXPECT_EQ(0, static_cast<int>(type));
        EXPECT_EQ(2, static_cast<int>(send));
    }
    Texts m_screens;
};

TEST_F(ManageTest, Shown_RecordsItsScreen)
{
    Load();
    WatchedManage dialog(m_manager.get(), nullptr);
    const WhenShown shown(L"#32770", [](HWND window) { SendMessageW(window, WM_COMMAND, IDCANCEL, 0); });
    EXPECT_EQ(IDCANCEL, dialog.DoModal());
    EXPECT_EQ((Texts{L"AlertsManage"}), dialog.m_screens);
}

TEST_F(ManageTest, LargerWindow_GivesItsRoomToTheList)
{
    AddThree();
    Open();
    const CSize size = SizeOf(Dialog());
    std::vector<std::pair<int, CRect>> expected;
    for (const int down : {IDC_FILTER_LABEL, IDC_FILTER_RECENT, IDC_FILTER_TODAY, IDC_OPEN_REMINDER,
                           IDC_EDIT_REMINDER, IDC_DELETE_REMINDER, IDCANCEL})
    {
        CRect place = ItemPlace(down);
        place.OffsetRect(down == IDCANCEL ? 100 : 0, 60);
        expected.emplace_back(down, place);
    }
    const CRect list = ItemPlace(IDC_REMINDERS);
    Resize(Dialog(), size.cx + 100, size.cy + 60);
    for (const auto& [id, place] : expected)
    {
        EXPECT_EQ(place, ItemPlace(id)) << id;
    }
    EXPECT_EQ(CRect(list.left, list.top, list.right + 100, list.bottom + 60), ItemPlace(IDC_REMINDERS));
    Resize(Dialog(), 10, 10);
    EXPECT_EQ(size, SizeOf(Dialog()));
}

TEST_F(ManageTest, ManyRounds_LeaveNothingBehind)
{
    AddThree();
    Load();
    const auto round = [this]
    {
        CcvMfcManageRemindersDialog manage(m_manager.get(), nullptr);
        ASSERT_NE(FALSE, manage.Create(IDD_MANAGE_REMINDERS, nullptr));
        UpdateWindow(manage.GetSafeHwnd());
        manage.SynchronizeReminders();
    };
    ExpectRoundsLeaveNothing(Rounds(20), round);
}

} // namespace
