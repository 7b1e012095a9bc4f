#include "dialogs/CcvMfcDeleteRecurrenceConfirmationDialog.h"

#include "module/ResourceScope.h"
#include "platform/mfc/afxdd_.h"
#include "platform/ts/CBCGPGlobalUtils.h"
#include "resources/RecurrenceControls.h"

#include <bit>

IMPLEMENT_DYNAMIC(CcvMfcDeleteRecurrenceConfirmationDialog, CcvMfcDialogBaseInternal)

CcvMfcDeleteRecurrenceConfirmationDialog::CcvMfcDeleteRecurrenceConfirmationDialog(CWnd* parent)
    : CcvMfcDialogBaseInternal(IDD_DELETE_RECURRENCE, parent)
{
}

void CcvMfcDeleteRecurrenceConfirmationDialog::DoDataExchange(CDataExchange* exchange)
{
    CcvMfcDialogBaseInternal::DoDataExchange(exchange);
    DDX_Radio(exchange, IDC_DELETE_INSTANCE, m_selection);
}

BOOL CcvMfcDeleteRecurrenceConfirmationDialog::OnInitDialog()
{
    const ts::ResourceScope scope;
    const BOOL result = CcvMfcDialogBaseInternal::OnInitDialog();
    const HICON icon = globalUtils.GetCommonIcon(*this, IDI_EXCLAMATION, CBCGPGlobalUtils::kLargeIcon);
    ::SendDlgItemMessageW(m_hWnd, IDC_DELETE_ICON, STM_SETICON, std::bit_cast<WPARAM>(icon), 0);
    CenterWindow();
    return result;
}
