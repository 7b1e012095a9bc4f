#include "tests/dialogs/reminders/AlertHarness.h"

namespace
{

using namespace ts::test;

// A host that loads the collection and refreshes the dialog, or worse, inside each change.

class AlertSynchronizationTest : public AlertTest
{
  protected:
    AlertSynchronizationTest() { BeHost(); }

    [[nodiscard]] bool IsDismissed(int number) const { return m_store.Load(number)->IsDimissed(); }

    static constexpr CTimeSpan kDay = kSecondsPerDay;
};

TEST_F(AlertSynchronizationTest, Refresh_ShowsTheStoreAndKeepsTheSelection)
{
    AddThree();
    Open();
    PressKey(VK_DOWN);
    m_store.Add(L"new", Noon() - CTimeSpan(2 * kSecondsPerHour));
    Synchronize();
    EXPECT_EQ((Texts{L"new", L"once", L"daily"}), Subjects());
    EXPECT_EQ(2, List().GetSelectedIndex());
    EXPECT_EQ(L"daily", ItemText(IDC_REMINDER_SUBJECT));
}

TEST_F(AlertSynchronizationTest, RefreshWithoutAWindow_DoesNothing)
{
    AddThree();
    Load();
    m_dialog = std::make_unique<CcvMfcReminderAlertDialog>(m_manager.get(), nullptr);
    Synchronize();
    Open();
    Command(IDOK);
    Synchronize();
    PumpMessages();
    EXPECT_FALSE(m_store.Load(m_once)->IsDimissed());
}

TEST_F(AlertSynchronizationTest, RefreshThatLeavesNothing_ClosesAndDismissesNothing)
{
    AddThree();
    Open();
    m_store.Remove(m_once);
    m_store.Remove(m_daily);
    Synchronize();
    EXPECT_TRUE(IsOpen()) << "it is closed by a message";
    EXPECT_FALSE(IsEnabled(IDC_END_REMINDER));
    PumpMessages();
    EXPECT_FALSE(IsOpen());
    EXPECT_FALSE(IsDismissed(m_later));
    EXPECT_EQ(0, m_messages);
}

TEST_F(AlertSynchronizationTest, WhatBecomesDueBeforeTheAlertClosesItself_KeepsItOpen)
{
    AddThree();
    Open();
    m_store.Remove(m_once);
    m_store.Remove(m_daily);
    Synchronize();
    m_clock.Set(Noon() + CTimeSpan(kSecondsPerHour));
    PassMinute();
    PumpMessages();
    ASSERT_TRUE(IsOpen());
    EXPECT_EQ((Texts{L"later"}), Subjects());
    EXPECT_FALSE(IsDismissed(m_later));
    SystemCommand(SC_CLOSE);
    EXPECT_FALSE(IsOpen());
    EXPECT_TRUE(IsDismissed(m_later));
}

TEST_F(AlertSynchronizationTest, SnoozingTheLast_ClosesTheAlert)
{
    const int once = m_store.Add(L"once", Noon());
    Open();
    PressKey(VK_RETURN);
    PumpMessages();
    EXPECT_FALSE(IsOpen());
    EXPECT_TRUE(m_store.Load(once)->IsSnoozed());
    EXPECT_FALSE(IsDismissed(once));
}

TEST_F(AlertSynchronizationTest, Close_DismissesEachListedReminderOnce)
{
    std::vector<int> daily;
    for (int count = 0; count < 20; ++count)
    {
        daily.push_back(AddRecurring(L"daily", Noon() - CTimeSpan(60 * (count % 7))));
    }
    AddThree();
    Open();
    SystemCommand(SC_CLOSE);
    EXPECT_FALSE(IsOpen());
    EXPECT_EQ(22, m_messages);
    for (const int number : daily)
    {
        const CTime initial = m_store.Load(number)->GetInitialDueDate();
        EXPECT_EQ(initial + kDay, NextDue(number)) << number;
    }
    EXPECT_TRUE(IsDismissed(m_once));
    EXPECT_FALSE(IsDismissed(m_later));
}

TEST_F(AlertSynchronizationTest, CloseWithReloadsButNoRefresh_DismissesTheOccurrencesInForce)
{
    std::vector<int> daily;
    for (int days = 1; days <= 5; ++days)
    {
        daily.push_back(AddRecurring(L"daily", Noon() - CTimeSpan(days * kSecondsPerDay)));
    }
    m_host->onSynchronize = [this] { m_manager->UpdateReminderCollection(); };
    Open();
    SystemCommand(SC_CLOSE);
    for (const int number : daily)
    {
        EXPECT_EQ(Noon() + kDay, NextDue(number)) << number;
    }
}

TEST_F(AlertSynchronizationTest, WhatBecomesDueWhileTheAlertCloses_IsNotDismissed)
{
    AddThree();
    m_host->onSynchronize = [this]
    {
        m_clock.Set(Noon() + CTimeSpan(kSecondsPerHour));
        Synchronize();
    };
    Open();
    SystemCommand(SC_CLOSE);
    EXPECT_FALSE(IsOpen());
    EXPECT_TRUE(IsDismissed(m_once));
    EXPECT_EQ(Noon() + kDay, NextDue(m_daily));
    EXPECT_FALSE(IsDismissed(m_later));
}

TEST_F(AlertSynchronizationTest, WhatIsDeletedWhileTheAlertCloses_DoesNotComeBack)
{
    AddThree();
    const int last = m_store.Add(L"last", Noon());
    m_host->onSynchronize = [this]
    {
        if (m_messages++ == 0)
        {
            m_store.Remove(m_daily);
        }
        Synchronize();
    };
    Open();
    SystemCommand(SC_CLOSE);
    EXPECT_FALSE(m_store.Load(m_daily));
    EXPECT_TRUE(IsDismissed(m_once));
    EXPECT_TRUE(IsDismissed(last));
}

TEST_F(AlertSynchronizationTest, SecondCloseInsideTheFirst_DismissesNothingTwice)
{
    AddThree();
    const int second = AddRecurring(L"second", Noon());
    m_host->onSynchronize = [this]
    {
        ++m_messages;
        Synchronize();
        SystemCommand(SC_CLOSE);
    };
    Open();
    SystemCommand(SC_CLOSE);
    EXPECT_FALSE(IsOpen());
    EXPECT_EQ(3, m_messages);
    EXPECT_EQ(Noon() + kDay, NextDue(m_daily));
    EXPECT_EQ(Noon() + kDay, NextDue(second));
    EXPECT_TRUE(IsDismissed(m_once));
}

TEST_F(AlertSynchronizationTest, DamagedReminder_DoesNotKeepTheOthersFromBeingDismissed)
{
    const int damaged = AddDamagedAndSnoozed();
    AddThree();
    Open();
    ASSERT_EQ(3, List().GetItemCount());
    SystemCommand(SC_CLOSE);
    EXPECT_FALSE(IsOpen());
    EXPECT_TRUE(IsDismissed(m_once));
    EXPECT_EQ(Noon() + kDay, NextDue(m_daily));
    EXPECT_FALSE(m_store.Load(damaged)->IsSnoozed()) << "or it would be due for ever";
}

TEST_F(AlertSynchronizationTest, HostThatDestroysTheDialogInsideAChange_IsSurvived)
{
    for (const int command :
         {static_cast<int>(IDC_SNOOZE_FIRST), static_cast<int>(IDC_END_REMINDER), static_cast<int>(IDCANCEL)})
    {
        AddThree();
        m_host->onSynchronize = [this]
        {
            ++m_messages;
            m_dialog.reset();
            m_manager->UpdateReminderCollection();
        };
        Open();
        m_messages = 0;
        PressButton(command);
        EXPECT_EQ(command == IDCANCEL ? 2 : 1, m_messages);
        EXPECT_FALSE(IsOpen());
        for (const int number : {m_once, m_daily, m_later})
        {
            if (m_store.Load(number))
            {
                m_store.Remove(number);
            }
        }
    }
}

TEST_F(AlertSynchronizationTest, HostThatChangesTheOrderInsideAChange_FindsTheRightReminder)
{
    AddThree();
    const int other = m_store.Add(L"other", Noon() - CTimeSpan(5 * kSecondsPerHour));
    m_host->onSynchronize = [this]
    {
        ++m_messages;
        Synchronize();
        List().SendMessage(LVM_SCROLL, 0, 100);
    };
    Open();
    ASSERT_EQ((Texts{L"other", L"once", L"daily"}), Subjects());
    List().SelectRow(1);
    PressButton(IDC_SNOOZE_FIRST);
    PressButton(IDC_END_REMINDER);
    EXPECT_TRUE(m_store.Load(m_once)->IsSnoozed());
    EXPECT_EQ(Noon() + kDay, NextDue(m_daily)) << "it took the selection";
    EXPECT_TRUE(m_store.Load(other));
}

} // namespace
