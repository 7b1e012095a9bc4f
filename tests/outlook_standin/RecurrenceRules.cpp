#include "tests/outlook_standin/RecurrenceRules.h"

#include "platform/WindowsHeaders.h"

#include <algorithm>
#include <chrono>
#include <cmath>
#include <oleauto.h>

namespace
{

using ts::standin::Recurrence;
using ts::standin::RecurrenceType;
using namespace std::chrono_literals;

// 1970-01-01 as a DATE.
constexpr int kUnixEpoch = 25569;
constexpr double kHalfSecond = 0.5 / 86400;
constexpr long kLastInstance = 5;

std::chrono::sys_days DayOf(double date)
{
    // A date within half a second of midnight is that midnight.
    return std::chrono::sys_days(std::chrono::days(std::lround(std::floor(date + kHalfSecond)) - kUnixEpoch));
}

std::chrono::year_month_day CivilDay(std::chrono::sys_days day)
{
    return {day};
}

unsigned NumberInMonth(std::chrono::sys_days day)
{
    return static_cast<unsigned>(CivilDay(day).day());
}

unsigned LastDayOfMonth(std::chrono::sys_days day)
{
    const auto civil = CivilDay(day);
    return static_cast<unsigned>((civil.year() / civil.month() / std::chrono::last).day());
}

// olSunday is the lowest bit.
long MaskOf(std::chrono::sys_days day)
{
    return 1L << std::chrono::weekday(day).c_encoding();
}

long MonthOf(std::chrono::sys_days day)
{
    return static_cast<long>(static_cast<unsigned>(CivilDay(day).month()));
}

long MonthsBetween(std::chrono::sys_days from, std::chrono::sys_days to)
{
    const auto first = CivilDay(from);
    const auto second = CivilDay(to);
    return static_cast<int>(second.year()) * 12L + MonthOf(to) - static_cast<int>(first.year()) * 12L -
           MonthOf(from);
}

bool IsMultiple(long long distance, long interval)
{
    return interval > 0 && distance % interval == 0;
}

std::chrono::sys_days WeekOf(std::chrono::sys_days day)
{
    return day - (std::chrono::weekday(day) - std::chrono::Sunday);
}

/// A day that the month does not have is its last one.
bool IsDayOfMonth(const Recurrence& recurrence, std::chrono::sys_days day)
{
    return static_cast<long>(NumberInMonth(day)) ==
           std::min(recurrence.dayOfMonth, static_cast<long>(LastDayOfMonth(day)));
}

/// Whether the day is the first, second, ... or last one of its month among the days of the mask.
bool IsInstance(const Recurrence& recurrence, std::chrono::sys_days day)
{
    if ((recurrence.dayOfWeekMask & MaskOf(day)) == 0)
    {
        return false;
    }
    const auto first = day - std::chrono::days(NumberInMonth(day) - 1);
    const auto last = first + std::chrono::days(LastDayOfMonth(day) - 1);
    const auto matches = [&](auto from, auto to)
    {
        long count = 0;
        for (auto each = from; each <= to; each += std::chrono::days(1))
        {
            count += (recurrence.dayOfWeekMask & MaskOf(each)) != 0 ? 1 : 0;
        }
        return count;
    };
    return recurrence.instance == kLastInstance ? matches(day, last) == 1
                                                : matches(first, day) == recurrence.instance;
}

bool RecursOn(const Recurrence& recurrence, std::chrono::sys_days day)
{
    const auto first = DayOf(recurrence.patternStartDate);
    const bool inMonth = IsMultiple(MonthsBetween(first, day), recurrence.interval);
    const bool inYear =
        IsMultiple(static_cast<int>(CivilDay(day).year()) - static_cast<int>(CivilDay(first).year()),
                   recurrence.interval) &&
        MonthOf(day) == recurrence.monthOfYear;
    switch (recurrence.type)
    {
    case RecurrenceType::Daily:
        return IsMultiple((day - first).count(), recurrence.interval);
    case RecurrenceType::Weekly:
        return (recurrence.dayOfWeekMask & MaskOf(day)) != 0 &&
               IsMultiple((WeekOf(day) - WeekOf(first)).count() / 7, recurrence.interval);
    case RecurrenceType::Monthly:
        return inMonth && IsDayOfMonth(recurrence, day);
    case RecurrenceType::MonthNth:
        return inMonth && IsInstance(recurrence, day);
    case RecurrenceType::Yearly:
        return inYear && IsDayOfMonth(recurrence, day);
    case RecurrenceType::YearNth:
        return inYear && IsInstance(recurrence, day);
    }
    return false;
}

bool SameMoment(double first, double second)
{
    return std::abs(first - second) < kHalfSecond;
}

} // namespace

double ts::standin::ClockTimeOf(double date) noexcept
{
    SYSTEMTIME fields{};
    double time = 0;
    if (VariantTimeToSystemTime(date, &fields) != FALSE)
    {
        fields.wYear = 1899;
        fields.wMonth = 12;
        fields.wDay = 30;
        SystemTimeToVariantTime(&fields, &time);
    }
    return time;
}

ts::standin::Recurrence ts::standin::DefaultRecurrence(const Item& item)
{
    Recurrence recurrence;
    recurrence.startTime = ClockTimeOf(item.start);
    recurrence.endTime = ClockTimeOf(item.end);
    recurrence.patternStartDate = std::floor(item.start);
    recurrence.dayOfWeekMask = MaskOf(DayOf(recurrence.patternStartDate));
    return recurrence;
}

void ts::standin::ChangeType(Recurrence& recurrence, RecurrenceType type)
{
    const auto start = DayOf(recurrence.patternStartDate);
    const auto change = [&](long& value, bool (*uses)(RecurrenceType), long fromStart)
    {
        if (!uses(type))
        {
            value = 0;
        }
        else if (!uses(recurrence.type))
        {
            value = fromStart;
        }
    };
    change(recurrence.dayOfWeekMask, UsesDayOfWeekMask, MaskOf(start));
    change(recurrence.dayOfMonth, UsesDayOfMonth, static_cast<long>(NumberInMonth(start)));
    change(recurrence.instance, UsesInstance, static_cast<long>((NumberInMonth(start) - 1) / 7 + 1));
    if (UsesMonthOfYear(type) && !UsesMonthOfYear(recurrence.type))
    {
        recurrence.interval = 1; // counted in years from here on
    }
    change(recurrence.monthOfYear, UsesMonthOfYear, MonthOf(start));
    recurrence.type = type;
}

bool ts::standin::UsesDayOfWeekMask(RecurrenceType type) noexcept
{
    return type == RecurrenceType::Weekly || UsesInstance(type);
}

bool ts::standin::UsesDayOfMonth(RecurrenceType type) noexcept
{
    return type == RecurrenceType::Monthly || type == RecurrenceType::Yearly;
}

bool ts::standin::UsesMonthOfYear(RecurrenceType type) noexcept
{
    return type == RecurrenceType::Yearly || type == RecurrenceType::YearNth;
}

bool ts::standin::UsesInstance(RecurrenceType type) noexcept
{
    return type == RecurrenceType::MonthNth || type == RecurrenceType::YearNth;
}

void ts::standin::FollowPattern(Item& item)
{
    item.start = item.recurrence->patternStartDate + item.recurrence->startTime;
    item.end = item.start + LengthOf(*item.recurrence);
}

double ts::standin::LengthOf(const Recurrence& recurrence) noexcept
{
    const double length = recurrence.endTime - recurrence.startTime;
    return length < 0 ? length + 1 : length;
}

bool ts::standin::HasOccurrence(const Recurrence& recurrence, double start)
{
    const auto& deleted = recurrence.deletedOccurrences;
    return start > recurrence.patternStartDate - kHalfSecond &&
           SameMoment(start - std::floor(start + kHalfSecond), recurrence.startTime) &&
           RecursOn(recurrence, DayOf(start)) &&
           std::none_of(deleted.begin(), deleted.end(), [&](double gone) { return SameMoment(gone, start); });
}
