#pragma once

#include "Evaluation.h"

#include <string>

/// Reminders as text for a terminal of a given width.
namespace ts::console
{

/// One reminder in each row. Keys stand in a column where there is room for them, else below their row.
[[nodiscard]] std::string ListText(const std::vector<ListedReminder>& reminders, std::size_t width);

/// All fields of one reminder.
[[nodiscard]] std::string DetailText(const CcvReminderData& reminder, const Evaluation& evaluation,
                                     std::size_t width);

/// What a reminder is at that time in one or two words.
[[nodiscard]] std::string StatusText(const CcvReminderData& reminder, const Evaluation& evaluation);

} // namespace ts::console
