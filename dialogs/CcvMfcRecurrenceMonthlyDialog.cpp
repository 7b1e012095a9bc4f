#include "dialogs/CcvMfcRecurrenceMonthlyDialog.h"

#include "dialogs/FieldHeight.h"
#include "dialogs/RecurrencePane.h"
#include "module/LanguageText.h"
#include "module/ResourceScope.h"
#include "platform/mfc/afxdd_.h"
#include "resources/RecurrenceControls.h"
#include "resources/StringIds.h"

IMPLEMENT_DYNAMIC(CcvMfcRecurrenceMonthlyDialog, CcvMfcDialogBaseInternal)

CcvMfcRecurrenceMonthlyDialog::CcvMfcRecurrenceMonthlyDialog(CWnd* parent)
    : CcvMfcDialogBaseInternal(IDD_RECURRENCE_MONTHLY, parent)
{
    Initialize();
}

void CcvMfcRecurrenceMonthlyDialog::Initialize()
{
    m_day = m_startTime.GetDay();
    m_ordinalIndex = ts::SuggestedOrdinalIndex(m_startTime);
    m_dayTypeIndex = ts::SuggestedDayTypeIndex(m_startTime);
}

EcvReminderMonthlyOccurence CcvMfcRecurrenceMonthlyDialog::GetMonthlyOccurenceType() const
{
    return static_cast<EcvReminderMonthlyOccurence>(m_occurrence);
}

void CcvMfcRecurrenceMonthlyDialog::SetMonthlyOccurenceType(EcvReminderMonthlyOccurence type)
{
    m_occurrence = static_cast<int>(type);
}

EcvReminderDayIntegralType CcvMfcRecurrenceMonthlyDialog::GetMonthlyReminderDayIntegralType() const
{
    return static_cast<EcvReminderDayIntegralType>(m_ordinalIndex);
}

void CcvMfcRecurrenceMonthlyDialog::SetMonthlyReminderDayIntegralType(EcvReminderDayIntegralType ordinal)
{
    m_ordinalIndex = static_cast<int>(ordinal);
}

void CcvMfcRecurrenceMonthlyDialog::SetMonthlyReminderDayType(long dayType)
{
    m_dayTypeIndex = ts::DayTypeIndexOf(dayType);
}

void CcvMfcRecurrenceMonthlyDialog::DoDataExchange(CDataExchange* exchange)
{
    const ts::ResourceScope scope;
    CcvMfcDialogBaseInternal::DoDataExchange(exchange);
    DDX_Control(exchange, IDC_MONTHLY_ORDINAL, m_ordinals);
    DDX_Control(exchange, IDC_MONTHLY_DAY_TYPE, m_dayTypes);
    ts::ExchangeRadio(exchange, IDC_MONTHLY_ON_DAY, m_occurrence);
    DDX_Text(exchange, IDC_MONTHLY_DAY, m_day);
    DDX_Text(exchange, IDC_MONTHLY_DAY_MONTHS, m_dayMonths);
    ts::ExchangeIndex(exchange, IDC_MONTHLY_ORDINAL, m_ordinalIndex);
    ts::ExchangeEntry(exchange, IDC_MONTHLY_DAY_TYPE, m_dayTypeIndex, m_dayType);
    DDX_Text(exchange, IDC_MONTHLY_DAY_TYPE_MONTHS, m_dayTypeMonths);
    if (exchange->m_bSaveAndValidate != FALSE)
    {
        Validate(exchange);
    }
}

void CcvMfcRecurrenceMonthlyDialog::Validate(CDataExchange* exchange) const
{
    constexpr int kShortestMonth = 28;
    constexpr int kLongestMonth = 31;
    if (GetMonthlyOccurenceType() == EcvReminderMonthlyOccurence::OrdinalDayType)
    {
        if (m_dayTypeMonths < 1)
        {
            ts::RefuseBelowOne(exchange, IDC_MONTHLY_DAY_TYPE_MONTHS);
        }
        return;
    }
    if (m_day < 1)
    {
        ts::RefuseBelowOne(exchange, IDC_MONTHLY_DAY);
    }
    if (m_dayMonths < 1)
    {
        ts::RefuseBelowOne(exchange, IDC_MONTHLY_DAY_MONTHS);
    }
    if (m_day > kLongestMonth)
    {
        ts::Refuse(exchange, IDC_MONTHLY_DAY, ts::FormatText(IDS_DAY_ABOVE_MAXIMUM, kLongestMonth));
    }
    if (m_day > kShortestMonth)
    {
        ts::AskToAccept(exchange, IDC_MONTHLY_DAY, ts::FormatText(IDS_DAY_NOT_IN_EVERY_MONTH, m_day));
    }
}

BOOL CcvMfcRecurrenceMonthlyDialog::OnInitDialog()
{
    const ts::ResourceScope scope;
    const BOOL result = CcvMfcDialogBaseInternal::OnInitDialog();
    ts::FillOrdinals(m_ordinals);
    ts::FillDayTypes(m_dayTypes);
    ts::FitComboBoxes(*this);
    m_messages.Register(m_hWnd);
    UpdateData(FALSE);
    return result;
}

void CcvMfcRecurrenceMonthlyDialog::OnOK()
{
    ts::PassOkToOuterDialog(*this, m_messages);
}

void CcvMfcRecurrenceMonthlyDialog::OnCancel()
{
    ts::PassToOuterDialog(*this, IDCANCEL);
}
