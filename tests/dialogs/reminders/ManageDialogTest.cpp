#include "dialogs/CcvMfcManageRemindersDialog.h"
#include "dialogs/CcvMfcManageRemindersDialogInternal.h"
#include "resources/AddReminderControls.h"
#include "resources/RecurrenceControls.h"
#include "tests/dialogs/reminders/RemindersDialogHarness.h"
#include "tests/support/HeapKind.h"
#include "tests/support/ManyRounds.h"

#include <commctrl.h>

namespace
{

using namespace ts::test;

constexpr CTimeSpan kDay = kSecondsPerDay;

class ManageTest : public RemindersDialogTest
{
  protected:
    ~ManageTest() override { m_manage.reset(); }

    [[nodiscard]] HWND Dialog() const override
    {
        return m_manage == nullptr ? nullptr : m_manage->GetSafeHwnd();
    }
    void Open()
    {
        Load();
        m_manage = std::make_unique<CcvMfcManageRemindersDialog>(m_manager.get(), nullptr);
        ASSERT_NE(FALSE, m_manage->Create(CcvMfcManageRemindersDialog::kTemplate, nullptr));
        PumpMessages();
    }
    void Synchronize()
    {
        m_manager->UpdateReminderCollection();
        if (m_manage != nullptr)
        {
            m_manage->SynchronizeReminders();
        }
    }
    void BeHost()
    {
        m_host = std::make_unique<ApplicationWindow>(ts::kServiceWindowClass);
        m_host->onSynchronize = [this]
        {
            ++m_messages;
            Synchronize();
        };
    }
    void AddThree()
    {
        m_once = m_store.Add(L"once", Noon() - CTimeSpan(kSecondsPerHour));
        m_daily = AddRecurring(L"daily", Noon() + CTimeSpan(60));
        m_later = m_store.Add(L"later", Noon() + kDay);
    }
    /// Answers the question whether to delete one occurrence or the series, after `before`.
    std::unique_ptr<WhenShown> Answer(bool series, int button, std::function<void()> before = {})
    {
        return std::make_unique<WhenShown>(
            L"#32770",
            [=](HWND question)
            {
                if (before)
                {
                    before();
                }
                constexpr int kFirst = 1054;
                const HWND instance = GetDlgItem(question, kFirst);
                SendMessageW(series ? GetNextDlgGroupItem(question, instance, FALSE) : instance, BM_CLICK, 0,
                             0);
                SendMessageW(question, WM_COMMAND, static_cast<WPARAM>(button), 0);
            });
    }
    /// Enters a subject in the edit dialog and ends it.
    static std::unique_ptr<WhenShown> Edit(const wchar_t* subject, int button,
                                           std::function<void(HWND)> before = {})
    {
        return std::make_unique<WhenShown>(L"#32770",
                                           [=](HWND dialog)
                                           {
                                               if (before)
                                               {
                                                   before(dialog);
                                               }
                                               SetDlgItemTextW(dialog, IDC_ADD_SUBJECT, subject);
                                               SendMessageW(dialog, WM_COMMAND, static_cast<WPARAM>(button),
                                                            0);
                                           });
    }
    [[nodiscard]] std::wstring Subject(int number) const
    {
        return m_store.Load(number)->GetSubject().GetString();
    }

    std::unique_ptr<CcvMfcManageRemindersDialog> m_manage;
    std::unique_ptr<ApplicationWindow> m_host;
    int m_messages = 0;
    int m_once = -1;
    int m_daily = -1;
    int m_later = -1;
};

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

TEST_F(ManageTest, DeleteOfAOneTimeReminder_AsksNothing)
{
    BeHost();
    AddThree();
    Open();
    PressButton(IDC_DELETE_REMINDER);
    EXPECT_FALSE(m_store.Load(m_once));
    EXPECT_EQ((Texts{L"daily", L"later"}), Subjects());
    EXPECT_EQ(1, m_messages);
    EXPECT_TRUE(IsEnabled(IDC_DELETE_REMINDER));
}

TEST_F(ManageTest, DeleteWithoutAHost_LeavesTheRowUntilTheNextRefresh)
{
    AddThree();
    Open();
    PressButton(IDC_DELETE_REMINDER);
    EXPECT_FALSE(m_store.Load(m_once));
    EXPECT_EQ(3, List().GetItemCount());
    Synchronize();
    EXPECT_EQ(2, List().GetItemCount());
}

TEST_F(ManageTest, DeleteOfARecurringReminder_FollowsTheAnswer)
{
    struct Case
    {
        bool series;
        int button;
        std::optional<CTime> nextDue;
    };
    const CTime due = Noon() + CTimeSpan(60);
    for (const Case& each : {Case{false, IDOK, due + kDay}, Case{true, IDOK, std::nullopt},
                             Case{false, IDCANCEL, due}, Case{true, IDCANCEL, due}})
    {
        m_daily = AddRecurring(L"daily", due);
        Open();
        const auto answer = Answer(each.series, each.button);
        PressButton(IDC_DELETE_REMINDER);
        EXPECT_TRUE(answer->Happened());
        const auto stored = m_store.Load(m_daily);
        EXPECT_EQ(each.nextDue, stored ? std::optional(stored->GetNextDueDate()) : std::nullopt);
        if (stored)
        {
            m_store.Remove(m_daily);
        }
    }
}

TEST_F(ManageTest, ReloadWhileTheQuestionIsOpen_StillDeletesTheOneThatWasChosen)
{
    BeHost();
    const int first = m_store.Add(L"first", Noon() - CTimeSpan(2 * kSecondsPerHour));
    AddThree();
    const int other = AddRecurring(L"other", Noon() + CTimeSpan(120));
    Open();
    List().SelectRow(2);
    ASSERT_EQ(L"daily", ItemText(IDC_REMINDER_SUBJECT));
    const auto answer = Answer(true, IDOK,
                               [this, first]
                               {
                                   m_store.Remove(first);
                                   Synchronize();
                                   List().SelectRow(0);
                               });
    PressButton(IDC_DELETE_REMINDER);
    EXPECT_FALSE(m_store.Load(m_daily));
    EXPECT_TRUE(m_store.Load(m_once));
    EXPECT_TRUE(m_store.Load(other));
}

TEST_F(ManageTest, OccurrenceSettledElsewhereWhileTheQuestionIsOpen_LeavesTheNextOne)
{
    AddThree();
    Open();
    PressKey(VK_DOWN);
    const auto answer = Answer(false, IDOK,
                               [this]
                               {
                                   CcvReminderDataCollectionManager elsewhere(false);
                                   elsewhere.DismissReminder(elsewhere.GetReminderByIndex(m_daily));
                                   Synchronize();
                               });
    PressButton(IDC_DELETE_REMINDER);
    EXPECT_EQ(Noon() + CTimeSpan(60) + kDay, NextDue(m_daily)) << "once, not twice";
}

TEST_F(ManageTest, ReminderThatVanishesWhileTheQuestionIsOpen_StaysAway)
{
    AddThree();
    Open();
    PressKey(VK_DOWN);
    for (const bool series : {true, false})
    {
        const auto answer = Answer(series, IDOK,
                                   [this]
                                   {
                                       if (m_store.Load(m_daily))
                                       {
                                           m_store.Remove(m_daily);
                                       }
                                       m_manager->UpdateReminderCollection();
                                   });
        PressButton(IDC_DELETE_REMINDER);
        EXPECT_FALSE(m_store.Load(m_daily));
    }
    EXPECT_TRUE(m_store.Load(m_once));
    EXPECT_TRUE(m_store.Load(m_later));
}

TEST_F(ManageTest, Edit_WritesWhatWasEntered)
{
    BeHost();
    AddThree();
    Open();
    PressKey(VK_DOWN);
    std::wstring caption;
    std::wstring shown;
    const auto edit = Edit(L"every day", IDOK,
                           [&](HWND dialog)
                           {
                               caption = TextOf(dialog);
                               shown = TextOf(GetDlgItem(dialog, IDC_ADD_SUBJECT));
                               EXPECT_FALSE(IsWindowEnabled(Dialog()));
                           });
    PressButton(IDC_EDIT_REMINDER);
    EXPECT_TRUE(edit->Happened());
    EXPECT_EQ(L"Edit Reminder", caption);
    EXPECT_EQ(L"daily", shown);
    EXPECT_EQ(L"every day", Subject(m_daily));
    EXPECT_EQ(EcvReminderRecurrenceType::Daily, m_store.Load(m_daily)->GetRecurrenceType());
    EXPECT_EQ(L"once", Subject(m_once));
    EXPECT_EQ(L"every day", ItemText(IDC_REMINDER_SUBJECT));
    EXPECT_TRUE(IsWindowEnabled(Dialog()));
    EXPECT_EQ(1, m_messages);
}

TEST_F(ManageTest, EditThatIsCancelled_ChangesNothing)
{
    BeHost();
    AddThree();
    Open();
    const auto edit = Edit(L"something else", IDCANCEL);
    PressMnemonic(L'd');
    EXPECT_TRUE(edit->Happened());
    EXPECT_EQ(L"once", Subject(m_once));
    EXPECT_EQ(0, m_messages);
}

TEST_F(ManageTest, ReloadWhileEditing_StillWritesTheOneThatWasChosen)
{
    BeHost();
    const int first = m_store.Add(L"first", Noon() - CTimeSpan(2 * kSecondsPerHour));
    AddThree();
    Open();
    List().SelectRow(1);
    const auto edit = Edit(L"edited", IDOK,
                           [this, first](HWND)
                           {
                               m_store.Remove(first);
                               Synchronize();
                           });
    PressButton(IDC_EDIT_REMINDER);
    EXPECT_EQ(L"edited", Subject(m_once));
    EXPECT_EQ(L"later", Subject(m_later));
}

TEST_F(ManageTest, ReminderThatVanishesWhileEditing_StaysAway)
{
    BeHost();
    AddThree();
    Open();
    const auto edit = Edit(L"edited", IDOK,
                           [this](HWND)
                           {
                               m_store.Remove(m_once);
                               Synchronize();
                           });
    PressButton(IDC_EDIT_REMINDER);
    EXPECT_FALSE(m_store.Load(m_once));
    EXPECT_EQ(L"daily", Subject(m_daily));
}

TEST_F(ManageTest, SnoozeWhileEditing_IsKept)
{
    BeHost();
    AddThree();
    Open();
    const auto edit = Edit(L"edited", IDOK,
                           [this](HWND)
                           {
                               CcvReminderDataCollectionManager elsewhere(false);
                               elsewhere.SnoozeReminder(elsewhere.GetReminderByIndex(m_once), CTimeSpan(300));
                           });
    PressButton(IDC_EDIT_REMINDER);
    EXPECT_EQ(L"edited", Subject(m_once));
    EXPECT_TRUE(m_store.Load(m_once)->IsSnoozed());
    EXPECT_EQ(Noon() + CTimeSpan(300), m_store.Load(m_once)->GetSnoozeTime());
}

TEST_F(ManageTest, DismissedReminderThatGetsAnotherTime_IsHeardAgain)
{
    BeHost();
    AddThree();
    Open();
    m_manager->DismissReminder(m_manager->GetReminderByIndex(m_once));
    {
        const auto edit = Edit(L"other words", IDOK);
        PressButton(IDC_EDIT_REMINDER);
        EXPECT_TRUE(edit->Happened());
    }
    EXPECT_EQ(L"other words", Subject(m_once));
    EXPECT_TRUE(m_store.Load(m_once)->IsDimissed());
    const auto edit = Edit(L"tomorrow", IDOK,
                           [](HWND dialog)
                           {
                               SYSTEMTIME tomorrow{};
                               tomorrow.wYear = 2026;
                               tomorrow.wMonth = 11;
                               tomorrow.wDay = 22;
                               DateTime_SetSystemtime(GetDlgItem(dialog, IDC_ADD_DATE), GDT_VALID, &tomorrow);
                           });
    PressButton(IDC_EDIT_REMINDER);
    EXPECT_TRUE(edit->Happened());
    EXPECT_FALSE(m_store.Load(m_once)->IsDimissed());
    EXPECT_EQ(Noon() - CTimeSpan(kSecondsPerHour) + kDay, m_store.Load(m_once)->GetNextDueDate());
}

TEST_F(ManageTest, DismissedReminderThatRecursFromNowOn_IsHeardAgain)
{
    AddThree();
    Open();
    m_manager->DismissReminder(m_manager->GetReminderByIndex(m_later));
    List().SelectRow(2);
    ASSERT_EQ(L"later", ItemText(IDC_REMINDER_SUBJECT));
    const auto edit = Edit(L"later", IDOK,
                           [](HWND dialog)
                           {
                               SendMessageW(GetDlgItem(dialog, IDC_ADD_TOGGLE_RECURRENCE), BM_CLICK, 0, 0);
                               SendMessageW(GetDlgItem(dialog, IDC_ADD_DAILY), BM_CLICK, 0, 0);
                           });
    PressButton(IDC_EDIT_REMINDER);
    EXPECT_EQ(Noon() + kDay, NextDue(m_later)) << "the same time";
    EXPECT_TRUE(m_store.Load(m_later)->IsRecurrent());
    EXPECT_FALSE(m_store.Load(m_later)->IsDimissed());
}

TEST_F(ManageTest, AppointmentThatIsNamedWhileEditing_IsKept)
{
    AddThree();
    Open();
    const auto edit = Edit(L"edited", IDOK,
                           [this](HWND)
                           {
                               CcvReminderDataCollectionManager elsewhere(false);
                               CcvReminderData* const reminder = elsewhere.GetReminderByIndex(m_once);
                               reminder->SetOutlookEntryId(L"entry");
                               reminder->SetOutlookObjectGuid(L"{appointment}");
                               elsewhere.ModifyReminder(reminder, false);
                           });
    PressButton(IDC_EDIT_REMINDER);
    EXPECT_EQ(L"edited", Subject(m_once));
    EXPECT_EQ(CString(L"entry"), m_store.Load(m_once)->GetOutlookEntryId());
    EXPECT_EQ(CString(L"{appointment}"), m_store.Load(m_once)->GetOutlookObjectGuid());
}

TEST_F(ManageTest, HostThatDestroysTheDialogInsideADelete_IsSurvived)
{
    BeHost();
    AddThree();
    m_host->onSynchronize = [this]
    {
        m_manage.reset();
        m_manager->UpdateReminderCollection();
    };
    Open();
    PressButton(IDC_DELETE_REMINDER);
    EXPECT_FALSE(IsOpen());
    EXPECT_FALSE(m_store.Load(m_once));
    EXPECT_TRUE(m_store.Load(m_daily));
}

TEST_F(ManageTest, DamagedReminder_CanBeDeleted)
{
    BeHost();
    CcvReminderData damaged = Damaged(Noon());
    damaged.SetSubject(L"damaged");
    const int number = m_store.Add(damaged);
    m_store.Add(L"other", Noon());
    Open();
    List().SelectRow(Subjects().front() == L"damaged" ? 0 : 1);
    EXPECT_EQ(L"damaged", ItemText(IDC_REMINDER_SUBJECT));
    EXPECT_EQ(L"", ItemText(IDC_REMINDER_DUE));
    const auto answer = Answer(true, IDOK);
    PressButton(IDC_DELETE_REMINDER);
    EXPECT_FALSE(m_store.Load(number));
    EXPECT_EQ((Texts{L"other"}), Subjects());
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
