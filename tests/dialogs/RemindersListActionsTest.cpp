#include "tests/dialogs/ListHarness.h"

#include "collection/SynchronizationMessage.h"

namespace
{

using namespace ts::test;

/// A list with a host that answers each change at once.
class ListActionsTest : public ListTest
{
  protected:
    ListActionsTest()
    {
        m_application.onSynchronize = [this]
        {
            ++m_changes;
            Reload();
            List().Refresh();
        };
    }

    ApplicationWindow m_application{ts::kMainWindowClass};
    int m_changes = 0;
};

TEST_F(ListActionsTest, Dismiss_DismissesTheRowsReminder)
{
    AddNumbered(3);
    Show();
    List().DismissReminder(1);
    EXPECT_TRUE(m_store.Load(1)->IsDimissed());
    EXPECT_FALSE(m_store.Load(0)->IsDimissed());
    EXPECT_EQ(1, m_changes);
}

TEST_F(ListActionsTest, End_DeletesAReminderAndMovesARecurringOneOn)
{
    CcvReminderData daily = EveryNDays(1);
    daily.SetNextDueDate(Noon() + CTimeSpan(1));
    m_store.Add(daily);
    m_store.Add(L"once", Noon() + CTimeSpan(60));
    Show();
    List().EndReminder(0);
    EXPECT_EQ(Noon() + CTimeSpan(kSecondsPerDay + 1), m_store.Load(0)->GetNextDueDate());
    EXPECT_EQ((Texts{L"once", L""}), Subjects());
    List().EndReminder(0);
    EXPECT_FALSE(m_store.Load(1).has_value());
    EXPECT_EQ((Texts{L""}), Subjects());
    EXPECT_EQ(2, m_changes);
}

TEST_F(ListActionsTest, Snooze_SetsTheSnoozeTime)
{
    AddNumbered(2);
    Show();
    List().SnoozeReminder(1, 300);
    EXPECT_EQ(Noon() + CTimeSpan(300), m_store.Load(1)->GetSnoozeTime());
    EXPECT_FALSE(m_store.Load(0)->IsSnoozed());
    EXPECT_EQ(1, m_changes);
}

TEST_F(ListActionsTest, Modify_WritesTheEditedCopyAndKeepsTheState)
{
    AddNumbered(2);
    Show();
    List().SnoozeReminder(0, 300);
    CcvReminderData edited(*List().GetReminder(0));
    edited.SetSubject(L"edited");
    edited.SetSnoozed(false);
    List().ModifyReminder(0, edited);
    EXPECT_EQ(CString(L"edited"), m_store.Load(0)->GetSubject());
    EXPECT_TRUE(m_store.Load(0)->IsSnoozed());
    EXPECT_EQ((Texts{L"edited", L"1"}), Subjects());
}

TEST_F(ListActionsTest, RowsThatDoNotExist_AreLeftAlone)
{
    AddNumbered(1);
    Show();
    for (const int row : {-1, 1, 1000})
    {
        List().DismissReminder(row);
        List().EndReminder(row);
        List().SnoozeReminder(row, 300);
        List().ModifyReminder(row, DueAt(Noon()));
    }
    EXPECT_EQ(0, m_changes);
}

TEST_F(ListActionsTest, EndingAllRowsInTurn_EndsEachOnce)
{
    AddNumbered(20);
    Show();
    while (Count() > 0)
    {
        List().EndReminder(Count() / 2);
    }
    EXPECT_EQ(20, m_changes);
    EXPECT_EQ(0, m_manager->GetRemindersCount());
}

} // namespace
