#pragma once

#include "Session.h"
#include "hosts/common/ExitCode.h"

#include <string>
#include <vector>

namespace ts::console
{

using hosts::ExitCode;
using enum hosts::ExitCode;

/// Runs one command. `arguments` are UTF-8, without the program's name. The reason of a failure is one line
/// on the session's error stream. The exit code of the program.
[[nodiscard]] int Run(const std::vector<std::string>& arguments, Session& session);

} // namespace ts::console
