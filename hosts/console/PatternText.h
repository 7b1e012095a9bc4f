#pragma once

#include "TsServiceUtilities.h"

#include <array>
#include <string>

namespace ts::console
{

/// The six option slots of the recurrence as they are.
[[nodiscard]] std::array<std::int64_t, 6> RecurrenceOptions(const CcvReminderData& reminder);

/// `every 2 weeks on Mon, Thu`; `once` for a reminder that does not recur. Options that no dialog and no
/// command writes are named as unknown.
[[nodiscard]] std::string PatternText(const CcvReminderData& reminder);

} // namespace ts::console
