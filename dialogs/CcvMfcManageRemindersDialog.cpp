#include "dialogs/CcvMfcManageRemindersDialog.h"

#include "dialogs/CcvMfcManageRemindersDialogInternal.h"
#include "module/ResourceScope.h"
#include "resources/RemindersControls.h"

static_assert(CcvMfcManageRemindersDialog::kTemplate == IDD_MANAGE_REMINDERS);

CcvMfcManageRemindersDialog::CcvMfcManageRemindersDialog(CcvReminderDataCollectionManager* manager,
                                                         CWnd* parent)
{
    const ts::ResourceScope scope;
    SetInternalDialog(std::make_unique<CcvMfcManageRemindersDialogInternal>(manager, parent).release());
}

void CcvMfcManageRemindersDialog::SynchronizeReminders()
{
    dynamic_cast<CcvMfcRemindersDialogInternal&>(*GetInternalDialog()).RefreshReminders();
}
