#include "platform/ts/CcvMfcEnhancedDialog.h"

IMPLEMENT_DYNAMIC(CcvMfcEnhancedDialog, CBCGPDialog)

void CcvMfcEnhancedDialogBase::OnScreenView(const CString&, EcvFeedbackType, EcvSendFeedback)
{
}

CcvMfcEnhancedDialog::CcvMfcEnhancedDialog(UINT nIDTemplate, CWnd* pParentWnd)
    : CBCGPDialog(nIDTemplate, pParentWnd)
{
}

BOOL CcvMfcEnhancedDialog::Create(UINT nIDTemplate, CWnd* pParentWnd)
{
    return CBCGPDialog::Create(nIDTemplate, pParentWnd);
}

INT_PTR CcvMfcEnhancedDialog::DoModal()
{
    return CBCGPDialog::DoModal();
}

BOOL CcvMfcEnhancedDialog::OnInitDialog()
{
    return CBCGPDialog::OnInitDialog();
}

void CcvMfcEnhancedDialog::SetScreenView(const CString& screenName, EcvFeedbackType type,
                                         EcvSendFeedback send)
{
    OnScreenView(screenName, type, send);
}
