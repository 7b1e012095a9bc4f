// The first occurrence of a pattern.

#include "reminders/CatchUp.h"
#include "reminders/CcvReminderDataUtilities.h"
#include "reminders/LocalCalendar.h"
#include "reminders/WeekdaySteps.h"

#include <algorithm>

namespace
{

/// That day at the clock time of `start`, if it is not before `start`, else the occurrence after it.
CTime CandidateOrNext(EcvReminderRecurrenceType type, CTime start, int year, int month, int day,
                      const CcvReminderData& record)
{
    const CTime candidate(year, month, day, start.GetHour(), start.GetMinute(), start.GetSecond());
    return candidate >= start ? candidate : ts::NextOccurrence(type, candidate, record);
}

/// The days from a day of the week, that day included, to the first flagged one.
std::int64_t DaysUntilFlagged(const ts::WeekdaySteps& steps, int dayOfWeek)
{
    return dayOfWeek == 0 ? steps.DaysAfter(0) : steps.DaysAfter(dayOfWeek - 1) - 1;
}

/// The first of the occurrences from `start` on that has not passed now.
CTime FirstUpcoming(EcvReminderRecurrenceType type, CTime start, const CcvReminderData& record)
{
    const CTime now = CTime::GetCurrentTime();
    CTime present = start;
    if (now.GetYear() != 0)
    {
        // All that lies two days and more before now has passed, whatever the local dates are.
        present = ts::LastOccurrenceUpTo(type, start, now - ts::Days(2), record);
    }
    while (CcvReminderDataUtilities::IsInitialUpcomingDueDatePassed(now, present))
    {
        const CTime next = ts::NextOccurrence(type, present, record);
        if (next <= present)
        {
            break;
        }
        present = next;
    }
    return present;
}

} // namespace

CTime CcvReminderDataUtilities::CalculateInitialDailyRecurrentDueTime(const CTime& start,
                                                                      const CcvReminderData* record)
{
    constexpr int kSunday = 1;
    constexpr int kSaturday = 7;
    if (record->GetDailyOccurrenceType() != EcvReminderDailyOccurence::EveryWeekday)
    {
        return start;
    }
    switch (start.GetDayOfWeek())
    {
    case kSaturday:
        return start + ts::Days(2);
    case kSunday:
        return start + ts::Days(1);
    default:
        return start;
    }
}

CTime CcvReminderDataUtilities::CalculateInitialWeeklyRecurrentDueTime(const CTime& start,
                                                                       const CcvReminderData* record)
{
    const auto steps = ts::WeekdaySteps::Weekly(*record);
    return steps.IsEmpty() ? CTime() : start + ts::Days(DaysUntilFlagged(steps, start.GetDayOfWeek()));
}

CTime CcvReminderDataUtilities::CalculateInitialMonthlyRecurrentDueTime(const CTime& start,
                                                                        const CcvReminderData* record)
{
    const int year = start.GetYear();
    const int month = start.GetMonth();
    int day = 0;
    switch (record->GetMonthlyOccurrenceType())
    {
    case EcvReminderMonthlyOccurence::DayOfMonth:
        day = std::min(ts::DaysInMonth(month, year), record->GetMonthlyRecurrentDayOfMonth());
        break;
    case EcvReminderMonthlyOccurence::OrdinalDayType:
        day =
            GetDayOfMonth(record->GetMonthlyReminderDayIntegralType(),
                          static_cast<EcvReminderDayType>(record->GetMonthlyReminderDayType()), year, month);
        break;
    default:
        return CTime();
    }
    return CandidateOrNext(EcvReminderRecurrenceType::Monthly, start, year, month, day, *record);
}

CTime CcvReminderDataUtilities::CalculateInitialYearlyRecurrentDueTime(const CTime& start,
                                                                       const CcvReminderData* record)
{
    const int year = start.GetYear();
    int month = 0;
    int day = 0;
    switch (record->GetYearlyOccurenceType())
    {
    case EcvReminderYearlyOccurence::DayOfMonth:
        month = static_cast<int>(record->GetYearlyReminderPattern1Month());
        day = record->GetYearlyRecurrentDay();
        break;
    case EcvReminderYearlyOccurence::OrdinalDayType:
        month = static_cast<int>(record->GetYearlyReminderPattern2Month());
        day = GetDayOfMonth(record->GetYearlyReminderDayIntegralType(),
                            static_cast<EcvReminderDayType>(record->GetYearlyReminderDayType()), year, month);
        break;
    default:
        return CTime();
    }
    return CandidateOrNext(EcvReminderRecurrenceType::Yearly, start, year, month, day, *record);
}

CTime CcvReminderDataUtilities::CalculateInitialUpcomingDailyRecurrentDueTime(const CTime& start,
                                                                              const CcvReminderData* record)
{
    return FirstUpcoming(EcvReminderRecurrenceType::Daily, start, *record);
}

CTime CcvReminderDataUtilities::CalculateInitialUpcomingWeeklyRecurrentDueTime(const CTime& start,
                                                                               const CcvReminderData* record)
{
    return FirstUpcoming(EcvReminderRecurrenceType::Weekly, start, *record);
}

CTime CcvReminderDataUtilities::CalculateInitialUpcomingMonthlyRecurrentDueTime(const CTime& start,
                                                                                const CcvReminderData* record)
{
    return FirstUpcoming(EcvReminderRecurrenceType::Monthly, start, *record);
}

CTime CcvReminderDataUtilities::CalculateInitialUpcomingYearlyRecurrentDueTime(const CTime& start,
                                                                               const CcvReminderData* record)
{
    return FirstUpcoming(EcvReminderRecurrenceType::Yearly, start, *record);
}
