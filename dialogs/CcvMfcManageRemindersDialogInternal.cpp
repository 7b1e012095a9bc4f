#include "dialogs/CcvMfcManageRemindersDialogInternal.h"

#include "collection/CcvReminderDataCollectionManager.h"
#include "dialogs/CcvMfcAddReminderDialog.h"
#include "dialogs/CcvMfcRemindersListControl.h"
#include "dialogs/SeenReminder.h"
#include "module/CcvReminderOptionUtilities.h"
#include "module/LanguageText.h"
#include "module/RegistryPaths.h"
#include "platform/mfc/afxdd_.h"
#include "resources/RemindersControls.h"
#include "resources/StringIds.h"

namespace
{

/// Whether the user gave a dismissed reminder another time, at which it is to be heard.
bool IsSetAnew(const CcvReminderData& present, const CcvReminderData& edited)
{
    return present.IsDimissed() && !present.IsRecurrent() &&
           (edited.IsRecurrent() || edited.GetNextDueDate() != present.GetNextDueDate());
}

/// Writes an edited copy back. What was not edited may have changed while the dialog was open: the reminder
/// may have been snoozed, and Outlook may have named its appointment.
void WriteBack(CcvReminderDataCollectionManager& manager, const CcvReminderData& present,
               CcvReminderData& edited)
{
    CcvReminderData changed(present);
    changed.CopyData(&edited);
    if (IsSetAnew(present, edited))
    {
        changed.SetDismissed(false);
    }
    changed.LoadOutlookDataFromRegistry(ts::kRemindersPath);
    manager.ModifyReminder(&changed, CcvReminderOptionUtilities::GetSynchronizeOutlookAppointments());
}

} // namespace

IMPLEMENT_DYNAMIC(CcvMfcManageRemindersDialogInternal, CcvMfcRemindersDialogInternal)

BEGIN_MESSAGE_MAP(CcvMfcManageRemindersDialogInternal, CcvMfcRemindersDialogInternal)
ON_BN_CLICKED(IDC_DELETE_REMINDER, OnDelete)
ON_BN_CLICKED(IDC_EDIT_REMINDER, OnEdit)
ON_BN_CLICKED(IDC_FILTER_RECENT, OnFilter)
ON_BN_CLICKED(IDC_FILTER_TODAY, OnFilter)
END_MESSAGE_MAP()

CcvMfcManageRemindersDialogInternal::CcvMfcManageRemindersDialogInternal(
    CcvReminderDataCollectionManager* manager, CWnd* pParentWnd)
    : CcvMfcRemindersDialogInternal(IDD_MANAGE_REMINDERS, manager, pParentWnd)
{
}

void CcvMfcManageRemindersDialogInternal::DoDataExchange(CDataExchange* exchange)
{
    CcvMfcRemindersDialogInternal::DoDataExchange(exchange);
    DDX_Radio(exchange, IDC_FILTER_RECENT, m_filter);
    List().SetFilter(m_filter != 0 ? ReminderListFilter::Today : ReminderListFilter::Recent);
}

BOOL CcvMfcManageRemindersDialogInternal::OnInitDialog()
{
    using enum ts::Follow;
    SetScreenView(L"AlertsManage", EcvFeedbackType::ScreenView, EcvSendFeedback::AsUserAllows);
    const BOOL result = CcvMfcRemindersDialogInternal::OnInitDialog();
    FollowSize(IDC_FILTER_LABEL, MoveDown);
    FollowSize(IDC_FILTER_RECENT, MoveDown);
    FollowSize(IDC_FILTER_TODAY, MoveDown);
    FollowSize(IDC_EDIT_REMINDER, MoveDown);
    FollowSize(IDC_DELETE_REMINDER, MoveDown);
    FollowSize(IDCANCEL, MoveRight | MoveDown);
    if (List().GetItemCount() > 0)
    {
        List().SelectRow(0);
    }
    UpdateControls();
    return result;
}

void CcvMfcManageRemindersDialogInternal::UpdateControls()
{
    CcvMfcRemindersDialogInternal::UpdateControls();
    const bool isSelected = List().GetSelectedIndex() >= 0;
    EnableControl(IDC_EDIT_REMINDER, isSelected);
    EnableControl(IDC_DELETE_REMINDER, isSelected);
}

void CcvMfcManageRemindersDialogInternal::OnFilter()
{
    UpdateData(TRUE);
    RefreshReminders();
}

void CcvMfcManageRemindersDialogInternal::OpenSelectedReminder()
{
    // The dialog may be gone afterwards.
    const HWND window = m_hWnd;
    CcvMfcRemindersDialogInternal::OpenSelectedReminder();
    ::PostMessageW(window, WM_SETFOCUS, 0, 0);
}

void CcvMfcManageRemindersDialogInternal::OnEdit()
{
    CcvReminderData* const selected = List().GetSelectedReminder();
    if (selected == nullptr)
    {
        return;
    }
    CcvReminderDataCollectionManager& manager = Manager();
    const ts::SeenReminder seen(*selected, CTime::GetCurrentTime());
    CcvMfcAddReminderDialog dialog;
    dialog.SetDialogCaption(ts::LoadText(IDS_EDIT_REMINDER));
    dialog.UpdateReminderData(selected);
    if (dialog.DoModal() != IDOK)
    {
        return;
    }
    const CcvReminderData* const present = seen.FindIn(manager);
    if (present != nullptr)
    {
        WriteBack(manager, *present, *dialog.GetReminderData());
    }
}

void CcvMfcManageRemindersDialogInternal::OnDelete()
{
    List().DeleteReminder(List().GetSelectedIndex());
}
