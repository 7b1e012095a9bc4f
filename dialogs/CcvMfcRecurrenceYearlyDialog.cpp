#include "dialogs/CcvMfcRecurrenceYearlyDialog.h"

#include "dialogs/FieldHeight.h"
#include "dialogs/RecurrencePane.h"
#include "module/LanguageText.h"
#include "module/ResourceScope.h"
#include "platform/mfc/afxdd_.h"
#include "platform/mfc/afxdtctl.h"
#include "reminders/LocalCalendar.h"
#include "resources/RecurrenceControls.h"
#include "resources/StringIds.h"

IMPLEMENT_DYNAMIC(CcvMfcRecurrenceYearlyDialog, CcvMfcDialogBaseInternal)

CcvMfcRecurrenceYearlyDialog::CcvMfcRecurrenceYearlyDialog(CWnd* parent)
    : CcvMfcDialogBaseInternal(IDD_RECURRENCE_YEARLY, parent)
{
    Initialize();
}

void CcvMfcRecurrenceYearlyDialog::Initialize()
{
    m_dayMonthIndex = m_startTime.GetMonth() - 1;
    m_dayTypeMonthIndex = m_dayMonthIndex;
    m_day = m_startTime.GetDay();
    m_ordinalIndex = ts::SuggestedOrdinalIndex(m_startTime);
    m_dayTypeIndex = ts::SuggestedDayTypeIndex(m_startTime);
}

EcvReminderYearlyOccurence CcvMfcRecurrenceYearlyDialog::GetYearlyOccurenceType() const
{
    return static_cast<EcvReminderYearlyOccurence>(m_occurrence);
}

void CcvMfcRecurrenceYearlyDialog::SetYearlyOccurenceType(EcvReminderYearlyOccurence type)
{
    m_occurrence = static_cast<int>(type);
}

EcvMonth CcvMfcRecurrenceYearlyDialog::GetYearlyReminderPattern1Month() const
{
    return static_cast<EcvMonth>(m_dayMonth);
}

void CcvMfcRecurrenceYearlyDialog::SetYearlyReminderPattern1Month(EcvMonth month)
{
    m_dayMonthIndex = ts::MonthIndexOf(month);
}

EcvReminderDayIntegralType CcvMfcRecurrenceYearlyDialog::GetYearlyReminderDayIntegralType() const
{
    return static_cast<EcvReminderDayIntegralType>(m_ordinalIndex);
}

void CcvMfcRecurrenceYearlyDialog::SetYearlyReminderDayIntegralType(EcvReminderDayIntegralType ordinal)
{
    m_ordinalIndex = static_cast<int>(ordinal);
}

void CcvMfcRecurrenceYearlyDialog::SetYearlyReminderDayType(long dayType)
{
    m_dayTypeIndex = ts::DayTypeIndexOf(dayType);
}

EcvMonth CcvMfcRecurrenceYearlyDialog::GetYearlyReminderPattern2Month() const
{
    return static_cast<EcvMonth>(m_dayTypeMonth);
}

void CcvMfcRecurrenceYearlyDialog::SetYearlyReminderPattern2Month(EcvMonth month)
{
    m_dayTypeMonthIndex = ts::MonthIndexOf(month);
}

void CcvMfcRecurrenceYearlyDialog::DoDataExchange(CDataExchange* exchange)
{
    const ts::ResourceScope scope;
    CcvMfcDialogBaseInternal::DoDataExchange(exchange);
    DDX_Control(exchange, IDC_YEARLY_DAY_MONTH, m_dayMonthNames);
    DDX_Control(exchange, IDC_YEARLY_DAY_TYPE_MONTH, m_dayTypeMonthNames);
    DDX_Control(exchange, IDC_YEARLY_ORDINAL, m_ordinals);
    DDX_Control(exchange, IDC_YEARLY_DAY_TYPE, m_dayTypes);
    ts::ExchangeRadio(exchange, IDC_YEARLY_ON_DAY, m_occurrence);
    ts::ExchangeEntry(exchange, IDC_YEARLY_DAY_MONTH, m_dayMonthIndex, m_dayMonth);
    DDX_Text(exchange, IDC_YEARLY_DAY, m_day);
    ts::ExchangeIndex(exchange, IDC_YEARLY_ORDINAL, m_ordinalIndex);
    ts::ExchangeEntry(exchange, IDC_YEARLY_DAY_TYPE, m_dayTypeIndex, m_dayType);
    ts::ExchangeEntry(exchange, IDC_YEARLY_DAY_TYPE_MONTH, m_dayTypeMonthIndex, m_dayTypeMonth);
    const bool isOnDay = GetYearlyOccurenceType() == EcvReminderYearlyOccurence::DayOfMonth;
    if (exchange->m_bSaveAndValidate != FALSE && isOnDay)
    {
        Validate(exchange);
    }
}

void CcvMfcRecurrenceYearlyDialog::Validate(CDataExchange* exchange) const
{
    constexpr int kLeapDay = 29;
    const bool isFebruary = GetYearlyReminderPattern1Month() == EcvMonth::February;
    const int days = isFebruary ? kLeapDay : ts::DaysInMonth(m_dayMonth, GetDueYear());
    if (m_day < 1)
    {
        ts::RefuseBelowOne(exchange, IDC_YEARLY_DAY);
    }
    if (m_day > days)
    {
        ts::Refuse(exchange, IDC_YEARLY_DAY, ts::FormatText(IDS_DAY_ABOVE_MAXIMUM, days));
    }
    if (isFebruary && m_day == kLeapDay)
    {
        ts::AskToAccept(exchange, IDC_YEARLY_DAY, ts::LoadText(IDS_LEAP_DAY));
    }
}

int CcvMfcRecurrenceYearlyDialog::GetDueYear() const
{
    CTime due;
    return m_dueDate != nullptr && m_dueDate->GetTime(due) != FALSE ? due.GetYear() : 0;
}

BOOL CcvMfcRecurrenceYearlyDialog::OnInitDialog()
{
    const ts::ResourceScope scope;
    const BOOL result = CcvMfcDialogBaseInternal::OnInitDialog();
    ts::FillMonths(m_dayMonthNames);
    ts::FillMonths(m_dayTypeMonthNames);
    ts::FillOrdinals(m_ordinals);
    ts::FillDayTypes(m_dayTypes);
    ts::FitComboBoxes(*this);
    m_messages.Register(m_hWnd);
    UpdateData(FALSE);
    return result;
}

void CcvMfcRecurrenceYearlyDialog::OnOK()
{
    ts::PassOkToOuterDialog(*this, m_messages);
}

void CcvMfcRecurrenceYearlyDialog::OnCancel()
{
    ts::PassToOuterDialog(*this, IDCANCEL);
}
