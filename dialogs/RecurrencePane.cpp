#include "dialogs/RecurrencePane.h"

#include "module/LanguageText.h"
#include "platform/mfc/afxdd_.h"
#include "platform/mfc/atltime.h"
#include "reminders/CcvReminderDataUtilities.h"
#include "resources/StringIds.h"

namespace
{

constexpr int kNothingSelected = -1;
constexpr unsigned kMonths = 12;

int Append(CComboBox& combo, unsigned textId)
{
    return combo.InsertString(combo.GetCount(), ts::LoadText(textId));
}

void Append(CComboBox& combo, unsigned textId, EcvReminderDayType dayType)
{
    combo.SetItemData(Append(combo, textId), static_cast<DWORD_PTR>(dayType));
}

/// Whether the weekdays of the combo boxes begin with Monday.
bool IsSundayLast()
{
    const CString language = ts::LoadText(IDS_LANGUAGE_CODE);
    return language == L"fr" || language == L"de";
}

} // namespace

void ts::PassToOuterDialog(const CWnd& pane, UINT command)
{
    ::SendMessageW(::GetParent(pane.m_hWnd), WM_COMMAND, command, 0);
}

void ts::PassOkToOuterDialog(const CWnd& pane, DialogMessageRegistration& messages)
{
    const HWND window = pane.m_hWnd;
    PassToOuterDialog(pane, IDOK);
    // The dialog may have destroyed the pane, and its registration with it.
    if (IsWindow(window) != FALSE)
    {
        messages.Remove();
    }
}

void ts::FillMonths(CComboBox& combo)
{
    for (unsigned month = 0; month < kMonths; ++month)
    {
        combo.SetItemData(Append(combo, IDS_JANUARY + month), month + 1);
    }
    combo.SetCurSel(0);
}

void ts::FillOrdinals(CComboBox& combo)
{
    for (const unsigned text : {IDS_FIRST, IDS_SECOND, IDS_THIRD, IDS_FOURTH, IDS_LAST})
    {
        Append(combo, text);
    }
    combo.SetCurSel(0);
}

void ts::FillDayTypes(CComboBox& combo)
{
    const bool isSundayLast = IsSundayLast();
    Append(combo, IDS_DAY, EcvReminderDayType::Day);
    Append(combo, IDS_WEEKDAY, EcvReminderDayType::Weekday);
    Append(combo, IDS_WEEKEND_DAY, EcvReminderDayType::WeekendDay);
    if (!isSundayLast)
    {
        Append(combo, IDS_SUNDAY, EcvReminderDayType::Sunday);
    }
    Append(combo, IDS_MONDAY, EcvReminderDayType::Monday);
    Append(combo, IDS_TUESDAY, EcvReminderDayType::Tuesday);
    Append(combo, IDS_WEDNESDAY, EcvReminderDayType::Wednesday);
    Append(combo, IDS_THURSDAY, EcvReminderDayType::Thursday);
    Append(combo, IDS_FRIDAY, EcvReminderDayType::Friday);
    Append(combo, IDS_SATURDAY, EcvReminderDayType::Saturday);
    if (isSundayLast)
    {
        Append(combo, IDS_SUNDAY, EcvReminderDayType::Sunday);
    }
}

int ts::DayTypeIndexOf(long dayType)
{
    CAtlArray<EcvReminderDayType> dayTypes;
    CcvReminderDataUtilities::GetDayTypeArray(&dayTypes);
    for (std::size_t index = 0; index < dayTypes.GetCount(); ++index)
    {
        if (static_cast<long>(dayTypes[index]) == dayType)
        {
            return static_cast<int>(index);
        }
    }
    return 0;
}

int ts::MonthIndexOf(EcvMonth month) noexcept
{
    return month >= EcvMonth::January && month <= EcvMonth::December ? static_cast<int>(month) - 1 : 0;
}

int ts::SuggestedOrdinalIndex(const CTime& start) noexcept
{
    constexpr int kDaysPerWeek = 7;
    return start.GetDay() / kDaysPerWeek;
}

int ts::SuggestedDayTypeIndex(const CTime& start)
{
    // Three entries come before Sunday, which is day 1, and two before Monday.
    return start.GetDayOfWeek() + (IsSundayLast() ? 1 : 2);
}

void ts::ExchangeRadio(CDataExchange* exchange, int id, int& index)
{
    DDX_Radio(exchange, id, index);
    if (exchange->m_bSaveAndValidate == FALSE)
    {
        int shown = kNothingSelected;
        CDataExchange reading(exchange->m_pDlgWnd, TRUE);
        DDX_Radio(&reading, id, shown);
        if (shown == kNothingSelected)
        {
            exchange->m_pDlgWnd->CheckDlgButton(id, BST_CHECKED);
        }
    }
}

void ts::ExchangeIndex(CDataExchange* exchange, int id, int& index)
{
    DDX_CBIndex(exchange, id, index);
    const HWND combo = exchange->PrepareCtrl(id);
    if (exchange->m_bSaveAndValidate == FALSE && ::SendMessageW(combo, CB_GETCURSEL, 0, 0) == CB_ERR)
    {
        ::SendMessageW(combo, CB_SETCURSEL, 0, 0);
    }
}

void ts::ExchangeEntry(CDataExchange* exchange, int id, int& index, int& data)
{
    ExchangeIndex(exchange, id, index);
    data = static_cast<int>(
        ::SendMessageW(exchange->PrepareCtrl(id), CB_GETITEMDATA, static_cast<WPARAM>(index), 0));
}

void ts::Refuse(CDataExchange* exchange, int editId, const wchar_t* why)
{
    AfxMessageBox(why, MB_OK | MB_ICONEXCLAMATION);
    exchange->PrepareEditCtrl(editId);
    exchange->Fail();
}

void ts::RefuseBelowOne(CDataExchange* exchange, int editId)
{
    Refuse(exchange, editId, LoadText(IDS_NUMBER_BELOW_ONE));
}

void ts::AskToAccept(CDataExchange* exchange, int editId, const wchar_t* question)
{
    if (AfxMessageBox(question, MB_OKCANCEL | MB_ICONEXCLAMATION) != IDOK)
    {
        exchange->PrepareEditCtrl(editId);
        exchange->Fail();
    }
}
