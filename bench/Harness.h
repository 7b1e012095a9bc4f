#pragma once

#include <cstdint>
#include <deque>
#include <functional>
#include <limits>
#include <string>
#include <utility>
#include <vector>

/// Measures a piece of work beside a baseline.
///
/// Subject and baseline run in turns (A B A B ...), so that both meet the same noise. Each turn repeats its
/// work until a minimum time has passed; how many repetitions that takes is found beforehand, for each
/// side by itself. What counts is the median of each side and the median of the ratios of neighbouring turns.
namespace ts::bench
{

/// Makes the compiler compute a value that nobody reads.
inline void Keep(std::int64_t value) noexcept
{
    asm volatile("" : : "r"(value) : "memory");
}

/// A pass over a comparison's work, or over the share with that index where the work is cut into several.
using Work = std::function<void(std::size_t part)>;

struct Comparison
{
    std::string group;
    std::string name;
    std::string baselineIs;  ///< what the baseline does, in a few words
    std::string expectation; ///< what is expected; text only, nothing fails by it
    std::size_t operations;  ///< in all parts together; figures are given per operation
    Work subject;
    Work baseline;
    /// Long work is cut into parts that take turns, so that a burst of noise meets both sides.
    std::size_t parts = 1;
    int mostRuns = std::numeric_limits<int>::max(); ///< for work that is long enough to be quiet
};

struct Spread
{
    double median = 0;
    double min = 0;
    double max = 0;
};

struct Note
{
    std::string name;
    double value;
};

/// The outcome of one comparison; times in nanoseconds per operation.
struct Result
{
    std::string group;
    std::string name;
    std::string baselineIs;
    std::string expectation;
    std::size_t operations = 0;
    std::size_t runs = 0;
    Spread subject;
    Spread baseline;
    Spread ratio;
    std::vector<Note> notes;
};

struct Settings
{
    int runs = 31;
    double minimumNs = 3e6; ///< the least duration of one turn
    std::string filter;     ///< measure only what has this in "group/name"
};

class Harness
{
  public:
    explicit Harness(Settings settings) : m_settings(std::move(settings)) {}

    /// Whether the filter lets it through. Ask before preparing costly inputs.
    [[nodiscard]] bool Wants(const std::string& group, const std::string& name) const;
    /// Measures and keeps the result, which stays at its address for more notes to be added; null when the
    /// filter holds it back. Throws Interrupted.
    Result* Measure(const Comparison& comparison);
    /// An earlier result, or null.
    [[nodiscard]] const Result* Find(const std::string& group, const std::string& name) const;

    [[nodiscard]] const Settings& GetSettings() const { return m_settings; }
    [[nodiscard]] const std::deque<Result>& Results() const { return m_results; }

  private:
    Settings m_settings;
    std::deque<Result> m_results;
};

/// Thrown between two turns after RequestStop, so that everything is cleaned up on the way out.
class Interrupted
{
};

/// Ends the measurements at the next occasion. Any thread.
void RequestStop() noexcept;

} // namespace ts::bench
