#include "hosts/common/Collection.h"

namespace ts::hosts
{

bool EnsureLoaded(CcvReminderData& record)
{
    const bool named = !record.GetDocumentPath().IsEmpty() || !record.GetMapGuid().IsEmpty() ||
                       !record.GetObjectGuid().IsEmpty();
    return named || record.LoadDataFromRegistry(kRemindersPath);
}

void Abandon(std::unique_ptr<CcvReminderDataCollectionManager> manager)
{
    static_cast<void>(manager.release());
    // The worker ends with the process, and then cannot take its mark away itself.
    CcvReminderOptionUtilities::SetSynchronizeInProgress(false);
}

} // namespace ts::hosts
