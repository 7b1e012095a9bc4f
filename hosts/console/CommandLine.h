#pragma once

#include <CLI/CLI.hpp>

#include <optional>
#include <string>

/// What the commands share in declaring their arguments. Texts are taken as they are typed: the commands
/// look into them, so that their messages are of one kind.
namespace ts::console
{

/// A command with a help text that closes with an example.
[[nodiscard]] inline CLI::App* AddCommand(CLI::App& app, const std::string& name,
                                          const std::string& description, const std::string& example)
{
    CLI::App* command = app.add_subcommand(name, description);
    command->group("Commands");
    command->footer("Example:\n  " + example);
    return command;
}

/// An option whose text may be empty; none when it was not given.
inline CLI::Option* AddText(CLI::App& command, const std::string& name, std::optional<std::string>& text,
                            const std::string& type, const std::string& description)
{
    return command
        .add_option_function<std::string>(
            name, [&text](const std::string& given) { text = given; }, description)
        ->type_name(type);
}

/// An argument that must be given.
inline void AddArgument(CLI::App& command, const std::string& name, std::string& text,
                        const std::string& description)
{
    command.add_option(name, text, description)->required()->type_name("");
}

} // namespace ts::console
