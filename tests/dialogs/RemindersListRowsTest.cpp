#include "tests/dialogs/ListHarness.h"

#include "module/RegistryPaths.h"
#include "tests/support/RawRegistry.h"

namespace
{

using namespace ts::test;
using enum ReminderListFilter;

using ListRowsTest = ListTest;

// --- Filters ---

TEST_F(ListRowsTest, Recent_ListsUpTo31Days)
{
    constexpr std::int64_t kMonth = 31 * kSecondsPerDay;
    m_store.Add(L"exactly 31 days", Noon() - CTimeSpan(kMonth));
    m_store.Add(L"one second less", Noon() - CTimeSpan(kMonth - 1));
    m_store.Add(L"to come", Noon() + CTimeSpan(kMonth));
    Show();
    EXPECT_EQ((Texts{L"one second less", L"to come"}), Subjects());
}

TEST_F(ListRowsTest, Today_ListsTheLocalDate)
{
    m_store.Add(L"yesterday", CTime(2026, 11, 20, 23, 59, 59));
    m_store.Add(L"first second", CTime(2026, 11, 21, 0, 0, 0));
    m_store.Add(L"last second", CTime(2026, 11, 21, 23, 59, 59));
    m_store.Add(L"tomorrow", CTime(2026, 11, 22, 0, 0, 0));
    Show(Today);
    EXPECT_EQ((Texts{L"first second", L"last second"}), Subjects());
}

TEST_F(ListRowsTest, Due_ListsFromTheReminderTime)
{
    CcvReminderData due = DueAt(Noon() + CTimeSpan(900));
    due.SetSubject(L"reminder time is now");
    due.SetReminderTimeSpan(900);
    m_store.Add(due);
    due.SetSubject(L"one second to go");
    due.SetReminderTimeSpan(899);
    m_store.Add(due);
    Show(Due);
    EXPECT_EQ((Texts{L"reminder time is now"}), Subjects());
}

TEST_F(ListRowsTest, NewFilter_TakesEffectWithTheNextRefresh)
{
    m_store.Add(L"tomorrow", Noon() + CTimeSpan(kSecondsPerDay));
    Show();
    List().SetFilter(Today);
    EXPECT_EQ(1, Count());
    List().Refresh();
    EXPECT_EQ(0, Count());
    EXPECT_EQ(Today, List().GetFilter());
}

TEST_F(ListRowsTest, FilterAndOrder_AtTheStart_AreRecentAndUnrefreshed)
{
    Open();
    EXPECT_EQ(Recent, List().GetFilter());
    EXPECT_EQ(CTime(), List().GetLastRefreshTime());
    EXPECT_EQ(-1, List().GetSelectedIndex());
    EXPECT_EQ(nullptr, List().GetSelectedReminder());
    List().Refresh();
    EXPECT_EQ(Noon(), List().GetLastRefreshTime());
}

// --- What a row holds ---

TEST_F(ListRowsTest, Row_ShowsSubjectTitleAndDueIn)
{
    m_store.Add(L"Call", Noon() + CTimeSpan(2 * kSecondsPerHour), L"Plan");
    Show();
    CcvReminderData expected = DueAt(Noon() + CTimeSpan(2 * kSecondsPerHour));
    EXPECT_EQ(L"", Text(0, 0));
    EXPECT_EQ(L"Call", Text(0, 1));
    EXPECT_EQ(L"Plan", Text(0, 2));
    EXPECT_EQ(CcvReminderDataUtilities::GetDueInString(&expected, Noon()).GetString(), Text(0, 3));
}

TEST_F(ListRowsTest, FewerColumns_KeepTheirKinds)
{
    m_store.Add(L"Call", Noon(), L"Plan");
    Open(4);
    List().Refresh();
    EXPECT_EQ(L"Plan", Text(0, 0));
    Open(10);
    List().Refresh();
    EXPECT_EQ(L"Call", Text(0, 0));
    EXPECT_NE(L"", Text(0, 1));
    PassMinute();
    EXPECT_EQ(L"Call", Text(0, 0));
}

TEST_F(ListRowsTest, Image_IsThereForRecurringRemindersOnly)
{
    CcvReminderData daily = EveryNDays(1);
    daily.SetNextDueDate(Noon() + CTimeSpan(60));
    m_store.Add(L"once", Noon());
    m_store.Add(daily);
    Show();
    EXPECT_EQ(-1, Item(0).iImage);
    EXPECT_EQ(0, Item(1).iImage);
}

TEST_F(ListRowsTest, ItemData_IsTheIndexInTheCollection)
{
    m_store.Add(L"second", Noon() + CTimeSpan(20));
    m_store.Add(L"first", Noon() + CTimeSpan(10));
    Show();
    EXPECT_EQ(1, Item(0).lParam);
    EXPECT_EQ(0, Item(1).lParam);
    EXPECT_EQ(m_manager->GetReminderByIndex(1), List().GetReminder(0));
}

TEST_F(ListRowsTest, InsertReminder_AppendsItsRow)
{
    m_store.Add(L"listed", Noon() + CTimeSpan(60));
    m_store.Add(L"long ago", Noon() - CTimeSpan(100 * kSecondsPerDay));
    Show();
    EXPECT_EQ(1, List().InsertReminder(1, m_manager->GetReminderByIndex(1), Noon()));
    EXPECT_EQ((Texts{L"listed", L"long ago"}), Subjects());
    EXPECT_EQ(m_manager->GetReminderByIndex(1), List().GetReminder(1));
}

TEST_F(ListRowsTest, RowThatDoesNotExist_HasNoReminder)
{
    AddNumbered(1);
    Show();
    EXPECT_EQ(nullptr, List().GetReminder(-1));
    EXPECT_EQ(nullptr, List().GetReminder(1));
}

// --- Damaged stores ---

TEST_F(ListRowsTest, DamagedReminder_IsListedLastWithoutDueIn_AndHidesNoOther)
{
    CcvReminderData damaged = Damaged(Noon());
    damaged.SetSubject(L"damaged");
    m_store.Add(L"before", Noon() + CTimeSpan(10));
    m_store.Add(damaged);
    m_store.Add(L"after", Noon() + CTimeSpan(20));
    Show();
    EXPECT_EQ((Texts{L"before", L"after", L"damaged"}), Subjects());
    EXPECT_EQ(L"", Text(2, 3));
    EXPECT_EQ(0, Item(2).iImage);
    ClickHeader(3);
    EXPECT_EQ((Texts{L"after", L"before", L"damaged"}), Subjects());
    PassMinute();
    EXPECT_EQ(L"", Text(2, 3));
    EXPECT_EQ(3, Count());
}

TEST_F(ListRowsTest, DamagedReminder_IsNeitherOfTodayNorDue)
{
    m_store.Add(Damaged(Noon()));
    m_store.Add(L"now", Noon());
    Show(Today);
    EXPECT_EQ((Texts{L"now"}), Subjects());
    Show(Due);
    EXPECT_EQ((Texts{L"now"}), Subjects());
    PassMinute();
    EXPECT_EQ((Texts{L"now"}), Subjects());
}

TEST_F(ListRowsTest, KeyThatIsGoneWhileTheCollectionLoads_LeavesNoRow)
{
    m_store.Add(L"sound", Noon());
    // A key without values, and one whose values are all of the wrong kind.
    const std::wstring path = std::wstring(ts::kRemindersPath) + L"\\{{zz}-";
    const RawKey empty(path + L"0}");
    const RawKey wrong(path + L"1}");
    for (const wchar_t* name : {L"Subject", L"InitialDueDate", L"RecurrenceType", L"Flags", L"MapGuid"})
    {
        wrong.Write(name, {REG_BINARY, {1, 2, 3}});
    }
    for (const ReminderListFilter filter : {Recent, Today, Due})
    {
        Show(filter);
        EXPECT_EQ(3, m_manager->GetRemindersCount());
        EXPECT_EQ((Texts{L"sound"}), Subjects());
        PassMinute();
        EXPECT_EQ((Texts{L"sound"}), Subjects());
    }
}

TEST_F(ListRowsTest, LongAndStrangeTexts_AreShownWhole)
{
    const std::wstring subject(1000, L'x');
    m_store.Add(subject.c_str(), Noon(), L"&a \u00E4\u4E2D\U0001F514%d");
    Show();
    EXPECT_EQ(subject, Text(0, 1));
    EXPECT_EQ(L"&a \u00E4\u4E2D\U0001F514%d", Text(0, 2));
}

// --- Selection over a refresh ---

TEST_F(ListRowsTest, FirstRefresh_SelectsTheFirstRow)
{
    AddNumbered(3);
    Open();
    List().Refresh();
    EXPECT_EQ(0, List().GetSelectedIndex());
    EXPECT_EQ((Rows{0, 0}), m_parent.TakeSelections());
    EXPECT_EQ(UINT{LVIS_FOCUSED | LVIS_SELECTED}, List().GetItemState(0, LVIS_FOCUSED | LVIS_SELECTED));
}

TEST_F(ListRowsTest, RefreshOfAnEmptyList_TellsThatNothingIsSelected)
{
    Open();
    List().Refresh();
    EXPECT_EQ(-1, List().GetSelectedIndex());
    EXPECT_EQ((Rows{-1}), m_parent.TakeSelections());
}

TEST_F(ListRowsTest, Refresh_KeepsTheSelectedReminderWhereverItGoes)
{
    AddNumbered(4);
    Show();
    List().SelectRow(2);
    m_parent.TakeSelections();
    m_store.Add(L"new first", Noon() + CTimeSpan(1));
    Reload();
    List().Refresh();
    EXPECT_EQ(3, List().GetSelectedIndex());
    EXPECT_EQ(CString(L"2"), SelectedSubject());
    EXPECT_EQ((Rows{3, 3}), m_parent.TakeSelections());
}

TEST_F(ListRowsTest, Refresh_WithoutTheSelectedReminder_KeepsTheRow)
{
    AddNumbered(4);
    Show();
    List().SelectRow(1);
    m_store.Remove(1);
    Reload();
    List().Refresh();
    EXPECT_EQ(1, List().GetSelectedIndex());
    EXPECT_EQ(CString(L"2"), SelectedSubject());
}

TEST_F(ListRowsTest, Refresh_WithoutTheSelectedLastReminder_SelectsTheNewLast)
{
    AddNumbered(4);
    Show();
    List().SelectRow(3);
    m_store.Remove(3);
    m_store.Remove(2);
    Reload();
    List().Refresh();
    EXPECT_EQ(1, List().GetSelectedIndex());
}

TEST_F(ListRowsTest, Refresh_WithNoneSelected_SelectsTheFirstRow)
{
    AddNumbered(4);
    Show();
    List().SelectRow(-1);
    m_parent.TakeSelections();
    List().Refresh();
    EXPECT_EQ(0, List().GetSelectedIndex());
}

TEST_F(ListRowsTest, Refresh_ThatLeavesNothing_SelectsNothing)
{
    AddNumbered(1);
    Show();
    m_store.Remove(0);
    Reload();
    List().Refresh();
    EXPECT_EQ(0, Count());
    EXPECT_EQ(-1, List().GetSelectedIndex());
    EXPECT_EQ((Rows{-1}), m_parent.TakeSelections());
}

TEST_F(ListRowsTest, Refresh_KeepsTheScrollPosition)
{
    AddNumbered(100);
    Show();
    List().SetColumnWidth(1, 800);
    List().SelectRow(50);
    List().EnsureVisible(60, FALSE);
    List().Scroll(CSize(120, 0));
    const int top = List().GetTopIndex();
    const int left = List().GetScrollPos(SB_HORZ);
    ASSERT_GT(top, 20);
    ASSERT_GT(left, 0);
    for (int round = 0; round < 3; ++round)
    {
        List().Refresh();
        EXPECT_EQ(top, List().GetTopIndex());
        EXPECT_EQ(left, List().GetScrollPos(SB_HORZ));
        EXPECT_EQ(50, List().GetSelectedIndex());
    }
}

TEST_F(ListRowsTest, Refresh_ThatLeavesFewRows_ShowsThemFromTheTop)
{
    AddNumbered(100);
    Show();
    List().SelectRow(99);
    List().EnsureVisible(99, FALSE);
    for (int number = 3; number < 100; ++number)
    {
        m_store.Remove(number);
    }
    Reload();
    List().Refresh();
    EXPECT_EQ(0, List().GetTopIndex());
    EXPECT_EQ(2, List().GetSelectedIndex());
}

// --- Selecting ---

TEST_F(ListRowsTest, SelectRow_TellsTheParentOncePerChange)
{
    AddNumbered(3);
    Show();
    List().SelectRow(0);
    EXPECT_EQ(Rows{}, m_parent.TakeSelections());
    List().SelectRow(2);
    EXPECT_EQ((Rows{2}), m_parent.TakeSelections());
    EXPECT_EQ(0u, List().GetItemState(0, LVIS_FOCUSED | LVIS_SELECTED));
    List().SelectRow(-1);
    EXPECT_EQ((Rows{-1}), m_parent.TakeSelections());
    EXPECT_EQ(-1, List().GetSelectedIndex());
    List().SelectRow(-1);
    EXPECT_EQ(Rows{}, m_parent.TakeSelections());
}

} // namespace
