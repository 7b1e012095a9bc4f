// The due time in force of reminders that nobody looked at for 20 years, beside the literal walk from one
// occurrence to the next. Asking moves a record on, so both sides set it back first.

#include "bench/Allocations.h"
#include "bench/Patterns.h"
#include "bench/Suites.h"

#include <stdexcept>

namespace ts::bench
{
namespace
{

constexpr char kGroup[] = "catch-up, 20 years";
constexpr int kYearOfStart = 2006;

CTime EndOfCatchUp()
{
    return CTime(kYearOfStart + 20, 6, 17, 10, 30, 0);
}

/// A record, when it began, and how many occurrences lie between then and the end.
struct Case
{
    CcvReminderData record;
    CTime start;
    int steps = 0;
};

/// The occurrence in force at `now`, and the steps to it, by the rule taken literally.
std::pair<CTime, int> Walk(const CcvReminderData& record, CTime now)
{
    CTime present = record.GetNextDueDate();
    const CTime latest = now + record.GetReminderTimeSpan();
    for (int steps = 0;; ++steps)
    {
        const CTime next = record.GetNextRecurrentTime(present);
        if (next <= present || next > latest)
        {
            return {present, steps};
        }
        present = next;
    }
}

/// Counts the steps and makes sure that both sides do the same.
void CheckAndCount(Case& subject, CTime now)
{
    subject.record.SetNextDueDate(subject.start);
    const auto [due, steps] = Walk(subject.record, now);
    if (subject.record.GetCalculatedDueTime(now) != due)
    {
        throw std::logic_error("the calculated due time differs from the walk");
    }
    subject.steps = steps;
}

std::vector<Case> CasesOf(const Pattern& pattern, const std::vector<CTime>& times, CTime now)
{
    std::vector<Case> cases;
    for (const CTime& start : FirstOccurrences(pattern.record, times))
    {
        cases.push_back({pattern.record, start});
        CheckAndCount(cases.back(), now);
    }
    return cases;
}

/// The comparison over those cases, cut into parts of equal size.
Comparison Compare(const std::string& name, const char* expectation, std::vector<Case>& cases,
                   std::size_t parts, CTime now)
{
    const std::size_t perPart = cases.size() / parts;
    const Work subject = [&cases, now, perPart](std::size_t part)
    {
        for (std::size_t index = part * perPart; index < (part + 1) * perPart; ++index)
        {
            cases[index].record.SetNextDueDate(cases[index].start);
            Keep(cases[index].record.GetCalculatedDueTime(now).GetTime());
        }
    };
    const Work baseline = [&cases, now, perPart](std::size_t part)
    {
        for (std::size_t index = part * perPart; index < (part + 1) * perPart; ++index)
        {
            cases[index].record.SetNextDueDate(cases[index].start);
            Keep(Walk(cases[index].record, now).first.GetTime());
        }
    };
    return {kGroup, name, "the walk step by step", expectation, cases.size(), subject, baseline, parts};
}

double MeanSteps(const std::vector<Case>& cases)
{
    double steps = 0;
    for (const Case& one : cases)
    {
        steps += one.steps;
    }
    return steps / static_cast<double>(cases.size());
}

void AddNotes(const Harness& harness, Result& result, const Comparison& comparison,
              const std::vector<Case>& cases, const std::string& pattern)
{
    result.notes.push_back({"steps walked", MeanSteps(cases)});
    // The walk asks once more than it steps. Its own time gives the steps that the subject's time is worth,
    // in the same turns; the step measured alone gives them across two measurements.
    result.notes.push_back({"by time", result.ratio.median * (MeanSteps(cases) + 1)});
    if (const Result* step = harness.Find("step", pattern))
    {
        result.notes.push_back({"by single steps", result.subject.median / step->subject.median});
    }
    const std::uint64_t before = AllocationCount();
    comparison.subject(0);
    const std::size_t casesOfAPart = cases.size() / comparison.parts;
    result.notes.push_back(
        {"allocations", static_cast<double>(AllocationCount() - before) / static_cast<double>(casesOfAPart)});
}

const char* ExpectationOf(EcvReminderRecurrenceType type)
{
    switch (type)
    {
    case EcvReminderRecurrenceType::Monthly:
        return "< 250 steps";
    case EcvReminderRecurrenceType::Yearly:
        return "< 25 steps";
    default:
        return "< 1000 ns";
    }
}

void MeasurePattern(Harness& harness, const Pattern& pattern, const std::vector<CTime>& times, CTime now)
{
    if (!harness.Wants(kGroup, pattern.name))
    {
        return;
    }
    std::vector<Case> cases = CasesOf(pattern, times, now);
    const Comparison comparison =
        Compare(pattern.name, ExpectationOf(pattern.record.GetRecurrenceType()), cases, 1, now);
    if (Result* result = harness.Measure(comparison))
    {
        AddNotes(harness, *result, comparison, cases, pattern.name);
    }
}

/// Reminders so late in the day that a clock change could carry them over midnight.
void MeasureLateEvenings(Harness& harness, const std::vector<Pattern>& patterns, CTime now)
{
    std::vector<CTime> evenings;
    for (int day = 1; day <= 28; ++day)
    {
        evenings.emplace_back(kYearOfStart, 6, day, 23, 30, 0);
    }
    for (const Pattern& pattern : patterns)
    {
        const std::string name = pattern.name + ", 23:30";
        if (pattern.conversions != Conversions::BreakDown || !harness.Wants(kGroup, name))
        {
            continue;
        }
        std::vector<Case> cases = CasesOf(pattern, evenings, now);
        const Comparison comparison = Compare(name, "< 1000 ns, the walk where clocks change", cases, 1, now);
        if (Result* result = harness.Measure(comparison))
        {
            AddNotes(harness, *result, comparison, cases, pattern.name);
        }
    }
}

void MeasureBatch(Harness& harness, const std::vector<Pattern>& patterns, CTime now)
{
    constexpr std::size_t kCount = 10'000;
    constexpr std::size_t kParts = 50;
    constexpr char kName[] = "10,000 reminders, per reminder";
    if (!harness.Wants(kGroup, kName))
    {
        return;
    }
    const std::vector<CTime> times = RandomTimes(kCount, kYearOfStart, kYearOfStart);
    std::vector<Case> cases;
    for (std::size_t index = 0; index < kCount; ++index)
    {
        const Pattern& pattern = patterns[index % patterns.size()];
        cases.push_back({pattern.record, FirstOccurrences(pattern.record, {times[index]}).front()});
        CheckAndCount(cases.back(), now);
    }
    Comparison comparison = Compare(kName, "the mean of the patterns above", cases, kParts, now);
    comparison.mostRuns = 3;
    if (Result* result = harness.Measure(comparison))
    {
        AddNotes(harness, *result, comparison, cases, kName);
        result->notes.push_back({"ms for all", result->subject.median * kCount / 1e6});
    }
}

/// Shows what setting a record back adds to the figures above.
void MeasureReset(Harness& harness, const Pattern& pattern)
{
    std::vector<CcvReminderData> records(256, pattern.record);
    std::vector<std::int64_t> times(records.size());
    harness.Measure({kGroup, "setting a record back alone", "a 64-bit store", "nothing that counts",
                     records.size(),
                     [&](std::size_t)
                     {
                         for (CcvReminderData& record : records)
                         {
                             record.SetNextDueDate(1'150'000'000);
                             Keep(record.GetNextDueDate().GetTime());
                         }
                     },
                     [&](std::size_t)
                     {
                         for (std::int64_t& time : times)
                         {
                             time = 1'150'000'000;
                             Keep(time);
                         }
                     }});
}

} // namespace

void MeasureCatchUp(Harness& harness)
{
    const CTime now = EndOfCatchUp();
    const std::vector<Pattern> patterns = PatternsOfEachKind();
    const std::vector<CTime> times = RandomTimes(32, kYearOfStart, kYearOfStart);
    MeasureReset(harness, patterns.front());
    for (const Pattern& pattern : patterns)
    {
        MeasurePattern(harness, pattern, times, now);
    }
    MeasureLateEvenings(harness, patterns, now);
    MeasureBatch(harness, patterns, now);
}

} // namespace ts::bench
