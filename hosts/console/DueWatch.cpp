#include "DueWatch.h"

#include <algorithm>

namespace ts::console
{
namespace
{

/// When a recurring reminder that is due now becomes due again.
std::optional<CTime> TimeOfNextOccurrence(const CcvReminderData& reminder, CTime due)
{
    try
    {
        const std::vector<CTime> next = OccurrencesAfter(reminder, due, 1);
        return next.empty() ? std::nullopt : std::optional(next.front() - reminder.GetReminderTimeSpan());
    }
    catch (const COleException&)
    {
        return std::nullopt;
    }
}

/// When the reminder becomes due after `now`.
std::optional<CTime> NextTimeOf(const CcvReminderData& reminder, CTime now)
{
    const Evaluation evaluation = Evaluate(reminder, now);
    if (reminder.IsDimissed() || !evaluation.reminderTime)
    {
        return std::nullopt;
    }
    if (*evaluation.reminderTime > now)
    {
        return evaluation.reminderTime;
    }
    return evaluation.due ? TimeOfNextOccurrence(reminder, *evaluation.due) : std::nullopt;
}

} // namespace

std::vector<ListedReminder> DueWatch::Look(const std::vector<CcvReminderData>& reminders, CTime now)
{
    std::map<std::wstring, Told> told;
    std::vector<ListedReminder> news;
    for (const ListedReminder& listed : FilterAndSort(reminders, Filter::Due, now))
    {
        const CcvReminderData& reminder = listed.reminder;
        if (reminder.IsDimissed())
        {
            continue;
        }
        const std::wstring key = reminder.GetReminderKey().GetString();
        const Told state = {listed.evaluation.due.value_or(CTime()),
                            reminder.IsSnoozed() ? reminder.GetSnoozeTime() : CTime()};
        const auto before = m_told.find(key);
        if (before == m_told.end() || before->second != state)
        {
            news.push_back(listed);
        }
        told[key] = state;
    }
    m_told = std::move(told);
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

} // namespace ts::console
