#include "tests/reminders/recurrence/Patterns.h"
#include "tests/reminders/recurrence/RandomPatterns.h"
#include "tests/support/FixedClock.h"
#include "tests/support/TextOutput.h"

#include <gtest/gtest.h>

namespace
{

using namespace ts::test;
using Status = CcvReminderData::ReminderStatus;

CTime Today(int hour, int minute = 0, int second = 0)
{
    return CTime(2026, 11, 18, hour, minute, second);
}

CTime Yesterday(int hour)
{
    return CTime(2026, 11, 17, hour, 0, 0);
}

CcvReminderData OneOff(CTime due, CTimeSpan lead)
{
    CcvReminderData record{CString(L"{state-0}")};
    record.SetNextDueDate(due);
    record.SetReminderTimeSpan(lead);
    return record;
}

} // namespace

TEST(ReminderStatusTest, OneOff_FollowsTheClock)
{
    struct Row
    {
        const char* title;
        CTime due;
        CTimeSpan lead;
        CTime now;
        Status expected;
    };
    const Row rows[] = {
        {"due now is not overdue", Today(9), 0, Today(9), Status::DueTodayPending},
        {"a second later it is", Today(9), 0, Today(9, 0, 1), Status::Overdue},
        {"the reminder time is now", Today(9), 3600, Today(8), Status::DueTodayPending},
        {"the reminder time has passed", Today(9), 3600, Today(8, 0, 1), Status::DueTodayActive},
        {"yesterday's reminder", Yesterday(9), 0, Today(0), Status::Overdue},
        {"due tomorrow, reminded", Today(9), 86400, Yesterday(10), Status::RemindActive},
        {"due tomorrow, not yet", Today(9), 3600, Yesterday(10), Status::RemindPending},
        {"a date of which nothing is known", CTime(40'000'000'000), 0, Today(9), Status::RemindPending},
    };
    for (const Row& row : rows)
    {
        CcvReminderData record = OneOff(row.due, row.lead);
        EXPECT_EQ(row.expected, record.GetReminderStatus(row.now)) << row.title;
        EXPECT_EQ(row.due, record.GetNextDueDate()) << row.title << ": a one-off never moves";
    }
}

TEST(ReminderStatusTest, Recurring_MovesOnWhenTheNextReminderTimeComes)
{
    CcvReminderData record = EveryNDays(1);
    record.SetNextDueDate(Yesterday(9));
    record.SetReminderTimeSpan(3600);
    EXPECT_EQ(Status::Overdue, record.GetReminderStatus(Today(7, 59)));
    EXPECT_EQ(Yesterday(9), record.GetNextDueDate());
    EXPECT_EQ(Status::DueTodayPending, record.GetReminderStatus(Today(8)));
    EXPECT_EQ(Today(9), record.GetNextDueDate());
    EXPECT_EQ(Status::DueTodayActive, record.GetReminderStatus(Today(8, 1)));
}

TEST(ReminderTimeTest, Snoozed_IsTheSnoozeTimeAndDoesNotMoveTheReminderOn)
{
    const FixedClock clock(Today(12));
    CcvReminderData record = EveryNDays(1);
    record.SetNextDueDate(Yesterday(9));
    record.SetSnoozeTime(7200);
    EXPECT_EQ(Today(14), record.GetReminderTime(Today(13)));
    EXPECT_EQ(Yesterday(9), record.GetNextDueDate());
    record.SetSnoozed(false);
    EXPECT_EQ(Today(9), record.GetReminderTime(Today(13)));
    EXPECT_EQ(Today(9), record.GetNextDueDate());
}

TEST(ReminderTimeTest, SnoozedBeyondTheDueTime_IsStillTheSnoozeTime)
{
    const FixedClock clock(Today(8));
    CcvReminderData record = OneOff(Today(9), 3600);
    record.SetSnoozeTime(4 * 3600);
    EXPECT_EQ(Today(12), record.GetReminderTime(Today(8)));
    EXPECT_EQ(Status::DueTodayPending, record.GetReminderStatus(Today(8, 30)));
}

TEST(DismissTest, Recurring_MovesOnFromItsDueDateAndIsNotMarked)
{
    const FixedClock clock(Today(12));
    CcvReminderData record = EveryNDays(2);
    record.SetNextDueDate(Today(9));
    record.SetSnoozeTime(600);
    record.SetDismissed(true);
    EXPECT_FALSE(record.IsDimissed());
    EXPECT_FALSE(record.IsSnoozed());
    EXPECT_EQ(CTime(2026, 11, 20, 9, 0, 0), record.GetNextDueDate());
}

TEST(DismissTest, RecurringWithoutANextTime_HasNoTime)
{
    CcvReminderData record = Weekly(1, 0);
    record.SetNextDueDate(Today(9));
    record.SetDismissed(true);
    EXPECT_EQ(CTime(0), record.GetNextDueDate());
}

TEST(DefaultDueTimeTest, AnyTime_EqualsTheLiteralRule)
{
    const auto expectLiteral = [](std::int64_t now, const RandomSource& random)
    {
        const FixedClock clock{CTime(now)};
        ASSERT_EQ(literal::OutcomeOf([&] { return literal::DefaultDueTime(now); }),
                  LibraryOutcome([] { return CcvReminderData().GetNextDueDate().GetTime(); }))
            << random << ' ' << CTime(now);
    };
    RandomSource random;
    for (int round = 0; round < 5000; ++round)
    {
        ASSERT_NO_FATAL_FAILURE(expectLiteral(RandomTime(random), random));
    }
    // The runtime's first and last two days, which begin and end in other years in other zones.
    constexpr std::int64_t kFirst = -86'400;
    constexpr std::int64_t kLast = 32'535'129'600;
    for (std::int64_t minute = 0; minute < 3 * 1440; minute += 5)
    {
        ASSERT_NO_FATAL_FAILURE(expectLiteral(kFirst + 60 * minute, random));
        ASSERT_NO_FATAL_FAILURE(expectLiteral(kLast + 60 * minute, random));
    }
}
