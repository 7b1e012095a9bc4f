#include "Evaluation.h"

#include "TimeText.h"

#include <algorithm>
#include <limits>

namespace ts::console
{
namespace
{

constexpr CTimeSpan kRecent = 2'678'400; // 31 days

template <typename Question>
auto Ask(Question question) -> std::optional<decltype(question())>
{
    try
    {
        return question();
    }
    catch (const COleException&)
    {
        return std::nullopt;
    }
}

bool IsSameLocalDate(CTime left, CTime right)
{
    return IsCalendarTime(left) && left.GetYear() == right.GetYear() && left.GetMonth() == right.GetMonth() &&
           left.GetDay() == right.GetDay();
}

/// Where a reminder stands in the list: one without due time after all others.
std::int64_t SortTime(const Evaluation& evaluation)
{
    return evaluation.due && IsCalendarTime(*evaluation.due) ? evaluation.due->GetTime()
                                                             : std::numeric_limits<std::int64_t>::max();
}

/// The first occurrence later than `from`; 0 when there is none.
CTime FirstOccurrenceAfter(CcvReminderData& walker, CTime from)
{
    if (walker.GetNextDueDate() > from)
    {
        return walker.GetNextDueDate();
    }
    // Without a lead time the library goes on to the last occurrence up to `from`, by a jump where it can.
    walker.SetReminderTimeSpan(0);
    return walker.GetNextRecurrentTime(walker.GetCalculatedDueTime(from));
}

} // namespace

Evaluation Evaluate(const CcvReminderData& reminder, CTime now)
{
    CcvReminderData copy(reminder);
    Evaluation evaluation = {Ask([&] { return copy.GetCalculatedDueTime(now); }),
                             Ask([&] { return copy.GetReminderTime(now); }),
                             Ask([&] { return copy.GetReminderStatus(now); }), std::nullopt};
    if (evaluation.due && IsCalendarTime(*evaluation.due))
    {
        evaluation.dueIn = Ask([&] { return CcvReminderDataUtilities::GetDueInString(&copy, now); });
    }
    return evaluation;
}

bool Passes(Filter filter, const Evaluation& evaluation, CTime now)
{
    switch (filter)
    {
    case Filter::Recent:
        return !evaluation.due || *evaluation.due >= now || now - *evaluation.due < kRecent;
    case Filter::Today:
        return evaluation.due && IsSameLocalDate(*evaluation.due, now);
    case Filter::Due:
        return evaluation.reminderTime && *evaluation.reminderTime <= now;
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
        if (Passes(filter, evaluation, now))
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

std::vector<CTime> OccurrencesAfter(const CcvReminderData& reminder, CTime from, int count)
{
    std::vector<CTime> occurrences;
    if (!reminder.IsRecurrent())
    {
        return occurrences;
    }
    try
    {
        CcvReminderData walker(reminder);
        CTime occurrence = FirstOccurrenceAfter(walker, from);
        CTime previous = from;
        while (occurrence > previous && IsCalendarTime(occurrence))
        {
            occurrences.push_back(occurrence);
            if (occurrences.size() == static_cast<std::size_t>(count))
            {
                break;
            }
            previous = occurrence;
            occurrence = walker.GetNextRecurrentTime(previous);
        }
    }
    catch (const COleException& error)
    {
        // The runtime refuses times after the year 3000: there the occurrences end.
        if (occurrences.empty() && error.m_sc != E_INVALIDARG)
        {
            throw;
        }
    }
    return occurrences;
}

} // namespace ts::console
