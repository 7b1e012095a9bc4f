#include "collection/CcvReminderDataCollectionManager.h"
#include "dialogs/CcvMfcDeleteRecurrenceConfirmationDialog.h"
#include "dialogs/CcvMfcRemindersListControl.h"
#include "module/CcvReminderOptionUtilities.h"

namespace
{

CcvReminderData* FindByKey(const CcvReminderDataCollectionManager& manager, const CString& key)
{
    for (int index = 0; index < manager.GetRemindersCount(); ++index)
    {
        CcvReminderData* const reminder = manager.GetReminderByIndex(index);
        if (reminder->GetReminderKey() == key)
        {
            return reminder;
        }
    }
    return nullptr;
}

} // namespace

void CcvMfcRemindersListControl::DeleteReminder(int row)
{
    CcvReminderData* reminder = GetReminder(row);
    if (reminder == nullptr)
    {
        return;
    }
    if (reminder->IsRecurrent())
    {
        // While the question is shown the collection may be loaded again, and the list may go.
        const CString key = reminder->GetReminderKey();
        const HWND list = m_hWnd;
        CcvMfcDeleteRecurrenceConfirmationDialog question(this);
        if (question.DoModal() != IDOK || IsWindow(list) == FALSE)
        {
            return;
        }
        reminder = FindByKey(*m_manager, key);
        if (reminder == nullptr)
        {
            return;
        }
        if (question.IsDeletingInstance())
        {
            m_manager->DismissReminder(reminder);
            return;
        }
    }
    m_manager->DeleteReminder(reminder, CcvReminderOptionUtilities::GetSynchronizeOutlookAppointments());
}
