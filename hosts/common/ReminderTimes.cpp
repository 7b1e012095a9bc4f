#include "hosts/common/ReminderTimes.h"

#include <ctime>

namespace ts::hosts
{
namespace
{

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

bool IsCalendarTime(CTime time) noexcept
{
    std::tm local{};
    return time != CTime() && time.GetLocalTm(&local) != nullptr;
}

ReminderTimes FindTimes(const CcvReminderData& reminder, CTime now)
{
    CcvReminderData copy(reminder);
    return {Ask([&] { return copy.GetCalculatedDueTime(now); }),
            Ask([&] { return copy.GetReminderTime(now); })};
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

} // namespace ts::hosts
