#pragma once

#include "dialogs/CcvMfcRemindersDialogInternal.h"

/// Lists the recent reminders or those of today, which the user opens, edits and deletes.
class CcvMfcManageRemindersDialogInternal : public CcvMfcRemindersDialogInternal
{
    DECLARE_DYNAMIC(CcvMfcManageRemindersDialogInternal)

  public:
    /// `manager` stays the caller's and outlives the dialog.
    CcvMfcManageRemindersDialogInternal(CcvReminderDataCollectionManager* manager, CWnd* pParentWnd);

    void OpenSelectedReminder() override;
    void UpdateControls() override;
    BOOL OnInitDialog() override;

  protected:
    void DoDataExchange(CDataExchange* exchange) override;

    void OnDelete();
    void OnEdit();
    void OnFilter();

    DECLARE_MESSAGE_MAP()

  private:
    int m_filter = 0; ///< 0 recent, else today
};
