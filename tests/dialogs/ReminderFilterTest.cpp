#include "dialogs/ReminderFilter.h"

#include "dialogs/ReminderTimes.h"
#include "tests/dialogs/SampleReminders.h"
#include "tests/support/FixedClock.h"
#include "tests/support/TextOutput.h"

#include <gtest/gtest.h>

namespace
{

using namespace ts::test;
using enum ReminderListFilter;

constexpr std::int64_t kDay = 86'400;
constexpr std::int64_t kMonth = 31 * kDay;

/// A local noon, so that the day's borders are half a day away in every zone.
CTime Noon()
{
    return {2026, 11, 21, 12, 0, 0};
}

bool Lists(ReminderListFilter filter, CcvReminderData reminder)
{
    return ts::IsListed(filter, reminder, Noon());
}

TEST(ReminderFilterTest, Recent_AtItsBorder_EndsWithThe31stDay)
{
    EXPECT_TRUE(Lists(Recent, DueAt(Noon())));
    EXPECT_TRUE(Lists(Recent, DueAt(Noon() - CTimeSpan(kMonth - 1))));
    EXPECT_FALSE(Lists(Recent, DueAt(Noon() - CTimeSpan(kMonth))));
    EXPECT_FALSE(Lists(Recent, DueAt(Noon() - CTimeSpan(100 * kMonth))));
    EXPECT_TRUE(Lists(Recent, DueAt(Noon() + CTimeSpan(1))));
    EXPECT_TRUE(Lists(Recent, DueAt(Noon() + CTimeSpan(1000 * kMonth))));
}

TEST(ReminderFilterTest, Recent_LeadTimeAndSnooze_DoNotCount)
{
    CcvReminderData reminder = DueAt(Noon() - CTimeSpan(kMonth));
    reminder.SetReminderTimeSpan(-2 * kMonth);
    const FixedClock clock(Noon());
    reminder.SetSnoozeTime(kDay);
    EXPECT_FALSE(Lists(Recent, reminder));
}

TEST(ReminderFilterTest, Recent_RecurringReminder_CountsFromTheOccurrenceInForce)
{
    CcvReminderData reminder = EveryNDays(1);
    reminder.SetNextDueDate(Noon() - CTimeSpan(1000 * kDay));
    EXPECT_TRUE(ts::IsListed(Recent, reminder, Noon()));
    EXPECT_EQ(Noon(), reminder.GetNextDueDate());
}

TEST(ReminderFilterTest, Today_AtItsBorders_IsTheLocalDate)
{
    EXPECT_FALSE(Lists(Today, DueAt(CTime(2026, 11, 20, 23, 59, 59))));
    EXPECT_TRUE(Lists(Today, DueAt(CTime(2026, 11, 21, 0, 0, 0))));
    EXPECT_TRUE(Lists(Today, DueAt(CTime(2026, 11, 21, 23, 59, 59))));
    EXPECT_FALSE(Lists(Today, DueAt(CTime(2026, 11, 22, 0, 0, 0))));
    EXPECT_FALSE(Lists(Today, DueAt(CTime(2025, 11, 21, 12, 0, 0))));
    EXPECT_FALSE(Lists(Today, DueAt(CTime(2026, 10, 21, 12, 0, 0))));
}

TEST(ReminderFilterTest, Due_AtItsBorder_IncludesTheReminderTime)
{
    CcvReminderData reminder = DueAt(Noon() + CTimeSpan(900));
    reminder.SetReminderTimeSpan(900);
    EXPECT_TRUE(Lists(Due, reminder));
    reminder.SetReminderTimeSpan(899);
    EXPECT_FALSE(Lists(Due, reminder));
    EXPECT_TRUE(Lists(Due, DueAt(Noon() - CTimeSpan(100 * kMonth))));
}

TEST(ReminderFilterTest, Due_SnoozedReminder_CountsBySnoozeTime)
{
    CcvReminderData reminder = DueAt(Noon() - CTimeSpan(kDay));
    const FixedClock clock(Noon());
    reminder.SetSnoozeTime(1);
    EXPECT_FALSE(Lists(Due, reminder));
    reminder.SetSnoozeTime(0);
    EXPECT_TRUE(Lists(Due, reminder));
}

TEST(ReminderFilterTest, DismissedReminder_IsNotDueAnyMore)
{
    CcvReminderData reminder = DueAt(Noon() - CTimeSpan(kDay / 4));
    reminder.SetDismissed(true);
    EXPECT_FALSE(Lists(Due, reminder));
    EXPECT_TRUE(Lists(Recent, reminder));
    EXPECT_TRUE(Lists(Today, reminder));
    // A recurring reminder has no such state: the bit is a leftover.
    reminder.SetRecurrenceType(EcvReminderRecurrenceType::Daily);
    reminder.SetDailyRecurrenceNumber(1);
    EXPECT_TRUE(reminder.IsDimissed());
    EXPECT_TRUE(Lists(Due, reminder));
}

TEST(ReminderFilterTest, DamagedReminder_IsRecentOnly_UntilItsSnoozeEnds)
{
    CcvReminderData reminder = Damaged(Noon());
    ASSERT_THROW(static_cast<void>(reminder.GetCalculatedDueTime(Noon())), COleException);
    EXPECT_TRUE(Lists(Recent, reminder));
    EXPECT_FALSE(Lists(Today, reminder));
    EXPECT_FALSE(Lists(Due, reminder));
    const FixedClock clock(Noon());
    reminder.SetSnoozeTime(0);
    EXPECT_TRUE(Lists(Due, reminder));
}

TEST(ReminderFilterTest, ReminderThatHasRunOut_IsRecentOnly)
{
    CcvReminderData reminder = DueAt(CTime());
    reminder.SetSubject(L"No weekday is left");
    EXPECT_TRUE(Lists(Recent, reminder));
    EXPECT_FALSE(Lists(Today, reminder));
    EXPECT_FALSE(Lists(Due, reminder));
}

TEST(ReminderFilterTest, RecordOfAKeyOnly_IsNeverListed)
{
    const CcvReminderData reminder{CString(L"{{not loaded}-0}")};
    EXPECT_FALSE(Lists(Recent, reminder));
    EXPECT_FALSE(Lists(Today, reminder));
    EXPECT_FALSE(Lists(Due, reminder));
}

TEST(ReminderFilterTest, RecordWithAnyFieldOfItsOwn_IsRecent)
{
    const CString key = L"{{map}-0}";
    using Setter = void (CcvReminderData::*)(const CString&);
    for (const Setter set :
         {Setter{&CcvReminderData::SetSubject}, Setter{&CcvReminderData::SetMapGuid},
          Setter{&CcvReminderData::SetObjectGuid}, Setter{&CcvReminderData::SetDocumentPath}})
    {
        CcvReminderData reminder{key};
        (reminder.*set)(L"x");
        EXPECT_TRUE(Lists(Recent, reminder));
    }
    CcvReminderData due{key};
    due.SetInitialDueDate(Noon());
    EXPECT_TRUE(Lists(Recent, due));
}

TEST(ReminderTimesTest, ReminderThatHasRunOut_HasNoStatus)
{
    CcvReminderData reminder = DueAt(CTime());
    EXPECT_EQ(std::nullopt, ts::FindDueTime(reminder, Noon()));
    EXPECT_EQ(std::nullopt, ts::FindStatus(reminder, Noon()));
    EXPECT_EQ(CString(), ts::DueInText(reminder, Noon()));
}

TEST(ReminderTimesTest, DamagedReminder_HasNoTimes)
{
    CcvReminderData reminder = Damaged(Noon());
    EXPECT_EQ(std::nullopt, ts::FindDueTime(reminder, Noon()));
    EXPECT_EQ(std::nullopt, ts::FindReminderTime(reminder, Noon()));
    EXPECT_EQ(std::nullopt, ts::FindStatus(reminder, Noon()));
    EXPECT_EQ(CString(), ts::DueInText(reminder, Noon()));
}

TEST(ReminderTimesTest, SoundReminder_GivesWhatTheRecordGives)
{
    CcvReminderData reminder = DueAt(Noon() + CTimeSpan(3600));
    reminder.SetReminderTimeSpan(900);
    EXPECT_EQ(Noon() + CTimeSpan(3600), ts::FindDueTime(reminder, Noon()));
    EXPECT_EQ(Noon() + CTimeSpan(2700), ts::FindReminderTime(reminder, Noon()));
    EXPECT_EQ(CcvReminderData::DueTodayPending, ts::FindStatus(reminder, Noon()));
    EXPECT_EQ(CcvReminderDataUtilities::GetDueInString(&reminder, Noon()), ts::DueInText(reminder, Noon()));
    EXPECT_FALSE(ts::DueInText(reminder, Noon()).IsEmpty());
}

} // namespace
