#pragma once

#include "platform/WindowsHeaders.h"

#include <sstream>
#include <string>
#include <string_view>
#include <vector>

/// What the process was started with, and its standard handles.
namespace ts::hosts
{

/// A TZ variable, of a Unix-like shell for example, would mislead the C runtime; the system's zone is right.
void IgnoreZoneVariable();

/// The full path of the program. Raises OperationError when the system does not tell.
[[nodiscard]] std::wstring ProgramPath();

/// The arguments after the program's name, in UTF-8.
[[nodiscard]] std::vector<std::string> CommandLineArguments();

/// The columns of the console if standard output is one, else what the variable COLUMNS says, else 100.
[[nodiscard]] std::size_t TerminalWidth();

/// Writes UTF-8 to a standard handle: as it is to files and pipes, as UTF-16 to a console. Whether all of it
/// was written.
[[nodiscard]] bool WriteText(DWORD standardHandle, std::string_view text);

/// Of a stream to a standard handle that writes when it is flushed. What could not be written makes the
/// stream bad.
class StandardBuffer : public std::stringbuf
{
  public:
    explicit StandardBuffer(DWORD standardHandle) : m_standardHandle(standardHandle) {}

  protected:
    int sync() override;

  private:
    DWORD m_standardHandle;
};

} // namespace ts::hosts
