#include "tests/dialogs/reminders/AlertHarness.h"

#include "dialogs/CcvMfcReminderAlertDialogInternal.h"

namespace
{

using namespace ts::test;

TEST_F(AlertTest, Opened_ListsWhatIsDueAndSelectsTheFirst)
{
    AddThree();
    Open();
    EXPECT_EQ((Texts{L"once", L"daily"}), Subjects());
    EXPECT_EQ(0, List().GetSelectedIndex());
    EXPECT_NE(0u, List().GetItemState(0, LVIS_FOCUSED));
    EXPECT_EQ(L"Reminders", TextOf(Dialog()));
    EXPECT_TRUE(IsWindowVisible(Dialog()));
    EXPECT_EQ(IDC_REMINDERS, FocusedItem());
    EXPECT_EQ(Dialog(), GetForegroundWindow());
}

TEST_F(AlertTest, Opened_HasATaskBarButtonAndIcons)
{
    Open();
    EXPECT_NE(0, GetWindowLongPtrW(Dialog(), GWL_EXSTYLE) & WS_EX_APPWINDOW);
    EXPECT_NE(0, SendMessageW(Dialog(), WM_GETICON, ICON_BIG, 0));
    EXPECT_NE(0, SendMessageW(Dialog(), WM_GETICON, ICON_SMALL, 0));
}

TEST_F(AlertTest, OneTimeReminderSelected_ShowsItsDetails)
{
    AddThree();
    Open();
    EXPECT_EQ(L"once", ItemText(IDC_REMINDER_SUBJECT));
    EXPECT_EQ(DueText(Noon() - CTimeSpan(kSecondsPerHour)), ItemText(IDC_REMINDER_DUE));
    EXPECT_EQ(L"Due: ", ItemText(IDC_REMINDER_DUE).substr(0, 5));
    EXPECT_TRUE(IsShown(IDC_REMINDER_SUBJECT));
    EXPECT_TRUE(IsShown(IDC_REMINDER_DUE));
    EXPECT_FALSE(IsShown(IDC_REMINDER_RECURRENCE));
    EXPECT_FALSE(IsShown(IDC_NOTHING_SELECTED));
    EXPECT_EQ(ItemPlace(IDC_REMINDER_DUE).left, ItemPlace(IDC_REMINDER_SUBJECT).left);
    for (const int button : {IDC_OPEN_REMINDER, IDC_END_REMINDER, IDC_SNOOZE_FIRST, IDCANCEL})
    {
        EXPECT_TRUE(IsEnabled(button)) << button;
    }
}

TEST_F(AlertTest, RecurringReminderSelected_ShowsTheImageLeftOfTheSubject)
{
    AddThree();
    Open();
    const CRect before = ItemPlace(IDC_REMINDER_SUBJECT);
    PressKey(VK_DOWN);
    EXPECT_EQ(L"daily", ItemText(IDC_REMINDER_SUBJECT));
    EXPECT_EQ(DueText(Noon()), ItemText(IDC_REMINDER_DUE));
    EXPECT_TRUE(IsShown(IDC_REMINDER_RECURRENCE));
    CRect after = ItemPlace(IDC_REMINDER_SUBJECT);
    EXPECT_EQ(ItemPlace(IDC_REMINDER_RECURRENCE).right, after.left);
    after.left = before.left;
    EXPECT_EQ(before, after) << "only the left edge moves";
    PressKey(VK_UP);
    EXPECT_FALSE(IsShown(IDC_REMINDER_RECURRENCE));
    EXPECT_EQ(before, ItemPlace(IDC_REMINDER_SUBJECT));
}

TEST_F(AlertTest, NothingSelected_ShowsAndEnablesNothing)
{
    Open();
    EXPECT_TRUE(IsOpen()) << "an alert that opens empty stays";
    for (const int button : {IDC_OPEN_REMINDER, IDC_END_REMINDER, IDC_SNOOZE_FIRST})
    {
        EXPECT_FALSE(IsEnabled(button)) << button;
    }
    EXPECT_TRUE(IsEnabled(IDCANCEL));
    EXPECT_TRUE(IsShown(IDC_NOTHING_SELECTED));
    for (const int detail : {IDC_REMINDER_SUBJECT, IDC_REMINDER_DUE, IDC_REMINDER_RECURRENCE})
    {
        EXPECT_FALSE(IsShown(detail)) << detail;
        EXPECT_TRUE(detail == IDC_REMINDER_RECURRENCE || ItemText(detail).empty());
    }
}

TEST_F(AlertTest, SelectionTakenAway_DisablesAgain)
{
    AddThree();
    Open();
    List().SelectRow(-1);
    EXPECT_FALSE(IsEnabled(IDC_OPEN_REMINDER));
    EXPECT_FALSE(IsEnabled(IDC_END_REMINDER));
    EXPECT_FALSE(IsEnabled(IDC_SNOOZE_FIRST));
    EXPECT_TRUE(IsShown(IDC_NOTHING_SELECTED));
    List().SelectRow(1);
    EXPECT_TRUE(IsEnabled(IDC_END_REMINDER));
    EXPECT_FALSE(IsShown(IDC_NOTHING_SELECTED));
}

TEST_F(AlertTest, ButtonThatIsDisabledWithTheFocus_GivesItToTheList)
{
    AddThree();
    Open();
    SetFocus(Item(IDC_END_REMINDER));
    List().SelectRow(-1);
    EXPECT_EQ(IDC_REMINDERS, FocusedItem());
}

TEST_F(AlertTest, Subject_IsBoldAndShowsItsAmpersand)
{
    m_store.Add(L"Tea & cake", Noon());
    Open();
    LOGFONTW font{};
    const auto handle = std::bit_cast<HFONT>(SendMessageW(Item(IDC_REMINDER_SUBJECT), WM_GETFONT, 0, 0));
    GetObjectW(handle, sizeof font, &font);
    EXPECT_EQ(700, font.lfWeight);
    EXPECT_EQ(L"Tea & cake", ItemText(IDC_REMINDER_SUBJECT));
    EXPECT_NE(0, GetWindowLongPtrW(Item(IDC_REMINDER_SUBJECT), GWL_STYLE) & SS_NOPREFIX);
}

TEST_F(AlertTest, SnoozeButton_TakesThePlaceAndTheFontAndIsTheDefault)
{
    Open();
    EXPECT_EQ(ItemPlace(IDC_SNOOZE_PLACE), ItemPlace(IDC_SNOOZE_FIRST));
    EXPECT_EQ(L"&Snooze", ItemText(IDC_SNOOZE_FIRST));
    EXPECT_TRUE(IsShown(IDC_SNOOZE_FIRST));
    EXPECT_FALSE(IsShown(IDC_SNOOZE_PLACE));
    EXPECT_EQ(SendMessageW(Dialog(), WM_GETFONT, 0, 0),
              SendMessageW(Item(IDC_SNOOZE_FIRST), WM_GETFONT, 0, 0));
    EXPECT_EQ(IDC_SNOOZE_FIRST, LOWORD(SendMessageW(Dialog(), DM_GETDEFID, 0, 0)));
    EXPECT_EQ(BS_DEFSPLITBUTTON, GetWindowLongPtrW(Item(IDC_SNOOZE_FIRST), GWL_STYLE) & BS_TYPEMASK);
}

TEST_F(AlertTest, Tab_GoesRoundAndLeavesASplitButton)
{
    AddThree();
    Open();
    std::vector<int> visited;
    for (int step = 0; step < 5; ++step)
    {
        PressKey(VK_TAB);
        visited.push_back(FocusedItem());
    }
    EXPECT_EQ(
        (std::vector<int>{IDC_OPEN_REMINDER, IDC_END_REMINDER, IDCANCEL, IDC_SNOOZE_FIRST, IDC_REMINDERS}),
        visited);
    EXPECT_EQ(BS_DEFSPLITBUTTON, GetWindowLongPtrW(Item(IDC_SNOOZE_FIRST), GWL_STYLE) & BS_TYPEMASK);
}

TEST_F(AlertTest, DamagedReminder_IsShownWithoutADueTime)
{
    AddDamagedAndSnoozed();
    Open();
    EXPECT_EQ((Texts{L"damaged"}), Subjects());
    EXPECT_EQ(L"damaged", ItemText(IDC_REMINDER_SUBJECT));
    EXPECT_EQ(L"", ItemText(IDC_REMINDER_DUE));
    EXPECT_TRUE(IsEnabled(IDC_END_REMINDER));
}

TEST_F(AlertTest, Minute_AddsWhatHasBecomeDueAndAsksForTheForeground)
{
    AddThree();
    Open();
    const ApplicationWindow other(L"AlertTestOther");
    ShowWindow(other.Get(), SW_SHOW);
    SetForegroundWindow(other.Get());
    m_clock.Set(Noon() + CTimeSpan(kSecondsPerHour - 1));
    PassMinute();
    EXPECT_EQ(other.Get(), GetForegroundWindow());
    m_clock.Set(Noon() + CTimeSpan(kSecondsPerHour));
    PassMinute();
    EXPECT_EQ((Texts{L"once", L"daily", L"later"}), Subjects());
    EXPECT_EQ(0, List().GetSelectedIndex());
    EXPECT_EQ(Dialog(), GetForegroundWindow());
}

TEST_F(AlertTest, OpenButton_PostsTheSelectedReminderToTheApplication)
{
    const ApplicationWindow application(ts::kMainWindowClass);
    AddThree();
    Open();
    PressKey(VK_DOWN);
    PressButton(IDC_OPEN_REMINDER);
    PumpMessages();
    EXPECT_EQ((Rows{m_daily}), application.Opened());
    SetForegroundWindow(Dialog());
    List().SelectRow(0);
    SetFocus(List().m_hWnd);
    PressMnemonic(L'o');
    EXPECT_EQ((Rows{m_daily, m_once}), application.Opened());
    EXPECT_TRUE(IsOpen());
}

TEST_F(AlertTest, Minimised_StaysSoWhileRemindersBecomeDue)
{
    AddThree();
    Open();
    SystemCommand(SC_MINIMIZE);
    EXPECT_TRUE(IsIconic(Dialog()));
    m_clock.Set(Noon() + CTimeSpan(kSecondsPerHour));
    PassMinute();
    EXPECT_TRUE(IsIconic(Dialog()));
    Synchronize();
    SystemCommand(SC_RESTORE);
    EXPECT_FALSE(IsIconic(Dialog()));
    EXPECT_EQ((Texts{L"once", L"daily", L"later"}), Subjects());
    EXPECT_EQ(0, List().GetSelectedIndex());
    EXPECT_EQ(L"once", ItemText(IDC_REMINDER_SUBJECT));
}

/// Counts instead of sounding.
class SilentAlert : public CcvMfcReminderAlertDialogInternal
{
  public:
    using CcvMfcReminderAlertDialogInternal::CcvMfcReminderAlertDialogInternal;
    int m_sounds = 0;
    bool m_wasShown = false;

  protected:
    void PlayAlertSound() override
    {
        ++m_sounds;
        m_wasShown = IsWindowVisible() != FALSE;
    }
};

TEST_F(AlertTest, Sound_IsPlayedOnceTheAlertIsShownIfTheUserWantsIt)
{
    Load();
    for (const DWORD wanted : {0u, 1u})
    {
        RawKey(ts::kSettingsPath).Write(L"PlayTicklerSound", RawDword(wanted));
        SilentAlert alert(m_manager.get(), nullptr);
        CcvMfcReminderAlertDialog facade(m_manager.get(), nullptr);
        const std::unique_ptr<CcvMfcDialogBaseInternal> former(facade.GetInternalDialog());
        facade.SetInternalDialog(&alert);
        EXPECT_NE(FALSE, facade.Create(IDD_REMINDER_ALERT, nullptr));
        EXPECT_EQ(0, alert.m_sounds);
        PumpMessages();
        EXPECT_EQ(static_cast<int>(wanted), alert.m_sounds);
        EXPECT_EQ(wanted != 0, alert.m_wasShown);
        facade.SetInternalDialog(nullptr);
    }
}

TEST_F(AlertTest, WantedSound_ReachesTheSystem)
{
    static_assert(WM_REMINDER_ALERT_SHOWN == 1195);
    Open();
    // The system's sound library comes with the first sound. Another repetition of this test has it already.
    const bool isFirst = GetModuleHandleW(L"winmm.dll") == nullptr;
    SendMessageW(Dialog(), WM_REMINDER_ALERT_SHOWN, 0, 0);
    EXPECT_EQ(isFirst, GetModuleHandleW(L"winmm.dll") == nullptr) << "not wanted";
    RawKey(ts::kSettingsPath).Write(L"PlayTicklerSound", RawDword(1));
    SendMessageW(Dialog(), WM_REMINDER_ALERT_SHOWN, 0, 0);
    EXPECT_NE(nullptr, GetModuleHandleW(L"winmm.dll"));
}

} // namespace
