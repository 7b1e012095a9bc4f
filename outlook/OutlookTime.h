#pragma once

#include "platform/WindowsHeaders.h"
#include "platform/mfc/atltime.h"

#include <oleauto.h>

/// Times as Outlook takes them: DATE values of the local time, without the zone.
namespace ts
{

/// The local date and clock time of `timeUtc`, without milliseconds. Raises CcvComException(E_INVALIDARG) for
/// a time that the C runtime cannot convert.
[[nodiscard]] SYSTEMTIME ToLocalTime(const CTime& timeUtc);

// Each raises CcvComException(E_INVALIDARG) for what is no date.
[[nodiscard]] DATE ToOutlookDate(const SYSTEMTIME& local);
/// The clock time alone, as Outlook's recurrence patterns take it.
[[nodiscard]] DATE ToOutlookTimeOnly(const SYSTEMTIME& local);
/// The date alone, at midnight.
[[nodiscard]] DATE ToOutlookDateOnly(const SYSTEMTIME& local);

[[nodiscard]] inline DATE ToOutlookDate(const CTime& timeUtc)
{
    return ToOutlookDate(ToLocalTime(timeUtc));
}

} // namespace ts
