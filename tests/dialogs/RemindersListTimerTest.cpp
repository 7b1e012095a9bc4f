#include "tests/dialogs/ListHarness.h"

namespace
{

using namespace ts::test;
using enum ReminderListFilter;

class ListTimerTest : public ListTest
{
  protected:
    std::wstring DueIn(CTime due, CTime now)
    {
        CcvReminderData reminder = DueAt(due);
        return CcvReminderDataUtilities::GetDueInString(&reminder, now).GetString();
    }
};

TEST_F(ListTimerTest, Minute_RewritesTheDueInTexts)
{
    const CTime first = Noon() + CTimeSpan(90 * 60);
    const CTime second = Noon() + CTimeSpan(kSecondsPerDay);
    m_store.Add(L"first", first);
    m_store.Add(L"second", second);
    Show();
    const CTime later = Noon() + CTimeSpan(2 * kSecondsPerHour);
    m_clock.Set(later);
    ASSERT_EQ((Texts{DueIn(first, Noon()), DueIn(second, Noon())}), Column(3));
    PassMinute();
    EXPECT_EQ((Texts{DueIn(first, later), DueIn(second, later)}), Column(3));
    EXPECT_NE(DueIn(first, Noon()), DueIn(first, later));
}

TEST_F(ListTimerTest, Minute_InTheDueFilter_AddsWhatHasBecomeDue)
{
    CcvReminderData soon = DueAt(Noon() + CTimeSpan(120));
    soon.SetSubject(L"soon");
    soon.SetReminderTimeSpan(60);
    m_store.Add(soon);
    m_store.Add(L"now", Noon());
    Show(Due);
    ASSERT_EQ((Texts{L"now"}), Subjects());
    m_clock.Set(Noon() + CTimeSpan(59));
    PassMinute();
    EXPECT_EQ((Texts{L"now"}), Subjects());
    m_clock.Set(Noon() + CTimeSpan(60));
    PassMinute();
    EXPECT_EQ((Texts{L"now", L"soon"}), Subjects());
    PassMinute();
    EXPECT_EQ((Texts{L"now", L"soon"}), Subjects()) << "once only";
}

TEST_F(ListTimerTest, WhatHasBecomeDue_IsSortedIn)
{
    CcvReminderData early = DueAt(Noon() - CTimeSpan(60));
    early.SetSubject(L"early");
    early.SetSnoozeTime(60);
    m_store.Add(early);
    m_store.Add(L"late", Noon());
    Show(Due);
    ASSERT_EQ((Texts{L"late"}), Subjects());
    m_clock.Set(Noon() + CTimeSpan(60));
    PassMinute();
    EXPECT_EQ((Texts{L"early", L"late"}), Subjects());
    EXPECT_EQ(CString(L"early"), List().GetReminder(0)->GetSubject());
}

TEST_F(ListTimerTest, Minute_AfterAReload_AddsWhatHasBecomeDueOnceAndHidesNoOther)
{
    // The first goes: "shown" takes its place in the collection, "soon" that of "shown".
    m_store.Add(L"gone", Noon() + CTimeSpan(kSecondsPerDay));
    m_store.Add(L"shown", Noon());
    m_store.Add(L"soon", Noon() + CTimeSpan(60));
    Show(Due);
    ASSERT_EQ((Texts{L"shown"}), Subjects());
    m_store.Remove(0);
    Reload();
    m_clock.Set(Noon() + CTimeSpan(60));
    PassMinute();
    EXPECT_EQ((Texts{L"shown", L"soon"}), Subjects());
    EXPECT_EQ(CString(L"shown"), List().GetReminder(0)->GetSubject());
    EXPECT_EQ(CString(L"soon"), List().GetReminder(1)->GetSubject());
}

TEST_F(ListTimerTest, Minute_InTheOtherFilters_AddsAndRemovesNothing)
{
    m_store.Add(L"tomorrow", Noon() + CTimeSpan(kSecondsPerDay));
    m_store.Add(L"today", Noon());
    Show(Today);
    m_clock.Set(Noon() + CTimeSpan(kSecondsPerDay));
    PassMinute();
    EXPECT_EQ((Texts{L"today"}), Subjects());
    Show(Recent);
    m_store.Add(L"new", Noon());
    Reload();
    m_clock.Set(Noon() + CTimeSpan(40 * kSecondsPerDay));
    PassMinute();
    EXPECT_EQ(2, Count());
}

TEST_F(ListTimerTest, Minute_KeepsSelectionAndOrderAndTellsNobody)
{
    m_store.Add(L"a", Noon() - CTimeSpan(60));
    m_store.Add(L"b", Noon());
    Show(Due);
    List().SelectRow(1);
    m_parent.TakeSelections();
    m_clock.Set(Noon() + CTimeSpan(60));
    PassMinute();
    EXPECT_EQ(1, List().GetSelectedIndex());
    EXPECT_EQ(Rows{}, m_parent.TakeSelections());
}

TEST_F(ListTimerTest, SomethingAdded_BringsTheWindowToTheFront)
{
    m_store.Add(L"soon", Noon() + CTimeSpan(60));
    m_store.Add(L"now", Noon());
    Show(Due);
    const ApplicationWindow other(L"ListTestOther");
    ShowWindow(other.Get(), SW_SHOW);
    SetForegroundWindow(other.Get());
    ASSERT_EQ(other.Get(), GetForegroundWindow());
    PassMinute();
    EXPECT_EQ(other.Get(), GetForegroundWindow()) << "nothing was added";
    m_clock.Set(Noon() + CTimeSpan(60));
    PassMinute();
    EXPECT_EQ(m_parent.m_hWnd, GetAncestor(GetForegroundWindow(), GA_ROOT));
}

TEST_F(ListTimerTest, RecurringReminderThatMovedOn_ShowsItsNewDueTime)
{
    CcvReminderData daily = EveryNDays(1);
    daily.SetNextDueDate(Noon());
    m_store.Add(daily);
    Show();
    const CTime next = Noon() + CTimeSpan(kSecondsPerDay);
    m_clock.Set(next - CTimeSpan(60));
    PassMinute();
    EXPECT_EQ((Texts{DueIn(Noon(), next - CTimeSpan(60))}), Column(3));
    m_clock.Set(next);
    PassMinute();
    EXPECT_EQ((Texts{DueIn(next, next)}), Column(3));
}

TEST_F(ListTimerTest, OtherTimers_AreTheListsOwn)
{
    m_store.Add(L"a", Noon());
    Show();
    const Texts before = Column(3);
    m_clock.Set(Noon() + CTimeSpan(5 * kSecondsPerHour));
    List().SendMessage(WM_TIMER, 1002);
    EXPECT_EQ(before, Column(3));
}

TEST_F(ListTimerTest, Timer_IsSetWithTheColumnsAndAgainByEachMinute)
{
    constexpr UINT_PTR kTimer = 1001;
    Open();
    EXPECT_NE(FALSE, ::KillTimer(List().m_hWnd, kTimer));
    EXPECT_EQ(FALSE, ::KillTimer(List().m_hWnd, kTimer));
    PassMinute();
    EXPECT_NE(FALSE, ::KillTimer(List().m_hWnd, kTimer));
}

} // namespace
