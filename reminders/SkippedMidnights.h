#pragma once

namespace ts
{

/// A day whose local midnight does not exist, because the clocks go forward at that moment. The runtime makes
/// 23:00 of the day before of it.
struct SkippedMidnight
{
    int month = 0; ///< 0 where there is no such day
    int day = 0;
};

/// The skipped midnight of that year in the zone of the C runtime. `year` lies within 1971 to 2999. Costs a
/// few nanoseconds once the zone is known. Any thread.
[[nodiscard]] SkippedMidnight SkippedMidnightOf(int year);

} // namespace ts
