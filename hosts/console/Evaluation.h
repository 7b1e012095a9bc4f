#pragma once

#include "hosts/common/ReminderTimes.h"

#include <optional>
#include <string>
#include <vector>

/// What the library says about a reminder at a given time.
namespace ts::console
{

/// Each part is missing where the library raises an error on it.
struct Evaluation
{
    std::optional<CTime> due;
    std::optional<CTime> reminderTime;
    std::optional<CcvReminderData::ReminderStatus> status;
    /// How far away the due time is, in the interface language; also missing where there is no due time.
    std::optional<CString> dueIn;
};

/// Works on a copy: asking a recurring reminder for its due time would move it on.
[[nodiscard]] Evaluation Evaluate(const CcvReminderData& reminder, CTime now);

/// As in the lists of the dialogs; All passes everything.
enum class Filter
{
    All,
    Recent, ///< due at most 31 days ago, or later
    Today,  ///< due on today's local date
    Due     ///< the reminder time has come, and it was not dismissed
};

/// Whether the reminder is listed. One whose due time raises an error passes All and Recent, so that it is
/// seen.
[[nodiscard]] bool Passes(Filter filter, const CcvReminderData& reminder, const Evaluation& evaluation,
                          CTime now);

struct ListedReminder
{
    CcvReminderData reminder;
    Evaluation evaluation;
};

/// The reminders that pass, by due time, then by key; those without a due time come last.
[[nodiscard]] std::vector<ListedReminder> FilterAndSort(const std::vector<CcvReminderData>& reminders,
                                                        Filter filter, CTime now);

} // namespace ts::console
