#include "PatternNames.h"

#include "Strings.h"

#include <array>

namespace ts::console
{
namespace
{

constexpr std::array<std::string_view, 7> kWeekdays = {"Sunday",   "Monday", "Tuesday", "Wednesday",
                                                       "Thursday", "Friday", "Saturday"};
constexpr std::array<std::string_view, 12> kMonths = {"January",   "February", "March",    "April",
                                                      "May",       "June",     "July",     "August",
                                                      "September", "October",  "November", "December"};
constexpr std::array<std::string_view, 5> kOrdinals = {"first", "second", "third", "fourth", "last"};
constexpr std::size_t kShortName = 3;

/// The index of the name, or of the only name with these first three letters.
template <std::size_t Count>
std::optional<int> Find(const std::array<std::string_view, Count>& names, std::string_view text,
                        bool shortForms)
{
    const std::string lower = ToLower(text);
    for (std::size_t index = 0; index < Count; ++index)
    {
        const std::string name = ToLower(names[index]);
        if (lower == name || (shortForms && lower == name.substr(0, kShortName)))
        {
            return static_cast<int>(index);
        }
    }
    return std::nullopt;
}

template <std::size_t Count>
std::string_view NameAt(const std::array<std::string_view, Count>& names, std::int64_t index)
{
    return index >= 0 && index < static_cast<std::int64_t>(Count) ? names[static_cast<std::size_t>(index)]
                                                                  : std::string_view();
}

} // namespace

std::optional<int> WeekdayFromName(std::string_view name)
{
    return Find(kWeekdays, name, true);
}

std::string_view WeekdayShortName(int weekday)
{
    return NameAt(kWeekdays, weekday).substr(0, kShortName);
}

std::optional<int> MonthFromName(std::string_view name)
{
    const auto index = Find(kMonths, name, true);
    return index ? std::optional(*index + 1) : std::nullopt;
}

std::string_view MonthName(int month)
{
    return NameAt(kMonths, std::int64_t{month} - 1);
}

std::optional<EcvReminderDayIntegralType> OrdinalFromName(std::string_view name)
{
    const auto index = Find(kOrdinals, name, false);
    return index ? std::optional(static_cast<EcvReminderDayIntegralType>(*index)) : std::nullopt;
}

std::string_view OrdinalName(EcvReminderDayIntegralType ordinal)
{
    return NameAt(kOrdinals, static_cast<int>(ordinal));
}

std::optional<EcvReminderDayType> DayTypeFromName(std::string_view name)
{
    const std::string lower = ToLower(name);
    if (lower == "day")
    {
        return EcvReminderDayType::Day;
    }
    if (lower == "weekday")
    {
        return EcvReminderDayType::Weekday;
    }
    if (lower == "weekend-day")
    {
        return EcvReminderDayType::WeekendDay;
    }
    const auto weekday = WeekdayFromName(name);
    return weekday ? std::optional(static_cast<EcvReminderDayType>(1 << *weekday)) : std::nullopt;
}

std::string_view DayTypeName(EcvReminderDayType dayType)
{
    switch (dayType)
    {
    case EcvReminderDayType::Day:
        return "day";
    case EcvReminderDayType::Weekday:
        return "weekday";
    case EcvReminderDayType::WeekendDay:
        return "weekend day";
    default:
        break;
    }
    for (int weekday = 0; weekday < 7; ++weekday)
    {
        if (static_cast<int>(dayType) == 1 << weekday)
        {
            return NameAt(kWeekdays, weekday);
        }
    }
    return {};
}

} // namespace ts::console
