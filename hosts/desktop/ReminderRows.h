#pragma once

#include "TsServiceUtilities.h"

#include <optional>
#include <string>
#include <vector>

namespace ts::desktop
{

/// Which reminder the user means, whatever was loaded again meanwhile.
struct ReminderIdentity
{
    CString key;
    CString guid;

    explicit ReminderIdentity(const CcvReminderData& reminder);

    friend bool operator==(const ReminderIdentity& left, const ReminderIdentity& right) noexcept
    {
        return left.key == right.key && left.guid == right.guid;
    }
};

/// One reminder as the main window lists it.
struct ReminderRow
{
    ReminderIdentity identity;
    std::wstring subject;
    std::wstring topic;
    std::wstring map;
    /// None where the pattern is damaged or has run out.
    std::optional<CTime> due;
    std::wstring dueText;
    std::wstring dueInText;
    /// Its reminder time has come.
    bool isActive;
};

/// The columns of the list, from the left.
enum class ReminderColumn
{
    Subject,
    Topic,
    Map,
    Due,
    DueIn
};

/// The collection's record of that identity, loaded; null when it is gone. Valid until the collection is
/// changed or loaded again.
[[nodiscard]] CcvReminderData* FindReminder(const CcvReminderDataCollectionManager& manager,
                                            const ReminderIdentity& identity);

/// The reminders that can be shown, in the order of the collection.
[[nodiscard]] std::vector<ReminderRow> MakeRows(const CcvReminderDataCollectionManager& manager, CTime now);

/// Orders by the column, then by map, due time and subject. Reminders without a due time come last.
void SortRows(std::vector<ReminderRow>& rows, ReminderColumn column, bool descending);

[[nodiscard]] const std::wstring& CellText(const ReminderRow& row, ReminderColumn column);

} // namespace ts::desktop
