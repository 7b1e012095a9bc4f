#include "hosts/common/DueWatch.h"

#include "Strings.h"

#include <gtest/gtest.h>
#include <limits>

namespace
{

using ts::hosts::DueWatch;
using Keys = std::vector<std::string>;

constexpr std::int64_t kDay = 86'400;

/// A watch over reminders that lie in memory only. Times count in seconds from noon of a day in winter.
class DueWatchTest : public testing::Test
{
  protected:
    CcvReminderData& Add(const wchar_t* key, std::int64_t due, std::int64_t lead = 0)
    {
        CcvReminderData reminder{CString(key)};
        reminder.SetInitialDueDate(At(due));
        reminder.SetNextDueDate(At(due));
        reminder.SetReminderTimeSpan(CTimeSpan(lead));
        m_reminders.push_back(reminder);
        return m_reminders.back();
    }

    static void MakeDaily(CcvReminderData& reminder)
    {
        reminder.SetRecurrenceType(EcvReminderRecurrenceType::Daily);
        reminder.SetDailyOccurenceType(EcvReminderDailyOccurence::EveryNDays);
        reminder.SetDailyRecurrenceNumber(1);
    }

    static CTime At(std::int64_t seconds) { return s_noon + CTimeSpan(seconds); }

    Keys Look(std::int64_t now)
    {
        Keys keys;
        for (const auto& listed : m_watch.Look(m_reminders, At(now)))
        {
            keys.push_back(ts::console::FromLibrary(listed.reminder.GetReminderKey()));
        }
        return keys;
    }

    std::int64_t Next(std::int64_t now) const
    {
        const auto next = DueWatch::NextTime(m_reminders, At(now));
        return next ? (*next - s_noon).GetTimeSpan() : -1;
    }

    static inline const CTime s_noon = CTime(2026, 12, 1, 12, 0, 0);
    std::vector<CcvReminderData> m_reminders;
    DueWatch m_watch;
};

TEST_F(DueWatchTest, DueTime_IsToldOnceAndInItsSecond)
{
    Add(L"a", 100);
    EXPECT_EQ(Keys{}, Look(99));
    EXPECT_EQ(Keys{"a"}, Look(100));
    EXPECT_EQ(Keys{}, Look(101));
    EXPECT_EQ(Keys{}, Look(5 * kDay));
}

TEST_F(DueWatchTest, LeadTime_ComesOff)
{
    Add(L"a", 100, 60);
    EXPECT_EQ(Keys{}, Look(39));
    EXPECT_EQ(Keys{"a"}, Look(40));
    EXPECT_EQ(Keys{}, Look(100));
}

TEST_F(DueWatchTest, Several_ComeInTheOrderOfTheirDueTimes)
{
    Add(L"a", 100);
    Add(L"b", 50);
    EXPECT_EQ((Keys{"b", "a"}), Look(100));
}

TEST_F(DueWatchTest, SeveralOfOneTime_ComeInTheOrderOfTheirKeys)
{
    Add(L"b", 100);
    Add(L"c", 100);
    Add(L"a", 100);
    EXPECT_EQ((Keys{"a", "b", "c"}), Look(100));
}

TEST_F(DueWatchTest, SnoozedBetweenTwoLooks_IsToldAgain)
{
    CcvReminderData& reminder = Add(L"a", 100);
    EXPECT_EQ(Keys{"a"}, Look(100));
    for (const std::int64_t end : {200, 400})
    {
        reminder.SetSnoozeTime(At(end) - CTime::GetCurrentTime());
        EXPECT_EQ(Keys{"a"}, Look(end + 100)) << "nobody looked while it was asleep";
        EXPECT_EQ(Keys{}, Look(end + 101));
    }
}

TEST_F(DueWatchTest, Recurring_IsToldForEachOccurrence)
{
    MakeDaily(Add(L"a", 100));
    EXPECT_EQ(Keys{"a"}, Look(100));
    EXPECT_EQ(Keys{}, Look(kDay + 99));
    EXPECT_EQ(Keys{"a"}, Look(kDay + 100));
    EXPECT_EQ(Keys{}, Look(kDay + 101));
}

TEST_F(DueWatchTest, Snoozed_IsToldAgainWhenTheSnoozeEnds)
{
    CcvReminderData& reminder = Add(L"a", 100);
    EXPECT_EQ(Keys{"a"}, Look(100));
    // The library counts a snooze from its clock.
    reminder.SetSnoozeTime(At(400) - CTime::GetCurrentTime());
    EXPECT_EQ(Keys{}, Look(398));
    EXPECT_LE(399, Next(398));
    EXPECT_EQ(Keys{"a"}, Look(402));
    EXPECT_EQ(Keys{}, Look(403));
}

TEST_F(DueWatchTest, Dismissed_IsNotTold)
{
    Add(L"a", 100).SetDismissed(true);
    EXPECT_EQ(-1, Next(0));
    EXPECT_EQ(Keys{}, Look(100));
}

TEST_F(DueWatchTest, StrayDismissedMark_MeansNothingOnARecurringReminder)
{
    CcvReminderData& reminder = Add(L"a", 100);
    reminder.SetDismissed(true);
    MakeDaily(reminder);
    ASSERT_TRUE(reminder.IsDimissed());
    EXPECT_EQ(100, Next(0));
    EXPECT_EQ(Keys{"a"}, Look(100));
}

TEST_F(DueWatchTest, WithoutDueTime_IsDueOnlyWhenSnoozed)
{
    m_reminders.emplace_back(CString(L"a"));
    EXPECT_EQ(Keys{}, Look(0));
    EXPECT_EQ(-1, Next(0));
    m_reminders.front().SetSnoozeTime(At(400) - CTime::GetCurrentTime());
    EXPECT_LE(399, Next(0));
    EXPECT_EQ(Keys{"a"}, Look(402));
    EXPECT_EQ(-1, Next(402));
}

TEST_F(DueWatchTest, TimesOutOfAnyCalendar_AreTimes)
{
    constexpr std::int64_t kLimit = std::numeric_limits<std::int64_t>::max();
    Add(L"far", 0).SetNextDueDate(CTime(kLimit));
    Add(L"early", 0).SetNextDueDate(CTime(-kLimit));
    EXPECT_EQ(Keys{"early"}, Look(0));
    EXPECT_EQ(CTime(kLimit), DueWatch::NextTime(m_reminders, At(0)));
}

TEST_F(DueWatchTest, Forgetting_TellsAllAgain)
{
    Add(L"a", 100);
    EXPECT_EQ(Keys{"a"}, Look(100));
    m_watch.Forget();
    EXPECT_EQ(Keys{"a"}, Look(101));
}

TEST_F(DueWatchTest, NewDueTimeThatIsPast_IsTold)
{
    Add(L"a", 100);
    EXPECT_EQ(Keys{"a"}, Look(100));
    m_reminders.front().SetNextDueDate(At(90));
    EXPECT_EQ(Keys{"a"}, Look(101));
    m_reminders.front().SetSubject(L"other");
    m_reminders.front().SetReminderTimeSpan(CTimeSpan(7));
    EXPECT_EQ(Keys{}, Look(102));
}

TEST_F(DueWatchTest, KeyThatWasGoneMeanwhile_CountsAsNew)
{
    Add(L"a", 100);
    EXPECT_EQ(Keys{"a"}, Look(100));
    m_reminders.clear();
    EXPECT_EQ(Keys{}, Look(101));
    Add(L"a", 100);
    EXPECT_EQ(Keys{"a"}, Look(102));
}

TEST_F(DueWatchTest, NextTime_IsTheEarliestAhead)
{
    EXPECT_EQ(-1, Next(0));
    Add(L"a", 100);
    Add(L"b", 70, 20);
    EXPECT_EQ(50, Next(0));
    EXPECT_EQ(100, Next(50));
    EXPECT_EQ(-1, Next(100));
}

TEST_F(DueWatchTest, NextTimeOfOneThatIsDue_IsItsNextOccurrence)
{
    MakeDaily(Add(L"a", 100, 60));
    EXPECT_EQ(40, Next(39));
    EXPECT_EQ(kDay + 40, Next(40));
    EXPECT_EQ(kDay + 40, Next(kDay + 39));
    EXPECT_EQ(2 * kDay + 40, Next(kDay + 40));
}

TEST_F(DueWatchTest, DamagedReminder_HidesNoOther)
{
    CcvReminderData& damaged = Add(L"a", -40 * kDay);
    damaged.SetRecurrenceType(EcvReminderRecurrenceType::Monthly);
    damaged.SetMonthlyOccurenceType(EcvReminderMonthlyOccurence::OrdinalDayType);
    damaged.SetMonthlyReminderDayIntegralType(static_cast<EcvReminderDayIntegralType>(9));
    damaged.SetMonthlyReminderPattern2Month(1);
    Add(L"b", 100);
    EXPECT_EQ(100, Next(0));
    EXPECT_EQ(Keys{"b"}, Look(100));
}

} // namespace
