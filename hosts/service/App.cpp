#include "App.h"

#include "LogOnEntry.h"
#include "ReminderService.h"
#include "RunningService.h"
#include "hosts/common/Console.h"
#include "hosts/common/Errors.h"
#include "hosts/common/SingleInstance.h"

#include <CLI/CLI.hpp>

namespace ts::service
{
namespace
{

using enum hosts::ExitCode;

/// The running service may be waiting for Outlook when it ends.
constexpr DWORD kStopPatience = 20'000;

struct Options
{
    bool install = false;
    bool uninstall = false;
    bool stop = false;
};

void Declare(CLI::App& app, Options& options)
{
    app.name("TessalyReminderService");
    app.allow_windows_style_options(false);
    app.set_version_flag("--version", std::string("TessalyReminderService " TS_VERSION));
    app.add_flag("--install", options.install, "Start the service whenever you log on");
    app.add_flag("--uninstall", options.uninstall, "Start it no more when you log on");
    app.add_flag("--stop", options.stop, "End the service that runs");
    app.footer("Without an option it shows an alert whenever a reminder becomes due, until you log off. When "
               "it\nruns already, that one shows what is due.\n\nExample:\n  TessalyReminderService --stop "
               "--uninstall");
}

void Install(std::ostream& out)
{
    WriteLogOnEntry(hosts::ProgramPath());
    out << "The reminder service starts whenever you log on.\n";
}

void Uninstall(std::ostream& out)
{
    out << (RemoveLogOnEntry() ? "The reminder service starts no more when you log on.\n"
                               : "The reminder service was not installed.\n");
}

void Stop(std::ostream& out)
{
    const HWND service = FindRunningService();
    if (service == nullptr)
    {
        out << "No reminder service runs.\n";
        return;
    }
    if (!StopService(service, kStopPatience))
    {
        throw hosts::OperationError("the reminder service does not end");
    }
    out << "The reminder service has ended.\n";
}

/// Or lets the one that runs show what is due.
void Serve()
{
    hosts::SingleInstance instance(L"TessalyReminderService");
    if (const HWND other = instance.Compete(FindRunningService); other != nullptr)
    {
        hosts::HandOver(other, hosts::kShowDueMessage);
        return;
    }
    ReminderService service;
    service.Run();
}

void Execute(const Options& options, std::ostream& out)
{
    if (options.install && (options.uninstall || options.stop))
    {
        throw hosts::UsageError("--install goes with no other option");
    }
    if (options.install)
    {
        Install(out);
    }
    if (options.stop)
    {
        Stop(out);
    }
    if (options.uninstall)
    {
        Uninstall(out);
    }
    if (!options.install && !options.stop && !options.uninstall)
    {
        Serve();
    }
}

int Fail(std::ostream& err, const std::string& reason, hosts::ExitCode code)
{
    err << "TessalyReminderService: " << reason << "\n";
    return code;
}

/// Help and version are exceptions of the parser, too.
int AnswerParser(const CLI::App& app, const CLI::ParseError& error, std::ostream& out, std::ostream& err)
{
    if (error.get_name() == "CallForHelp")
    {
        out << app.help() << "\n";
        return kDone;
    }
    if (error.get_name() == "CallForVersion")
    {
        out << error.what() << "\n";
        return kDone;
    }
    return Fail(err, std::string(error.what()) + " (see TessalyReminderService --help)", kWrongUse);
}

} // namespace

int Run(const std::vector<std::string>& arguments, std::ostream& out, std::ostream& err)
{
    CLI::App app("Shows reminders of topics in map documents when they become due.");
    Options options;
    Declare(app, options);
    try
    {
        // The parser takes its arguments from the back.
        app.parse(std::vector<std::string>(arguments.rbegin(), arguments.rend()));
        Execute(options, out);
        return kDone;
    }
    catch (const CLI::ParseError& error)
    {
        return AnswerParser(app, error, out, err);
    }
    catch (const hosts::UsageError& error)
    {
        return Fail(err, error.what(), kWrongUse);
    }
    catch (const std::exception& error)
    {
        return Fail(err, error.what(), kFailed);
    }
}

} // namespace ts::service
