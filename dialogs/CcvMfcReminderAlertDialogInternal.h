#pragma once

#include "dialogs/CcvMfcRemindersDialogInternal.h"
#include "platform/ts/CcvSplitMenuButton.h"

#include <memory>

/// Posted by the alert to itself so that its sound begins once it is on the screen.
inline constexpr UINT WM_REMINDER_ALERT_SHOWN = 1195;

/// Lists the due reminders, from which the user opens, ends, snoozes or dismisses. To close it is to dismiss
/// all that it lists; OK, a command without a button, closes it and leaves them alone.
class CcvMfcReminderAlertDialogInternal : public CcvMfcRemindersDialogInternal
{
  public:
    /// `manager` stays the caller's and outlives the dialog.
    CcvMfcReminderAlertDialogInternal(CcvReminderDataCollectionManager* manager, CWnd* pParentWnd);

    void HandleSysCommand(UINT nID, LPARAM lParam) override;
    void UpdateControls() override;
    /// Closes the dialog when nothing is due any more.
    void RefreshReminders() override;
    BOOL OnInitDialog() override;

  protected:
    void DoDataExchange(CDataExchange* exchange) override;
    void OnOK() override;
    void OnCancel() override;
    virtual void PlayAlertSound();

    void OnEnd();
    void OnSnooze(UINT command);
    void OnUpdateSnooze(CCmdUI* command);
    LRESULT OnShown(WPARAM wParam, LPARAM lParam);

    DECLARE_MESSAGE_MAP()

  private:
    void CreateSnoozeButton();
    void DismissListedReminders();

    std::unique_ptr<CcvSplitMenuButton> m_snoozeButton;
    bool m_isClosing = false;
};
