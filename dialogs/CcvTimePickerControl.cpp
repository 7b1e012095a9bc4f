#include "dialogs/CcvTimePickerControl.h"

#include <algorithm>
#include <bit>

namespace
{

constexpr UINT kSpinId = 1001;

} // namespace

BEGIN_MESSAGE_MAP(CcvTimePickerControl, CEdit)
ON_WM_LBUTTONDOWN()
ON_WM_LBUTTONDBLCLK()
ON_WM_CHAR()
ON_WM_KEYDOWN()
ON_WM_SETCURSOR()
ON_WM_PAINT()
ON_CONTROL_REFLECT(EN_CHANGE, OnChange)
ON_NOTIFY(UDN_DELTAPOS, kSpinId, OnSpin)
END_MESSAGE_MAP()

CcvTimePickerControl::CcvTimePickerControl(const ts::TimePickerLocale& locale) noexcept : m_fields(locale)
{
}

CcvTimePickerControl::~CcvTimePickerControl() = default;

BOOL CcvTimePickerControl::Attach(UINT editId, CWnd* parentDialog)
{
    if (!SubclassDlgItem(editId, parentDialog))
    {
        return FALSE;
    }
    CreateSpin();
    m_fields.SetFormat(ts::ReadTimeFormat());
    SetTime(CTime::GetCurrentTime());
    return TRUE;
}

void CcvTimePickerControl::CreateSpin()
{
    // Else the edit would paint its background over the arrows.
    ModifyStyle(0, WS_CLIPCHILDREN);
    CRect area;
    GetClientRect(area);
    area.left = area.right - std::min(GetSystemMetrics(SM_CXVSCROLL), area.Width() / 2);
    m_spin.Create(WS_CHILD | UDS_ALIGNRIGHT, area, this, kSpinId);
    // The control makes itself narrower than it was asked to be.
    m_spin.MoveWindow(area);
    m_spin.ShowWindow(SW_SHOW);
    // Where the value stands does not matter, only that both arrows can be pressed.
    m_spin.SetRange(0, 1);
    KeepTextLeftOf(area.left);
}

void CcvTimePickerControl::KeepTextLeftOf(int edge)
{
    CRect text;
    GetRect(text);
    text.right = std::min<int>(text.right, edge);
    SetRect(text);
    // An edit of a single line takes no rectangle, but margins.
    CRect taken;
    GetRect(taken);
    if (taken.right > edge)
    {
        CRect client;
        GetClientRect(client);
        SendMessage(EM_SETMARGINS, EC_RIGHTMARGIN, MAKELPARAM(0, client.right - edge));
    }
}

void CcvTimePickerControl::SetTime(const CTime& time)
{
    m_fields.SetTime(time);
    ShowText();
}

void CcvTimePickerControl::ShowText()
{
    SetWindowText(m_fields.GetText());
}

std::optional<ts::TimePickerField> CcvTimePickerControl::SelectedField() const
{
    ts::CharacterRange selection{};
    GetSel(selection.first, selection.end);
    return m_fields.FieldOf(selection);
}

void CcvTimePickerControl::Select(std::optional<ts::TimePickerField> field)
{
    const auto range = field ? m_fields.RangeOf(*field) : std::nullopt;
    if (range)
    {
        SetSel(range->first, range->end);
    }
}

void CcvTimePickerControl::Step(bool up)
{
    const ts::TimePickerField field = m_fields.Step(SelectedField(), up);
    ShowText();
    Select(field);
}

// The edit names the character whose left edge is nearest, which may be the one behind.
int CcvTimePickerControl::CharacterUnder(CPoint point) const
{
    const int nearest = CharFromPos(point);
    return nearest > 0 && point.x < LeftEdgeOf(nearest) ? nearest - 1 : nearest;
}

int CcvTimePickerControl::LeftEdgeOf(int character) const
{
    const CString text = m_fields.GetText();
    const int last = std::min(character, text.GetLength() - 1);
    const LRESULT position = SendMessage(EM_POSFROMCHAR, static_cast<WPARAM>(last));
    const int left = static_cast<short>(LOWORD(position));
    if (character == last)
    {
        return left;
    }
    CClientDC dc(m_hWnd);
    const ts::SelectedObject font(dc, GetFont());
    return left + dc.GetTextExtent(CString(&text.GetString()[last], 1)).cx;
}

void CcvTimePickerControl::OnLButtonDown(UINT /*flags*/, CPoint point)
{
    SetFocus();
    Select(m_fields.FieldAt(CharacterUnder(point)));
}

// A double click would select what is no field.
void CcvTimePickerControl::OnLButtonDblClk(UINT /*flags*/, CPoint /*point*/)
{
}

void CcvTimePickerControl::OnChar(UINT character, UINT /*repeats*/, UINT /*flags*/)
{
    const auto field = SelectedField();
    if (field && m_fields.Type(*field, static_cast<wchar_t>(character)))
    {
        ShowText();
        Select(field);
    }
}

void CcvTimePickerControl::OnKeyDown(UINT key, UINT repeats, UINT flags)
{
    switch (key)
    {
    case VK_LEFT:
        return Select(m_fields.Previous(SelectedField()));
    case VK_RIGHT:
        return Select(m_fields.Next(SelectedField()));
    case VK_UP:
        return Step(true);
    case VK_DOWN:
        return Step(false);
    case VK_PRIOR:
    case VK_NEXT:
    case VK_HOME:
    case VK_END:
    case VK_DELETE:
        return;
    default:
        CEdit::OnKeyDown(key, repeats, flags);
    }
}

// Only fields can be selected, so the mouse does not become a text cursor.
BOOL CcvTimePickerControl::OnSetCursor(CWnd* /*window*/, UINT /*hitTest*/, UINT /*message*/)
{
    return FALSE;
}

void CcvTimePickerControl::OnPaint()
{
    CEdit::OnPaint();
    // The system's edits may paint with the clipping of their parent, which does not spare their children.
    m_spin.Invalidate();
}

// The text changes with every step; the dialog asks for the time when it needs it.
void CcvTimePickerControl::OnChange()
{
}

void CcvTimePickerControl::OnSpin(NMHDR* header, LRESULT* result)
{
    const int delta = std::bit_cast<const NMUPDOWN*>(header)->iDelta;
    if (delta != 0)
    {
        Step(delta > 0);
    }
    *result = 0;
}
