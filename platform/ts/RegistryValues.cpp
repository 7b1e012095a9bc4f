#include "platform/ts/RegistryValues.h"

#include <array>
#include <cstring>
#include <cwchar>
#include <string>
#include <utility>

namespace ts
{
namespace
{

// Nearly every stored text fits; longer ones cost a second call.
constexpr DWORD kUsualCharacters = 1024;

/// Reads the raw bytes of `name`; `size` is the buffer's size on entry and the value's on return.
LSTATUS ReadBytes(HKEY key, const wchar_t* name, DWORD& type, void* buffer, DWORD& size) noexcept
{
    return RegQueryValueExW(key, name, nullptr, &type, static_cast<BYTE*>(buffer), &size);
}

LSTATUS WriteBytes(HKEY key, const wchar_t* name, DWORD type, const void* data, std::size_t size) noexcept
{
    return RegSetValueExW(key, name, 0, type, static_cast<const BYTE*>(data), static_cast<DWORD>(size));
}

/// A text too long for the usual buffer. It may still change under us, so the size is asked for each time.
bool TryReadLongString(HKEY key, const wchar_t* name, DWORD size, CString& value)
{
    std::wstring buffer;
    LSTATUS status = ERROR_MORE_DATA;
    DWORD type = REG_NONE;
    while (status == ERROR_MORE_DATA)
    {
        buffer.assign(size / sizeof(wchar_t) + 2, L'\0');
        size = static_cast<DWORD>((buffer.size() - 1) * sizeof(wchar_t));
        status = ReadBytes(key, name, type, buffer.data(), size);
    }
    if (status != ERROR_SUCCESS || type != REG_SZ || size == 0)
    {
        return false;
    }
    value = buffer.c_str();
    return true;
}

} // namespace

RegistryKey::RegistryKey(RegistryKey&& other) noexcept : m_key(std::exchange(other.m_key, nullptr))
{
}

RegistryKey& RegistryKey::operator=(RegistryKey&& other) noexcept
{
    std::swap(m_key, other.m_key);
    return *this;
}

RegistryKey::~RegistryKey()
{
    Close();
}

RegistryKey RegistryKey::TryOpen(HKEY parent, const wchar_t* path, REGSAM access) noexcept
{
    RegistryKey key;
    if (RegOpenKeyExW(parent, path, 0, access, &key.m_key) != ERROR_SUCCESS)
    {
        key.m_key = nullptr;
    }
    return key;
}

RegistryKey RegistryKey::TryOpenOrCreate(HKEY parent, const wchar_t* path) noexcept
{
    RegistryKey key = TryOpen(parent, path, KEY_WRITE);
    if (!key && RegCreateKeyW(parent, path, &key.m_key) != ERROR_SUCCESS)
    {
        key.m_key = nullptr;
    }
    return key;
}

void RegistryKey::Close() noexcept
{
    if (m_key != nullptr)
    {
        RegCloseKey(std::exchange(m_key, nullptr));
    }
}

bool TryReadString(HKEY key, const wchar_t* name, CString& value)
{
    // A value of an odd size ends in half a character, which a zero byte completes.
    std::array<wchar_t, kUsualCharacters + 1> buffer;
    DWORD size = kUsualCharacters * sizeof(wchar_t);
    DWORD type = REG_NONE;
    const LSTATUS status = ReadBytes(key, name, type, buffer.data(), size);
    if (type != REG_SZ || size == 0)
    {
        return false;
    }
    if (status == ERROR_MORE_DATA)
    {
        return TryReadLongString(key, name, size, value);
    }
    if (status != ERROR_SUCCESS)
    {
        return false;
    }
    const std::size_t whole = size / sizeof(wchar_t);
    const std::size_t odd = size % sizeof(wchar_t);
    if (odd != 0)
    {
        buffer[whole] &= 0xFF;
    }
    buffer[whole + odd] = L'\0';
    value = buffer.data();
    return true;
}

bool TryReadDword(HKEY key, const wchar_t* name, DWORD& value) noexcept
{
    DWORD stored = 0;
    DWORD size = sizeof stored;
    DWORD type = REG_NONE;
    const LSTATUS status = ReadBytes(key, name, type, &stored, size);
    if (status != ERROR_SUCCESS || type != REG_DWORD || size != sizeof stored)
    {
        return false;
    }
    value = stored;
    return true;
}

bool TryReadUpTo4Bytes(HKEY key, const wchar_t* name, DWORD& value) noexcept
{
    DWORD stored = 0;
    DWORD size = sizeof stored;
    DWORD type = REG_NONE;
    if (ReadBytes(key, name, type, &stored, size) != ERROR_SUCCESS)
    {
        return false;
    }
    // Behind a short text RegQueryValueExW writes a terminator, which is no part of the value.
    std::memcpy(&value, &stored, size);
    return true;
}

bool TryReadInt64(HKEY key, const wchar_t* name, std::int64_t& value) noexcept
{
    std::int64_t stored = 0;
    DWORD size = sizeof stored;
    DWORD type = REG_NONE;
    const LSTATUS status = ReadBytes(key, name, type, &stored, size);
    if (status != ERROR_SUCCESS || type != REG_BINARY || size != sizeof stored)
    {
        return false;
    }
    value = stored;
    return true;
}

bool WriteString(HKEY key, const wchar_t* name, const CString& value)
{
    // RegSetValueExW adds a terminator of its own accord when a zero follows the bytes that it is given,
    // so the text is written from a copy that something else follows.
    constexpr wchar_t kNoTerminator = L'.';
    const auto length = static_cast<std::size_t>(value.GetLength());
    const std::size_t size = length * sizeof(wchar_t);
    if (length < kUsualCharacters)
    {
        std::array<wchar_t, kUsualCharacters> buffer;
        std::wmemcpy(buffer.data(), value.GetString(), length);
        buffer[length] = kNoTerminator;
        return WriteBytes(key, name, REG_SZ, buffer.data(), size) == ERROR_SUCCESS;
    }
    std::wstring buffer(value.GetString(), length);
    buffer += kNoTerminator;
    return WriteBytes(key, name, REG_SZ, buffer.data(), size) == ERROR_SUCCESS;
}

bool WriteDword(HKEY key, const wchar_t* name, DWORD value) noexcept
{
    return WriteBytes(key, name, REG_DWORD, &value, sizeof value) == ERROR_SUCCESS;
}

bool WriteInt64(HKEY key, const wchar_t* name, std::int64_t value) noexcept
{
    return WriteBytes(key, name, REG_BINARY, &value, sizeof value) == ERROR_SUCCESS;
}

} // namespace ts
