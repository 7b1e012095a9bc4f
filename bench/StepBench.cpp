// One step to the next occurrence beside the bare conversions that the pattern needs, and the question which
// day of the month an ordinal means beside the walk over the month's days that defines the answer.

#include "bench/Allocations.h"
#include "bench/Patterns.h"
#include "bench/Suites.h"
#include "reminders/CcvReminderDataUtilities.h"
#include "reminders/LocalCalendar.h"

#include <stdexcept>

namespace ts::bench
{
namespace
{

constexpr char kStep[] = "step";
constexpr char kOrdinals[] = "step by ordinal";
constexpr char kCalendar[] = "day of month";

std::tm LocalFields(CTime time)
{
    std::tm local{};
    if (time.GetLocalTm(&local) == nullptr)
    {
        throw std::logic_error("a time out of the runtime's range");
    }
    local.tm_isdst = -1;
    return local;
}

void AddDays(const std::vector<CTime>& from, std::int64_t days)
{
    for (const CTime& time : from)
    {
        Keep(time.GetTime() + days * 86400);
    }
}

void BreakDown(const std::vector<CTime>& from)
{
    for (const CTime& time : from)
    {
        const __time64_t seconds = time.GetTime();
        std::tm local;
        Keep(_localtime64_s(&local, &seconds));
    }
}

/// Breaks each time down, and builds the time that follows it from fields that were prepared.
void BreakDownAndBuild(const std::vector<CTime>& from, const std::vector<std::tm>& next)
{
    for (std::size_t index = 0; index < from.size(); ++index)
    {
        const __time64_t seconds = from[index].GetTime();
        std::tm local;
        Keep(_localtime64_s(&local, &seconds));
        std::tm fields = next[index];
        Keep(_mktime64(&fields));
    }
}

Work BareConversions(const Pattern& pattern, const std::vector<CTime>& from)
{
    switch (pattern.conversions)
    {
    case Conversions::None:
        return [from, days = pattern.record.GetDailyRecurrenceNumber()](std::size_t) { AddDays(from, days); };
    case Conversions::BreakDown:
        return [from](std::size_t) { BreakDown(from); };
    default:
        break;
    }
    std::vector<std::tm> next;
    next.reserve(from.size());
    for (const CTime& time : from)
    {
        next.push_back(LocalFields(pattern.record.GetNextRecurrentTime(time)));
    }
    return [from, next](std::size_t) { BreakDownAndBuild(from, next); };
}

const char* NameOf(Conversions conversions)
{
    switch (conversions)
    {
    case Conversions::None:
        return "64-bit addition";
    case Conversions::BreakDown:
        return "_localtime64_s";
    default:
        return "_localtime64_s + _mktime64";
    }
}

void MeasureStep(Harness& harness, const char* group, const Pattern& pattern, const std::vector<CTime>& times)
{
    const std::vector<CTime> from = FirstOccurrences(pattern.record, times);
    const Work subject = [&](std::size_t)
    {
        for (const CTime& time : from)
        {
            Keep(pattern.record.GetNextRecurrentTime(time).GetTime());
        }
    };
    const bool bare = pattern.conversions == Conversions::None;
    Result* result = harness.Measure({group, pattern.name, NameOf(pattern.conversions),
                                      bare ? "a few ns: nothing to convert" : "ratio <= 1.3, no allocation",
                                      from.size(), subject, BareConversions(pattern, from)});
    if (result != nullptr)
    {
        const std::uint64_t before = AllocationCount();
        subject(0);
        const auto allocations = static_cast<double>(AllocationCount() - before);
        result->notes.push_back({"allocations", allocations / static_cast<double>(from.size())});
    }
}

/// A question to GetDayOfMonth: which day is the `ordinal` one among those weekdays (bit 0 Sunday).
struct DayQuestion
{
    const char* name;
    EcvReminderDayIntegralType ordinal;
    EcvReminderDayType dayType;
    unsigned weekdays;
};

bool FallsOn(int day, int month, int year, unsigned weekdays)
{
    return (weekdays >> (CTime(year, month, day, 0, 0, 0).GetDayOfWeek() - 1) & 1) != 0;
}

/// The answer by asking the runtime for the weekday of one midnight after the other.
int WalkToDay(const DayQuestion& question, int year, int month)
{
    const bool last = question.ordinal == EcvReminderDayIntegralType::Last;
    const int days = DaysInMonth(month, year);
    int missing = last ? 1 : static_cast<int>(question.ordinal) + 1;
    int day = last ? days + 1 : 0;
    while (missing > 0)
    {
        day += last ? -1 : 1;
        missing -= FallsOn(day, month, year, question.weekdays) ? 1 : 0;
    }
    return day;
}

struct Month
{
    int year;
    int month;
};

void MeasureDayOfMonth(Harness& harness, const DayQuestion& question, const std::vector<Month>& months)
{
    const auto ask = [&](const Month& at) {
        return CcvReminderDataUtilities::GetDayOfMonth(question.ordinal, question.dayType, at.year, at.month);
    };
    for (const Month& at : months)
    {
        if (ask(at) != WalkToDay(question, at.year, at.month))
        {
            throw std::logic_error("the day of the month differs from the walk");
        }
    }
    harness.Measure({kCalendar, question.name, "the walk by the runtime", "equal for all ordinals",
                     months.size(),
                     [&](std::size_t)
                     {
                         for (const Month& at : months)
                         {
                             Keep(ask(at));
                         }
                     },
                     [&](std::size_t)
                     {
                         for (const Month& at : months)
                         {
                             Keep(WalkToDay(question, at.year, at.month));
                         }
                     }});
}

void MeasureCalendar(Harness& harness)
{
    using enum EcvReminderDayIntegralType;
    constexpr unsigned kTuesday = 0b0000100;
    constexpr unsigned kWeekend = 0b1000001;
    std::vector<Month> months;
    for (int year = 2000; year < 2030; ++year)
    {
        for (int month = 1; month <= 12; ++month)
        {
            months.push_back({year, month});
        }
    }
    for (const DayQuestion& question :
         {DayQuestion{"first Tuesday", First, EcvReminderDayType::Tuesday, kTuesday},
          DayQuestion{"fourth Tuesday", Fourth, EcvReminderDayType::Tuesday, kTuesday},
          DayQuestion{"last Tuesday", Last, EcvReminderDayType::Tuesday, kTuesday},
          DayQuestion{"fourth weekend day", Fourth, EcvReminderDayType::WeekendDay, kWeekend},
          DayQuestion{"last weekend day", Last, EcvReminderDayType::WeekendDay, kWeekend}})
    {
        if (harness.Wants(kCalendar, question.name))
        {
            MeasureDayOfMonth(harness, question, months);
        }
    }
}

} // namespace

void MeasureSteps(Harness& harness)
{
    const std::vector<CTime> times = RandomTimes(384, 1990, 2037);
    for (const Pattern& pattern : PatternsOfEachKind())
    {
        MeasureStep(harness, kStep, pattern, times);
    }
    for (const Pattern& pattern : PatternsByOrdinal())
    {
        MeasureStep(harness, kOrdinals, pattern, times);
    }
    MeasureCalendar(harness);
}

} // namespace ts::bench
