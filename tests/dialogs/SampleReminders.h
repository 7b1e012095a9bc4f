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
