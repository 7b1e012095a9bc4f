#pragma once

#include "Evaluation.h"

#include <map>

namespace ts::console
{

/// Tells which reminders have become due since it last looked: their reminder time has come and they are not
/// dismissed. Each due time is told once, and again when the reminder was snoozed meanwhile.
class DueWatch
{
  public:
    /// Looks at the reminders as they are `now`. Those that are newly due, by due time.
    [[nodiscard]] std::vector<ListedReminder> Look(const std::vector<CcvReminderData>& reminders, CTime now);

    /// When the next of them becomes due; none when none will.
    [[nodiscard]] static std::optional<CTime> NextTime(const std::vector<CcvReminderData>& reminders,
                                                       CTime now);

  private:
    /// What was told of a reminder: its due time and, if it was snoozed, until when.
    struct Told
    {
        CTime due;
        CTime snoozedUntil;

        bool operator==(const Told&) const = default;
    };

    std::map<std::wstring, Told> m_told;
};

} // namespace ts::console
