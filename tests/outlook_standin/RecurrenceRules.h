#pragma once

#include "tests/outlook_standin/Calendar.h"

/// What Outlook's recurrence patterns mean.
namespace ts::standin
{

/// The pattern that a single appointment gets when it becomes recurring: weekly, on the day of its start.
[[nodiscard]] Recurrence DefaultRecurrence(const Item& item);

/// Properties that the new type shares with the old one keep their values, others get those that follow from
/// the pattern's start, and properties that the new type does not have become 0.
void ChangeType(Recurrence& recurrence, RecurrenceType type);

[[nodiscard]] bool UsesDayOfWeekMask(RecurrenceType type) noexcept;
[[nodiscard]] bool UsesDayOfMonth(RecurrenceType type) noexcept;
[[nodiscard]] bool UsesMonthOfYear(RecurrenceType type) noexcept;
[[nodiscard]] bool UsesInstance(RecurrenceType type) noexcept;

/// Moves the item to the start of its pattern and gives it the pattern's length.
void FollowPattern(Item& item);

/// The clock time of a date, to the second, as a time without a date. The fraction of the number alone would
/// differ from that in its last digits.
[[nodiscard]] double ClockTimeOf(double date) noexcept;

/// In days.
[[nodiscard]] double LengthOf(const Recurrence& recurrence) noexcept;

/// Whether the series has an occurrence that starts at `start`, to the second, and was not deleted.
[[nodiscard]] bool HasOccurrence(const Recurrence& recurrence, double start);

} // namespace ts::standin
