#include "Evaluation.h"

#include <algorithm>
#include <limits>

namespace ts::console
{
namespace
{

constexpr CTimeSpan kRecent = 2'678'400; // 31 days

bool IsSameLocalDate(CTime left, CTime right)
{
    return hosts::IsCalendarTime(left) && left.GetYear() == right.GetYear() &&
           left.GetMonth() == right.GetMonth() && left.GetDay() == right.GetDay();
}

/// Where a reminder stands in the list: one without due time after all others.
std::int64_t SortTime(const Evaluation& evaluation)
{
    return evaluation.due && hosts::IsCalendarTime(*evaluation.due)
               ? evaluation.due->GetTime()
               : std::numeric_limits<std::int64_t>::max();
}

} // namespace

Evaluation Evaluate(const CcvReminderData& reminder, CTime now)
{
    CcvReminderData copy(reminder);
    const hosts::ReminderTimes times = hosts::FindTimes(reminder, now);
    Evaluation evaluation = {times.due, times.reminderTime,
                             hosts::Ask([&] { return copy.GetReminderStatus(now); }), std::nullopt};
    if (evaluation.due && hosts::IsCalendarTime(*evaluation.due))
    {
        evaluation.dueIn = hosts::Ask([&] { return CcvReminderDataUtilities::GetDueInString(&copy, now); });
    }
    return evaluation;
}

bool Passes(Filter filter, const CcvReminderData& reminder, const Evaluation& evaluation, CTime now)
{
    switch (filter)
    {
    case Filter::Recent:
        return !evaluation.due || *evaluation.due >= now || now - *evaluation.due < kRecent;
    case Filter::Today:
        return evaluation.due && IsSameLocalDate(*evaluation.due, now);
    case Filter::Due:
        // Only a reminder that does not recur can be dismissed; the mark means nothing on another one.
        return evaluation.reminderTime && *evaluation.reminderTime <= now &&
               (reminder.IsRecurrent() || !reminder.IsDimissed());
    default:
        return true;
    }
}

std::vector<ListedReminder> FilterAndSort(const std::vector<CcvReminderData>& reminders, Filter filter,
                                          CTime now)
{
    struct Entry
    {
        std::int64_t sortTime;
        CString key;
        std::size_t index;
        Evaluation evaluation;
    };
    std::vector<Entry> entries;
    for (std::size_t index = 0; index < reminders.size(); ++index)
    {
        const Evaluation evaluation = Evaluate(reminders[index], now);
        if (Passes(filter, reminders[index], evaluation, now))
        {
            entries.push_back({SortTime(evaluation), reminders[index].GetReminderKey(), index, evaluation});
        }
    }
    std::sort(entries.begin(), entries.end(),
              [](const Entry& left, const Entry& right)
              {
                  return left.sortTime != right.sortTime ? left.sortTime < right.sortTime
                                                         : left.key.Compare(right.key) < 0;
              });
    std::vector<ListedReminder> listed;
    listed.reserve(entries.size());
    for (const Entry& entry : entries)
    {
        listed.push_back({reminders[entry.index], entry.evaluation});
    }
    return listed;
}

} // namespace ts::console
