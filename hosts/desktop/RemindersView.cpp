#include "RemindersView.h"

#include "ResourceIds.h"
#include "Texts.h"

#include <algorithm>
#include <array>
#include <bit>

namespace ts::desktop
{
namespace
{

struct Column
{
    ReminderColumn kind;
    UINT heading;
    /// Of the list's width, in hundredths.
    int share;
};
constexpr std::array<Column, 5> kColumns = {{{ReminderColumn::Subject, IDS_COLUMN_SUBJECT, 27},
                                             {ReminderColumn::Topic, IDS_COLUMN_TOPIC, 17},
                                             {ReminderColumn::Map, IDS_COLUMN_MAP, 16},
                                             {ReminderColumn::Due, IDS_COLUMN_DUE, 20},
                                             {ReminderColumn::DueIn, IDS_COLUMN_DUE_IN, 20}}};

constexpr UINT kSelectedAndFocused = LVIS_SELECTED | LVIS_FOCUSED;

/// The list is drawn once, when all its rows are there.
class RedrawPause
{
  public:
    explicit RedrawPause(CWnd& window) noexcept : m_window(window) { m_window.SetRedraw(FALSE); }
    RedrawPause(const RedrawPause&) = delete;
    RedrawPause& operator=(const RedrawPause&) = delete;
    ~RedrawPause()
    {
        m_window.SetRedraw(TRUE);
        m_window.Invalidate();
    }

  private:
    CWnd& m_window;
};

} // namespace

BEGIN_MESSAGE_MAP(RemindersView, CListCtrl)
ON_NOTIFY_REFLECT(LVN_COLUMNCLICK, OnColumnClick)
ON_NOTIFY_REFLECT(NM_CUSTOMDRAW, OnCustomDraw)
END_MESSAGE_MAP()

bool RemindersView::CreateIn(CWnd& parent, UINT id)
{
    // Without WS_CLIPSIBLINGS the list would draw over what lies on it.
    constexpr DWORD kStyle = WS_CHILD | WS_VISIBLE | WS_TABSTOP | WS_BORDER | WS_CLIPSIBLINGS | LVS_REPORT |
                             LVS_SINGLESEL | LVS_SHOWSELALWAYS;
    if (Create(kStyle, RECT{}, &parent, id) == FALSE)
    {
        return false;
    }
    // What a screen reader says where there is no label before the list.
    SetWindowText(Text(IDS_LIST_NAME).c_str());
    SetExtendedStyle(GetExtendedStyle() | LVS_EX_FULLROWSELECT | LVS_EX_DOUBLEBUFFER | LVS_EX_LABELTIP |
                     LVS_EX_HEADERDRAGDROP);
    InsertColumns();
    ShowOrder();
    return true;
}

void RemindersView::InsertColumns()
{
    int index = 0;
    for (const Column& column : kColumns)
    {
        InsertColumn(index++, Text(column.heading).c_str(), LVCFMT_LEFT, 100);
    }
}

void RemindersView::UseFont(const CFont& font)
{
    SetFont(&font);
    LOGFONTW description{};
    font.GetLogFont(&description);
    description.lfWeight = FW_BOLD;
    m_boldFont.CreateFontIndirect(&description);
}

void RemindersView::FitColumns()
{
    if (m_userSetWidths)
    {
        return;
    }
    RECT client;
    GetClientRect(&client);
    int left = client.right;
    int index = 0;
    for (const Column& column : kColumns)
    {
        const bool isLast = index + 1 == static_cast<int>(kColumns.size());
        const int width = isLast ? left : static_cast<int>(client.right) * column.share / 100;
        SetColumnWidth(index++, width);
        left -= width;
    }
}

// --- Rows ---

void RemindersView::Show(std::vector<ReminderRow> rows)
{
    const std::optional<ReminderIdentity> selected = GetSelected();
    const int formerRow = SelectedRow();
    const int top = GetTopIndex();
    SortRows(rows, m_sortColumn, m_descending);
    m_rows = std::move(rows);
    const RedrawPause pause(*this);
    Fill();
    // There may be a scroll bar now, or none any more.
    FitColumns();
    const int count = GetItemCount();
    int row = selected ? FindRow(*selected) : -1;
    if (row < 0)
    {
        row = std::min(std::max(formerRow, 0), count - 1);
    }
    if (count > 0)
    {
        // From below, so that the row that was on top is on top again.
        EnsureVisible(count - 1, FALSE);
        EnsureVisible(std::min(top, count - 1), FALSE);
    }
    SelectRow(row);
}

void RemindersView::Fill()
{
    DeleteAllItems();
    int row = 0;
    for (const ReminderRow& reminder : m_rows)
    {
        LVITEMW item{};
        item.iItem = row;
        InsertItem(item);
        for (const Column& column : kColumns)
        {
            SetItemText(row, static_cast<int>(column.kind), CellText(reminder, column.kind).c_str());
        }
        ++row;
    }
}

int RemindersView::FindRow(const ReminderIdentity& identity) const
{
    const auto found = std::ranges::find(m_rows, identity, &ReminderRow::identity);
    return found != m_rows.end() ? static_cast<int>(found - m_rows.begin()) : -1;
}

void RemindersView::SelectRow(int row)
{
    if (row >= 0)
    {
        SetItemState(row, kSelectedAndFocused, kSelectedAndFocused);
        EnsureVisible(row, FALSE);
    }
}

std::optional<ReminderIdentity> RemindersView::GetSelected() const
{
    const int row = SelectedRow();
    return row >= 0 && row < static_cast<int>(m_rows.size())
               ? std::optional(m_rows[static_cast<std::size_t>(row)].identity)
               : std::nullopt;
}

bool RemindersView::Select(const ReminderIdentity& identity)
{
    const int row = FindRow(identity);
    SelectRow(row);
    return row >= 0;
}

// --- Order ---

void RemindersView::OnColumnClick(NMHDR* notification, LRESULT*)
{
    const auto column = static_cast<ReminderColumn>(std::bit_cast<NMLISTVIEW*>(notification)->iSubItem);
    m_descending = column == m_sortColumn && !m_descending;
    m_sortColumn = column;
    ShowOrder();
    Show(std::vector<ReminderRow>(m_rows));
}

void RemindersView::ShowOrder()
{
    const HWND header = GetHeaderCtrl();
    for (const Column& column : kColumns)
    {
        const auto index = static_cast<WPARAM>(column.kind);
        HDITEMW item{};
        item.mask = HDI_FORMAT;
        ::SendMessageW(header, HDM_GETITEMW, index, std::bit_cast<LPARAM>(&item));
        item.fmt &= ~(HDF_SORTUP | HDF_SORTDOWN);
        if (column.kind == m_sortColumn)
        {
            item.fmt |= m_descending ? HDF_SORTDOWN : HDF_SORTUP;
        }
        ::SendMessageW(header, HDM_SETITEMW, index, std::bit_cast<LPARAM>(&item));
    }
}

// --- Notifications ---

BOOL RemindersView::OnNotify(WPARAM wParam, LPARAM lParam, LRESULT* result)
{
    const UINT code = std::bit_cast<NMHDR*>(lParam)->code;
    if (code == HDN_ENDTRACKW || code == HDN_ENDTRACKA || code == HDN_DIVIDERDBLCLICKW)
    {
        m_userSetWidths = true;
    }
    return CListCtrl::OnNotify(wParam, lParam, result);
}

/// What is due is bold; that it is due stands in its last column, too.
void RemindersView::OnCustomDraw(NMHDR* notification, LRESULT* result)
{
    auto& draw = *std::bit_cast<NMLVCUSTOMDRAW*>(notification);
    *result = CDRF_DODEFAULT;
    if (draw.nmcd.dwDrawStage == CDDS_PREPAINT)
    {
        *result = CDRF_NOTIFYITEMDRAW;
    }
    else if (draw.nmcd.dwDrawStage == CDDS_ITEMPREPAINT && draw.nmcd.dwItemSpec < m_rows.size() &&
             m_rows[draw.nmcd.dwItemSpec].isActive)
    {
        SelectObject(draw.nmcd.hdc, m_boldFont.GetHandle());
        *result = CDRF_NEWFONT;
    }
}

} // namespace ts::desktop
