#include "bench/Report.h"

#include "bench/Patterns.h"
#include "platform/WindowsHeaders.h"

#include <algorithm>
#include <iomanip>
#include <nlohmann/json.hpp>
#include <sstream>

namespace ts::bench
{
namespace
{

/// The local zone as the operating system names it, and the offset from UTC that the C runtime uses for it:
/// the two can differ when the environment is set up badly.
struct Zone
{
    std::string name;
    long minutesWest = 0;
    bool changesClocks = false;
};

Zone PresentZone()
{
    DYNAMIC_TIME_ZONE_INFORMATION information{};
    GetDynamicTimeZoneInformation(&information);
    Zone zone;
    for (const wchar_t* letter = information.TimeZoneKeyName; *letter != L'\0'; ++letter)
    {
        zone.name += *letter < 128 ? static_cast<char>(*letter) : '?';
    }
    zone.minutesWest = _timezone / 60;
    zone.changesClocks = _daylight != 0;
    return zone;
}

/// Whole numbers from 100 on, below that two decimals, below 0.1 two digits that count.
std::string Figure(double value)
{
    int decimals = value < 100 ? 2 : 0;
    for (double limit = 0.1; value > 0 && value < limit && decimals < 8; limit /= 10)
    {
        ++decimals;
    }
    std::ostringstream text;
    text << std::fixed << std::setprecision(decimals) << value;
    return text.str();
}

std::string NotesOf(const Result& result)
{
    std::string text;
    for (const Note& note : result.notes)
    {
        text += (text.empty() ? "" : ", ") + note.name + " " + Figure(note.value);
    }
    return text;
}

void WriteLine(std::ostream& out, const Result& result, int nameWidth, int expectationWidth)
{
    out << "  " << std::left << std::setw(nameWidth) << result.name << std::right << std::setw(12)
        << Figure(result.subject.median) << std::setw(12) << Figure(result.baseline.median) << std::setw(9)
        << Figure(result.ratio.median) << "  " << std::left << std::setw(expectationWidth)
        << result.expectation << "  " << NotesOf(result) << "\n";
}

int LongestOf(const Harness& harness, std::string Result::*text)
{
    std::size_t longest = 0;
    for (const Result& result : harness.Results())
    {
        longest = std::max(longest, (result.*text).size());
    }
    return static_cast<int>(longest);
}

nlohmann::ordered_json JsonOf(const Spread& spread)
{
    return {{"median", spread.median}, {"min", spread.min}, {"max", spread.max}};
}

nlohmann::ordered_json JsonOf(const Result& result)
{
    nlohmann::ordered_json notes = nlohmann::ordered_json::object();
    for (const Note& note : result.notes)
    {
        notes[note.name] = note.value;
    }
    return {{"group", result.group},
            {"name", result.name},
            {"baseline", result.baselineIs},
            {"expectation", result.expectation},
            {"operations", result.operations},
            {"runs", result.runs},
            {"subjectNs", JsonOf(result.subject)},
            {"baselineNs", JsonOf(result.baseline)},
            {"ratio", JsonOf(result.ratio)},
            {"notes", notes}};
}

} // namespace

void WriteTable(std::ostream& out, const Harness& harness)
{
    const Zone zone = PresentZone();
    out << "Zone " << zone.name << " (" << zone.minutesWest << " minutes west of UTC, "
        << (zone.changesClocks ? "clocks change" : "clocks never change") << "). Medians of "
        << harness.GetSettings().runs
        << " runs or fewer,\nsubject and baseline in turns; the ratio is the median of the runs' ratios.\n";
    const int nameWidth = LongestOf(harness, &Result::name);
    const int expectationWidth = LongestOf(harness, &Result::expectation);
    std::string heading;
    for (const Result& result : harness.Results())
    {
        const std::string next = result.group + " (baseline: " + result.baselineIs + ")";
        if (next != heading)
        {
            heading = next;
            out << "\n"
                << heading << "\n  " << std::left << std::setw(nameWidth) << "what" << std::right
                << std::setw(12) << "subject ns" << std::setw(12) << "baseline ns" << std::setw(9) << "ratio"
                << "  " << std::left << std::setw(expectationWidth) << "expected"
                << "  notes\n";
        }
        WriteLine(out, result, nameWidth, expectationWidth);
    }
}

void WriteJson(std::ostream& out, const Harness& harness)
{
    const Zone zone = PresentZone();
    nlohmann::ordered_json results = nlohmann::ordered_json::array();
    for (const Result& result : harness.Results())
    {
        results.push_back(JsonOf(result));
    }
    const nlohmann::ordered_json document = {
        {"zone",
         {{"name", zone.name}, {"minutesWest", zone.minutesWest}, {"changesClocks", zone.changesClocks}}},
        {"seed", kSeed},
        {"minimumMsPerTurn", harness.GetSettings().minimumNs / 1e6},
        {"results", results}};
    out << document.dump(2) << "\n";
}

} // namespace ts::bench
