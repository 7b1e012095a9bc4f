#include "bench/Patterns.h"

#include "reminders/CcvReminderDataUtilities.h"

#include <random>
#include <stdexcept>

namespace ts::bench
{
namespace
{

using Ordinal = EcvReminderDayIntegralType;
using DayType = EcvReminderDayType;

CcvReminderData RecordOf(EcvReminderRecurrenceType type)
{
    CcvReminderData record{CString()};
    record.SetRecurrenceType(type);
    return record;
}

CcvReminderData EveryDays(int days)
{
    CcvReminderData record = RecordOf(EcvReminderRecurrenceType::Daily);
    record.SetDailyOccurenceType(EcvReminderDailyOccurence::EveryNDays);
    record.SetDailyRecurrenceNumber(days);
    return record;
}

CcvReminderData EveryWeekday()
{
    CcvReminderData record = RecordOf(EcvReminderRecurrenceType::Daily);
    record.SetDailyOccurenceType(EcvReminderDailyOccurence::EveryWeekday);
    return record;
}

CcvReminderData Weekly(int weeks, long days)
{
    CcvReminderData record = RecordOf(EcvReminderRecurrenceType::Weekly);
    record.SetWeeklyRecurrenceNumber(weeks);
    record.SetWeeklyRecurrenceFlag(days);
    return record;
}

CcvReminderData MonthlyOnDay(int day)
{
    CcvReminderData record = RecordOf(EcvReminderRecurrenceType::Monthly);
    record.SetMonthlyOccurenceType(EcvReminderMonthlyOccurence::DayOfMonth);
    record.SetMonthlyRecurrentDayOfMonth(day);
    record.SetMonthlyReminderPattern1Month(1);
    return record;
}

CcvReminderData Monthly(Ordinal ordinal, DayType dayType)
{
    CcvReminderData record = RecordOf(EcvReminderRecurrenceType::Monthly);
    record.SetMonthlyOccurenceType(EcvReminderMonthlyOccurence::OrdinalDayType);
    record.SetMonthlyReminderDayIntegralType(ordinal);
    record.SetMonthlyReminderDayType(static_cast<long>(dayType));
    record.SetMonthlyReminderPattern2Month(1);
    return record;
}

CcvReminderData YearlyOnDay(EcvMonth month, int day)
{
    CcvReminderData record = RecordOf(EcvReminderRecurrenceType::Yearly);
    record.SetYearlyOccurenceType(EcvReminderYearlyOccurence::DayOfMonth);
    record.SetYearlyReminderPattern1Month(month);
    record.SetYearlyRecurrentDay(day);
    return record;
}

CcvReminderData Yearly(EcvMonth month, Ordinal ordinal, DayType dayType)
{
    CcvReminderData record = RecordOf(EcvReminderRecurrenceType::Yearly);
    record.SetYearlyOccurenceType(EcvReminderYearlyOccurence::OrdinalDayType);
    record.SetYearlyReminderPattern2Month(month);
    record.SetYearlyReminderDayIntegralType(ordinal);
    record.SetYearlyReminderDayType(static_cast<long>(dayType));
    return record;
}

CTime FirstOccurrence(const CcvReminderData& record, const CTime& start)
{
    switch (record.GetRecurrenceType())
    {
    case EcvReminderRecurrenceType::Daily:
        return CcvReminderDataUtilities::CalculateInitialDailyRecurrentDueTime(start, &record);
    case EcvReminderRecurrenceType::Weekly:
        return CcvReminderDataUtilities::CalculateInitialWeeklyRecurrentDueTime(start, &record);
    case EcvReminderRecurrenceType::Monthly:
        return CcvReminderDataUtilities::CalculateInitialMonthlyRecurrentDueTime(start, &record);
    case EcvReminderRecurrenceType::Yearly:
        return CcvReminderDataUtilities::CalculateInitialYearlyRecurrentDueTime(start, &record);
    default:
        throw std::logic_error("a pattern without recurrence");
    }
}

} // namespace

std::vector<Pattern> PatternsOfEachKind()
{
    using enum Conversions;
    constexpr long kTuesday = 0b0000100;
    constexpr long kMondayWednesdayFriday = 0b0101010;
    return {{"every 3 days", None, EveryDays(3)},
            {"every weekday", BreakDown, EveryWeekday()},
            {"weekly, one day", BreakDown, Weekly(1, kTuesday)},
            {"every 2 weeks, three days", BreakDown, Weekly(2, kMondayWednesdayFriday)},
            {"monthly, day 31", BreakDownAndBuild, MonthlyOnDay(31)},
            {"monthly, second Tuesday", BreakDownAndBuild, Monthly(Ordinal::Second, DayType::Tuesday)},
            {"monthly, last weekend day", BreakDownAndBuild, Monthly(Ordinal::Last, DayType::WeekendDay)},
            {"monthly, fourth weekday", BreakDownAndBuild, Monthly(Ordinal::Fourth, DayType::Weekday)},
            {"yearly, 12 May", BreakDownAndBuild, YearlyOnDay(EcvMonth::May, 12)},
            {"yearly, first Monday of September", BreakDownAndBuild,
             Yearly(EcvMonth::September, Ordinal::First, DayType::Monday)},
            {"yearly, last weekend day of June", BreakDownAndBuild,
             Yearly(EcvMonth::June, Ordinal::Last, DayType::WeekendDay)}};
}

std::vector<Pattern> PatternsByOrdinal()
{
    using enum Conversions;
    return {{"first Tuesday", BreakDownAndBuild, Monthly(Ordinal::First, DayType::Tuesday)},
            {"fourth Tuesday", BreakDownAndBuild, Monthly(Ordinal::Fourth, DayType::Tuesday)},
            {"last Tuesday", BreakDownAndBuild, Monthly(Ordinal::Last, DayType::Tuesday)},
            {"first weekend day", BreakDownAndBuild, Monthly(Ordinal::First, DayType::WeekendDay)},
            {"fourth weekend day", BreakDownAndBuild, Monthly(Ordinal::Fourth, DayType::WeekendDay)},
            {"last day", BreakDownAndBuild, Monthly(Ordinal::Last, DayType::Day)}};
}

std::vector<CTime> RandomTimes(std::size_t count, int firstYear, int lastYear)
{
    std::mt19937 random(kSeed);
    std::uniform_int_distribution year(firstYear, lastYear);
    std::uniform_int_distribution month(1, 12);
    std::uniform_int_distribution day(1, 28);
    std::uniform_int_distribution hour(8, 17);
    std::uniform_int_distribution minute(0, 59);
    std::vector<CTime> times;
    while (times.size() < count)
    {
        times.emplace_back(year(random), month(random), day(random), hour(random), minute(random), 0);
    }
    return times;
}

std::vector<CTime> FirstOccurrences(const CcvReminderData& record, const std::vector<CTime>& times)
{
    std::vector<CTime> occurrences;
    occurrences.reserve(times.size());
    for (const CTime& time : times)
    {
        occurrences.push_back(FirstOccurrence(record, time));
    }
    return occurrences;
}

} // namespace ts::bench
