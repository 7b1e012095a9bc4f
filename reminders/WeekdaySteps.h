#pragma once

#include "platform/mfc/atltime.h"
#include "reminders/CcvReminderData.h"

#include <bit>
#include <cstdint>

namespace ts
{

inline constexpr std::int64_t kSecondsPerDay = 86400;

/// Whole days, each of 86,400 seconds.
[[nodiscard]] constexpr CTimeSpan Days(std::int64_t days) noexcept
{
    return days * kSecondsPerDay;
}

/// How a pattern that looks at weekdays only goes on from an occurrence on a given weekday. Days of the week
/// are numbered 1 = Sunday to 7 = Saturday; 0 stands for a time whose weekday the runtime cannot tell.
class WeekdaySteps
{
  public:
    /// Monday to Friday. A Saturday, on which no occurrence should fall, goes on to Sunday.
    [[nodiscard]] static constexpr WeekdaySteps EveryWeekday() noexcept
    {
        return WeekdaySteps(kWorkdays, 7, true);
    }
    /// The flagged days of the record's weekly pattern, then those of the week N weeks on. With no day
    /// flagged it is empty and there is no next occurrence.
    [[nodiscard]] static WeekdaySteps Weekly(const CcvReminderData& record)
    {
        return WeekdaySteps(static_cast<unsigned>(record.GetWeeklyRecurrenceFlag()) & kWholeWeek,
                            7 * std::int64_t{record.GetWeeklyRecurrenceNumber()}, false);
    }

    [[nodiscard]] constexpr bool IsEmpty() const noexcept { return m_flagged == 0; }

    /// The days from an occurrence on that weekday to the next one; not positive where the pattern does
    /// not advance. Not to be asked when empty.
    [[nodiscard]] constexpr std::int64_t DaysAfter(int dayOfWeek) const noexcept
    {
        if (m_everyWeekday)
        {
            constexpr int kFriday = 6;
            return dayOfWeek == kFriday ? 3 : 1;
        }
        // What remains of the week after that day, else the first flagged day of the week N weeks on. A time
        // without a weekday is taken for the day before a Sunday within the same week.
        const unsigned remaining = m_flagged >> dayOfWeek;
        return remaining != 0 ? std::countr_zero(remaining) + 1
                              : m_period - dayOfWeek + std::countr_zero(m_flagged) + 1;
    }

    /// The days after which the pattern repeats, once it has taken two steps.
    [[nodiscard]] constexpr std::int64_t Period() const noexcept { return m_period; }

  private:
    static constexpr unsigned kWholeWeek = 0b1111111;
    static constexpr unsigned kWorkdays = 0b0111110;

    constexpr WeekdaySteps(unsigned flagged, std::int64_t period, bool everyWeekday) noexcept
        : m_flagged(flagged), m_period(period), m_everyWeekday(everyWeekday)
    {
    }

    unsigned m_flagged;
    std::int64_t m_period;
    bool m_everyWeekday;
};

} // namespace ts
