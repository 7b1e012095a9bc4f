#include "dialogs/CcvMfcRemindersListControl.h"

#include "collection/CcvReminderDataCollectionManager.h"
#include "dialogs/HostApplication.h"
#include "dialogs/ListImages.h"
#include "dialogs/ReminderOrder.h"
#include "dialogs/ReminderTimes.h"
#include "module/CcvReminderOptionUtilities.h"
#include "module/LanguageText.h"
#include "module/ResourceScope.h"
#include "resources/PictureIds.h"
#include "resources/StringIds.h"

#include <algorithm>
#include <bit>
#include <limits>

namespace
{

constexpr UINT_PTR kMinuteTimer = 1001;
constexpr UINT kMinuteMilliseconds = 60'000;
constexpr UINT kSelectedAndFocused = LVIS_SELECTED | LVIS_FOCUSED;

/// What a list view takes for "no image" here: there is nobody who answers its question for one.
constexpr int kNoImage = -1;

/// Nothing of a window is drawn while it lives.
class DrawingLock
{
  public:
    explicit DrawingLock(CWnd& window) noexcept { window.LockWindowUpdate(); }
    DrawingLock(const DrawingLock&) = delete;
    DrawingLock& operator=(const DrawingLock&) = delete;
    ~DrawingLock() { CWnd::UnlockWindowUpdate(); }
};

/// A window neither draws nor moves its scroll bars while it lives; a list view does the latter for each row
/// that is added, which costs more than all else.
class RedrawPause
{
  public:
    explicit RedrawPause(CWnd& window) noexcept : m_window(window) { m_window.SetRedraw(FALSE); }
    RedrawPause(const RedrawPause&) = delete;
    RedrawPause& operator=(const RedrawPause&) = delete;
    ~RedrawPause() { m_window.SetRedraw(TRUE); }

  private:
    CWnd& m_window;
};

/// Stops the minute timer while it lives, so that the minute begins when the work of the last one is done.
class TimerPause
{
  public:
    explicit TimerPause(CWnd& window) noexcept : m_window(window) { m_window.KillTimer(kMinuteTimer); }
    TimerPause(const TimerPause&) = delete;
    TimerPause& operator=(const TimerPause&) = delete;
    ~TimerPause() { m_window.SetTimer(kMinuteTimer, kMinuteMilliseconds); }

  private:
    CWnd& m_window;
};

std::wstring_view View(const CString& text)
{
    return {text.GetString(), static_cast<std::size_t>(text.GetLength())};
}

/// `parameter` is the table of places by collection index.
int CALLBACK ComparePlaces(LPARAM left, LPARAM right, LPARAM parameter) noexcept
{
    const auto* const places = std::bit_cast<const int*>(parameter);
    return places[left] - places[right];
}

} // namespace

BEGIN_MESSAGE_MAP(CcvMfcRemindersListControl, CListCtrl)
ON_NOTIFY_REFLECT(LVN_COLUMNCLICK, OnColumnClick)
ON_WM_TIMER()
ON_WM_KEYDOWN()
ON_WM_LBUTTONDOWN()
ON_WM_LBUTTONDBLCLK()
ON_MESSAGE(WM_RBUTTONDOWN, OnRButtonDown)
ON_WM_SYSCOLORCHANGE()
END_MESSAGE_MAP()

CcvMfcRemindersListControl::CcvMfcRemindersListControl(CcvReminderDataCollectionManager* manager)
    : m_manager(manager)
{
}

CcvMfcRemindersListControl::~CcvMfcRemindersListControl()
{
    // While the header and the fonts are still there.
    DestroyWindow();
}

// --- Columns ---

void CcvMfcRemindersListControl::InitializeColumns(unsigned columnMask)
{
    SetExtendedStyle(GetExtendedStyle() | LVS_EX_FULLROWSELECT | LVS_EX_HEADERDRAGDROP);
    m_boldFont.reset();
    m_normalFont.reset();
    InsertColumns(columnMask);
    InitializeImages();
    InitializeHeader();
    UseWindowColour();
    SetTimer(kMinuteTimer, kMinuteMilliseconds);
}

void CcvMfcRemindersListControl::InsertColumns(unsigned columnMask)
{
    constexpr int kIconWidth = 18;
    const auto has = [columnMask](ReminderColumn kind)
    { return (columnMask & static_cast<unsigned>(kind)) != 0; };
    m_columns.clear();
    CRect client;
    GetClientRect(&client);
    auto width = static_cast<float>(client.Width());
    float subjectShare = has(ReminderColumn::Document) ? 0.7F : 1.0F;
    subjectShare -= has(ReminderColumn::DueIn) ? 0.3F : 0.0F;
    if (has(ReminderColumn::Icon))
    {
        width -= kIconWidth;
        AddColumn(ReminderColumn::Icon, CString(), kIconWidth);
    }
    if (has(ReminderColumn::Subject))
    {
        AddColumn(ReminderColumn::Subject, ts::LoadText(IDS_COLUMN_SUBJECT),
                  static_cast<int>(subjectShare * width));
    }
    const int otherWidth = static_cast<int>(0.3F * width);
    if (has(ReminderColumn::Document))
    {
        AddColumn(ReminderColumn::Document, ts::LoadText(IDS_COLUMN_MAP), otherWidth);
    }
    if (has(ReminderColumn::DueIn))
    {
        AddColumn(ReminderColumn::DueIn, ts::LoadText(IDS_COLUMN_DUE), otherWidth);
    }
}

void CcvMfcRemindersListControl::AddColumn(ReminderColumn kind, const CString& heading, int width)
{
    InsertColumn(static_cast<int>(m_columns.size()), heading, LVCFMT_LEFT, width);
    m_columns.push_back(kind);
}

void CcvMfcRemindersListControl::InitializeImages()
{
    const ts::ResourceScope scope;
    ts::CreateListImages(m_images);
    ts::AddListImage(m_images, IDB_RECURRENCE);
    ts::AddListImage(m_images, IDB_RECURRENCE_SELECTED);
    SetImageList(m_images, LVSIL_SMALL);
}

void CcvMfcRemindersListControl::InitializeHeader()
{
    m_header.SubclassWindow(GetHeaderCtrl());
    ::SendMessageW(m_header.m_hWnd, WM_SETFONT, std::bit_cast<WPARAM>(GetNormalFont()), FALSE);
    m_header.ResetImages();
    for (int column = 0; column < m_header.GetItemCount(); ++column)
    {
        HDITEMW item{};
        item.mask = HDI_FORMAT;
        m_header.GetItem(column, &item);
        item.fmt |= HDF_OWNERDRAW;
        m_header.SetItem(column, &item);
    }
    if (IsColumn(0, ReminderColumn::Icon))
    {
        const ts::ResourceScope scope;
        m_header.SetItemBitmap(0, IDB_RECURRENCE);
    }
}

void CcvMfcRemindersListControl::OnSysColorChange()
{
    CListCtrl::OnSysColorChange();
    UseWindowColour();
}

void CcvMfcRemindersListControl::UseWindowColour()
{
    // Below the rows the list view would keep the colour that was there when its library was loaded.
    SendMessage(LVM_SETBKCOLOR, 0, static_cast<LPARAM>(GetSysColor(COLOR_WINDOW)));
    Invalidate();
}

bool CcvMfcRemindersListControl::IsColumn(int column, ReminderColumn kind) const
{
    return column >= 0 && static_cast<std::size_t>(column) < m_columns.size() &&
           m_columns[static_cast<std::size_t>(column)] == kind;
}

BOOL CcvMfcRemindersListControl::OnNotify(WPARAM wParam, LPARAM lParam, LRESULT* result)
{
    const auto* const notification = std::bit_cast<const NMHEADERW*>(lParam);
    const UINT code = notification->hdr.code;
    if ((code == HDN_BEGINTRACKW || code == HDN_BEGINTRACKA) &&
        IsColumn(notification->iItem, ReminderColumn::Icon))
    {
        *result = TRUE;
        return TRUE;
    }
    return CListCtrl::OnNotify(wParam, lParam, result);
}

// --- Rows ---

void CcvMfcRemindersListControl::Refresh()
{
    const DrawingLock lock(*this);
    const CPoint scrolled(GetScrollPos(SB_HORZ), GetScrollPos(SB_VERT));
    const int formerRow = GetSelectedIndex();
    const Row* const former = FindRow(formerRow);
    const CString formerGuid = former == nullptr ? CString() : former->guid;

    const CTime now = CTime::GetCurrentTime();
    FillRows(now);
    const int row = FindRowToSelect(formerRow, formerGuid);
    if (row >= 0)
    {
        SelectRow(row);
        ScrollTo(scrolled);
    }
    m_lastRefresh = now;
    NotifySelection(row);
}

void CcvMfcRemindersListControl::FillRows(CTime now)
{
    const RedrawPause pause(*this);
    m_rows.clear();
    DeleteAllItems();
    for (int index = 0; index < m_manager->GetRemindersCount(); ++index)
    {
        CcvReminderData* const reminder = m_manager->GetReminderByIndex(index);
        if (ts::IsListed(m_filter, *reminder, now))
        {
            InsertReminder(index, reminder, now);
        }
    }
    SortRows();
}

int CcvMfcRemindersListControl::InsertReminder(int collectionIndex, CcvReminderData* reminder,
                                               const CTime& now)
{
    Row data{reminder->GetGuid(), reminder->IsRecurrent(), reminder->GetSubject(),
             reminder->GetDocumentTitle(), ts::FindStatus(*reminder, now)};
    wchar_t noText[] = L"";
    LVITEMW item{};
    item.mask = LVIF_TEXT | LVIF_IMAGE | LVIF_PARAM;
    // At the end.
    item.iItem = std::numeric_limits<int>::max();
    item.pszText = noText;
    item.iImage = data.isRecurrent ? 0 : kNoImage;
    item.lParam = collectionIndex;
    const int row = InsertItem(item);
    if (row < 0)
    {
        return row;
    }
    for (int column = 0; column < static_cast<int>(m_columns.size()); ++column)
    {
        switch (m_columns[static_cast<std::size_t>(column)])
        {
        case ReminderColumn::Subject:
            SetItemText(row, column, data.subject);
            break;
        case ReminderColumn::Document:
            SetItemText(row, column, data.documentTitle);
            break;
        case ReminderColumn::DueIn:
            SetItemText(row, column, ts::DueInText(*reminder, now));
            break;
        case ReminderColumn::Icon:
            break;
        }
    }
    m_rows.insert_or_assign(collectionIndex, std::move(data));
    return row;
}

int CcvMfcRemindersListControl::FindRowToSelect(int formerRow, const CString& formerGuid) const
{
    const int count = GetItemCount();
    if (formerRow < 0 || count == 0)
    {
        return count == 0 ? -1 : 0;
    }
    for (int row = 0; row < count; ++row)
    {
        const Row* const data = FindRow(row);
        if (data != nullptr && data->guid == formerGuid)
        {
            return row;
        }
    }
    return std::min(formerRow, count - 1);
}

void CcvMfcRemindersListControl::ScrollTo(CPoint position)
{
    CRect row;
    GetItemRect(0, &row, LVIR_BOUNDS);
    Scroll(CSize(position.x - GetScrollPos(SB_HORZ), (position.y - GetScrollPos(SB_VERT)) * row.Height()));
}

std::optional<int> CcvMfcRemindersListControl::FindCollectionIndex(int row) const
{
    LVITEMW item{};
    item.mask = LVIF_PARAM;
    item.iItem = row;
    if (row < 0 || GetItem(&item) == FALSE)
    {
        return std::nullopt;
    }
    return static_cast<int>(item.lParam);
}

const CcvMfcRemindersListControl::Row* CcvMfcRemindersListControl::FindRow(int row) const
{
    const std::optional<int> index = FindCollectionIndex(row);
    const auto found = index ? m_rows.find(*index) : m_rows.end();
    return found == m_rows.end() ? nullptr : &found->second;
}

int CcvMfcRemindersListControl::FindInCollection(const CString& guid) const
{
    for (int index = 0; index < m_manager->GetRemindersCount(); ++index)
    {
        if (m_manager->GetReminderByIndex(index)->GetGuid() == guid)
        {
            return index;
        }
    }
    return -1;
}

CcvReminderData* CcvMfcRemindersListControl::FindReminder(int collectionIndex, const Row& row) const
{
    CcvReminderData* const reminder = m_manager->GetReminderByIndex(collectionIndex);
    if (reminder != nullptr && reminder->GetGuid() == row.guid)
    {
        return reminder;
    }
    // The collection was loaded again since the last refresh, and has other reminders at other places.
    return m_manager->GetReminderByIndex(FindInCollection(row.guid));
}

CcvReminderData* CcvMfcRemindersListControl::GetReminder(int row) const
{
    const std::optional<int> index = FindCollectionIndex(row);
    const auto found = index ? m_rows.find(*index) : m_rows.end();
    return found == m_rows.end() ? nullptr : FindReminder(found->first, found->second);
}

// --- Selection ---

int CcvMfcRemindersListControl::GetSelectedIndex() const
{
    return GetNextItem(-1, LVNI_SELECTED);
}

CcvReminderData* CcvMfcRemindersListControl::GetSelectedReminder() const
{
    return GetReminder(GetSelectedIndex());
}

void CcvMfcRemindersListControl::SelectRow(int row)
{
    const int former = GetSelectedIndex();
    if (row == former)
    {
        return;
    }
    if (former >= 0)
    {
        SetItemState(former, 0, kSelectedAndFocused);
    }
    if (row >= 0)
    {
        SetItemState(row, kSelectedAndFocused, kSelectedAndFocused);
    }
    NotifySelection(row);
}

void CcvMfcRemindersListControl::NotifySelection(int row)
{
    ::SendMessageW(::GetParent(m_hWnd), WM_REMINDER_SELCHANGED, 0, row);
}

void CcvMfcRemindersListControl::NotifyChangedSelection(int formerRow)
{
    const int row = GetSelectedIndex();
    if (row != formerRow)
    {
        NotifySelection(row);
    }
}

void CcvMfcRemindersListControl::OnKeyDown(UINT key, UINT, UINT)
{
    const int former = GetSelectedIndex();
    const int last = GetItemCount() - 1;
    const int first = std::min(0, last);
    int row = former;
    switch (key)
    {
    case VK_PRIOR:
    case VK_HOME:
        row = first;
        break;
    case VK_NEXT:
    case VK_END:
        row = last;
        break;
    case VK_UP:
        row = std::max(former - 1, first);
        break;
    case VK_DOWN:
        row = std::min(former + 1, last);
        break;
    default:
        break;
    }
    if (row != former)
    {
        SelectRow(row);
        EnsureVisible(row, FALSE);
        NotifySelection(row);
    }
}

void CcvMfcRemindersListControl::OnLButtonDown(UINT flags, CPoint point)
{
    const int former = GetSelectedIndex();
    CListCtrl::OnLButtonDown(flags, point);
    NotifyChangedSelection(former);
}

void CcvMfcRemindersListControl::OnLButtonDblClk(UINT flags, CPoint point)
{
    const int former = GetSelectedIndex();
    CListCtrl::OnLButtonDblClk(flags, point);
    NotifyChangedSelection(former);
    OpenReminder(GetSelectedIndex());
}

LRESULT CcvMfcRemindersListControl::OnRButtonDown(WPARAM, LPARAM)
{
    const int former = GetSelectedIndex();
    const LRESULT result = Default();
    NotifyChangedSelection(former);
    return result;
}

// --- Order ---

void CcvMfcRemindersListControl::OnColumnClick(NMHDR* notification, LRESULT*)
{
    const auto column = static_cast<std::size_t>(std::bit_cast<const NMLISTVIEW*>(notification)->iSubItem);
    if (column < m_columns.size())
    {
        m_ascending = m_columns[column] != m_sortColumn || !m_ascending;
        m_sortColumn = m_columns[column];
        SortRows();
    }
}

void CcvMfcRemindersListControl::SortRows()
{
    const CTime now = CTime::GetCurrentTime();
    const int count = GetItemCount();
    std::vector<int> indices;
    std::vector<ts::ReminderSortKey> keys;
    int largestIndex = 0;
    for (int row = 0; row < count; ++row)
    {
        const int index = FindCollectionIndex(row).value_or(0);
        const Row& data = m_rows[index];
        CcvReminderData* const reminder = FindReminder(index, data);
        keys.push_back({data.isRecurrent, View(data.subject), View(data.documentTitle),
                        reminder == nullptr ? std::nullopt : ts::FindDueTime(*reminder, now)});
        indices.push_back(index);
        largestIndex = std::max(largestIndex, index);
    }
    const std::vector<int> places = ts::SortedPlaces(keys, m_sortColumn, m_ascending);
    std::vector<int> placesByIndex(static_cast<std::size_t>(largestIndex) + 1);
    for (std::size_t row = 0; row < places.size(); ++row)
    {
        placesByIndex[static_cast<std::size_t>(indices[row])] = places[row];
    }
    SortItems(ComparePlaces, std::bit_cast<LPARAM>(placesByIndex.data()));
}

// --- Each minute ---

void CcvMfcRemindersListControl::OnTimer(UINT_PTR id)
{
    if (id != kMinuteTimer)
    {
        CListCtrl::OnTimer(id);
        return;
    }
    const TimerPause pause(*this);
    UpdateTimes();
}

void CcvMfcRemindersListControl::UpdateTimes()
{
    const CTime now = CTime::GetCurrentTime();
    const bool added = m_filter == ReminderListFilter::Due && InsertNewlyDue(now);
    UpdateDueInTexts(now);
    if (added)
    {
        SortRows();
        // Of the list's window, which stands for the dialog around it.
        ::SetForegroundWindow(GetAncestor(m_hWnd, GA_ROOT));
    }
}

bool CcvMfcRemindersListControl::InsertNewlyDue(CTime now)
{
    bool added = false;
    for (int index = 0; index < m_manager->GetRemindersCount(); ++index)
    {
        CcvReminderData* const reminder = m_manager->GetReminderByIndex(index);
        if (!m_rows.contains(index) && ts::IsListed(m_filter, *reminder, now))
        {
            added = InsertReminder(index, reminder, now) >= 0 || added;
        }
    }
    return added;
}

void CcvMfcRemindersListControl::UpdateDueInTexts(CTime now)
{
    const auto found = std::find(m_columns.begin(), m_columns.end(), ReminderColumn::DueIn);
    if (found == m_columns.end())
    {
        return;
    }
    const auto column = static_cast<int>(found - m_columns.begin());
    for (int row = 0; row < GetItemCount(); ++row)
    {
        CcvReminderData* const reminder = GetReminder(row);
        if (reminder != nullptr)
        {
            SetItemText(row, column, ts::DueInText(*reminder, now));
        }
    }
}

// --- Actions ---

void CcvMfcRemindersListControl::OpenReminder(int row)
{
    const Row* const data = FindRow(row);
    if (data == nullptr)
    {
        return;
    }
    // Rows and reminders may be others when the application has started.
    const CString guid = data->guid;
    const HWND list = m_hWnd;
    const ts::HostApplication application(*this);
    if (IsWindow(list) == FALSE)
    {
        return;
    }
    if (application.GetMainWindow() == nullptr)
    {
        MessageBoxW(list, ts::LoadText(IDS_HOST_NOT_AVAILABLE), ts::LoadText(IDS_MESSAGE_CAPTION),
                    MB_ICONEXCLAMATION);
        ::SetForegroundWindow(::GetParent(list));
        return;
    }
    application.Show();
    const int index = FindInCollection(guid);
    if (index >= 0)
    {
        application.PostOpenReminder(index);
    }
}

void CcvMfcRemindersListControl::DismissReminder(int row)
{
    CcvReminderData* const reminder = GetReminder(row);
    if (reminder != nullptr)
    {
        m_manager->DismissReminder(reminder);
    }
}

void CcvMfcRemindersListControl::EndReminder(int row)
{
    CcvReminderData* const reminder = GetReminder(row);
    if (reminder != nullptr)
    {
        m_manager->EndReminder(reminder);
    }
}

void CcvMfcRemindersListControl::SnoozeReminder(int row, const CTimeSpan& span)
{
    CcvReminderData* const reminder = GetReminder(row);
    if (reminder != nullptr)
    {
        m_manager->SnoozeReminder(reminder, span);
    }
}

void CcvMfcRemindersListControl::ModifyReminder(int row, const CcvReminderData& edited)
{
    const CcvReminderData* const reminder = GetReminder(row);
    if (reminder != nullptr)
    {
        CcvReminderData changed(*reminder);
        CcvReminderData source(edited);
        changed.CopyData(&source);
        m_manager->ModifyReminder(&changed, CcvReminderOptionUtilities::GetSynchronizeOutlookAppointments());
    }
}
