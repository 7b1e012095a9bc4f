#pragma once

#include "platform/mfc/DrawnControl.h"

// The controls that the system has always had. An object is attached to one of a dialog's or creates its own.

class TS_API CStatic : public ts::DrawnControl
{
    DECLARE_DYNAMIC(CStatic)

  public:
    using CWnd::Create;
    BOOL Create(const wchar_t* text, DWORD style, const RECT& rect, CWnd* parent, UINT id = 0xFFFF)
    {
        return Create(L"STATIC", text, style, rect, parent, id);
    }
    HICON SetIcon(HICON icon);
};

class TS_API CButton : public ts::DrawnControl
{
    DECLARE_DYNAMIC(CButton)

  public:
    using CWnd::Create;
    virtual BOOL Create(const wchar_t* caption, DWORD style, const RECT& rect, CWnd* parent, UINT id)
    {
        return Create(L"BUTTON", caption, style, rect, parent, id);
    }
    [[nodiscard]] int GetCheck() const { return static_cast<int>(SendMessage(BM_GETCHECK)); }
    void SetCheck(int check) { SendMessage(BM_SETCHECK, static_cast<WPARAM>(check)); }
};

class TS_API CEdit : public CWnd
{
    DECLARE_DYNAMIC(CEdit)

  public:
    using CWnd::Create;
    BOOL Create(DWORD style, const RECT& rect, CWnd* parent, UINT id)
    {
        return Create(L"EDIT", L"", style, rect, parent, id);
    }
    /// The first selected character and the one behind the last.
    void GetSel(int& start, int& end) const;
    void SetSel(int start, int end, BOOL noScroll = FALSE);
    void LimitText(int characters = 0) { SendMessage(EM_LIMITTEXT, static_cast<WPARAM>(characters)); }
    /// The rectangle that the text is laid out in. Single-line edits let it be set only where the system
    /// allows.
    void GetRect(RECT* rect) const;
    void SetRect(const RECT* rect);
    /// The index of the character nearest to a point of the client area.
    [[nodiscard]] int CharFromPos(CPoint point) const;
};

class TS_API CComboBox : public CWnd
{
    DECLARE_DYNAMIC(CComboBox)

  public:
    [[nodiscard]] int GetCount() const { return static_cast<int>(SendMessage(CB_GETCOUNT)); }
    [[nodiscard]] int GetCurSel() const { return static_cast<int>(SendMessage(CB_GETCURSEL)); }
    int SetCurSel(int index)
    {
        return static_cast<int>(SendMessage(CB_SETCURSEL, static_cast<WPARAM>(index)));
    }
    /// The index of the new entry.
    int AddString(const wchar_t* text);
    int InsertString(int index, const wchar_t* text);
    int SetItemData(int index, DWORD_PTR data);
    [[nodiscard]] DWORD_PTR GetItemData(int index) const;
    /// The text of an entry, empty when there is no such entry.
    void GetLBText(int index, CString& text) const;
};
