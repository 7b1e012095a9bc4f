#include "dialogs/ReminderOrder.h"

#include "platform/WindowsHeaders.h"

#include <algorithm>
#include <functional>
#include <numeric>
#include <string>

namespace ts
{
namespace
{

std::wstring Lower(std::wstring_view text)
{
    std::wstring lower(text);
    CharLowerBuffW(lower.data(), static_cast<DWORD>(lower.size()));
    return lower;
}

int Compared(std::wstring_view left, std::wstring_view right)
{
    const int result = left.compare(right);
    return (result > 0) - (result < 0);
}

/// Compares rows by their numbers. What the comparisons need of a row is worked out once per row beforehand:
/// a sort compares each row a dozen times and more.
class RowComparer
{
  public:
    RowComparer(const std::vector<ReminderSortKey>& rows, ReminderColumn column, bool ascending)
        : m_rows(rows), m_byRecurrence(column == ReminderColumn::Icon),
          m_bySubject(m_byRecurrence || column == ReminderColumn::Subject),
          m_byDocument(m_bySubject || column == ReminderColumn::Document),
          m_byDue(m_byDocument || column == ReminderColumn::DueIn), m_ascending(ascending)
    {
        m_lowerSubjects.reserve(rows.size());
        m_lowerTitles.reserve(rows.size());
        for (const ReminderSortKey& row : rows)
        {
            m_lowerSubjects.push_back(m_bySubject ? Lower(row.subject) : std::wstring());
            m_lowerTitles.push_back(m_byDocument ? Lower(row.documentTitle) : std::wstring());
        }
    }

    /// Whether row `left` stands before row `right`.
    [[nodiscard]] bool operator()(int left, int right) const
    {
        const int result = CompareTexts(static_cast<std::size_t>(left), static_cast<std::size_t>(right));
        if (result != 0)
        {
            return m_ascending ? result < 0 : result > 0;
        }
        return m_byDue && IsDueBefore(m_rows[static_cast<std::size_t>(left)].due,
                                      m_rows[static_cast<std::size_t>(right)].due);
    }

  private:
    [[nodiscard]] int CompareTexts(std::size_t left, std::size_t right) const
    {
        const ReminderSortKey& a = m_rows[left];
        const ReminderSortKey& b = m_rows[right];
        int result = m_byRecurrence ? int{a.isRecurrent} - int{b.isRecurrent} : 0;
        if (result == 0 && m_bySubject)
        {
            result = Compared(m_lowerSubjects[left], m_lowerSubjects[right]);
            result = result != 0 ? result : Compared(a.subject, b.subject);
        }
        if (result == 0 && m_byDocument)
        {
            result = Compared(m_lowerTitles[left], m_lowerTitles[right]);
            result = result != 0 ? result : Compared(a.documentTitle, b.documentTitle);
        }
        return result;
    }

    [[nodiscard]] bool IsDueBefore(std::optional<CTime> left, std::optional<CTime> right) const
    {
        if (!left || !right)
        {
            return left.has_value() && !right.has_value();
        }
        return m_ascending ? *left < *right : *right < *left;
    }

    const std::vector<ReminderSortKey>& m_rows;
    std::vector<std::wstring> m_lowerSubjects;
    std::vector<std::wstring> m_lowerTitles;
    bool m_byRecurrence;
    bool m_bySubject;
    bool m_byDocument;
    bool m_byDue;
    bool m_ascending;
};

} // namespace

std::vector<int> SortedPlaces(const std::vector<ReminderSortKey>& rows, ReminderColumn column, bool ascending)
{
    std::vector<int> order(rows.size());
    std::iota(order.begin(), order.end(), 0);
    const RowComparer comparer(rows, column, ascending);
    // By reference: the algorithm passes its comparison on by value, all texts with it.
    std::stable_sort(order.begin(), order.end(), std::cref(comparer));
    std::vector<int> places(rows.size());
    for (std::size_t place = 0; place < order.size(); ++place)
    {
        places[static_cast<std::size_t>(order[place])] = static_cast<int>(place);
    }
    return places;
}

} // namespace ts
