#pragma once

#include "reminders/CcvReminderData.h"

/// Records with one pattern each, for tables.
namespace ts::test
{

inline CcvReminderData RecordOfType(EcvReminderRecurrenceType type)
{
    CcvReminderData record{CString(L"{pattern-0}")};
    record.SetRecurrenceType(type);
    return record;
}

inline CcvReminderData EveryNDays(int days)
{
    CcvReminderData record = RecordOfType(EcvReminderRecurrenceType::Daily);
    record.SetDailyRecurrenceNumber(days);
    return record;
}

inline CcvReminderData EveryWeekday()
{
    CcvReminderData record = RecordOfType(EcvReminderRecurrenceType::Daily);
    record.SetDailyOccurenceType(EcvReminderDailyOccurence::EveryWeekday);
    return record;
}

inline CcvReminderData Weekly(int weeks, long days)
{
    CcvReminderData record = RecordOfType(EcvReminderRecurrenceType::Weekly);
    record.SetWeeklyRecurrenceNumber(weeks);
    record.SetWeeklyRecurrenceFlag(days);
    return record;
}

inline CcvReminderData MonthlyOnDay(int months, int day)
{
    CcvReminderData record = RecordOfType(EcvReminderRecurrenceType::Monthly);
    record.SetMonthlyRecurrentDayOfMonth(day);
    record.SetMonthlyReminderPattern1Month(months);
    return record;
}

inline CcvReminderData MonthlyOn(int months, EcvReminderDayIntegralType ordinal, EcvReminderDayType dayType)
{
    CcvReminderData record = RecordOfType(EcvReminderRecurrenceType::Monthly);
    record.SetMonthlyOccurenceType(EcvReminderMonthlyOccurence::OrdinalDayType);
    record.SetMonthlyReminderDayIntegralType(ordinal);
    record.SetMonthlyReminderDayType(static_cast<long>(dayType));
    record.SetMonthlyReminderPattern2Month(months);
    return record;
}

inline CcvReminderData YearlyOnDay(int month, int day)
{
    CcvReminderData record = RecordOfType(EcvReminderRecurrenceType::Yearly);
    record.SetYearlyRecurrentDay(day);
    record.SetYearlyReminderPattern1Month(static_cast<EcvMonth>(month));
    return record;
}

inline CcvReminderData YearlyOn(int month, EcvReminderDayIntegralType ordinal, EcvReminderDayType dayType)
{
    CcvReminderData record = RecordOfType(EcvReminderRecurrenceType::Yearly);
    record.SetYearlyOccurenceType(EcvReminderYearlyOccurence::OrdinalDayType);
    record.SetYearlyReminderDayIntegralType(ordinal);
    record.SetYearlyReminderDayType(static_cast<long>(dayType));
    record.SetYearlyReminderPattern2Month(static_cast<EcvMonth>(month));
    return record;
}

} // namespace ts::test
