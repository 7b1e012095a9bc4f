#include "dialogs/CcvMfcRecurrenceWeeklyDialog.h"

#include "dialogs/RecurrencePane.h"
#include "module/LanguageText.h"
#include "module/ResourceScope.h"
#include "platform/mfc/afxdd_.h"
#include "resources/RecurrenceControls.h"
#include "resources/StringIds.h"

#include <algorithm>

IMPLEMENT_DYNAMIC(CcvMfcRecurrenceWeeklyDialog, CcvMfcDialogBaseInternal)

CcvMfcRecurrenceWeeklyDialog::CcvMfcRecurrenceWeeklyDialog(CWnd* parent)
    : CcvMfcDialogBaseInternal(IDD_RECURRENCE_WEEKLY, parent)
{
    Initialize();
}

void CcvMfcRecurrenceWeeklyDialog::Initialize()
{
    const int dayOfWeek = m_startTime.GetDayOfWeek();
    if (dayOfWeek > 0)
    {
        m_days.at(static_cast<std::size_t>(dayOfWeek) - 1) = 1;
    }
}

void CcvMfcRecurrenceWeeklyDialog::DoDataExchange(CDataExchange* exchange)
{
    const ts::ResourceScope scope;
    CcvMfcDialogBaseInternal::DoDataExchange(exchange);
    DDX_Text(exchange, IDC_WEEKLY_NUMBER, m_number);
    int control = IDC_WEEKLY_SUNDAY;
    for (int& day : m_days)
    {
        DDX_Check(exchange, control, day);
        ++control;
    }
    if (exchange->m_bSaveAndValidate == FALSE)
    {
        return;
    }
    if (m_number < 1)
    {
        ts::RefuseBelowOne(exchange, IDC_WEEKLY_NUMBER);
    }
    if (std::ranges::count(m_days, 0) == kWeekdays)
    {
        AfxMessageBox(ts::LoadText(IDS_NO_DAY_OF_WEEK), MB_OK | MB_ICONEXCLAMATION);
        exchange->Fail();
    }
}

BOOL CcvMfcRecurrenceWeeklyDialog::OnInitDialog()
{
    const ts::ResourceScope scope;
    const BOOL result = CcvMfcDialogBaseInternal::OnInitDialog();
    m_messages.Register(m_hWnd);
    return result;
}

void CcvMfcRecurrenceWeeklyDialog::OnOK()
{
    ts::PassOkToOuterDialog(*this, m_messages);
}

void CcvMfcRecurrenceWeeklyDialog::OnCancel()
{
    ts::PassToOuterDialog(*this, IDCANCEL);
}
