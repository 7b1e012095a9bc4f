// The occurrence that follows an occurrence.

#include "reminders/CatchUp.h"
#include "reminders/CcvReminderDataUtilities.h"
#include "reminders/LocalCalendar.h"
#include "reminders/WeekdaySteps.h"

#include <algorithm>

namespace
{

/// The local broken-down time, or fields that no time can be built from.
std::tm LocalFieldsOf(CTime time)
{
    std::tm local;
    if (time.GetLocalTm(&local) == nullptr)
    {
        local = {};
        local.tm_year = -1900;
        local.tm_mon = -1;
        local.tm_hour = -1;
    }
    return local;
}

CTime BuildTime(int year, int month, int day, const std::tm& clock)
{
    return CTime(year, month, day, clock.tm_hour, clock.tm_min, clock.tm_sec);
}

} // namespace

CTime CcvReminderDataUtilities::CalculateNextDailyRecurrentDueTime(const CTime& from,
                                                                   const CcvReminderData* record)
{
    switch (record->GetDailyOccurrenceType())
    {
    case EcvReminderDailyOccurence::EveryNDays:
        return from + ts::Days(record->GetDailyRecurrenceNumber());
    case EcvReminderDailyOccurence::EveryWeekday:
        return from + ts::Days(ts::WeekdaySteps::EveryWeekday().DaysAfter(from.GetDayOfWeek()));
    default:
        return from;
    }
}

CTime CcvReminderDataUtilities::CalculateNextWeeklyRecurrentDueTime(const CTime& from,
                                                                    const CcvReminderData* record)
{
    const auto steps = ts::WeekdaySteps::Weekly(*record);
    return steps.IsEmpty() ? CTime() : from + ts::Days(steps.DaysAfter(from.GetDayOfWeek()));
}

CTime CcvReminderDataUtilities::CalculateNextMonthlyRecurrentDueTime(const CTime& from,
                                                                     const CcvReminderData* record)
{
    const EcvReminderMonthlyOccurence occurrence = record->GetMonthlyOccurrenceType();
    const bool onDay = occurrence == EcvReminderMonthlyOccurence::DayOfMonth;
    if (!onDay && occurrence != EcvReminderMonthlyOccurence::OrdinalDayType)
    {
        return CTime();
    }
    const std::tm local = LocalFieldsOf(from);
    const std::int64_t step =
        onDay ? record->GetMonthlyReminderPattern1Month() : record->GetMonthlyReminderPattern2Month();
    const std::int64_t months = local.tm_mon + step;
    const int year = static_cast<int>(local.tm_year + 1900 + months / 12);
    const int month = static_cast<int>(months % 12) + 1;
    const int day = onDay
                        ? std::min(ts::DaysInMonth(month, year), record->GetMonthlyRecurrentDayOfMonth())
                        : GetDayOfMonth(record->GetMonthlyReminderDayIntegralType(),
                                        static_cast<EcvReminderDayType>(record->GetMonthlyReminderDayType()),
                                        year, month);
    return BuildTime(year, month, day, local);
}

CTime CcvReminderDataUtilities::CalculateNextYearlyRecurrentDueTime(const CTime& from,
                                                                    const CcvReminderData* record)
{
    const std::tm local = LocalFieldsOf(from);
    const int year = local.tm_year + 1900 + 1;
    const int month = local.tm_mon + 1;
    switch (record->GetYearlyOccurenceType())
    {
    case EcvReminderYearlyOccurence::DayOfMonth:
        // The date of the occurrence counts, not the pattern's: what once went over into March stays there.
        return BuildTime(year, month, local.tm_mday, local);
    case EcvReminderYearlyOccurence::OrdinalDayType:
        return BuildTime(year, month,
                         GetDayOfMonth(record->GetYearlyReminderDayIntegralType(),
                                       static_cast<EcvReminderDayType>(record->GetYearlyReminderDayType()),
                                       year, month),
                         local);
    default:
        return CTime();
    }
}
