#include "collection/CcvReminderDataCollectionManager.h"
#include "dialogs/CcvMfcRemindersListControl.h"
#include "dialogs/ReminderTimes.h"

#include <algorithm>
#include <limits>

namespace
{

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

} // namespace

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
