#pragma once

#include "hosts/common/ExitCode.h"

#include <ostream>
#include <string>
#include <vector>

namespace ts::service
{

/// Runs the program. `arguments` are UTF-8, without the program's name; without any it is the service, until
/// it is asked to end. The reason of a failure is one line on `err`. The exit code of the program.
[[nodiscard]] int Run(const std::vector<std::string>& arguments, std::ostream& out, std::ostream& err);

} // namespace ts::service
