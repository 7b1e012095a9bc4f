#include "reminders/WeekdaySteps.h"

#include <bit>

namespace ts
{

WeekdaySteps WeekdaySteps::EveryWeekday() noexcept
{
    constexpr std::size_t kFriday = 6;
    WeekdaySteps steps;
    steps.m_daysAfter.fill(1);
    steps.m_daysAfter[kFriday] = 3;
    return steps;
}

WeekdaySteps WeekdaySteps::Weekly(long flags, int weeks) noexcept
{
    WeekdaySteps steps;
    const unsigned flagged = static_cast<unsigned>(flags) & 0x7F;
    steps.m_empty = flagged == 0;
    steps.m_period = 7 * std::int64_t{weeks};
    if (steps.m_empty)
    {
        return steps;
    }
    const int first = std::countr_zero(flagged);
    for (int weekday = 0; weekday <= 7; ++weekday)
    {
        // What remains of the week after that day, else the first flagged day of the week `weeks` weeks on.
        // A time without a weekday is taken for the day before a Sunday within the same week.
        const unsigned remaining = flagged >> weekday;
        steps.m_daysAfter[static_cast<std::size_t>(weekday)] =
            remaining != 0 ? std::countr_zero(remaining) + 1 : steps.m_period - weekday + first + 1;
    }
    return steps;
}

} // namespace ts
