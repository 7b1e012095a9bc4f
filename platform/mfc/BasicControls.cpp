#include "platform/mfc/BasicControls.h"

#include <bit>
#include <string>

IMPLEMENT_DYNAMIC(CStatic, CWnd)
IMPLEMENT_DYNAMIC(CButton, CWnd)
IMPLEMENT_DYNAMIC(CEdit, CWnd)
IMPLEMENT_DYNAMIC(CComboBox, CWnd)

HICON CStatic::SetIcon(HICON icon)
{
    return std::bit_cast<HICON>(SendMessage(STM_SETICON, std::bit_cast<WPARAM>(icon)));
}

void CEdit::GetSel(int& start, int& end) const
{
    DWORD first = 0;
    DWORD behind = 0;
    SendMessage(EM_GETSEL, std::bit_cast<WPARAM>(&first), std::bit_cast<LPARAM>(&behind));
    start = static_cast<int>(first);
    end = static_cast<int>(behind);
}

void CEdit::SetSel(int start, int end, BOOL noScroll)
{
    SendMessage(EM_SETSEL, static_cast<WPARAM>(start), end);
    if (noScroll == FALSE)
    {
        SendMessage(EM_SCROLLCARET);
    }
}

void CEdit::GetRect(RECT* rect) const
{
    SendMessage(EM_GETRECT, 0, std::bit_cast<LPARAM>(rect));
}

void CEdit::SetRect(const RECT* rect)
{
    SendMessage(EM_SETRECT, 0, std::bit_cast<LPARAM>(rect));
}

int CEdit::CharFromPos(CPoint point) const
{
    return static_cast<short>(LOWORD(SendMessage(EM_CHARFROMPOS, 0, MAKELPARAM(point.x, point.y))));
}

int CComboBox::AddString(const wchar_t* text)
{
    return static_cast<int>(SendMessage(CB_ADDSTRING, 0, std::bit_cast<LPARAM>(text)));
}

int CComboBox::InsertString(int index, const wchar_t* text)
{
    return static_cast<int>(
        SendMessage(CB_INSERTSTRING, static_cast<WPARAM>(index), std::bit_cast<LPARAM>(text)));
}

int CComboBox::SetItemData(int index, DWORD_PTR data)
{
    return static_cast<int>(
        SendMessage(CB_SETITEMDATA, static_cast<WPARAM>(index), static_cast<LPARAM>(data)));
}

DWORD_PTR CComboBox::GetItemData(int index) const
{
    return static_cast<DWORD_PTR>(SendMessage(CB_GETITEMDATA, static_cast<WPARAM>(index)));
}

void CComboBox::GetLBText(int index, CString& text) const
{
    text.Empty();
    const LRESULT length = SendMessage(CB_GETLBTEXTLEN, static_cast<WPARAM>(index));
    if (length != CB_ERR)
    {
        std::wstring entry(static_cast<std::size_t>(length) + 1, L'\0');
        SendMessage(CB_GETLBTEXT, static_cast<WPARAM>(index), std::bit_cast<LPARAM>(entry.data()));
        text = entry.c_str();
    }
}
