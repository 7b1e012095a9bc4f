// bench_reminders: how long the library takes, beside what it cannot avoid. Nothing fails by being slow.

#include "bench/Report.h"
#include "bench/Suites.h"
#include "platform/WindowsHeaders.h"

#include <CLI/CLI.hpp>
#include <algorithm>
#include <cstdlib>
#include <iostream>

namespace
{

constexpr int kFailed = 1;
constexpr int kWrongUse = 2;

struct Options
{
    ts::bench::Settings settings;
    bool json = false;
    bool quick = false;
};

void Declare(CLI::App& app, Options& options)
{
    app.add_flag("--json", options.json, "Print one JSON document instead of a table");
    app.add_flag("--quick", options.quick, "Fewer and shorter runs: a look, not a measurement");
    app.add_option("--runs", options.settings.runs, "Runs per comparison (long ones take fewer)")
        ->check(CLI::Range(1, 10'000));
    app.add_option("--filter", options.settings.filter,
                   R"(Only what has this text in "group/name", for example "step/monthly")");
    app.footer("Example: bench_reminders --filter store --runs 5");
}

BOOL WINAPI StopOnControl(DWORD) noexcept
{
    ts::bench::RequestStop();
    return TRUE;
}

int Run(const Options& options)
{
    ts::bench::Harness harness(options.settings);
    ts::bench::MeasureSteps(harness);
    ts::bench::MeasureCatchUp(harness);
    ts::bench::MeasureStore(harness);
    ts::bench::MeasureCollection(harness);
#ifdef TS_WITH_OUTLOOK_STANDIN
    ts::bench::MeasureOutlook(harness);
#endif
    ts::bench::MeasureList(harness);
    if (harness.Results().empty())
    {
        std::cerr << "bench_reminders: nothing has \"" << options.settings.filter << "\" in its name\n";
        return kWrongUse;
    }
    if (options.json)
    {
        ts::bench::WriteJson(std::cout, harness);
    }
    else
    {
        ts::bench::WriteTable(std::cout, harness);
    }
    return 0;
}

} // namespace

int main(int argc, char** argv)
{
    // A zone name in the environment misleads the C runtime; without it, it asks the operating system.
    _putenv("TZ=");
    _tzset();
    CLI::App app("Measures the reminder library beside bare baselines.");
    Options options;
    Declare(app, options);
    try
    {
        app.parse(argc, argv);
    }
    catch (const CLI::ParseError& error)
    {
        return app.exit(error) == 0 ? 0 : kWrongUse;
    }
    if (options.quick)
    {
        constexpr int kQuickRuns = 3;
        options.settings.runs = std::min(options.settings.runs, kQuickRuns);
        options.settings.minimumNs = 5e5;
    }
    SetConsoleCtrlHandler(StopOnControl, TRUE);
    try
    {
        return Run(options);
    }
    catch (const ts::bench::Interrupted&)
    {
        std::cerr << "bench_reminders: interrupted\n";
    }
    catch (const std::exception& error)
    {
        std::cerr << "bench_reminders: " << error.what() << "\n";
    }
    return kFailed;
}
