#pragma once

#include "platform/mfc/atltime.h"
#include "reminders/CcvReminderData.h"

/// Walks along the occurrences of a pattern.
namespace ts
{

/// The occurrence that follows `from` by the record's pattern of that type; 0 for a type without a pattern.
/// Raises what building a date raises.
[[nodiscard]] CTime NextOccurrence(EcvReminderRecurrenceType type, CTime from, const CcvReminderData& record);

/// The last occurrence up to and including `limit` when walking from `from` by NextOccurrence, or `from` when
/// already the next one lies after `limit`. The walk ends at an occurrence that is not followed by a later
/// one. Raises what NextOccurrence raises on the way.
[[nodiscard]] CTime LastOccurrenceUpTo(EcvReminderRecurrenceType type, CTime from, CTime limit,
                                       const CcvReminderData& record);

} // namespace ts
