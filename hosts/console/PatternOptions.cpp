#include "PatternOptions.h"

#include "Errors.h"
#include "PatternNames.h"
#include "Strings.h"
#include "TimeText.h"

#include <algorithm>
#include <array>

namespace ts::console
{
namespace
{

/// With so many months the calendar is nearly used up.
constexpr int kLargestCount = 9999;
constexpr int kLastDayOfMonth = 31;
/// In a leap year, so that 29 February counts as a date.
constexpr std::array<int, 12> kDaysInMonth = {31, 29, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};

void Require(bool condition, const char* message)
{
    if (!condition)
    {
        throw UsageError(message);
    }
}

/// An option that only goes with others must not stand alone.
void CheckCompanions(const PatternOptions& options)
{
    const int patterns = int{options.once} + int{options.daily.has_value()} + int{options.weekdays} +
                         int{options.weekly.has_value()} + int{options.monthly.has_value()} +
                         int{options.yearly};
    Require(patterns <= 1, "give only one of --once, --daily, --weekdays, --weekly, --monthly and --yearly");
    const bool byMonth = options.monthly.has_value() || options.yearly;
    Require(options.on.empty() || options.weekly, "--on goes with --weekly");
    Require(!options.month || options.yearly, "--month goes with --yearly");
    Require(!options.day || byMonth, "--day goes with --monthly or --yearly");
    Require((!options.the && !options.of) || byMonth, "--the and --of go with --monthly or --yearly");
    Require(options.the.has_value() == options.of.has_value(), "--the and --of go together");
    Require(!options.day || !options.the, "give either --day or --the and --of");
    Require(!byMonth || options.day || options.the, "--monthly and --yearly need --day, or --the and --of");
}

long ParseWeekdays(const std::vector<std::string>& lists)
{
    long flags = 0;
    for (const std::string& list : lists)
    {
        for (std::size_t begin = 0; begin <= list.size();)
        {
            const std::size_t end = std::min(list.find(',', begin), list.size());
            const std::string name = list.substr(begin, end - begin);
            const auto weekday = WeekdayFromName(name);
            if (!weekday)
            {
                throw UsageError("--on: " + Quoted(name) + " is no day of the week");
            }
            flags |= 1L << *weekday;
            begin = end + 1;
        }
    }
    Require(flags != 0, "--weekly needs --on with at least one day of the week");
    return flags;
}

EcvMonth ParseMonth(const std::string& text)
{
    const auto named = MonthFromName(text);
    return static_cast<EcvMonth>(named ? *named : ParseNumber(text, "--month", 12));
}

EcvReminderDayIntegralType ParseOrdinal(const std::string& text)
{
    const auto ordinal = OrdinalFromName(text);
    if (!ordinal)
    {
        throw UsageError("--the takes first, second, third, fourth or last, not " + Quoted(text));
    }
    return *ordinal;
}

long ParseDayType(const std::string& text)
{
    const auto dayType = DayTypeFromName(text);
    if (!dayType)
    {
        throw UsageError("--of takes day, weekday, weekend-day or a day of the week, not " + Quoted(text));
    }
    return static_cast<long>(*dayType);
}

void SetMonthly(CcvReminderData& reminder, const PatternOptions& options)
{
    const int months = ParseNumber(*options.monthly, "--monthly", kLargestCount);
    reminder.SetRecurrenceType(EcvReminderRecurrenceType::Monthly);
    if (options.day)
    {
        reminder.SetMonthlyOccurenceType(EcvReminderMonthlyOccurence::DayOfMonth);
        reminder.SetMonthlyRecurrentDayOfMonth(ParseNumber(*options.day, "--day", kLastDayOfMonth));
        reminder.SetMonthlyReminderPattern1Month(months);
        return;
    }
    reminder.SetMonthlyOccurenceType(EcvReminderMonthlyOccurence::OrdinalDayType);
    reminder.SetMonthlyReminderDayIntegralType(ParseOrdinal(*options.the));
    reminder.SetMonthlyReminderDayType(ParseDayType(*options.of));
    reminder.SetMonthlyReminderPattern2Month(months);
}

void SetYearly(CcvReminderData& reminder, const PatternOptions& options)
{
    Require(options.month.has_value(), "--yearly needs --month");
    const EcvMonth month = ParseMonth(*options.month);
    reminder.SetRecurrenceType(EcvReminderRecurrenceType::Yearly);
    if (options.day)
    {
        const int day = ParseNumber(*options.day, "--day", kLastDayOfMonth);
        if (day > kDaysInMonth[static_cast<std::size_t>(month) - 1])
        {
            throw UsageError(std::string(MonthName(static_cast<int>(month))) + " has no day " +
                             std::to_string(day));
        }
        reminder.SetYearlyOccurenceType(EcvReminderYearlyOccurence::DayOfMonth);
        reminder.SetYearlyRecurrentDay(day);
        reminder.SetYearlyReminderPattern1Month(month);
        return;
    }
    reminder.SetYearlyOccurenceType(EcvReminderYearlyOccurence::OrdinalDayType);
    reminder.SetYearlyReminderDayIntegralType(ParseOrdinal(*options.the));
    reminder.SetYearlyReminderDayType(ParseDayType(*options.of));
    reminder.SetYearlyReminderPattern2Month(month);
}

/// The first occurrence at or after `start`, and the first one of them that is not past.
struct DueTimes
{
    CTime initial;
    CTime next;
};

DueTimes CalculateDueTimes(const CcvReminderData& reminder, CTime start)
{
    using Utilities = CcvReminderDataUtilities;
    CTime initial;
    switch (reminder.GetRecurrenceType())
    {
    case EcvReminderRecurrenceType::None:
        return {start, start};
    case EcvReminderRecurrenceType::Daily:
        initial = Utilities::CalculateInitialDailyRecurrentDueTime(start, &reminder);
        return {initial, Utilities::CalculateInitialUpcomingDailyRecurrentDueTime(initial, &reminder)};
    case EcvReminderRecurrenceType::Weekly:
        initial = Utilities::CalculateInitialWeeklyRecurrentDueTime(start, &reminder);
        return {initial, Utilities::CalculateInitialUpcomingWeeklyRecurrentDueTime(initial, &reminder)};
    case EcvReminderRecurrenceType::Monthly:
        initial = Utilities::CalculateInitialMonthlyRecurrentDueTime(start, &reminder);
        return {initial, Utilities::CalculateInitialUpcomingMonthlyRecurrentDueTime(initial, &reminder)};
    case EcvReminderRecurrenceType::Yearly:
        initial = Utilities::CalculateInitialYearlyRecurrentDueTime(start, &reminder);
        return {initial, Utilities::CalculateInitialUpcomingYearlyRecurrentDueTime(initial, &reminder)};
    default:
        return {};
    }
}

} // namespace

bool PatternOptions::Given() const
{
    return once || daily || weekdays || weekly || !on.empty() || monthly || yearly || month || day || the ||
           of;
}

void SetPattern(CcvReminderData& reminder, const PatternOptions& options)
{
    CheckCompanions(options);
    reminder.ResetRecurrenceOptions();
    reminder.SetRecurrenceType(EcvReminderRecurrenceType::None);
    if (options.daily)
    {
        reminder.SetRecurrenceType(EcvReminderRecurrenceType::Daily);
        reminder.SetDailyOccurenceType(EcvReminderDailyOccurence::EveryNDays);
        reminder.SetDailyRecurrenceNumber(ParseNumber(*options.daily, "--daily", kLargestCount));
    }
    else if (options.weekdays)
    {
        reminder.SetRecurrenceType(EcvReminderRecurrenceType::Daily);
        reminder.SetDailyOccurenceType(EcvReminderDailyOccurence::EveryWeekday);
    }
    else if (options.weekly)
    {
        reminder.SetRecurrenceType(EcvReminderRecurrenceType::Weekly);
        reminder.SetWeeklyRecurrenceNumber(ParseNumber(*options.weekly, "--weekly", kLargestCount));
        reminder.SetWeeklyRecurrenceFlag(ParseWeekdays(options.on));
    }
    else if (options.monthly)
    {
        SetMonthly(reminder, options);
    }
    else if (options.yearly)
    {
        SetYearly(reminder, options);
    }
}

void SetDueTimes(CcvReminderData& reminder, CTime start)
{
    DueTimes times;
    try
    {
        times = CalculateDueTimes(reminder, start);
    }
    catch (const COleException&)
    {
        times = {};
    }
    if (!IsCalendarTime(times.initial) || !IsCalendarTime(times.next))
    {
        throw UsageError("the pattern has no occurrence from " + IsoTime(start).value_or("that time") +
                         " on");
    }
    reminder.SetInitialDueDate(times.initial);
    reminder.SetNextDueDate(times.next);
}

} // namespace ts::console
