#include "platform/mfc/afxdd_.h"

#include "platform/mfc/afxdtctl.h"

#include <bit>
#include <cerrno>
#include <cwchar>
#include <cwctype>
#include <limits>
#include <optional>
#include <string>

HWND CDataExchange::PrepareCtrl(int id)
{
    const HWND control = GetDlgItem(m_pDlgWnd->m_hWnd, id);
    if (control == nullptr)
    {
        throw CNotSupportedException();
    }
    m_lastControl = control;
    m_lastIsEdit = false;
    return control;
}

HWND CDataExchange::PrepareEditCtrl(int id)
{
    const HWND control = PrepareCtrl(id);
    m_lastIsEdit = true;
    return control;
}

void CDataExchange::Fail()
{
    if (m_bSaveAndValidate != FALSE && m_lastControl != nullptr)
    {
        SetFocus(m_lastControl);
        if (m_lastIsEdit)
        {
            ::SendMessageW(m_lastControl, EM_SETSEL, 0, -1);
        }
    }
    throw CUserException();
}

void DDX_Control(CDataExchange* exchange, int id, CWnd& control)
{
    if (control.m_hWnd == nullptr && control.SubclassWindow(exchange->PrepareCtrl(id)) == FALSE)
    {
        throw CNotSupportedException();
    }
}

void DDX_Text(CDataExchange* exchange, int id, CString& value)
{
    const HWND control = exchange->PrepareEditCtrl(id);
    if (exchange->m_bSaveAndValidate != FALSE)
    {
        exchange->m_pDlgWnd->GetDlgItemText(id, value);
    }
    else
    {
        ::SetWindowTextW(control, value);
    }
}

namespace
{

std::optional<int> TryParse(const CString& text)
{
    wchar_t* end = nullptr;
    errno = 0;
    const long long number = std::wcstoll(text, &end, 10);
    const bool isNumber = end != text.GetString();
    while (std::iswspace(*end) != 0)
    {
        ++end;
    }
    using Limits = std::numeric_limits<int>;
    if (!isNumber || *end != L'\0' || errno == ERANGE || number < Limits::min() || number > Limits::max())
    {
        return std::nullopt;
    }
    return static_cast<int>(number);
}

bool IsRadioButton(HWND control)
{
    return (::SendMessageW(control, WM_GETDLGCODE, 0, 0) & DLGC_RADIOBUTTON) != 0;
}

bool BeginsGroup(HWND control)
{
    return (GetWindowLongPtrW(control, GWL_STYLE) & WS_GROUP) != 0;
}

} // namespace

void DDX_Text(CDataExchange* exchange, int id, int& value)
{
    const HWND control = exchange->PrepareEditCtrl(id);
    if (exchange->m_bSaveAndValidate == FALSE)
    {
        ::SetWindowTextW(control, std::to_wstring(value).c_str());
        return;
    }
    CString text;
    exchange->m_pDlgWnd->GetDlgItemText(id, text);
    const std::optional<int> number = TryParse(text);
    if (!number)
    {
        AfxMessageBox(AFX_IDP_PARSE_INT, MB_OK | MB_ICONEXCLAMATION);
        exchange->Fail();
    }
    value = *number;
}

void DDX_Check(CDataExchange* exchange, int id, int& value)
{
    const HWND control = exchange->PrepareCtrl(id);
    if (exchange->m_bSaveAndValidate != FALSE)
    {
        value = static_cast<int>(::SendMessageW(control, BM_GETCHECK, 0, 0));
    }
    else
    {
        const bool known = value >= BST_UNCHECKED && value <= BST_INDETERMINATE;
        ::SendMessageW(control, BM_SETCHECK, static_cast<WPARAM>(known ? value : BST_CHECKED), 0);
    }
}

void DDX_Radio(CDataExchange* exchange, int id, int& value)
{
    HWND control = exchange->PrepareCtrl(id);
    const bool saves = exchange->m_bSaveAndValidate != FALSE;
    int index = 0;
    int checked = -1;
    do
    {
        if (IsRadioButton(control))
        {
            if (!saves)
            {
                ::SendMessageW(control, BM_SETCHECK, index == value ? BST_CHECKED : BST_UNCHECKED, 0);
            }
            else if (::SendMessageW(control, BM_GETCHECK, 0, 0) != BST_UNCHECKED)
            {
                checked = index;
            }
            ++index;
        }
        control = GetWindow(control, GW_HWNDNEXT);
    } while (control != nullptr && !BeginsGroup(control));
    if (saves)
    {
        value = checked;
    }
}

void DDX_CBIndex(CDataExchange* exchange, int id, int& value)
{
    const HWND control = exchange->PrepareCtrl(id);
    if (exchange->m_bSaveAndValidate != FALSE)
    {
        value = static_cast<int>(::SendMessageW(control, CB_GETCURSEL, 0, 0));
    }
    else
    {
        ::SendMessageW(control, CB_SETCURSEL, static_cast<WPARAM>(value), 0);
    }
}

void DDX_DateTimeCtrl(CDataExchange* exchange, int id, CTime& value)
{
    const HWND control = exchange->PrepareCtrl(id);
    if (exchange->m_bSaveAndValidate == FALSE)
    {
        CDateTimeCtrl::SetTimeOf(control, value);
    }
    else if (const auto shown = CDateTimeCtrl::TimeOf(control))
    {
        value = *shown;
    }
    else
    {
        exchange->Fail();
    }
}
