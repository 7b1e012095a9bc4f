#pragma once

#include "dialogs/ReminderColumn.h"
#include "platform/mfc/atltime.h"

#include <optional>
#include <string_view>
#include <vector>

namespace ts
{

/// What one row of a list is sorted by. The texts are borrowed.
struct ReminderSortKey
{
    bool isRecurrent = false;
    std::wstring_view subject;
    std::wstring_view documentTitle;
    std::optional<CTime> due; ///< none comes last in both directions
};

/// The place that each row takes, from 0, when the rows are sorted by a column.
///
/// Rows that differ in the column's kind are told apart by the kinds that follow it in the order icon,
/// subject, document, due time; the icon puts what does not recur first. Texts are compared without regard to
/// case, and where that finds no difference, exactly. Rows without any difference, and all rows of a column
/// that is not known, keep their present order. `ascending` false turns each comparison around.
[[nodiscard]] std::vector<int> SortedPlaces(const std::vector<ReminderSortKey>& rows, ReminderColumn column,
                                            bool ascending);

} // namespace ts
