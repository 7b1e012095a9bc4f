#include "hosts/common/Console.h"

#include "hosts/common/Errors.h"
#include "hosts/common/Utf8.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cstdlib>
#include <ctime>
#include <memory>
#include <shellapi.h>

namespace ts::hosts
{
namespace
{

constexpr std::size_t kDefaultWidth = 100;
constexpr std::size_t kLargestWidth = 10'000;

/// The console takes only so much at a time.
constexpr std::size_t kLargestWrite = 8'192;

bool IsConsole(HANDLE handle)
{
    DWORD mode = 0;
    return GetConsoleMode(handle, &mode) != FALSE;
}

std::size_t ColumnsVariable()
{
    std::array<wchar_t, 16> buffer{};
    const DWORD length = GetEnvironmentVariableW(L"COLUMNS", buffer.data(), buffer.size());
    const std::string text = length < buffer.size() ? ToUtf8({buffer.data(), length}) : std::string();
    std::size_t columns = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), columns);
    const bool valid = error == std::errc() && end == text.data() + text.size();
    return valid && columns > 0 && columns <= kLargestWidth ? columns : 0;
}

bool WriteBytes(HANDLE handle, std::string_view text)
{
    while (!text.empty())
    {
        DWORD written = 0;
        const auto size = static_cast<DWORD>(std::min<std::size_t>(text.size(), 1u << 20));
        if (!WriteFile(handle, text.data(), size, &written, nullptr) || written == 0)
        {
            return false;
        }
        text.remove_prefix(written);
    }
    return true;
}

bool WriteCharacters(HANDLE console, std::wstring_view text)
{
    while (!text.empty())
    {
        std::size_t size = std::min(text.size(), kLargestWrite);
        // A surrogate pair stays in one piece.
        if (size < text.size() && (text[size] & 0xFC00) == 0xDC00)
        {
            --size;
        }
        DWORD written = 0;
        if (!WriteConsoleW(console, text.data(), static_cast<DWORD>(size), &written, nullptr) || written == 0)
        {
            return false;
        }
        text.remove_prefix(written);
    }
    return true;
}

} // namespace

void IgnoreZoneVariable()
{
    _putenv("TZ=");
    _tzset();
}

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

std::wstring ProgramPath()
{
    std::wstring path(MAX_PATH, L'\0');
    for (;;)
    {
        const DWORD length = GetModuleFileNameW(nullptr, path.data(), static_cast<DWORD>(path.size()));
        if (length == 0)
        {
            throw OperationError("cannot find this program's path: Windows error " +
                                 std::to_string(GetLastError()));
        }
        if (length < path.size())
        {
            path.resize(length);
            return path;
        }
        path.resize(path.size() * 2);
    }
}

std::size_t TerminalWidth()
{
    const HANDLE out = GetStdHandle(STD_OUTPUT_HANDLE);
    CONSOLE_SCREEN_BUFFER_INFO info{};
    if (IsConsole(out) && GetConsoleScreenBufferInfo(out, &info) && info.srWindow.Right > info.srWindow.Left)
    {
        // The last column stays free: a full line would be followed by an empty one.
        return static_cast<std::size_t>(info.srWindow.Right - info.srWindow.Left);
    }
    const std::size_t columns = ColumnsVariable();
    return columns != 0 ? columns : kDefaultWidth;
}

bool WriteText(DWORD standardHandle, std::string_view text)
{
    const HANDLE handle = GetStdHandle(standardHandle);
    return IsConsole(handle) ? WriteCharacters(handle, ToWide(text)) : WriteBytes(handle, text);
}

int StandardBuffer::sync()
{
    const std::string text = str();
    str({});
    return WriteText(m_standardHandle, text) ? 0 : -1;
}

} // namespace ts::hosts
