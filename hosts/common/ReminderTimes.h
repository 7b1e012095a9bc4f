#pragma once

#include "TsServiceUtilities.h"

#include <optional>
#include <vector>

/// What the library says about the times of a reminder, where it may raise errors.
namespace ts::hosts
{

/// Whether the time is one and has local calendar fields.
[[nodiscard]] bool IsCalendarTime(CTime time) noexcept;

/// The answer of `question`, or none when the library raises an error.
template <typename Question>
[[nodiscard]] auto Ask(Question question) -> std::optional<decltype(question())>
{
    try
    {
        return question();
    }
    catch (const COleException&)
    {
        return std::nullopt;
    }
}

/// Each part is missing where the library raises an error on it.
struct ReminderTimes
{
    std::optional<CTime> due;
    /// When the reminder fires.
    std::optional<CTime> reminderTime;
};

/// The times in force at `now`. Works on a copy: asking a recurring reminder would move it on.
[[nodiscard]] ReminderTimes FindTimes(const CcvReminderData& reminder, CTime now);

/// The occurrences strictly later than `from`, at most `count`, along the pattern from the due time in
/// force. Empty for a reminder that does not recur; ends with the calendar, and where the pattern does not
/// advance. Raises COleException when the pattern cannot be followed at all.
[[nodiscard]] std::vector<CTime> OccurrencesAfter(const CcvReminderData& reminder, CTime from, int count);

} // namespace ts::hosts
