#include "LogOnEntry.h"

#include "hosts/common/Errors.h"
#include "hosts/common/RegistryHandle.h"
#include "hosts/common/Utf8.h"

#include <bit>

namespace ts::service
{
namespace
{

constexpr std::size_t kLongestCommand = 260;

[[noreturn]] void ThrowRefused(const char* what, LSTATUS error)
{
    throw hosts::OperationError(std::string("cannot ") + what + " the value " + hosts::ToUtf8(kRunValue) +
                                " below HKEY_CURRENT_USER\\" + hosts::ToUtf8(kRunPath) + ": Windows error " +
                                std::to_string(error));
}

} // namespace

void WriteLogOnEntry(const std::wstring& program)
{
    const std::wstring command = L"\"" + program + L"\"";
    if (command.size() > kLongestCommand)
    {
        throw hosts::OperationError("the path of this program is too long to be started at log-on: " +
                                    hosts::ToUtf8(program));
    }
    hosts::RegistryHandle run;
    LSTATUS error = run.Create(HKEY_CURRENT_USER, kRunPath, KEY_SET_VALUE);
    if (error == ERROR_SUCCESS)
    {
        const auto size = static_cast<DWORD>((command.size() + 1) * sizeof(wchar_t));
        error = RegSetValueExW(run.Get(), kRunValue, 0, REG_SZ, std::bit_cast<const BYTE*>(command.c_str()),
                               size);
    }
    if (error != ERROR_SUCCESS)
    {
        ThrowRefused("write", error);
    }
}

bool RemoveLogOnEntry()
{
    hosts::RegistryHandle run;
    LSTATUS error = run.Open(HKEY_CURRENT_USER, kRunPath, KEY_SET_VALUE);
    if (error == ERROR_SUCCESS)
    {
        error = RegDeleteValueW(run.Get(), kRunValue);
    }
    if (error != ERROR_SUCCESS && error != ERROR_FILE_NOT_FOUND)
    {
        ThrowRefused("remove", error);
    }
    return error == ERROR_SUCCESS;
}

} // namespace ts::service
