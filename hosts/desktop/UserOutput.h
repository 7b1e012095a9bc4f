#pragma once

#include <string>
#include <vector>

namespace ts::desktop
{

/// The words of the command line behind the program's name, as UTF-8.
[[nodiscard]] std::vector<std::string> CommandLineArguments();

// A program with windows has no console: a text goes where the standard handles lead, else to the console of
// the program that started this one, else into a message box.

void Tell(const std::string& text);
/// One line, with the program's name before it.
void Complain(const std::string& reason);

} // namespace ts::desktop
