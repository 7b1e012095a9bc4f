#pragma once

#include "TsServiceUtilities.h"

#include <string_view>
#include <vector>

/// The user's reminders in the registry. Failures raise OperationError.
namespace ts::console
{

/// Every reminder, in the order of the registry; none when there is no store yet. What vanishes meanwhile
/// is passed over.
[[nodiscard]] std::vector<CcvReminderData> LoadReminders();

/// Raises when there is a store that cannot be read.
void CheckStoreReadable();

/// The reminder with that key.
[[nodiscard]] CcvReminderData LoadReminder(std::string_view key);

/// Writes the reminder, and reads it again to see that everything arrived.
void SaveReminder(CcvReminderData& reminder);

/// Like SaveReminder for a reminder that has no key yet, and gives it one. Leaves nothing behind on failure.
void SaveNewReminder(CcvReminderData& reminder);

void DeleteReminder(CcvReminderData& reminder);

} // namespace ts::console
