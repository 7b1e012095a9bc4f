#pragma once

#include "reminders/CcvReminderData.h"

#include <string>
#include <vector>

/// The recurrence patterns that are measured, and the dates that they are measured on.
namespace ts::bench
{

/// What one step of a pattern cannot do without.
enum class Conversions
{
    None,             ///< whole days are added, whatever the date is
    BreakDown,        ///< the weekday: one _localtime64_s
    BreakDownAndBuild ///< the month and the new date: one _localtime64_s and one _mktime64
};

struct Pattern
{
    std::string name;
    Conversions conversions;
    CcvReminderData record;
};

/// One pattern of each kind.
[[nodiscard]] std::vector<Pattern> PatternsOfEachKind();
/// Monthly ordinal patterns that differ only in how far into the month they reach.
[[nodiscard]] std::vector<Pattern> PatternsByOrdinal();

inline constexpr unsigned kSeed = 20090112;

/// Random days from `firstYear` to `lastYear`, both included, at clock times between 08:00 and 17:59.
[[nodiscard]] std::vector<CTime> RandomTimes(std::size_t count, int firstYear, int lastYear);
/// The first occurrence of the pattern at or after each of the times.
[[nodiscard]] std::vector<CTime> FirstOccurrences(const CcvReminderData& record,
                                                  const std::vector<CTime>& times);

} // namespace ts::bench
