// Finds the occurrence in force without visiting all occurrences before it.
//
// Patterns that add whole days can be followed by arithmetic:
// - Every N days: the steps are all alike.
// - By weekdays: the steps repeat with the pattern's period, as long as each day that is added to the time
//   is also one day more on the local calendar. A clock change moves the local clock time of an occurrence
//   by the daylight-saving bias, so that holds unless this could carry it over midnight.
// - Times that the runtime cannot convert have no weekday, and the steps are all alike again.
// Everything else is walked step by step: months and years, which the runtime's range keeps to a few
// thousand steps, and weekdays at clock times near midnight in zones with daylight saving.

#include "reminders/CatchUp.h"

#include "reminders/CcvReminderDataUtilities.h"
#include "reminders/WeekdaySteps.h"

#include <algorithm>
#include <cstdlib>
#include <optional>

namespace ts
{
namespace
{

// The runtime converts every time between the inner bounds, in every zone, and none outside the outer ones.
constexpr CTime kFirstConverted = 3 * kSecondsPerDay;
constexpr CTime kLastConverted = 32'500'000'000; // in the year 2999
constexpr CTime kBelowRuntime = -3 * kSecondsPerDay;
constexpr CTime kAboveRuntime = 32'540'000'000; // in the year 3001

/// `from` and as many whole steps as fit up to `limit`; `from` itself when a step is not positive.
CTime Repeat(CTime from, CTimeSpan step, CTime limit)
{
    const std::int64_t seconds = step.GetTimeSpan();
    if (seconds <= 0 || from >= limit)
    {
        return from;
    }
    // The distance of two signed times fits only an unsigned one.
    const auto first = static_cast<std::uint64_t>(from.GetTime());
    const std::uint64_t distance = static_cast<std::uint64_t>(limit.GetTime()) - first;
    const auto step64 = static_cast<std::uint64_t>(seconds);
    return static_cast<std::int64_t>(first + distance / step64 * step64);
}

/// The steps of a pattern that looks at weekdays; none for other patterns.
std::optional<WeekdaySteps> WeekdayStepsOf(EcvReminderRecurrenceType type, const CcvReminderData& record)
{
    if (type == EcvReminderRecurrenceType::Weekly)
    {
        return WeekdaySteps::Weekly(record);
    }
    if (type == EcvReminderRecurrenceType::Daily &&
        record.GetDailyOccurrenceType() == EcvReminderDailyOccurence::EveryWeekday)
    {
        return WeekdaySteps::EveryWeekday();
    }
    return std::nullopt;
}

/// The day of the week of `from` when each day added to it is one day more on the local calendar, else 0.
int SteadyDayOfWeek(CTime from)
{
    std::tm local;
    if (from < kFirstConverted || from.GetLocalTm(&local) == nullptr)
    {
        return 0;
    }
    const long shift = _daylight != 0 ? std::labs(_dstbias) : 0;
    const long clock = (local.tm_hour * 60 + local.tm_min) * 60 + local.tm_sec;
    return clock >= shift && clock + shift < kSecondsPerDay ? local.tm_wday + 1 : 0;
}

/// A time and its day of the week, moved on together.
class WeekdayWalk
{
  public:
    WeekdayWalk(const WeekdaySteps& steps, CTime from, int dayOfWeek)
        : m_steps(steps), m_present(from), m_dayOfWeek(dayOfWeek)
    {
    }

    [[nodiscard]] CTime Present() const { return m_present; }

    /// Takes one step if it leads on and not beyond `limit`; whether it did.
    bool Step(CTime limit)
    {
        const std::int64_t days = m_steps.DaysAfter(m_dayOfWeek);
        const CTime next = m_present + Days(days);
        if (next <= m_present || next > limit)
        {
            return false;
        }
        m_present = next;
        m_dayOfWeek = static_cast<int>((m_dayOfWeek - 1 + days) % 7) + 1;
        return true;
    }

    /// Skips whole periods, which end on the day of the week on which they began.
    void SkipPeriods(CTime limit) { m_present = Repeat(m_present, Days(m_steps.Period()), limit); }

  private:
    const WeekdaySteps& m_steps;
    CTime m_present;
    int m_dayOfWeek;
};

/// Goes on from `from` towards `limit` as far as arithmetic is sure to equal the walk.
CTime Jump(const WeekdaySteps& steps, CTime from, CTime limit)
{
    if (steps.IsEmpty())
    {
        return from;
    }
    if (from < kBelowRuntime)
    {
        return Repeat(from, Days(steps.DaysAfter(0)), std::min(limit, kBelowRuntime));
    }
    if (from > kAboveRuntime)
    {
        return Repeat(from, Days(steps.DaysAfter(0)), limit);
    }
    const CTime last = std::min(limit, kLastConverted);
    const int dayOfWeek = SteadyDayOfWeek(from);
    if (dayOfWeek == 0)
    {
        return from;
    }
    WeekdayWalk walk(steps, from, dayOfWeek);
    if (walk.Step(last) && walk.Step(last))
    {
        walk.SkipPeriods(last);
        while (walk.Step(last))
        {
        }
    }
    return walk.Present();
}

/// Whether a jump from `present` may lead on where the one before did not: the walk has just entered a
/// stretch of time in which the steps are all alike.
bool EntersNewStretch(CTime previous, CTime present)
{
    return (previous < kFirstConverted && present >= kFirstConverted) ||
           (previous <= kAboveRuntime && present > kAboveRuntime);
}

} // namespace

CTime NextOccurrence(EcvReminderRecurrenceType type, CTime from, const CcvReminderData& record)
{
    switch (type)
    {
    case EcvReminderRecurrenceType::Daily:
        return record.GetNextDailyRecurrentTime(from);
    case EcvReminderRecurrenceType::Weekly:
        return record.GetNextWeeklyRecurrentTime(from);
    case EcvReminderRecurrenceType::Monthly:
        return record.GetNextMonthlyRecurrentTime(from);
    case EcvReminderRecurrenceType::Yearly:
        return record.GetNextYearlyRecurrentTime(from);
    default:
        return CTime();
    }
}

CTime LastOccurrenceUpTo(EcvReminderRecurrenceType type, CTime from, CTime limit,
                         const CcvReminderData& record)
{
    if (type == EcvReminderRecurrenceType::Daily &&
        record.GetDailyOccurrenceType() == EcvReminderDailyOccurence::EveryNDays)
    {
        return Repeat(from, Days(record.GetDailyRecurrenceNumber()), limit);
    }
    const std::optional<WeekdaySteps> steps = WeekdayStepsOf(type, record);
    CTime present = steps ? Jump(*steps, from, limit) : from;
    for (;;)
    {
        const CTime next = NextOccurrence(type, present, record);
        if (next <= present || next > limit)
        {
            return present;
        }
        present = steps && EntersNewStretch(present, next) ? Jump(*steps, next, limit) : next;
    }
}

} // namespace ts
