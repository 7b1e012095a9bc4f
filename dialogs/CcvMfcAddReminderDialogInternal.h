#pragma once

#include "dialogs/CcvTimePickerControl.h"
#include "dialogs/RecurrencePanes.h"
#include "platform/mfc/afxdtctl.h"
#include "platform/ts/CcvAutoCompleteEditCtrl.h"

#include <memory>

/// The window of CcvMfcAddReminderDialog, which says what its operations do.
class CcvMfcAddReminderDialogInternal : public CcvMfcDialogBaseInternal
{
    DECLARE_DYNAMIC(CcvMfcAddReminderDialogInternal)

  public:
    explicit CcvMfcAddReminderDialogInternal(CWnd* parent);

    [[nodiscard]] CcvReminderData* GetReminderData();
    void UpdateReminderData(const CcvReminderData& record);
    void SetDialogCaption(const CString& caption);

    BOOL OnInitDialog() override;

  protected:
    void DoDataExchange(CDataExchange* exchange) override;
    void OnOK() override;
    void OnToggleRecurrence();
    void OnKindChosen();
    void OnLeadTimeEntered();
    void OnLeadTimeLeft();

    DECLARE_MESSAGE_MAP()

  private:
    void ApplyCaption();
    void AttachControls();
    void CreatePanes();
    void LayOut();
    [[nodiscard]] int ChosenKind() const;

    void ExchangeLeadTime(CDataExchange* exchange);
    void ExchangeRecurrence(CDataExchange* exchange);
    void ExchangeDueTime(CDataExchange* exchange);
    /// Raises COleException when there is no such due time.
    void Fill(CcvReminderData& record) const;

    std::unique_ptr<CcvReminderData> m_record;
    CString m_caption;
    CString m_subject;
    CTimeSpan m_leadTime;
    CTime m_date;
    CTime m_time;
    int m_kind;
    bool m_sectionShown = false;
    bool m_paneAccepted = false; ///< in the OK that is under way
    CComboBox m_leadTimeControl;
    CcvAutoCompleteEditCtrl m_subjectControl;
    CDateTimeCtrl m_dateControl;
    CcvTimePickerControl m_timeControl;
    ts::RecurrencePanes m_panes{m_dateControl};
};
