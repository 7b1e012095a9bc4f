#include "tests/dialogs/ListHarness.h"

#include "module/RegistryPaths.h"

namespace
{

using namespace ts::test;

/// The collection is loaded again behind the list's back.
using ListReloadTest = ListTest;

TEST_F(ListReloadTest, ReminderThatMovedInTheCollection_IsFoundAgain)
{
    AddNumbered(3);
    Show();
    m_store.Remove(0);
    Reload();
    EXPECT_EQ(CString(L"2"), List().GetReminder(2)->GetSubject());
    List().SnoozeReminder(1, 300);
    EXPECT_TRUE(m_store.Load(1)->IsSnoozed());
    EXPECT_FALSE(m_store.Load(2)->IsSnoozed());
}

TEST_F(ListReloadTest, ReminderThatVanished_IsNotMistakenForAnother)
{
    AddNumbered(3);
    Show();
    List().SelectRow(0);
    m_store.Remove(0);
    Reload();
    EXPECT_EQ(nullptr, List().GetReminder(0));
    EXPECT_EQ(nullptr, List().GetSelectedReminder());
    List().EndReminder(0);
    EXPECT_TRUE(m_store.Load(1).has_value());
    EXPECT_TRUE(m_store.Load(2).has_value());
}

TEST_F(ListReloadTest, CollectionThatWasEmptied_LeavesRowsThatCanStillBeSortedAndShown)
{
    AddNumbered(5);
    Show();
    for (int number = 0; number < 5; ++number)
    {
        m_store.Remove(number);
    }
    Reload();
    for (int column = 0; column < 4; ++column)
    {
        ClickHeader(column);
    }
    PassMinute();
    List().Invalidate();
    List().UpdateWindow();
    EXPECT_EQ(5, Count());
    List().Refresh();
    EXPECT_EQ(0, Count());
}

TEST_F(ListReloadTest, ReloadedCollection_IsSortedByTheTimesOfTheRowsOwnReminders)
{
    m_store.Add(L"gone", Noon() + CTimeSpan(30));
    m_store.Add(L"late", Noon() + CTimeSpan(20));
    m_store.Add(L"early", Noon() + CTimeSpan(10));
    Show();
    m_store.Remove(0);
    Reload();
    ClickHeader(3);
    EXPECT_EQ((Texts{L"late", L"early", L"gone"}), Subjects()) << "what has no time comes last";
    ClickHeader(3);
    EXPECT_EQ((Texts{L"early", L"late", L"gone"}), Subjects());
    EXPECT_EQ(m_manager->GetReminderByIndex(1), List().GetReminder(0));
    EXPECT_EQ(m_manager->GetReminderByIndex(0), List().GetReminder(1));
    EXPECT_EQ(nullptr, List().GetReminder(2));
}

TEST_F(ListReloadTest, RowsOfAReloadedCollection_KnowTheirNewIndices)
{
    AddNumbered(6);
    Show();
    m_store.Remove(4);
    m_store.Remove(1);
    Reload();
    ClickHeader(1);
    ASSERT_EQ((Texts{L"0", L"1", L"2", L"3", L"4", L"5"}), Subjects());
    const LPARAM expected[] = {0, 4, 1, 2, 5, 3};
    for (int row = 0; row < Count(); ++row)
    {
        EXPECT_EQ(expected[row], Item(row).lParam) << "what is gone counts on behind the others, row " << row;
    }
    Reload();
    PassMinute();
    EXPECT_EQ(4, Item(1).lParam);
}

TEST_F(ListReloadTest, RemindersOfOneTopic_KeepARowEach)
{
    CcvReminderData twin = DueAt(Noon() + CTimeSpan(10));
    twin.SetSubject(L"twin");
    m_store.Add(L"gone", Noon());
    const int first = m_store.Add(twin);
    const CcvReminderData stored = *m_store.Load(first);
    CcvReminderData other{CString(L"{{zz}-1}")};
    other.SetDocumentPath(stored.GetDocumentPath());
    other.SetMapGuid(stored.GetMapGuid());
    other.SetObjectGuid(stored.GetObjectGuid());
    other.SetSubject(L"other twin");
    other.SetNextDueDate(Noon() + CTimeSpan(20));
    other.SaveDataToRegistry(ts::kRemindersPath);
    Show();
    m_store.Remove(0);
    Reload();
    ClickHeader(1);
    EXPECT_EQ((Texts{L"gone", L"other twin", L"twin"}), Subjects());
    EXPECT_EQ(CString(L"other twin"), List().GetReminder(1)->GetSubject());
    EXPECT_EQ(CString(L"twin"), List().GetReminder(2)->GetSubject());
}

TEST_F(ListReloadTest, ParentThatReloadsInItsHandler_FindsWhatItIsTold)
{
    AddNumbered(5);
    Show();
    Texts seen;
    m_parent.onSelectionChanged = [&]
    {
        Reload();
        seen.emplace_back(SelectedSubject().GetString());
    };
    Press(VK_DOWN);
    EXPECT_EQ((Texts{L"1", L"1"}), seen);
    m_parent.onSelectionChanged = nullptr;
}

} // namespace
