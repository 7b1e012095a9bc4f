#include "dialogs/SeenReminder.h"

#include "collection/CcvReminderDataCollectionManager.h"
#include "dialogs/ReminderTimes.h"
#include "platform/mfc/afxdisp.h"

namespace
{

using Change = bool (CcvReminderDataCollectionManager::*)(CcvReminderData*);

void Settle(CcvReminderDataCollectionManager& manager, CcvReminderData& reminder, Change change)
{
    static_cast<void>(ts::FindDueTime(reminder, CTime::GetCurrentTime()));
    try
    {
        (manager.*change)(&reminder);
    }
    catch (const COleException&)
    {
        // Raised before anything was changed or sent.
        reminder.SetSnoozed(false);
        manager.ModifyReminder(&reminder, false);
    }
}

} // namespace

ts::SeenReminder::SeenReminder(CcvReminderData& reminder, CTime now)
    : m_key(reminder.GetReminderKey()), m_guid(reminder.GetGuid()), m_due(FindDueTime(reminder, now))
{
}

CcvReminderData* ts::SeenReminder::FindIn(const CcvReminderDataCollectionManager& manager) const
{
    for (int index = 0; index < manager.GetRemindersCount(); ++index)
    {
        CcvReminderData* const reminder = manager.GetReminderByIndex(index);
        if (reminder->GetReminderKey() == m_key && reminder->GetGuid() == m_guid)
        {
            return reminder;
        }
    }
    return nullptr;
}

CcvReminderData* ts::SeenReminder::FindOccurrenceIn(const CcvReminderDataCollectionManager& manager,
                                                    CTime now) const
{
    CcvReminderData* const reminder = FindIn(manager);
    return reminder != nullptr && FindDueTime(*reminder, now) == m_due ? reminder : nullptr;
}

void ts::DismissOccurrence(CcvReminderDataCollectionManager& manager, CcvReminderData& reminder)
{
    Settle(manager, reminder, &CcvReminderDataCollectionManager::DismissReminder);
}

void ts::EndOccurrence(CcvReminderDataCollectionManager& manager, CcvReminderData& reminder)
{
    Settle(manager, reminder, &CcvReminderDataCollectionManager::EndReminder);
}
