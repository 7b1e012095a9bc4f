#pragma once

#include "hosts/common/ReminderTimes.h"

#include <optional>
#include <string>
#include <string_view>

/// Times and spans as the user types and reads them.
namespace ts::console
{

/// ISO 8601: `2026-11-21T09:00`, with seconds and an offset (`Z`, `+01:00`) if wanted, or a date, which
/// means its midnight. Without an offset it is local time; of the two times that a clock change gives the
/// same name the runtime picks one. The years are 1970 to 3000.
/// Raises UsageError, naming `option`, also for a date or a local time that does not exist.
[[nodiscard]] CTime ParseTime(std::string_view text, std::string_view option);

/// A whole number of minutes, hours, days or weeks (`15m`, `2h`, `1d`, `1w`), at most a thousand years.
/// Raises UsageError, naming `option`.
[[nodiscard]] CTimeSpan ParseSpan(std::string_view text, std::string_view option);

/// The local time in ISO 8601 with its offset from UTC; none for 0 ("no time") and for times that the
/// runtime cannot convert.
[[nodiscard]] std::optional<std::string> IsoTime(CTime time);

/// The local time in the user's short date and time format; empty where IsoTime is.
[[nodiscard]] std::string ShortTime(CTime time);

/// `2 weeks`, `15 minutes`, and seconds where nothing larger fits.
[[nodiscard]] std::string SpanText(CTimeSpan span);

using hosts::IsCalendarTime;

} // namespace ts::console
