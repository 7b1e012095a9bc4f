#pragma once

#include <string>
#include <vector>

namespace ts::desktop
{

enum class Task
{
    Run,   ///< show the main window
    Serve, ///< started by COM: stay out of sight until a client shows the window
    Register,
    Unregister,
    Tell,    ///< show a text: help, version
    Complain ///< show what is wrong with the command line
};

struct CommandLine
{
    Task task = Task::Run;
    std::string text;
};

/// `arguments` are UTF-8, without the program's name.
[[nodiscard]] CommandLine Parse(const std::vector<std::string>& arguments);

} // namespace ts::desktop
