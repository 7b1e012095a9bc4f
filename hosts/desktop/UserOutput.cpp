#include "UserOutput.h"

#include "platform/KernelHandle.h"

#include <memory>
#include <shellapi.h>
#include <string_view>

namespace ts::desktop
{
namespace
{

constexpr wchar_t kTitle[] = L"Tessaly";

std::string ToUtf8(std::wstring_view text)
{
    const int length = static_cast<int>(text.size());
    std::string bytes(text.size() * 3, '\0');
    bytes.resize(static_cast<std::size_t>(WideCharToMultiByte(
        CP_UTF8, 0, text.data(), length, bytes.data(), static_cast<int>(bytes.size()), nullptr, nullptr)));
    return bytes;
}

std::wstring ToWide(const std::string& text)
{
    std::wstring wide(text.size(), L'\0');
    wide.resize(static_cast<std::size_t>(MultiByteToWideChar(
        CP_UTF8, 0, text.data(), static_cast<int>(text.size()), wide.data(), static_cast<int>(wide.size()))));
    return wide;
}

bool WriteToHandle(DWORD standardHandle, const std::string& text)
{
    const HANDLE handle = GetStdHandle(standardHandle);
    DWORD written = 0;
    return handle != nullptr && handle != INVALID_HANDLE_VALUE &&
           WriteFile(handle, text.data(), static_cast<DWORD>(text.size()), &written, nullptr) != FALSE;
}

bool WriteToConsole(const std::string& text)
{
    if (AttachConsole(ATTACH_PARENT_PROCESS) == FALSE)
    {
        return false;
    }
    const HANDLE opened = CreateFileW(L"CONOUT$", GENERIC_READ | GENERIC_WRITE, FILE_SHARE_WRITE, nullptr,
                                      OPEN_EXISTING, 0, nullptr);
    const KernelHandle console(opened != INVALID_HANDLE_VALUE ? opened : nullptr);
    const std::wstring wide = ToWide(text);
    DWORD written = 0;
    const bool done = console != nullptr && WriteConsoleW(console.get(), wide.data(),
                                                          static_cast<DWORD>(wide.size()), &written, nullptr);
    FreeConsole();
    return done;
}

void Show(DWORD standardHandle, const std::string& text, UINT icon)
{
    if (!WriteToHandle(standardHandle, text) && !WriteToConsole(text))
    {
        MessageBoxW(nullptr, ToWide(text).c_str(), kTitle, MB_OK | icon);
    }
}

} // namespace

std::vector<std::string> CommandLineArguments()
{
    struct Free
    {
        void operator()(wchar_t** memory) const noexcept { LocalFree(memory); }
    };
    int count = 0;
    const std::unique_ptr<wchar_t*, Free> words(CommandLineToArgvW(GetCommandLineW(), &count));
    std::vector<std::string> arguments;
    for (int index = 1; words && index < count; ++index)
    {
        arguments.push_back(ToUtf8(words.get()[index]));
    }
    return arguments;
}

void Tell(const std::string& text)
{
    Show(STD_OUTPUT_HANDLE, text, MB_ICONINFORMATION);
}

void Complain(const std::string& reason)
{
    Show(STD_ERROR_HANDLE, "TessalyHost: " + reason + "\n", MB_ICONEXCLAMATION);
}

} // namespace ts::desktop
