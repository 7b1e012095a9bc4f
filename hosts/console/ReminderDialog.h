#pragma once

#include "Session.h"

namespace ts::console
{

/// Lets the user change the reminder in the library's dialog. False, and the reminder unchanged, when the
/// user cancelled. `caption` is the dialog's title, or empty for its own. Raises OperationError where there
/// is no display.
[[nodiscard]] bool EditInDialog(const Session& session, CcvReminderData& reminder, const CString& caption);

} // namespace ts::console
