#include "App.h"

#include "CommandLine.h"
#include "Commands.h"
#include "DisplayText.h"
#include "Errors.h"
#include "Strings.h"

#include <algorithm>

namespace ts::console
{
namespace
{

void Declare(CLI::App& app, Session& session)
{
    app.name("reminders");
    app.get_formatter()->label("SUBCOMMAND", "COMMAND");
    // A path that begins with a slash is no option.
    app.allow_windows_style_options(false);
    app.set_version_flag("--version", std::string("reminders " TS_VERSION));
    app.require_subcommand(1);
    app.footer("Example:\n  reminders list --filter today\n\n"
               "'reminders COMMAND --help' says more about a command.");
    AddViewingCommands(app, session);
    AddEditingCommands(app, session);
    AddStateCommands(app, session);
    AddWatchCommand(app, session);
    AddOutlookCommands(app, session);
    AddOptionsCommand(app, session);
}

int Fail(std::ostream& err, const std::string& reason, ExitCode code)
{
    err << "reminders: " << Printable(reason) << "\n";
    return code;
}

bool HasCommand(const CLI::App& app, const std::string& name)
{
    const auto commands = app.get_subcommands([](const CLI::App*) { return true; });
    return std::ranges::any_of(commands, [&](const CLI::App* command) { return command->check_name(name); });
}

/// Help and version are exceptions of the parser, too.
int AnswerParser(const CLI::App& app, const CLI::ParseError& error, const std::vector<std::string>& arguments,
                 const Session& session)
{
    if (error.get_name() == "CallForHelp" || error.get_name() == "CallForAllHelp")
    {
        session.out << app.help() << "\n";
        return kDone;
    }
    if (error.get_name() == "CallForVersion")
    {
        session.out << error.what() << "\n";
        return kDone;
    }
    const auto commands = app.get_subcommands();
    const std::string command = commands.empty() ? "" : " " + commands.front()->get_name();
    // The parser would only say that a command is missing, or that some argument was not expected.
    const std::string& first = arguments.front();
    std::string reason = error.what();
    if (first.starts_with('-'))
    {
        reason = "an option comes after its command: " + Quoted(first);
    }
    else if (!HasCommand(app, first))
    {
        reason = "there is no command " + Quoted(first);
    }
    return Fail(session.err, reason + " (see reminders" + command + " --help)", kWrongUse);
}

int RunCommand(const std::vector<std::string>& arguments, Session& session)
{
    CLI::App app("Reminders of topics in map documents, kept in the registry.");
    Declare(app, session);
    if (arguments.empty())
    {
        session.out << app.help() << "\n";
        return Fail(session.err, "a command is needed", kWrongUse);
    }
    try
    {
        // The parser takes its arguments from the back.
        app.parse(std::vector<std::string>(arguments.rbegin(), arguments.rend()));
        return kDone;
    }
    catch (const CLI::ParseError& error)
    {
        return AnswerParser(app, error, arguments, session);
    }
}

} // namespace

int Run(const std::vector<std::string>& arguments, Session& session)
{
    try
    {
        return RunCommand(arguments, session);
    }
    catch (const UsageError& error)
    {
        return Fail(session.err, error.what(), kWrongUse);
    }
    catch (const std::exception& error)
    {
        return Fail(session.err, error.what(), kFailed);
    }
}

} // namespace ts::console
