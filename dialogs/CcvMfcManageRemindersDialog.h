#pragma once

#include "dialogs/CcvMfcDialogBase.h"

class CcvReminderDataCollectionManager;

/// The window that lists the reminders of all maps, the recent and coming ones or those of today, to open,
/// edit or delete them. Each change reaches the list when the host calls SynchronizeReminders.
class TS_API CcvMfcManageRemindersDialog : public CcvMfcDialogBase
{
  public:
    /// The number of its template, for Create.
    static constexpr UINT kTemplate = 112;

    /// `manager` stays the caller's and outlives the facade; `parent` may be null.
    CcvMfcManageRemindersDialog(CcvReminderDataCollectionManager* manager, CWnd* parent);

    /// Shows what the collection holds now; hosts call it when they have loaded it again. Does nothing
    /// while there is no window.
    void SynchronizeReminders();
};
