#include "bench/Harness.h"

#include <algorithm>
#include <atomic>
#include <chrono>

namespace ts::bench
{
namespace
{

std::atomic<bool> g_stop{false};

/// One side of a comparison and how often its work is repeated per turn.
struct Side
{
    const Work& work;
    std::size_t passes = 1;
};

/// The nanoseconds that `side` needs for its passes over one part.
double TimePart(const Side& side, std::size_t part)
{
    if (g_stop.load(std::memory_order_relaxed))
    {
        throw Interrupted();
    }
    const auto begin = std::chrono::steady_clock::now();
    for (std::size_t pass = 0; pass < side.passes; ++pass)
    {
        side.work(part);
    }
    const std::chrono::duration<double, std::nano> elapsed = std::chrono::steady_clock::now() - begin;
    return elapsed.count();
}

/// Finds how many passes fill the minimum time; warms the caches on the way.
void Calibrate(Side& side, double minimumNs)
{
    for (double elapsed = TimePart(side, 0); elapsed < minimumNs; elapsed = TimePart(side, 0))
    {
        const double missing = elapsed > 0 ? minimumNs / elapsed : 2;
        side.passes = static_cast<std::size_t>(static_cast<double>(side.passes) *
                                               std::clamp(missing * 1.1, 1.2, 10.0)) +
                      1;
    }
}

/// The middle of the samples, or the mean of the two in the middle, and the outermost ones.
Spread SpreadOf(std::vector<double> samples)
{
    std::sort(samples.begin(), samples.end());
    const std::size_t upper = samples.size() / 2;
    const std::size_t lower = (samples.size() - 1) / 2;
    return {(samples[lower] + samples[upper]) / 2, samples.front(), samples.back()};
}

/// The nanoseconds per operation of both sides over all parts, taken in turns.
std::pair<double, double> TimeOnce(const Side& subject, const Side& baseline, const Comparison& comparison)
{
    double subjectNs = 0;
    double baselineNs = 0;
    for (std::size_t part = 0; part < comparison.parts; ++part)
    {
        subjectNs += TimePart(subject, part);
        baselineNs += TimePart(baseline, part);
    }
    const auto operations = static_cast<double>(comparison.operations);
    return {subjectNs / static_cast<double>(subject.passes) / operations,
            baselineNs / static_cast<double>(baseline.passes) / operations};
}

} // namespace

bool Harness::Wants(const std::string& group, const std::string& name) const
{
    return (group + "/" + name).find(m_settings.filter) != std::string::npos;
}

Result* Harness::Measure(const Comparison& comparison)
{
    if (!Wants(comparison.group, comparison.name))
    {
        return nullptr;
    }
    Side subject{comparison.subject};
    Side baseline{comparison.baseline};
    Calibrate(subject, m_settings.minimumNs);
    Calibrate(baseline, m_settings.minimumNs);

    const int runs = std::min(m_settings.runs, comparison.mostRuns);
    std::vector<double> subjectNs;
    std::vector<double> baselineNs;
    std::vector<double> ratios;
    for (int run = 0; run < runs; ++run)
    {
        const auto [ours, theirs] = TimeOnce(subject, baseline, comparison);
        subjectNs.push_back(ours);
        baselineNs.push_back(theirs);
        ratios.push_back(ours / theirs);
    }
    m_results.push_back({comparison.group,
                         comparison.name,
                         comparison.baselineIs,
                         comparison.expectation,
                         comparison.operations,
                         ratios.size(),
                         SpreadOf(subjectNs),
                         SpreadOf(baselineNs),
                         SpreadOf(ratios),
                         {}});
    return &m_results.back();
}

const Result* Harness::Find(const std::string& group, const std::string& name) const
{
    const auto found =
        std::find_if(m_results.begin(), m_results.end(),
                     [&](const Result& result) { return result.group == group && result.name == name; });
    return found == m_results.end() ? nullptr : &*found;
}

void RequestStop() noexcept
{
    g_stop.store(true, std::memory_order_relaxed);
}

} // namespace ts::bench
