#pragma once

#include "TsServiceUtilities.h"

#include <optional>
#include <string_view>

/// The English names that a pattern is made of: days, months, ordinals. Reading ignores letter case and takes
/// the usual three-letter forms of days and months as well.
namespace ts::console
{

/// 0 Sunday to 6 Saturday.
[[nodiscard]] std::optional<int> WeekdayFromName(std::string_view name);
/// `Sun` to `Sat`.
[[nodiscard]] std::string_view WeekdayShortName(int weekday);

/// 1 to 12.
[[nodiscard]] std::optional<int> MonthFromName(std::string_view name);
/// `January` to `December`, empty for other numbers.
[[nodiscard]] std::string_view MonthName(int month);

/// `first` to `fourth`, `last`.
[[nodiscard]] std::optional<EcvReminderDayIntegralType> OrdinalFromName(std::string_view name);
/// Empty for other values.
[[nodiscard]] std::string_view OrdinalName(EcvReminderDayIntegralType ordinal);

/// `day`, `weekday`, `weekend-day`, or a day of the week.
[[nodiscard]] std::optional<EcvReminderDayType> DayTypeFromName(std::string_view name);
/// `weekend day`, `Tuesday`; empty for other values.
[[nodiscard]] std::string_view DayTypeName(EcvReminderDayType dayType);

} // namespace ts::console
