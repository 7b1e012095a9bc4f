#pragma once

#include "outlook/AutomationObject.h"

#include <optional>

namespace ts
{

/// Whether one of the item's user properties, whatever its name, has the value `objectGuid`.
/// Raises CcvComException.
[[nodiscard]] bool ItemCarriesGuid(const CString& objectGuid, const AutomationObject& item);

/// The appointment that carries `objectGuid`: the one that `entryId` leads to, if that is in a calendar
/// folder, else the first one found in the calendar folders of the user's default store. Folders that are
/// nested more than 300 levels deep are not searched. `session` is Outlook's MAPI namespace. Raises
/// CcvComException when the search fails.
[[nodiscard]] std::optional<AutomationObject> FindOutlookAppointment(const CString& objectGuid,
                                                                     const CString& entryId,
                                                                     const AutomationObject& session);

} // namespace ts
