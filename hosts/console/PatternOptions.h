#pragma once

#include "TsServiceUtilities.h"

#include <optional>
#include <string>
#include <vector>

namespace ts::console
{

/// The options of `add` and `edit` that say how a reminder recurs, as the user typed them.
struct PatternOptions
{
    bool once = false;
    std::optional<std::string> daily;
    bool weekdays = false;
    std::optional<std::string> weekly;
    std::vector<std::string> on;
    std::optional<std::string> monthly;
    bool yearly = false;
    std::optional<std::string> month;
    std::optional<std::string> day;
    std::optional<std::string> the;
    std::optional<std::string> of;

    /// Whether any of them was given.
    [[nodiscard]] bool Given() const;
};

/// Gives the reminder the pattern, and takes its earlier one away. Options of which none was given mean no
/// recurrence. Raises UsageError for a pattern that cannot be; the reminder may then be half changed.
void SetPattern(CcvReminderData& reminder, const PatternOptions& options);

/// Sets the initial and the next due time to the first occurrences at or after `start`.
/// Raises UsageError when the pattern has none there.
void SetDueTimes(CcvReminderData& reminder, CTime start);

} // namespace ts::console
