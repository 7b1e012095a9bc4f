#pragma once

#include "Session.h"

#include <string>
#include <vector>

namespace ts::console
{

/// What the process ends with.
enum ExitCode : int
{
    kDone = 0,
    kFailed = 1,
    kWrongUse = 2
};

/// Runs one command. `arguments` are UTF-8, without the program's name. The reason of a failure is one line
/// on the session's error stream. The exit code of the program.
[[nodiscard]] int Run(const std::vector<std::string>& arguments, Session& session);

} // namespace ts::console
