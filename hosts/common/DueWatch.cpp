#include "hosts/common/DueWatch.h"

#include <algorithm>

namespace ts::hosts
{
namespace
{

bool IsSettled(const CcvReminderData& reminder)
{
    return reminder.IsDimissed() && !reminder.IsRecurrent();
}

/// The times of a reminder that can become due; the reminder time is missing for one that cannot.
ReminderTimes TimesOf(const CcvReminderData& reminder, CTime now)
{
    if (IsSettled(reminder))
    {
        return {};
    }
    ReminderTimes times = FindTimes(reminder, now);
    if (times.due == CTime())
    {
        times.due.reset();
    }
    if (!times.due && !reminder.IsSnoozed())
    {
        times.reminderTime.reset();
    }
    return times;
}

/// When a recurring reminder that is due now becomes due again.
std::optional<CTime> TimeOfNextOccurrence(const CcvReminderData& reminder, CTime due)
{
    const auto next = Ask([&] { return OccurrencesAfter(reminder, due, 1); });
    return !next || next->empty() ? std::nullopt
                                  : std::optional(next->front() - reminder.GetReminderTimeSpan());
}

/// When the reminder becomes due after `now`.
std::optional<CTime> NextTimeOf(const CcvReminderData& reminder, CTime now)
{
    const ReminderTimes times = TimesOf(reminder, now);
    if (!times.reminderTime || *times.reminderTime > now)
    {
        return times.reminderTime;
    }
    return times.due ? TimeOfNextOccurrence(reminder, *times.due) : std::nullopt;
}

bool ComesBefore(const DueReminder& left, const DueReminder& right)
{
    const CTime leftDue = left.due.value_or(CTime());
    const CTime rightDue = right.due.value_or(CTime());
    return leftDue != rightDue ? leftDue < rightDue
                               : left.reminder.GetReminderKey().Compare(right.reminder.GetReminderKey()) < 0;
}

} // namespace

std::vector<DueReminder> DueWatch::Look(const std::vector<CcvReminderData>& reminders, CTime now)
{
    std::map<std::wstring, Told> told;
    std::vector<DueReminder> news;
    for (const CcvReminderData& reminder : reminders)
    {
        const ReminderTimes times = TimesOf(reminder, now);
        if (!times.reminderTime || *times.reminderTime > now)
        {
            continue;
        }
        const std::wstring key = reminder.GetReminderKey().GetString();
        const Told state = {times.due.value_or(CTime()),
                            reminder.IsSnoozed() ? reminder.GetSnoozeTime() : CTime()};
        const auto before = m_told.find(key);
        if (before == m_told.end() || before->second != state)
        {
            news.push_back({reminder, times.due});
        }
        told[key] = state;
    }
    m_told = std::move(told);
    std::ranges::sort(news, ComesBefore);
    return news;
}

std::optional<CTime> DueWatch::NextTime(const std::vector<CcvReminderData>& reminders, CTime now)
{
    std::optional<CTime> next;
    for (const CcvReminderData& reminder : reminders)
    {
        const std::optional<CTime> time = NextTimeOf(reminder, now);
        if (time && *time > now && (!next || *time < *next))
        {
            next = time;
        }
    }
    return next;
}

} // namespace ts::hosts
