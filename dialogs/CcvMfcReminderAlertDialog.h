#pragma once

#include "dialogs/CcvMfcDialogBase.h"

class CcvReminderDataCollectionManager;

/// The window that shows the due reminders, with a sound if the user wants one: to open, end, snooze or
/// dismiss them. It adds what becomes due while it is open, and closes itself when a refresh leaves nothing.
///
/// Closing it dismisses all the reminders that it shows. The command IDOK closes it without that.
class TS_API CcvMfcReminderAlertDialog : public CcvMfcDialogBase
{
  public:
    /// The number of its template, for Create.
    static constexpr UINT kTemplate = 103;

    /// `manager` stays the caller's and outlives the facade; `parent` may be null.
    CcvMfcReminderAlertDialog(CcvReminderDataCollectionManager* manager, CWnd* parent);

    /// Shows what the collection holds now; hosts call it when they have loaded it again. Does nothing
    /// while there is no window.
    void SynchronizeReminders();
};
