#include "hosts/common/Output.h"

#include "hosts/common/Console.h"
#include "hosts/common/Utf8.h"

namespace ts::hosts
{
namespace
{

bool HasHandle(DWORD standardHandle)
{
    const HANDLE handle = GetStdHandle(standardHandle);
    return handle != nullptr && handle != INVALID_HANDLE_VALUE;
}

/// Uses the console of whoever started the program.
bool TakeParentConsole(DWORD standardHandle)
{
    return AttachConsole(ATTACH_PARENT_PROCESS) != FALSE && HasHandle(standardHandle);
}

} // namespace

void Tell(std::string_view text, bool isError, const wchar_t* title)
{
    const DWORD handle = isError ? STD_ERROR_HANDLE : STD_OUTPUT_HANDLE;
    const bool isWritten = (HasHandle(handle) || TakeParentConsole(handle)) && WriteText(handle, text);
    if (!isWritten)
    {
        MessageBoxW(nullptr, ToWide(text).c_str(), title,
                    isError ? MB_OK | MB_ICONERROR : MB_OK | MB_ICONINFORMATION);
    }
}

} // namespace ts::hosts
