#pragma once

#include "outlook/AutomationObject.h"

#include <optional>

namespace ts
{

/// Enters an apartment on the calling thread, which is never left, and starts Outlook or joins the running
/// one; nothing when that cannot be. Other processes see meanwhile that a synchronisation is in progress.
[[nodiscard]] std::optional<AutomationObject> CreateOutlookApplication();

} // namespace ts
