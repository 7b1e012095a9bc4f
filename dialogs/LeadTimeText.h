#pragma once

#include "platform/mfc/afxstr.h"
#include "platform/mfc/atltime.h"

#include <optional>

/// How long before its due time a reminder fires, as a text in the interface language such as "2 hours".
namespace ts
{

/// The text of a lead time, in the largest unit that measures it without a rest. A lead time that is no whole
/// number of days shows only what it has beyond whole days: 25 hours show as one hour. One below a minute,
/// and a negative one, shows as 0 minutes.
[[nodiscard]] CString ShowLeadTime(CTimeSpan span);

/// The lead time that a text names; nothing when it does not begin with a whole number of 32 bits. A word
/// that is no unit counts by its first letter, and one that says nothing counts as minutes.
[[nodiscard]] std::optional<CTimeSpan> ParseLeadTime(const CString& text);

} // namespace ts
