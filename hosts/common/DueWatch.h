#pragma once

#include "hosts/common/ReminderTimes.h"

#include <map>
#include <string>

namespace ts::hosts
{

struct DueReminder
{
    CcvReminderData reminder;
    std::optional<CTime> due; ///< missing for a damaged one that was snoozed until now
};

/// Tells which reminders have become due since it last looked: their reminder time has come and they are not
/// dismissed. Each due time is told once, and again when the reminder was snoozed meanwhile.
///
/// Only a reminder that does not recur can be dismissed; the mark means nothing on another one. One without a
/// due time, be it damaged or empty, is due only when it was snoozed.
class DueWatch
{
  public:
    /// Looks at the reminders as they are `now`. Those that are newly due, by due time.
    [[nodiscard]] std::vector<DueReminder> Look(const std::vector<CcvReminderData>& reminders, CTime now);

    /// Lets the next look tell all that is due.
    void Forget() noexcept { m_told.clear(); }

    /// When the next of them becomes due, later than `now`; none when none will.
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

} // namespace ts::hosts
