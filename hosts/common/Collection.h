#pragma once

#include "TsServiceUtilities.h"

#include <memory>

/// What hosts do with the collection beyond its own members.
namespace ts::hosts
{

/// Loads a record that the collection left unloaded: it stops at the first damaged one, and here each is
/// loaded on its own. Whether the record is loaded.
bool EnsureLoaded(CcvReminderData& record);

/// Gives up the changes that Outlook is not done with. To destroy the collection would be to wait for them
/// without limit; so it is left as it is, and the process is to end soon.
void Abandon(std::unique_ptr<CcvReminderDataCollectionManager> manager);

} // namespace ts::hosts
