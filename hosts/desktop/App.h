#pragma once

#include "CommandLine.h"

namespace ts::desktop
{

/// Runs the program. What it ends with.
[[nodiscard]] int Run(const CommandLine& commandLine);

} // namespace ts::desktop
