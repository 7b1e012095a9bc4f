// How a reminder list draws its rows.

#include "dialogs/CcvMfcRemindersListControl.h"
#include "dialogs/ListImages.h"
#include "platform/ts/CcvGdiUtilities.h"

namespace
{

/// The colours of a row.
struct RowColours
{
    int background;
    int text;
};

RowColours ColoursOf(bool isSelected, bool hasFocus)
{
    if (!isSelected)
    {
        return {COLOR_WINDOW, COLOR_WINDOWTEXT};
    }
    return hasFocus ? RowColours{COLOR_HIGHLIGHT, COLOR_HIGHLIGHTTEXT}
                    : RowColours{COLOR_BTNFACE, COLOR_BTNTEXT};
}

UINT AlignmentOf(int format)
{
    switch (format & LVCFMT_JUSTIFYMASK)
    {
    case LVCFMT_RIGHT:
        return DT_RIGHT;
    case LVCFMT_CENTER:
        return DT_CENTER;
    default:
        return DT_LEFT;
    }
}

/// Whether a reminder of that status is shown bold: its reminder time has come, its due time has not.
bool IsActive(std::optional<CcvReminderData::ReminderStatus> status)
{
    return status && (*status == CcvReminderData::RemindActive || *status == CcvReminderData::DueTodayActive);
}

} // namespace

void CcvMfcRemindersListControl::DrawItem(DRAWITEMSTRUCT* item)
{
    CDC dc(item->hDC);
    const ts::SavedDC saved(dc);
    LVITEMW state{};
    state.mask = LVIF_IMAGE | LVIF_STATE;
    state.stateMask = 0xFFFF;
    state.iItem = static_cast<int>(item->itemID);
    CRect bounds;
    if (GetItem(&state) == FALSE || GetItemRect(state.iItem, &bounds, LVIR_BOUNDS) == FALSE)
    {
        return;
    }
    const bool isSelected = (state.state & (LVIS_SELECTED | LVIS_DROPHILITED)) != 0;
    const bool hasFocus = ::GetFocus() == m_hWnd;
    const RowColours colours = ColoursOf(isSelected, hasFocus);
    dc.FillRect(&bounds, GetSysColorBrush(colours.background));
    dc.SetTextColor(GetSysColor(colours.text));
    dc.SetBkMode(TRANSPARENT);

    const Row* const row = FindRow(state.iItem);
    const bool isBold = row != nullptr && IsActive(row->status);
    const RowLook look{state.iItem, state.iImage, state.state & LVIS_OVERLAYMASK, isSelected && hasFocus,
                       isBold ? GetBoldFont() : GetNormalFont()};
    CRect cell(bounds.left, bounds.top, bounds.left, bounds.bottom);
    for (int order = 0; order < m_header.GetItemCount(); ++order)
    {
        const int column = m_header.OrderToIndex(order);
        LVCOLUMNW description{};
        description.mask = LVCF_FMT | LVCF_WIDTH;
        if (GetColumn(column, &description) == FALSE)
        {
            break;
        }
        cell.right = cell.left + description.cx;
        DrawCell(dc, look, column, cell, description.fmt);
        cell.left = cell.right;
    }
    if (isSelected && GetSysColor(colours.background) == GetSysColor(COLOR_WINDOW))
    {
        // In schemes of high contrast nothing else would tell the row from the others.
        ::FrameRect(item->hDC, &bounds, GetSysColorBrush(COLOR_WINDOWTEXT));
    }
}

void CcvMfcRemindersListControl::DrawCell(CDC& dc, const RowLook& look, int column, const CRect& cell,
                                          int format)
{
    constexpr int kTextMargin = 5;
    constexpr UINT kTextFormat = DT_SINGLELINE | DT_VCENTER | DT_NOPREFIX | DT_NOCLIP | DT_END_ELLIPSIS;
    if (column < 0 || static_cast<std::size_t>(column) >= m_columns.size())
    {
        return;
    }
    if (IsColumn(column, ReminderColumn::Icon))
    {
        if (look.image >= 0)
        {
            m_images.Draw(&dc, look.image + (look.isHighlighted ? 1 : 0), cell.TopLeft(),
                          ILD_TRANSPARENT | look.overlay);
        }
        return;
    }
    CRect text(cell);
    text.DeflateRect(kTextMargin, 0);
    dc.SelectObject(look.font);
    dc.DrawText(GetItemText(look.row, column), &text, kTextFormat | AlignmentOf(format));
}

HFONT CcvMfcRemindersListControl::GetBoldFont()
{
    if (m_boldFont == nullptr)
    {
        m_boldFont = MakeFont(FW_BOLD);
    }
    return m_boldFont->GetHandle();
}

HFONT CcvMfcRemindersListControl::GetNormalFont()
{
    if (m_normalFont == nullptr)
    {
        m_normalFont = MakeFont(std::nullopt);
    }
    return m_normalFont->GetHandle();
}

std::unique_ptr<CFont> CcvMfcRemindersListControl::MakeFont(std::optional<LONG> weight) const
{
    HFONT const present = GetFont();
    LOGFONTW description{};
    GetObjectW(present != nullptr ? present : GetStockObject(SYSTEM_FONT), sizeof description, &description);
    description.lfWeight = weight.value_or(description.lfWeight);
    auto font = std::make_unique<CFont>();
    CcvGdiUtilities::CreateSafeFont(*font, description);
    return font;
}
