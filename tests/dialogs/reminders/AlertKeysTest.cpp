// The alert, used by keys alone.

#include "module/InterfaceLanguage.h"
#include "tests/dialogs/reminders/AlertHarness.h"
#include "tests/dialogs/reminders/KeyRounds.h"

namespace
{

using namespace ts::test;

constexpr CTimeSpan kDay = kSecondsPerDay;

struct AlertLetters
{
    const wchar_t* language;
    wchar_t list, open, end, dismiss, snooze;
};

constexpr AlertLetters kAlertLetters[] = {{L"en", L'n', L'o', L'e', L'd', L's'},
                                          {L"de", L'r', L't', L'b', L'a', L'e'},
                                          {L"fr", L'p', L'o', L't', L'i', L'r'}};

constexpr int kAlertStops[] = {IDC_REMINDERS, IDC_OPEN_REMINDER, IDC_END_REMINDER, IDCANCEL,
                               IDC_SNOOZE_FIRST};

class AlertKeysTest : public AlertTest
{
  protected:
    /// A new alert in each language, with the same reminders.
    void InEachLanguage(const std::function<void(const AlertLetters&)>& act)
    {
        for (const AlertLetters& letters : kAlertLetters)
        {
            SCOPED_TRACE(testing::PrintToString(letters.language));
            ts::SetInterfaceLanguage(letters.language);
            AddThree();
            Open();
            act(letters);
            CloseAndRemove();
        }
    }
    [[nodiscard]] std::int64_t SnoozedFor(int number) const
    {
        const CcvReminderData reminder = m_store.Load(number).value();
        return reminder.IsSnoozed() ? (reminder.GetSnoozeTime() - Noon()).GetTimeSpan() : 0;
    }
    /// Chooses from the snooze menu by keys, once it is open.
    static std::unique_ptr<WhenShown> InMenu(std::vector<UINT> keys)
    {
        return std::make_unique<WhenShown>(L"#32768",
                                           [keys = std::move(keys)](HWND)
                                           {
                                               for (const UINT key : keys)
                                               {
                                                   PostMessageW(GetFocus(), WM_KEYDOWN, key, 1);
                                               }
                                           });
    }
};

TEST_F(AlertKeysTest, Letters_DoTheirThingFromEveryStop)
{
    const ApplicationWindow application(ts::kMainWindowClass);
    InEachLanguage(
        [this, &application](const AlertLetters& letters)
        {
            for (const int stop : kAlertStops)
            {
                SetForegroundWindow(Dialog());
                SetFocus(Item(stop));
                PressMnemonic(letters.open);
                EXPECT_EQ(L"once", SubjectAt(application.Opened().back())) << "from " << stop;
                SetForegroundWindow(Dialog());
                SetFocus(Item(stop));
                PressMnemonic(letters.list);
                EXPECT_EQ(IDC_REMINDERS, FocusedItem()) << "from " << stop;
                SetFocus(Item(stop));
                PressMnemonic(letters.snooze);
                EXPECT_EQ(300, SnoozedFor(m_once)) << "from " << stop;
                m_store.Remove(m_once);
                m_once = m_store.Add(L"once", Noon() - CTimeSpan(kSecondsPerHour));
                Synchronize();
                List().SelectRow(0);
            }
            SetFocus(Item(IDC_REMINDERS));
            PressMnemonic(letters.end);
            EXPECT_FALSE(m_store.Load(m_once));
            PressMnemonic(letters.dismiss);
            EXPECT_FALSE(IsOpen());
            EXPECT_EQ(Noon() + kDay, NextDue(m_daily));
        });
    EXPECT_EQ(std::size(kAlertLetters) * std::size(kAlertStops), application.Opened().size());
}

TEST_F(AlertKeysTest, Tab_GoesRoundAndBack)
{
    InEachLanguage(
        [](const AlertLetters&) {
            ExpectRound({IDC_OPEN_REMINDER, IDC_END_REMINDER, IDCANCEL, IDC_SNOOZE_FIRST, IDC_REMINDERS});
        });
}

TEST_F(AlertKeysTest, TabWithoutReminders_PassesWhatIsDisabled)
{
    Open();
    SetFocus(Item(IDC_REMINDERS));
    ExpectRound({IDCANCEL, IDC_REMINDERS});
}

TEST_F(AlertKeysTest, KeysInTheList_MoveTheSelectionAndItsDetails)
{
    AddThree();
    Open();
    ExpectListKeys(List());
    PressKey(VK_END);
    EXPECT_EQ(L"daily", ItemText(IDC_REMINDER_SUBJECT));
    PressKey(VK_HOME);
    EXPECT_EQ(L"once", ItemText(IDC_REMINDER_SUBJECT));
}

TEST_F(AlertKeysTest, EnterAndSpace_AreTheButtonThatHasTheFocus)
{
    BeHost();
    for (const UINT key : {VK_RETURN, VK_SPACE})
    {
        InEachLanguage(
            [this, key](const AlertLetters&)
            {
                SetFocus(Item(IDC_SNOOZE_FIRST));
                PressKey(key);
                EXPECT_EQ(300, SnoozedFor(m_once));
                EXPECT_EQ((Texts{L"daily"}), Subjects());
                // Through Tab, so that the button with the focus is the default one.
                SetFocus(Item(IDC_OPEN_REMINDER));
                PressKey(VK_TAB);
                PressKey(key);
                EXPECT_EQ(Noon() + kDay, NextDue(m_daily));
                EXPECT_FALSE(IsOpen()) << "nothing is left";
            });
        InEachLanguage(
            [this, key](const AlertLetters&)
            {
                SetFocus(Item(IDC_END_REMINDER));
                PressKey(VK_TAB);
                EXPECT_EQ(IDCANCEL, FocusedItem());
                PressKey(key);
                EXPECT_FALSE(IsOpen());
                EXPECT_TRUE(m_store.Load(m_once)->IsDimissed());
            });
    }
}

TEST_F(AlertKeysTest, Enter_OnTheListIsSnoozeAfterOtherButtonsHadTheFocus)
{
    InEachLanguage(
        [this](const AlertLetters&)
        {
            GoRound();
            EXPECT_EQ(IDC_REMINDERS, FocusedItem());
            EXPECT_EQ(IDC_SNOOZE_FIRST, LOWORD(SendMessageW(Dialog(), DM_GETDEFID, 0, 0)));
            PressKey(VK_RETURN);
            EXPECT_EQ(300, SnoozedFor(m_once));
        });
}

TEST_F(AlertKeysTest, Escape_DismissesAllFromEveryStop)
{
    for (const int stop : kAlertStops)
    {
        AddThree();
        Open();
        SetFocus(Item(stop));
        PressKey(VK_ESCAPE);
        EXPECT_FALSE(IsOpen()) << stop;
        EXPECT_TRUE(m_store.Load(m_once)->IsDimissed()) << stop;
        for (const int number : {m_once, m_daily, m_later})
        {
            m_store.Remove(number);
        }
    }
}

TEST_F(AlertKeysTest, SnoozeMenu_IsOpenedAndUsedByKeys)
{
    struct Case
    {
        std::vector<UINT> keys;
        std::int64_t seconds;
    };
    for (const Case& each : {Case{{VK_DOWN, VK_RETURN}, 300}, Case{{VK_UP, VK_RETURN}, 604800},
                             Case{{VK_DOWN, VK_DOWN, VK_DOWN, VK_RETURN}, 1800},
                             Case{{VK_DOWN, VK_UP, VK_UP, VK_RETURN}, 345600}, Case{{VK_DOWN, VK_ESCAPE}, 0},
                             Case{{VK_END, VK_RETURN}, 604800}, Case{{VK_HOME, VK_RETURN}, 300}})
    {
        AddThree();
        Open();
        const auto menu = InMenu(each.keys);
        SetFocus(Item(IDC_SNOOZE_FIRST));
        PressKey(VK_DOWN);
        EXPECT_TRUE(menu->Happened());
        EXPECT_EQ(each.seconds, SnoozedFor(m_once)) << testing::PrintToString(each.keys);
        EXPECT_TRUE(IsOpen()) << "Escape closed the menu only";
        EXPECT_EQ(IDC_SNOOZE_FIRST, FocusedItem());
        for (const int number : {m_once, m_daily, m_later})
        {
            m_store.Remove(number);
        }
    }
}

} // namespace
