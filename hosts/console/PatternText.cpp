#include "PatternText.h"

#include "PatternNames.h"

namespace ts::console
{
namespace
{

constexpr char kUnknown[] = "unknown pattern";

/// `every day`, `every 3 days`.
std::string Every(int count, const std::string& unit)
{
    return count == 1 ? "every " + unit : "every " + std::to_string(count) + " " + unit + "s";
}

/// `the last weekend day`, or nothing where one of the two is unknown.
std::string OrdinalDay(EcvReminderDayIntegralType ordinal, long dayType)
{
    const auto which = OrdinalName(ordinal);
    const auto day = DayTypeName(static_cast<EcvReminderDayType>(dayType));
    return which.empty() || day.empty() ? std::string()
                                        : "the " + std::string(which) + " " + std::string(day);
}

std::string DailyText(const CcvReminderData& reminder)
{
    switch (reminder.GetDailyOccurrenceType())
    {
    case EcvReminderDailyOccurence::EveryNDays:
        return Every(reminder.GetDailyRecurrenceNumber(), "day");
    case EcvReminderDailyOccurence::EveryWeekday:
        return "every weekday";
    default:
        return kUnknown;
    }
}

std::string WeeklyText(const CcvReminderData& reminder)
{
    const auto flags = static_cast<unsigned long>(reminder.GetWeeklyRecurrenceFlag());
    std::string days;
    // A week is read from Monday on, whatever its first bit is.
    for (int position = 1; position <= 7; ++position)
    {
        const int weekday = position % 7;
        if ((flags >> weekday & 1) != 0)
        {
            days += (days.empty() ? "" : ", ") + std::string(WeekdayShortName(weekday));
        }
    }
    return Every(reminder.GetWeeklyRecurrenceNumber(), "week") + " on " + (days.empty() ? "no day" : days);
}

std::string MonthlyText(const CcvReminderData& reminder)
{
    if (reminder.GetMonthlyOccurrenceType() == EcvReminderMonthlyOccurence::DayOfMonth)
    {
        return Every(reminder.GetMonthlyReminderPattern1Month(), "month") + " on day " +
               std::to_string(reminder.GetMonthlyRecurrentDayOfMonth());
    }
    const std::string day =
        OrdinalDay(reminder.GetMonthlyReminderDayIntegralType(), reminder.GetMonthlyReminderDayType());
    const bool known = reminder.GetMonthlyOccurrenceType() == EcvReminderMonthlyOccurence::OrdinalDayType;
    return known && !day.empty() ? Every(reminder.GetMonthlyReminderPattern2Month(), "month") + " on " + day
                                 : kUnknown;
}

std::string YearlyText(const CcvReminderData& reminder)
{
    const bool byDay = reminder.GetYearlyOccurenceType() == EcvReminderYearlyOccurence::DayOfMonth;
    const auto month = MonthName(static_cast<int>(byDay ? reminder.GetYearlyReminderPattern1Month()
                                                        : reminder.GetYearlyReminderPattern2Month()));
    if (month.empty())
    {
        return kUnknown;
    }
    if (byDay)
    {
        return "every year on " + std::to_string(reminder.GetYearlyRecurrentDay()) + " " + std::string(month);
    }
    const std::string day =
        OrdinalDay(reminder.GetYearlyReminderDayIntegralType(), reminder.GetYearlyReminderDayType());
    const bool known = reminder.GetYearlyOccurenceType() == EcvReminderYearlyOccurence::OrdinalDayType;
    return known && !day.empty() ? "every year on " + day + " of " + std::string(month) : kUnknown;
}

} // namespace

std::array<std::int64_t, 6> RecurrenceOptions(const CcvReminderData& reminder)
{
    return {static_cast<int>(reminder.GetDailyOccurrenceType()),
            reminder.GetDailyRecurrenceNumber(),
            reminder.GetMonthlyReminderPattern1Month(),
            static_cast<int>(reminder.GetMonthlyReminderDayIntegralType()),
            reminder.GetMonthlyReminderDayType(),
            reminder.GetMonthlyReminderPattern2Month()};
}

std::string PatternText(const CcvReminderData& reminder)
{
    switch (reminder.GetRecurrenceType())
    {
    case EcvReminderRecurrenceType::None:
        return "once";
    case EcvReminderRecurrenceType::Daily:
        return DailyText(reminder);
    case EcvReminderRecurrenceType::Weekly:
        return WeeklyText(reminder);
    case EcvReminderRecurrenceType::Monthly:
        return MonthlyText(reminder);
    case EcvReminderRecurrenceType::Yearly:
        return YearlyText(reminder);
    default:
        return kUnknown;
    }
}

} // namespace ts::console
