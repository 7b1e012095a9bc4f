#pragma once

#include "dialogs/CcvMfcDialogBase.h"
#include "platform/mfc/afxstr.h"

class CcvMfcAddReminderDialogInternal;
class CcvReminderData;

/// The dialog in which the user makes or edits one reminder. A host fills it (UpdateReminderData), shows it
/// with DoModal, and after IDOK takes a copy of GetReminderData, which the collection manager's AddReminder
/// and ModifyReminder make by themselves. The record given is never changed.
class TS_API CcvMfcAddReminderDialog : public CcvMfcDialogBase
{
  public:
    /// `parent` may be null: then the dialog belongs to the thread's active window.
    explicit CcvMfcAddReminderDialog(CWnd* parent = nullptr);
    /// Shares the internal dialog, as all facades do: only one of the two may keep it.
    CcvMfcAddReminderDialog(CcvMfcAddReminderDialog&& other) noexcept;
    CcvMfcAddReminderDialog(const CcvMfcAddReminderDialog&) = delete;
    CcvMfcAddReminderDialog& operator=(const CcvMfcAddReminderDialog&) = delete;
    /// Destroys the internal dialog with its record.
    ~CcvMfcAddReminderDialog() override;

    /// The reminder as the user entered it; what the dialog does not show is as in the record of
    /// UpdateReminderData. Stays the dialog's, never null.
    /// Raises COleException (E_FAIL, E_INVALIDARG) when date and time make no local time, which no accepted
    /// entry does, or when the pattern has no due time within the calendar.
    CcvReminderData* GetReminderData();
    /// Shows this reminder from now on. Without it, the dialog shows an empty one that is due now, rounded
    /// up to the quarter hour.
    void UpdateReminderData(const CcvReminderData* record);
    /// The dialog's title instead of the one that it has by itself.
    void SetDialogCaption(const CString& caption);

  private:
    [[nodiscard]] CcvMfcAddReminderDialogInternal& Dialog() const;
};
