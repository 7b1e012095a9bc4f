#pragma once

#include <string>

/// The value of the registry that starts the service when the user logs on.
namespace ts::service
{

inline constexpr wchar_t kRunPath[] = L"Software\\Microsoft\\Windows\\CurrentVersion\\Run";
inline constexpr wchar_t kRunValue[] = L"TessalyReminderService";

// Each raises OperationError when the registry refuses.

/// Writes the value for the program of that full path, in place of a former one. Windows starts no command
/// of more than 260 characters; that raises OperationError, too.
void WriteLogOnEntry(const std::wstring& program);

/// Whether there was one.
bool RemoveLogOnEntry();

} // namespace ts::service
