#pragma once

#include "platform/mfc/afxdisp.h"
#include "reminders/CcvReminderDataUtilities.h"
#include "tests/reminders/recurrence/Patterns.h"

/// Records for the tests of lists.
namespace ts::test
{

inline CcvReminderData DueAt(CTime due)
{
    CcvReminderData reminder{CString(L"{{sample}-0}")};
    reminder.SetInitialDueDate(due);
    reminder.SetNextDueDate(due);
    return reminder;
}

/// The same reminder for a topic that has none yet.
inline CcvReminderData WithoutKey(const CcvReminderData& reminder)
{
    CcvReminderData copy{CString()};
    copy.SetSubject(reminder.GetSubject());
    copy.SetDocumentTitle(reminder.GetDocumentTitle());
    copy.SetInitialDueDate(reminder.GetInitialDueDate());
    copy.SetNextDueDate(reminder.GetNextDueDate());
    copy.SetReminderTimeSpan(reminder.GetReminderTimeSpan());
    if (reminder.IsSnoozed())
    {
        copy.SetSnoozeTime(reminder.GetSnoozeTime() - CTime::GetCurrentTime());
    }
    copy.SetRecurrenceType(reminder.GetRecurrenceType());
    // These six are all the slots, whatever the pattern is.
    copy.SetMonthlyOccurenceType(reminder.GetMonthlyOccurrenceType());
    copy.SetMonthlyRecurrentDayOfMonth(reminder.GetMonthlyRecurrentDayOfMonth());
    copy.SetMonthlyReminderPattern1Month(reminder.GetMonthlyReminderPattern1Month());
    copy.SetMonthlyReminderDayIntegralType(reminder.GetMonthlyReminderDayIntegralType());
    copy.SetMonthlyReminderDayType(reminder.GetMonthlyReminderDayType());
    copy.SetMonthlyReminderPattern2Month(reminder.GetMonthlyReminderPattern2Month());
    return copy;
}

/// A reminder whose due time raises COleException at `now`: the pattern asks for a tenth last day.
inline CcvReminderData Damaged(CTime now)
{
    constexpr std::int64_t kYear = 365 * 86'400;
    constexpr auto kNoOrdinal = static_cast<EcvReminderDayIntegralType>(9);
    CcvReminderData reminder = MonthlyOn(1, kNoOrdinal, EcvReminderDayType::Day);
    reminder.SetInitialDueDate(now - CTimeSpan(kYear));
    reminder.SetNextDueDate(now - CTimeSpan(kYear));
    return reminder;
}

} // namespace ts::test
