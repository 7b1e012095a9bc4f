#include "App.h"

#include "CommandLine.h"
#include "Commands.h"
#include "DisplayText.h"
#include "Errors.h"
#include "Strings.h"

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
    AddOptionsCommand(app, session);
}

int Fail(std::ostream& err, const std::string& reason, ExitCode code)
{
    err << "reminders: " << Printable(reason) << "\n";
    return code;
}

/// Help and version are exceptions of the parser, too.
int AnswerParser(const CLI::App& app, const CLI::ParseError& error, const std::vector<std::string>& arguments,
                 const Session& session, std::ostream& err)
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
    // Of these two the parser would only say that a command is missing, or some argument not expected.
    const std::string& first = arguments.front();
    if (first.starts_with('-'))
    {
        return Fail(err, "an option comes after its command: " + Quoted(first) + " (see reminders --help)",
                    kWrongUse);
    }
    if (app.get_subcommands([&first](const CLI::App* command) { return command->get_name() == first; })
            .empty())
    {
        return Fail(err, "there is no command " + Quoted(first) + " (see reminders --help)", kWrongUse);
    }
    return Fail(err, std::string(error.what()) + " (see reminders " + first + " --help)", kWrongUse);
}

int RunCommand(const std::vector<std::string>& arguments, Session& session, std::ostream& err)
{
    CLI::App app("Reminders of topics in map documents, kept in the registry.");
    Declare(app, session);
    if (arguments.empty())
    {
        session.out << app.help() << "\n";
        return Fail(err, "a command is needed", kWrongUse);
    }
    try
    {
        // The parser takes its arguments from the back.
        app.parse(std::vector<std::string>(arguments.rbegin(), arguments.rend()));
        return kDone;
    }
    catch (const CLI::ParseError& error)
    {
        return AnswerParser(app, error, arguments, session, err);
    }
}

} // namespace

int Run(const std::vector<std::string>& arguments, Session& session, std::ostream& err)
{
    try
    {
        return RunCommand(arguments, session, err);
    }
    catch (const UsageError& error)
    {
        return Fail(err, error.what(), kWrongUse);
    }
    catch (const std::exception& error)
    {
        return Fail(err, error.what(), kFailed);
    }
}

} // namespace ts::console
