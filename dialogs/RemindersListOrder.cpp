#include "collection/CcvReminderDataCollectionManager.h"
#include "dialogs/CcvMfcRemindersListControl.h"
#include "dialogs/ReminderOrder.h"
#include "dialogs/ReminderTimes.h"

#include <algorithm>
#include <bit>

namespace
{

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
    FollowCollection();
    const CTime now = CTime::GetCurrentTime();
    const int count = GetItemCount();
    std::vector<int> indices;
    std::vector<ts::ReminderSortKey> keys;
    int largestIndex = 0;
    for (int row = 0; row < count; ++row)
    {
        const int index = FindCollectionIndex(row).value_or(0);
        const Row& data = m_rows[index];
        CcvReminderData* const reminder = m_manager->GetReminderByIndex(index);
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
