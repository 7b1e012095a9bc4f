#include "dialogs/ReminderFilter.h"

#include "dialogs/ReminderTimes.h"
#include "reminders/LocalCalendar.h"

namespace
{

constexpr CTimeSpan kRecent = 2'678'400; // 31 days

/// Whether the record holds nothing but its registry key.
bool IsBlank(const CcvReminderData& reminder)
{
    return reminder.GetNextDueDate() == CTime() && reminder.GetInitialDueDate() == CTime() &&
           reminder.GetSubject().IsEmpty() && reminder.GetMapGuid().IsEmpty() &&
           reminder.GetObjectGuid().IsEmpty() && reminder.GetDocumentPath().IsEmpty();
}

bool IsRecent(CcvReminderData& reminder, CTime now)
{
    const std::optional<CTime> due = ts::FindDueTime(reminder, now);
    return !due || *due >= now || now - *due < kRecent;
}

bool IsToday(CcvReminderData& reminder, CTime now)
{
    const std::optional<CTime> due = ts::FindDueTime(reminder, now);
    return due && ts::IsSameLocalDate(*due, now);
}

// A dismissed reminder would come back with each alert. The bit says nothing of a recurring one.
bool IsSettled(const CcvReminderData& reminder)
{
    return reminder.IsDimissed() && !reminder.IsRecurrent();
}

bool IsDue(CcvReminderData& reminder, CTime now)
{
    if (IsSettled(reminder))
    {
        return false;
    }
    const std::optional<CTime> time = ts::FindReminderTime(reminder, now);
    return time && *time <= now;
}

} // namespace

bool ts::IsListed(ReminderListFilter filter, CcvReminderData& reminder, CTime now)
{
    if (IsBlank(reminder))
    {
        return false;
    }
    switch (filter)
    {
    case ReminderListFilter::Today:
        return IsToday(reminder, now);
    case ReminderListFilter::Due:
        return IsDue(reminder, now);
    default:
        return IsRecent(reminder, now);
    }
}
