#include "CommandLine.h"

#include <CLI/CLI.hpp>

#include <algorithm>

namespace ts::desktop
{
namespace
{

/// COM adds it in either form, in any case of its letters.
bool IsEmbedding(const std::string& argument)
{
    return argument.size() > 1 && (argument[0] == '-' || argument[0] == '/') &&
           CLI::detail::to_lower(argument.substr(1)) == "embedding";
}

struct Flags
{
    bool doRegister = false;
    bool doUnregister = false;
};

void Declare(CLI::App& app, Flags& flags)
{
    app.name("TessalyHost");
    app.allow_windows_style_options(false);
    app.set_version_flag("--version", std::string("TessalyHost " TS_VERSION), "Print the version and exit");
    auto* const doRegister =
        app.add_flag("--register", flags.doRegister, "Let other programs start the application, and exit");
    app.add_flag("--unregister", flags.doUnregister, "Take that back, and exit")->excludes(doRegister);
    app.footer("Without an option: shows the topics that have reminders.");
}

Task TaskOf(const Flags& flags)
{
    if (flags.doRegister)
    {
        return Task::Register;
    }
    return flags.doUnregister ? Task::Unregister : Task::Run;
}

} // namespace

CommandLine Parse(const std::vector<std::string>& arguments)
{
    if (std::ranges::any_of(arguments, IsEmbedding))
    {
        return {Task::Serve, {}};
    }
    CLI::App app("Tessaly: topics with reminders in map documents.");
    Flags flags;
    Declare(app, flags);
    try
    {
        // The parser takes its arguments from the back.
        app.parse(std::vector<std::string>(arguments.rbegin(), arguments.rend()));
        return {TaskOf(flags), {}};
    }
    catch (const CLI::CallForHelp&)
    {
        return {Task::Tell, app.help()};
    }
    catch (const CLI::CallForVersion& version)
    {
        return {Task::Tell, std::string(version.what()) + "\n"};
    }
    catch (const CLI::ParseError& error)
    {
        return {Task::Complain, std::string(error.what()) + " (see TessalyHost --help)"};
    }
}

} // namespace ts::desktop
