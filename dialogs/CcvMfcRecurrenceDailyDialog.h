#pragma once

#include "dialogs/CcvMfcDialogBaseInternal.h"
#include "dialogs/DialogMessageHook.h"
#include "reminders/CcvReminderData.h"

/// The pane in which the user sets a daily pattern; a child of the add-reminder dialog. It knows nothing of
/// records: setters fill it before it is shown or exchanges data, getters tell what the last exchange read.
class TS_API CcvMfcRecurrenceDailyDialog : public CcvMfcDialogBaseInternal
{
    DECLARE_DYNAMIC(CcvMfcRecurrenceDailyDialog)

  public:
    explicit CcvMfcRecurrenceDailyDialog(CWnd* parent = nullptr);

    [[nodiscard]] EcvReminderDailyOccurence GetDailyOccurenceType() const;
    void SetDailyOccurenceType(EcvReminderDailyOccurence type);
    /// Every how many days.
    [[nodiscard]] int GetDailyNumber() const { return m_number; }
    void SetDailyNumber(int days) { m_number = days; }

    /// Refuses less than one day, unless it is every weekday.
    void DoDataExchange(CDataExchange* exchange) override;
    BOOL OnInitDialog() override;
    /// Goes to the dialog around: the pane does not end itself.
    void OnOK() override;

  protected:
    /// Goes there too.
    void OnCancel() override;

  private:
    int m_occurrence = 0;
    int m_number = 1;
    ts::DialogMessageRegistration m_messages;
};
