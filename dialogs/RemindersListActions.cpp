#include "collection/CcvReminderDataCollectionManager.h"
#include "dialogs/CcvMfcRemindersListControl.h"
#include "dialogs/HostApplication.h"
#include "module/CcvReminderOptionUtilities.h"
#include "module/LanguageText.h"
#include "resources/StringIds.h"

void CcvMfcRemindersListControl::OpenReminder(int row)
{
    const Row* const data = FindRow(row);
    if (data == nullptr)
    {
        return;
    }
    // Rows and reminders may be others when the application has started.
    const CString guid = data->guid;
    const HWND list = m_hWnd;
    const ts::HostApplication application(*this);
    if (IsWindow(list) == FALSE)
    {
        return;
    }
    if (application.GetMainWindow() == nullptr)
    {
        MessageBoxW(list, ts::LoadText(IDS_HOST_NOT_AVAILABLE), ts::LoadText(IDS_MESSAGE_CAPTION),
                    MB_ICONEXCLAMATION);
        ::SetForegroundWindow(::GetParent(list));
        return;
    }
    application.Show();
    const int index = FindInCollection(guid);
    if (index >= 0)
    {
        application.PostOpenReminder(index);
    }
}

void CcvMfcRemindersListControl::DismissReminder(int row)
{
    CcvReminderData* const reminder = GetReminder(row);
    if (reminder != nullptr)
    {
        m_manager->DismissReminder(reminder);
    }
}

void CcvMfcRemindersListControl::EndReminder(int row)
{
    CcvReminderData* const reminder = GetReminder(row);
    if (reminder != nullptr)
    {
        m_manager->EndReminder(reminder);
    }
}

void CcvMfcRemindersListControl::SnoozeReminder(int row, const CTimeSpan& span)
{
    CcvReminderData* const reminder = GetReminder(row);
    if (reminder != nullptr)
    {
        m_manager->SnoozeReminder(reminder, span);
    }
}

void CcvMfcRemindersListControl::ModifyReminder(int row, const CcvReminderData& edited)
{
    const CcvReminderData* const reminder = GetReminder(row);
    if (reminder != nullptr)
    {
        CcvReminderData changed(*reminder);
        CcvReminderData source(edited);
        changed.CopyData(&source);
        m_manager->ModifyReminder(&changed, CcvReminderOptionUtilities::GetSynchronizeOutlookAppointments());
    }
}
