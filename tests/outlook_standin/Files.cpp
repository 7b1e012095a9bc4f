#include "tests/outlook_standin/Files.h"

#include "platform/WindowsHeaders.h"

#include <memory>
#include <stdexcept>

namespace
{

// A reader of the other process holds a file for a moment only.
constexpr int kAttempts = 200;
constexpr DWORD kPauseMilliseconds = 5;
constexpr DWORD kShareAll = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;

struct FileCloser
{
    // Creating a file answers INVALID_HANDLE_VALUE, never null, when it fails.
    using pointer = HANDLE;
    void operator()(HANDLE handle) const noexcept
    {
        if (handle != INVALID_HANDLE_VALUE)
        {
            CloseHandle(handle);
        }
    }
};
using FileHandle = std::unique_ptr<void, FileCloser>;

[[noreturn]] void Fail(const char* what, const std::filesystem::path& file)
{
    const DWORD error = GetLastError();
    throw std::runtime_error(std::string(what) + " " + ts::standin::ToUtf8(file.wstring()) + ": error " +
                             std::to_string(error));
}

bool IsMomentary(DWORD error)
{
    return error == ERROR_SHARING_VIOLATION || error == ERROR_ACCESS_DENIED;
}

/// Runs `attempt` until it succeeds or fails for good.
template <typename Attempt>
bool Repeat(const Attempt& attempt)
{
    for (int count = 1; !attempt(); ++count)
    {
        if (!IsMomentary(GetLastError()) || count == kAttempts)
        {
            return false;
        }
        Sleep(kPauseMilliseconds);
    }
    return true;
}

FileHandle Open(const std::filesystem::path& file, DWORD access, DWORD disposition)
{
    FileHandle opened(INVALID_HANDLE_VALUE);
    Repeat(
        [&]
        {
            opened.reset(CreateFileW(file.c_str(), access, kShareAll, nullptr, disposition,
                                     FILE_ATTRIBUTE_NORMAL, nullptr));
            return opened.get() != INVALID_HANDLE_VALUE;
        });
    return opened;
}

void Write(const std::filesystem::path& file, const FileHandle& opened, std::string_view content)
{
    DWORD written = 0;
    if (WriteFile(opened.get(), content.data(), static_cast<DWORD>(content.size()), &written, nullptr) ==
            FALSE ||
        written != content.size())
    {
        Fail("cannot write", file);
    }
}

} // namespace

std::string ts::standin::ToUtf8(std::wstring_view text)
{
    const int length = static_cast<int>(text.size());
    const int size = WideCharToMultiByte(CP_UTF8, 0, text.data(), length, nullptr, 0, nullptr, nullptr);
    std::string converted(static_cast<std::size_t>(size), '\0');
    WideCharToMultiByte(CP_UTF8, 0, text.data(), length, converted.data(), size, nullptr, nullptr);
    return converted;
}

std::wstring ts::standin::FromUtf8(std::string_view text)
{
    const int length = static_cast<int>(text.size());
    const int size = MultiByteToWideChar(CP_UTF8, 0, text.data(), length, nullptr, 0);
    std::wstring converted(static_cast<std::size_t>(size), L'\0');
    MultiByteToWideChar(CP_UTF8, 0, text.data(), length, converted.data(), size);
    return converted;
}

std::optional<std::string> ts::standin::TryReadFile(const std::filesystem::path& file)
{
    const FileHandle opened = Open(file, GENERIC_READ, OPEN_EXISTING);
    if (opened.get() == INVALID_HANDLE_VALUE)
    {
        const DWORD error = GetLastError();
        if (error == ERROR_FILE_NOT_FOUND || error == ERROR_PATH_NOT_FOUND)
        {
            return std::nullopt;
        }
        Fail("cannot open", file);
    }
    std::string content;
    char block[4096];
    for (DWORD read = 1; read != 0;)
    {
        if (ReadFile(opened.get(), block, sizeof block, &read, nullptr) == FALSE)
        {
            Fail("cannot read", file);
        }
        content.append(block, read);
    }
    return content;
}

void ts::standin::ReplaceWhole(const std::filesystem::path& file, std::string_view content)
{
    // Two processes may replace the same file; each writes a new one of its own.
    std::filesystem::path fresh = file;
    fresh += L"." + std::to_wstring(GetCurrentProcessId()) + L".new";
    {
        const FileHandle opened = Open(fresh, GENERIC_WRITE, CREATE_ALWAYS);
        if (opened.get() == INVALID_HANDLE_VALUE)
        {
            Fail("cannot make", fresh);
        }
        Write(fresh, opened, content);
    }
    if (!Repeat([&] { return MoveFileExW(fresh.c_str(), file.c_str(), MOVEFILE_REPLACE_EXISTING) != FALSE; }))
    {
        Fail("cannot replace", file);
    }
}

void ts::standin::AppendToFile(const std::filesystem::path& file, std::string_view content)
{
    const FileHandle opened = Open(file, FILE_APPEND_DATA, OPEN_ALWAYS);
    if (opened.get() == INVALID_HANDLE_VALUE)
    {
        Fail("cannot open", file);
    }
    Write(file, opened, content);
}
