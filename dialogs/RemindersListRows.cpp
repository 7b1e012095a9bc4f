#include "collection/CcvReminderDataCollectionManager.h"
#include "dialogs/CcvMfcRemindersListControl.h"
#include "dialogs/ReminderTimes.h"

#include <algorithm>
#include <limits>
#include <string>

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

bool CcvMfcRemindersListControl::IsAt(int collectionIndex, const Row& row) const
{
    const CcvReminderData* const reminder = m_manager->GetReminderByIndex(collectionIndex);
    return reminder != nullptr && reminder->GetGuid() == row.guid;
}

CcvReminderData* CcvMfcRemindersListControl::FindReminder(int collectionIndex, const Row& row) const
{
    // A collection that was loaded again since the last refresh has other reminders at other places.
    return m_manager->GetReminderByIndex(IsAt(collectionIndex, row) ? collectionIndex
                                                                    : FindInCollection(row.guid));
}

CcvReminderData* CcvMfcRemindersListControl::GetReminder(int row) const
{
    const std::optional<int> index = FindCollectionIndex(row);
    const auto found = index ? m_rows.find(*index) : m_rows.end();
    return found == m_rows.end() ? nullptr : FindReminder(found->first, found->second);
}

/// Gives the rows the present indices of their reminders, once the collection was loaded again. From then on,
/// the record at a row's index is the row's, and there is none where the reminder vanished.
void CcvMfcRemindersListControl::FollowCollection()
{
    const auto isCurrent = [this](const auto& entry) { return IsAt(entry.first, entry.second); };
    if (std::all_of(m_rows.begin(), m_rows.end(), isCurrent))
    {
        return;
    }
    const std::unordered_map<int, int> newIndices = FindNewIndices();
    for (int row = 0; row < GetItemCount(); ++row)
    {
        SetItemData(row, newIndices.at(static_cast<int>(GetItemData(row))));
    }
    std::unordered_map<int, Row> rows;
    for (auto& [index, row] : m_rows)
    {
        rows.emplace(newIndices.at(index), std::move(row));
    }
    m_rows = std::move(rows);
}

/// By the indices that the rows have. Those whose reminder vanished count on behind the collection. Reminders
/// of one topic, which cannot be told apart, keep their order.
std::unordered_map<int, int> CcvMfcRemindersListControl::FindNewIndices() const
{
    // The last of a topic first, so that they are taken from the back.
    std::unordered_map<std::wstring, std::vector<int>> byGuid;
    for (int index = m_manager->GetRemindersCount() - 1; index >= 0; --index)
    {
        byGuid[m_manager->GetReminderByIndex(index)->GetGuid().GetString()].push_back(index);
    }
    std::vector<int> formerIndices;
    for (const auto& entry : m_rows)
    {
        formerIndices.push_back(entry.first);
    }
    std::sort(formerIndices.begin(), formerIndices.end());
    std::unordered_map<int, int> newIndices;
    int vanished = m_manager->GetRemindersCount();
    for (const int former : formerIndices)
    {
        std::vector<int>& places = byGuid[m_rows.at(former).guid.GetString()];
        newIndices[former] = places.empty() ? vanished++ : places.back();
        if (!places.empty())
        {
            places.pop_back();
        }
    }
    return newIndices;
}
