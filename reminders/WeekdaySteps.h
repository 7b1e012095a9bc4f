#pragma once

#include "platform/mfc/atltime.h"

#include <array>
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
    [[nodiscard]] static WeekdaySteps EveryWeekday() noexcept;
    /// The days of `flags` (bit 0 Sunday to bit 6 Saturday), then those of the week `weeks` weeks on. With
    /// no day flagged it is empty and there is no next occurrence.
    [[nodiscard]] static WeekdaySteps Weekly(long flags, int weeks) noexcept;

    [[nodiscard]] bool IsEmpty() const noexcept { return m_empty; }
    /// The days from an occurrence on that weekday to the next one; not positive where the pattern does
    /// not advance.
    [[nodiscard]] std::int64_t DaysAfter(int dayOfWeek) const noexcept
    {
        return m_daysAfter[static_cast<std::size_t>(dayOfWeek)];
    }
    /// The days after which the pattern repeats, once it has taken two steps.
    [[nodiscard]] std::int64_t Period() const noexcept { return m_period; }

  private:
    std::array<std::int64_t, 8> m_daysAfter{};
    std::int64_t m_period = 7;
    bool m_empty = false;
};

} // namespace ts
