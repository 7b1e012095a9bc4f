#pragma once

#include "dialogs/CcvMfcDialogBaseInternal.h"

/// The question before a recurring reminder is deleted: only this occurrence, or the whole series. Shown with
/// DoModal; the answer counts when that returned IDOK.
class TS_API CcvMfcDeleteRecurrenceConfirmationDialog : public CcvMfcDialogBaseInternal
{
    DECLARE_DYNAMIC(CcvMfcDeleteRecurrenceConfirmationDialog)

  public:
    explicit CcvMfcDeleteRecurrenceConfirmationDialog(CWnd* parent = nullptr);

    /// At first and after Cancel what it was before; always the opposite of IsDeletingSeries.
    [[nodiscard]] bool IsDeletingInstance() const { return m_selection == 0; }
    [[nodiscard]] bool IsDeletingSeries() const { return m_selection != 0; }

    void DoDataExchange(CDataExchange* exchange) override;
    BOOL OnInitDialog() override;

  private:
    int m_selection = 0;
};
