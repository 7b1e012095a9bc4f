#include "tests/dialogs/reminders/AlertHarness.h"

#include <array>

namespace
{

using namespace ts::test;

struct SnoozeCase
{
    int command;
    std::int64_t seconds;
    const wchar_t* text; ///< in the menu, null for none
};

constexpr std::array<SnoozeCase, 18> kSnoozeCases = {{
    {40001, 300, L"5 minutes"},
    {40002, 600, nullptr},
    {40003, 900, L"15 minutes"},
    {40004, 1200, nullptr},
    {40005, 1800, L"30 minutes"},
    {40006, 2700, L"45 minutes"},
    {40007, 3600, L"1 hour"},
    {40008, 7200, L"2 hours"},
    {40009, 10800, nullptr},
    {40010, 14400, L"4 hours"},
    {40011, 28800, L"8 hours"},
    {40012, 43200, L"12 hours"},
    {40013, 86400, L"1 day"},
    {40014, 172800, L"2 days"},
    {40015, 259200, nullptr},
    {40016, 345600, L"4 days"},
    {40017, 604800, L"1 week"},
    {40018, 1209600, nullptr},
}};

class AlertActionsTest : public AlertTest
{
  protected:
    [[nodiscard]] std::optional<std::int64_t> SnoozedFor(int number) const
    {
        const CcvReminderData reminder = m_store.Load(number).value();
        return reminder.IsSnoozed() ? std::optional((reminder.GetSnoozeTime() - Noon()).GetTimeSpan())
                                    : std::nullopt;
    }
    [[nodiscard]] bool IsDismissed(int number) const { return m_store.Load(number)->IsDimissed(); }
};

TEST_F(AlertActionsTest, SnoozeCommands_SnoozeTheSelectedReminder)
{
    for (const SnoozeCase& each : kSnoozeCases)
    {
        const int first = m_store.Add(L"first", Noon());
        const int second = m_store.Add(L"second", Noon() + CTimeSpan(0));
        Open();
        List().SelectRow(List().GetItemCount() - 1);
        Command(each.command);
        EXPECT_EQ(each.seconds, SnoozedFor(second)) << each.command;
        EXPECT_EQ(std::nullopt, SnoozedFor(first)) << each.command;
        m_store.Remove(first);
        m_store.Remove(second);
    }
}

TEST_F(AlertActionsTest, CommandsBesideTheSnoozeCommands_DoNothing)
{
    AddThree();
    Open();
    Command(40000);
    Command(40019);
    EXPECT_EQ(std::nullopt, SnoozedFor(m_once));
}

TEST_F(AlertActionsTest, SnoozeWithoutASelection_DoesNothing)
{
    AddThree();
    Open();
    List().SelectRow(-1);
    for (const SnoozeCase& each : kSnoozeCases)
    {
        Command(each.command);
    }
    PressKey(VK_RETURN);
    EXPECT_EQ(std::nullopt, SnoozedFor(m_once));
    EXPECT_EQ(std::nullopt, SnoozedFor(m_daily));
    EXPECT_TRUE(IsOpen());
}

TEST_F(AlertActionsTest, SnoozeMenu_OffersThirteenTimes)
{
    constexpr UINT kGetMenu = 0x01E1; // MN_GETHMENU
    AddThree();
    Open();
    std::vector<std::pair<UINT, std::wstring>> offered;
    const WhenShown menu(L"#32768",
                         [&offered](HWND window)
                         {
                             const auto handle = std::bit_cast<HMENU>(SendMessageW(window, kGetMenu, 0, 0));
                             for (int item = 0; item < GetMenuItemCount(handle); ++item)
                             {
                                 wchar_t text[40] = L"";
                                 GetMenuStringW(handle, static_cast<UINT>(item), text, 40, MF_BYPOSITION);
                                 EXPECT_EQ(0u, GetMenuState(handle, static_cast<UINT>(item), MF_BYPOSITION) &
                                                   (MF_GRAYED | MF_DISABLED));
                                 offered.emplace_back(GetMenuItemID(handle, item), text);
                             }
                             EndMenu();
                         });
    SetFocus(Item(IDC_SNOOZE_FIRST));
    PressKey(VK_DOWN);
    std::vector<std::pair<UINT, std::wstring>> expected;
    for (const SnoozeCase& each : kSnoozeCases)
    {
        if (each.text != nullptr)
        {
            expected.emplace_back(each.command, each.text);
        }
    }
    EXPECT_TRUE(menu.Happened());
    EXPECT_EQ(13u, offered.size());
    EXPECT_EQ(expected, offered);
    EXPECT_EQ(std::nullopt, SnoozedFor(m_once)) << "nothing was chosen";
}

TEST_F(AlertActionsTest, ChoiceFromTheSnoozeMenu_Snoozes)
{
    AddThree();
    Open();
    const WhenShown menu(L"#32768",
                         [](HWND)
                         {
                             for (const WPARAM key : {VK_DOWN, VK_DOWN, VK_RETURN})
                             {
                                 PostMessageW(GetFocus(), WM_KEYDOWN, key, 1);
                             }
                         });
    SetFocus(Item(IDC_SNOOZE_FIRST));
    PressKey(VK_DOWN);
    EXPECT_TRUE(menu.Happened());
    EXPECT_EQ(900, SnoozedFor(m_once));
}

TEST_F(AlertActionsTest, ReminderThatVanishesWhileTheMenuIsOpen_IsLeftAlone)
{
    BeHost();
    AddThree();
    Open();
    const WhenShown menu(L"#32768",
                         [this](HWND)
                         {
                             m_store.Remove(m_once);
                             m_store.Remove(m_daily);
                             m_manager->UpdateReminderCollection();
                             for (const WPARAM key : {VK_DOWN, VK_RETURN})
                             {
                                 PostMessageW(GetFocus(), WM_KEYDOWN, key, 1);
                             }
                         });
    SetFocus(Item(IDC_SNOOZE_FIRST));
    PressKey(VK_DOWN);
    EXPECT_TRUE(menu.Happened());
    EXPECT_EQ(std::nullopt, SnoozedFor(m_later));
    EXPECT_EQ(0, m_messages);
}

TEST_F(AlertActionsTest, MainPartAndEnterAndMnemonic_SnoozeForFiveMinutes)
{
    const std::array<std::function<void()>, 4> ways = {
        [this] { PressButton(IDC_SNOOZE_FIRST); },
        [this] { Click(Item(IDC_SNOOZE_FIRST), 5, 5); },
        [] { PressKey(VK_RETURN); },
        [this] { PressMnemonic(L's'); },
    };
    for (std::size_t way = 0; way < ways.size(); ++way)
    {
        const int number = m_store.Add(L"once", Noon());
        Open();
        ways[way]();
        EXPECT_EQ(300, SnoozedFor(number)) << way;
        m_store.Remove(number);
    }
}

TEST_F(AlertActionsTest, End_DeletesAOneTimeReminder)
{
    BeHost();
    AddThree();
    Open();
    PressButton(IDC_END_REMINDER);
    EXPECT_FALSE(m_store.Load(m_once));
    EXPECT_EQ((Texts{L"daily"}), Subjects());
    EXPECT_EQ(0, List().GetSelectedIndex());
    EXPECT_EQ(L"daily", ItemText(IDC_REMINDER_SUBJECT));
    EXPECT_EQ(Noon(), NextDue(m_daily));
}

TEST_F(AlertActionsTest, End_MovesARecurringReminderOn)
{
    BeHost();
    AddThree();
    Open();
    PressKey(VK_DOWN);
    PressMnemonic(L'e');
    EXPECT_EQ(Noon() + CTimeSpan(kSecondsPerDay), NextDue(m_daily));
    EXPECT_TRUE(m_store.Load(m_once));
    EXPECT_EQ((Texts{L"once"}), Subjects());
}

TEST_F(AlertActionsTest, End_AfterAReloadWithoutARefresh_ActsOnWhatTheUserSees)
{
    const int gone = m_store.Add(L"gone", Noon() - CTimeSpan(2 * kSecondsPerHour));
    AddThree();
    Open();
    List().SelectRow(1);
    ASSERT_EQ(L"once", ItemText(IDC_REMINDER_SUBJECT));
    m_store.Remove(gone);
    m_manager->UpdateReminderCollection();
    PressButton(IDC_END_REMINDER);
    EXPECT_FALSE(m_store.Load(m_once));
    EXPECT_EQ(Noon(), NextDue(m_daily));
    EXPECT_TRUE(m_store.Load(m_later));
}

TEST_F(AlertActionsTest, SelectedReminderThatIsGone_LeavesTheOthersAlone)
{
    AddThree();
    Open();
    m_store.Remove(m_once);
    m_manager->UpdateReminderCollection();
    PressButton(IDC_END_REMINDER);
    PressButton(IDC_SNOOZE_FIRST);
    EXPECT_FALSE(m_store.Load(m_once)) << "it does not come back";
    EXPECT_EQ(Noon(), NextDue(m_daily));
    EXPECT_EQ(std::nullopt, SnoozedFor(m_daily));
    EXPECT_EQ(std::nullopt, SnoozedFor(m_later));
}

TEST_F(AlertActionsTest, End_OfADaysOldOccurrenceAfterAReload_EndsTheOneInForce)
{
    m_daily = AddRecurring(L"daily", Noon() - CTimeSpan(3 * kSecondsPerDay));
    Open();
    ASSERT_EQ(DueText(Noon()), ItemText(IDC_REMINDER_DUE));
    m_manager->UpdateReminderCollection();
    PressButton(IDC_END_REMINDER);
    EXPECT_EQ(Noon() + CTimeSpan(kSecondsPerDay), NextDue(m_daily));
}

TEST_F(AlertActionsTest, DamagedReminderThatIsEnded_LosesItsSnoozeAndIsNotDueAnyMore)
{
    BeHost();
    const int damaged = AddDamagedAndSnoozed();
    m_later = m_store.Add(L"other", Noon());
    Open();
    List().SelectRow(Subjects().front() == L"damaged" ? 0 : 1);
    PressButton(IDC_END_REMINDER);
    EXPECT_EQ(std::nullopt, SnoozedFor(damaged));
    EXPECT_EQ((Texts{L"other"}), Subjects());
}

TEST_F(AlertActionsTest, EachWayToClose_DismissesWhatIsListed)
{
    const std::array<std::function<void()>, 6> ways = {
        [] { PressKey(VK_ESCAPE); },
        [this] { PressButton(IDCANCEL); },
        [this] { PressMnemonic(L'd'); },
        [this] { SystemCommand(SC_CLOSE); },
        [this] { SystemCommand(SC_CLOSE | 2); },
        [this] { PostMessageW(Dialog(), WM_CLOSE, 0, 0); },
    };
    for (std::size_t way = 0; way < ways.size(); ++way)
    {
        AddThree();
        Open();
        ways[way]();
        PumpMessages();
        EXPECT_FALSE(IsOpen()) << way;
        EXPECT_TRUE(IsDismissed(m_once)) << way;
        EXPECT_EQ(Noon() + CTimeSpan(kSecondsPerDay), NextDue(m_daily)) << way;
        EXPECT_FALSE(IsDismissed(m_later)) << way;
        for (const int number : {m_once, m_daily, m_later})
        {
            m_store.Remove(number);
        }
    }
}

TEST_F(AlertActionsTest, Ok_ClosesAndDismissesNothing)
{
    AddThree();
    Open();
    Command(IDOK);
    EXPECT_FALSE(IsOpen());
    EXPECT_FALSE(IsDismissed(m_once));
    EXPECT_EQ(Noon(), NextDue(m_daily));
}

TEST_F(AlertActionsTest, Modal_RunsTwiceAndTellsHowItEnded)
{
    AddThree();
    Load();
    m_dialog = std::make_unique<CcvMfcReminderAlertDialog>(m_manager.get(), nullptr);
    for (const int end : {IDOK, IDCANCEL})
    {
        const WhenShown shown(L"#32770",
                              [this, end](HWND)
                              {
                                  EXPECT_EQ(2, List().GetItemCount());
                                  EXPECT_EQ(L"once", ItemText(IDC_REMINDER_SUBJECT));
                                  Command(end);
                              });
        EXPECT_EQ(end, m_dialog->DoModal());
        EXPECT_FALSE(IsOpen());
    }
    EXPECT_TRUE(IsDismissed(m_once));
}

} // namespace
