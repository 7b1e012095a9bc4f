// Snoozing, dismissing, and how urgent a reminder is.

#include "platform/mfc/atlexcept.h"
#include "tests/reminders/storage/StoreTest.h"
#include "tests/support/FixedClock.h"

#include <limits>

namespace ts::test
{
namespace
{

using StateTest = StoreTest;

constexpr std::int64_t kNow = 1'795'000'000;
constexpr std::int64_t kMax = std::numeric_limits<std::int64_t>::max();
constexpr std::int64_t kMin = std::numeric_limits<std::int64_t>::min();
constexpr std::int64_t kDay = 86'400;

CcvReminderData OneOff(CTime due, CTimeSpan lead)
{
    CcvReminderData record = EmptyRecord();
    record.SetNextDueDate(due);
    record.SetReminderTimeSpan(lead);
    return record;
}

CcvReminderData Daily(CTime due, CTimeSpan lead)
{
    CcvReminderData record = OneOff(due, lead);
    record.SetRecurrenceType(EcvReminderRecurrenceType::Daily);
    record.SetDailyRecurrenceNumber(1);
    return record;
}

} // namespace

TEST_F(StateTest, SetSnoozeTime_BySpan_CountsFromNow)
{
    const FixedClock clock(kNow);
    for (const std::int64_t span : {std::int64_t{0}, std::int64_t{900}, std::int64_t{-60}, 7 * kDay})
    {
        CcvReminderData record = EmptyRecord();
        record.SetSnoozeTime(span);
        EXPECT_TRUE(record.IsSnoozed());
        EXPECT_EQ(CTime(kNow + span), record.GetSnoozeTime());
        EXPECT_EQ(CTime(kNow + span), record.GetReminderTime(kNow)) << "even when it lies after the due time";
        EXPECT_EQ(CTime(), record.GetNextDueDate());
    }
}

TEST_F(StateTest, SetSnoozeTime_ByHugeSpans_StopsAtTheLimits)
{
    CcvReminderData record = EmptyRecord();
    FixedClock clock(kNow);
    record.SetSnoozeTime(kMax);
    EXPECT_EQ(CTime(kMax), record.GetSnoozeTime());
    record.SetSnoozeTime(kMin);
    EXPECT_EQ(CTime(kMin + kNow), record.GetSnoozeTime());
    clock.Set(-1);
    record.SetSnoozeTime(kMin);
    EXPECT_EQ(CTime(kMin), record.GetSnoozeTime());
}

TEST_F(StateTest, SetSnoozed_ToTrueOrFalse_LeavesTheSnoozeTime)
{
    const FixedClock clock(kNow);
    CcvReminderData record = EmptyRecord();
    record.SetSnoozeTime(60);
    record.SetSnoozed(false);
    EXPECT_FALSE(record.IsSnoozed());
    EXPECT_EQ(CTime(kNow + 60), record.GetSnoozeTime());
    record.SetSnoozed(true);
    EXPECT_TRUE(record.IsSnoozed());
    EXPECT_FALSE(record.IsDimissed());
}

TEST_F(StateTest, SetDismissed_OfAOneOff_MarksItAndEndsTheSnooze)
{
    CcvReminderData record = OneOff(kNow, 60);
    record.SetSnoozed(true);
    record.SetDismissed(true);
    EXPECT_TRUE(record.IsDimissed());
    EXPECT_FALSE(record.IsSnoozed());
    EXPECT_EQ(CTime(kNow), record.GetNextDueDate());

    record.SetSnoozed(true);
    record.SetDismissed(false);
    EXPECT_FALSE(record.IsDimissed());
    EXPECT_TRUE(record.IsSnoozed()) << "taking the mark away leaves the snooze";
}

TEST_F(StateTest, SetDismissed_OfARecurringOne_MovesItOn)
{
    CcvReminderData record = Daily(kNow, 60);
    record.SetSnoozed(true);
    record.SetDismissed(true);
    EXPECT_FALSE(record.IsDimissed());
    EXPECT_FALSE(record.IsSnoozed());
    EXPECT_EQ(CTime(kNow + kDay), record.GetNextDueDate());
    record.SetDismissed(true);
    EXPECT_EQ(CTime(kNow + 2 * kDay), record.GetNextDueDate());
    record.SetDismissed(false);
    EXPECT_EQ(CTime(kNow + 2 * kDay), record.GetNextDueDate());
}

TEST_F(StateTest, SetDismissed_OfARecurringOneWithTheMark_LeavesTheMark)
{
    CcvReminderData record = OneOff(kNow, 0);
    record.SetDismissed(true);
    record.SetRecurrenceType(EcvReminderRecurrenceType::Daily);
    record.SetDailyRecurrenceNumber(1);
    record.SetDismissed(true);
    EXPECT_TRUE(record.IsDimissed());
    EXPECT_EQ(CTime(kNow + kDay), record.GetNextDueDate());
    record.SetDismissed(false);
    EXPECT_FALSE(record.IsDimissed());
}

TEST_F(StateTest, SetDismissed_OfAPatternWithoutNext_GivesNoTime)
{
    for (const std::int32_t type : {5, -1, 2})
    {
        // Weekly without a weekday has no next occurrence, as unknown types have none.
        CcvReminderData record = OneOff(kNow, 0);
        record.SetRecurrenceType(static_cast<EcvReminderRecurrenceType>(type));
        record.SetSnoozed(true);
        record.SetDismissed(true);
        EXPECT_EQ(CTime(), record.GetNextDueDate()) << "type " << type;
        EXPECT_FALSE(record.IsSnoozed());
        EXPECT_FALSE(record.IsDimissed());
    }
}

TEST_F(StateTest, SetDismissed_ThatRaises_LeavesTheRecord)
{
    CcvReminderData record = OneOff(kMax, 0);
    record.SetRecurrenceType(EcvReminderRecurrenceType::Yearly);
    record.SetSnoozed(true);
    const RecordFields before = FieldsOf(record);
    EXPECT_THROW(record.SetDismissed(true), COleException);
    EXPECT_EQ(before, FieldsOf(record));
}

TEST_F(StateTest, GetReminderStatus_OfAOneOff_GoesByWholeSeconds)
{
    const CTime due(2026, 11, 25, 9, 0, 0);
    struct Row
    {
        CTime now;
        CcvReminderData::ReminderStatus status;
    };
    const Row rows[] = {
        {due + CTimeSpan(1), CcvReminderData::Overdue},
        {due, CcvReminderData::DueTodayActive},
        {due - CTimeSpan(3599), CcvReminderData::DueTodayActive},
        {due - CTimeSpan(3600), CcvReminderData::DueTodayPending},
        {CTime(2026, 11, 25, 0, 0, 0), CcvReminderData::DueTodayPending},
        {CTime(2026, 11, 24, 23, 59, 59), CcvReminderData::RemindPending},
    };
    for (const Row& row : rows)
    {
        EXPECT_EQ(row.status, OneOff(due, 3600).GetReminderStatus(row.now))
            << testing::PrintToString(row.now);
    }
    EXPECT_EQ(CcvReminderData::RemindActive, OneOff(due, 2 * kDay).GetReminderStatus(due - CTimeSpan(kDay)));
    EXPECT_EQ(CcvReminderData::RemindPending, OneOff(due, kDay).GetReminderStatus(due - CTimeSpan(kDay)));
}

TEST_F(StateTest, GetReminderStatus_OfADailyOne_MovesOnAtItsReminderTime)
{
    const CTime yesterday(2026, 11, 24, 9, 0, 0);
    const CTime today(2026, 11, 25, 9, 0, 0);
    CcvReminderData record = Daily(yesterday, 3600);
    EXPECT_EQ(CcvReminderData::Overdue, record.GetReminderStatus(CTime(2026, 11, 25, 7, 59, 0)));
    EXPECT_EQ(yesterday, record.GetNextDueDate());
    EXPECT_EQ(CcvReminderData::DueTodayPending, record.GetReminderStatus(CTime(2026, 11, 25, 8, 0, 0)));
    EXPECT_EQ(today, record.GetNextDueDate());
    EXPECT_EQ(CcvReminderData::DueTodayActive, record.GetReminderStatus(CTime(2026, 11, 25, 8, 1, 0)));
}

TEST_F(StateTest, GetReminderTime_OfASnoozedRecurringOne_DoesNotMoveItOn)
{
    const FixedClock clock(kNow);
    CcvReminderData record = Daily(kNow - 10 * kDay, 60);
    record.SetSnoozeTime(300);
    EXPECT_EQ(CTime(kNow + 300), record.GetReminderTime(kNow));
    EXPECT_EQ(CTime(kNow - 10 * kDay), record.GetNextDueDate());
    record.SetSnoozed(false);
    EXPECT_EQ(CTime(kNow - 60), record.GetReminderTime(kNow));
    EXPECT_EQ(CTime(kNow), record.GetNextDueDate());
}

TEST_F(StateTest, GetReminderStatus_OfTimesOutOfAnyCalendar_ComparesTheSeconds)
{
    EXPECT_EQ(CcvReminderData::Overdue, OneOff(kMin, 0).GetReminderStatus(kNow));
    EXPECT_EQ(CcvReminderData::RemindPending, OneOff(kMax, 0).GetReminderStatus(kNow));
    EXPECT_EQ(CcvReminderData::RemindActive, OneOff(kMax, kMax).GetReminderStatus(kNow));
    EXPECT_EQ(CcvReminderData::DueTodayPending, OneOff(kMax, kMin).GetReminderStatus(kMax))
        << "both times have no date, which is one date";
    EXPECT_EQ(CcvReminderData::DueTodayActive, OneOff(kMax, 1).GetReminderStatus(kMax));
}

} // namespace ts::test
