#include "dialogs/CcvMfcRecurrenceDailyDialog.h"

#include "dialogs/RecurrencePane.h"
#include "module/ResourceScope.h"
#include "platform/mfc/afxdd_.h"
#include "resources/RecurrenceControls.h"

IMPLEMENT_DYNAMIC(CcvMfcRecurrenceDailyDialog, CcvMfcDialogBaseInternal)

CcvMfcRecurrenceDailyDialog::CcvMfcRecurrenceDailyDialog(CWnd* parent)
    : CcvMfcDialogBaseInternal(IDD_RECURRENCE_DAILY, parent)
{
}

EcvReminderDailyOccurence CcvMfcRecurrenceDailyDialog::GetDailyOccurenceType() const
{
    return static_cast<EcvReminderDailyOccurence>(m_occurrence);
}

void CcvMfcRecurrenceDailyDialog::SetDailyOccurenceType(EcvReminderDailyOccurence type)
{
    m_occurrence = static_cast<int>(type);
}

void CcvMfcRecurrenceDailyDialog::DoDataExchange(CDataExchange* exchange)
{
    const ts::ResourceScope scope;
    CcvMfcDialogBaseInternal::DoDataExchange(exchange);
    ts::ExchangeRadio(exchange, IDC_DAILY_EVERY_N_DAYS, m_occurrence);
    DDX_Text(exchange, IDC_DAILY_NUMBER, m_number);
    const bool isEveryNDays = GetDailyOccurenceType() == EcvReminderDailyOccurence::EveryNDays;
    if (exchange->m_bSaveAndValidate != FALSE && isEveryNDays && m_number < 1)
    {
        ts::RefuseBelowOne(exchange, IDC_DAILY_NUMBER);
    }
}

BOOL CcvMfcRecurrenceDailyDialog::OnInitDialog()
{
    const ts::ResourceScope scope;
    const BOOL result = CcvMfcDialogBaseInternal::OnInitDialog();
    m_messages.Register(m_hWnd);
    return result;
}

void CcvMfcRecurrenceDailyDialog::OnOK()
{
    ts::PassOkToOuterDialog(*this, m_messages);
}

void CcvMfcRecurrenceDailyDialog::OnCancel()
{
    ts::PassToOuterDialog(*this, IDCANCEL);
}
