#pragma once

#include "reminders/CcvReminderData.h"

#include <optional>

/// What a list asks a reminder about time. A damaged pattern raises an error on such questions, and a
/// reminder that has run out has the due time 0; either counts as having none, so that one reminder never
/// keeps the others from being shown.
namespace ts
{

/// The due time in force at `now`, which moves a recurring reminder on.
[[nodiscard]] std::optional<CTime> FindDueTime(CcvReminderData& reminder, CTime now);

/// When the reminder fires: a snoozed one has such a time whatever its due time is.
[[nodiscard]] std::optional<CTime> FindReminderTime(CcvReminderData& reminder, CTime now);

[[nodiscard]] std::optional<CcvReminderData::ReminderStatus> FindStatus(CcvReminderData& reminder, CTime now);

/// How far away the due time is, in the interface language; empty where there is none.
[[nodiscard]] CString DueInText(CcvReminderData& reminder, CTime now);

} // namespace ts
