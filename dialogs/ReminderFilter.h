#pragma once

#include "reminders/CcvReminderData.h"

#include <cstdint>

/// Which reminders a list shows.
enum class ReminderListFilter : std::int32_t
{
    Recent = 0, ///< due at any time to come, or less than 31 days ago
    Today = 1,  ///< due on today's local date
    Due = 2     ///< the reminder time has come, and it was not dismissed
};

namespace ts
{

/// Whether the reminder is shown at `now`; moves a recurring one on.
///
/// One without a due time (dialogs/ReminderTimes.h) is shown among the recent ones, where the user can mend
/// or delete it, and is due only when it was snoozed. A record that the collection could not load holds
/// nothing to show and is never shown.
[[nodiscard]] bool IsListed(ReminderListFilter filter, CcvReminderData& reminder, CTime now);

} // namespace ts
