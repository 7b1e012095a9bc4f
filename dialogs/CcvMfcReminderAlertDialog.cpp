#include "dialogs/CcvMfcReminderAlertDialog.h"

#include "dialogs/CcvMfcReminderAlertDialogInternal.h"
#include "module/ResourceScope.h"
#include "resources/RemindersControls.h"

static_assert(CcvMfcReminderAlertDialog::kTemplate == IDD_REMINDER_ALERT);

CcvMfcReminderAlertDialog::CcvMfcReminderAlertDialog(CcvReminderDataCollectionManager* manager, CWnd* parent)
{
    const ts::ResourceScope scope;
    SetInternalDialog(std::make_unique<CcvMfcReminderAlertDialogInternal>(manager, parent).release());
}

void CcvMfcReminderAlertDialog::SynchronizeReminders()
{
    dynamic_cast<CcvMfcRemindersDialogInternal&>(*GetInternalDialog()).RefreshReminders();
}
