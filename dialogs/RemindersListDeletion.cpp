#include "collection/CcvReminderDataCollectionManager.h"
#include "dialogs/CcvMfcDeleteRecurrenceConfirmationDialog.h"
#include "dialogs/CcvMfcRemindersListControl.h"
#include "dialogs/SeenReminder.h"
#include "module/CcvReminderOptionUtilities.h"

namespace
{

void Delete(CcvReminderDataCollectionManager& manager, CcvReminderData& reminder)
{
    manager.DeleteReminder(&reminder, CcvReminderOptionUtilities::GetSynchronizeOutlookAppointments());
}

void DeleteSeries(CcvReminderDataCollectionManager& manager, const ts::SeenReminder& seen)
{
    CcvReminderData* const reminder = seen.FindIn(manager);
    if (reminder != nullptr)
    {
        Delete(manager, *reminder);
    }
}

void DeleteOccurrence(CcvReminderDataCollectionManager& manager, const ts::SeenReminder& seen)
{
    CcvReminderData* const reminder = seen.FindOccurrenceIn(manager, CTime::GetCurrentTime());
    if (reminder != nullptr)
    {
        ts::DismissOccurrence(manager, *reminder);
    }
}

} // namespace

void CcvMfcRemindersListControl::DeleteReminder(int row)
{
    CcvReminderData* const reminder = GetReminder(row);
    if (reminder == nullptr)
    {
        return;
    }
    if (!reminder->IsRecurrent())
    {
        Delete(*m_manager, *reminder);
        return;
    }
    // While the question is shown the collection may be loaded again, and the list may go.
    const ts::SeenReminder seen(*reminder, CTime::GetCurrentTime());
    const HWND list = m_hWnd;
    CcvMfcDeleteRecurrenceConfirmationDialog question(this);
    if (question.DoModal() == IDOK && IsWindow(list) != FALSE)
    {
        (question.IsDeletingSeries() ? DeleteSeries : DeleteOccurrence)(*m_manager, seen);
    }
}
