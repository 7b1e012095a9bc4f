#pragma once

#include "reminders/CcvReminderData.h"

#include <array>
#include <string>

namespace ts::test
{

/// 26 November 2026, a Thursday, at 10:00:00 local time.
[[nodiscard]] inline CTime Due()
{
    return CTime(2026, 11, 26, 10, 0, 0);
}

/// A one-time reminder that was never mirrored.
[[nodiscard]] inline CcvReminderData OneTimeRecord()
{
    CcvReminderData record{CString()};
    record.SetDocumentPath(L"C:\\maps\\a.map");
    record.SetDocumentTitle(L"A map");
    record.SetMapGuid(L"M");
    record.SetObjectGuid(L"O");
    record.SetSubject(L"Call back");
    record.SetInitialDueDate(Due());
    record.SetNextDueDate(Due());
    return record;
}

using Options = std::array<std::int32_t, 6>;

/// The six slots as they are stored, by whichever of their names.
inline void SetRecurrence(CcvReminderData& record, EcvReminderRecurrenceType type, const Options& options)
{
    record.SetRecurrenceType(type);
    record.SetDailyOccurenceType(static_cast<EcvReminderDailyOccurence>(options[0]));
    record.SetDailyRecurrenceNumber(options[1]);
    record.SetMonthlyReminderPattern1Month(options[2]);
    record.SetMonthlyReminderDayIntegralType(static_cast<EcvReminderDayIntegralType>(options[3]));
    record.SetMonthlyReminderDayType(options[4]);
    record.SetMonthlyReminderPattern2Month(options[5]);
}

[[nodiscard]] inline CcvReminderData RecurringRecord(EcvReminderRecurrenceType type, const Options& options)
{
    CcvReminderData record = OneTimeRecord();
    SetRecurrence(record, type, options);
    return record;
}

[[nodiscard]] inline CcvReminderData DailyRecord(int days = 3)
{
    return RecurringRecord(EcvReminderRecurrenceType::Daily, {0, days});
}

} // namespace ts::test
