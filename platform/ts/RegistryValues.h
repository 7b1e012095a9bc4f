#pragma once

#include "platform/WindowsHeaders.h"
#include "platform/mfc/afxstr.h"

#include <cstdint>

/// Typed reads and writes of registry values, one system call each.
///
/// What is stored may be anything: the reads take a value only when it has the stated type and size, and
/// leave `value` untouched otherwise. The writes report nothing: who cares reads back.
namespace ts
{

/// Owns an open registry key; empty when opening failed.
class RegistryKey
{
  public:
    RegistryKey() noexcept = default;
    RegistryKey(RegistryKey&& other) noexcept;
    RegistryKey& operator=(RegistryKey&& other) noexcept;
    RegistryKey(const RegistryKey&) = delete;
    RegistryKey& operator=(const RegistryKey&) = delete;
    ~RegistryKey();

    /// The existing key at `path` below `parent`.
    [[nodiscard]] static RegistryKey TryOpen(HKEY parent, const wchar_t* path, REGSAM access) noexcept;
    /// The key at `path` below `parent`, opened for writing, created with its parents where it is missing.
    [[nodiscard]] static RegistryKey TryOpenOrCreate(HKEY parent, const wchar_t* path) noexcept;

    explicit operator bool() const noexcept { return m_key != nullptr; }
    [[nodiscard]] HKEY Get() const noexcept { return m_key; }
    void Close() noexcept;

  private:
    HKEY m_key = nullptr;
};

/// A REG_SZ of at least one byte, with or without terminator, up to its first zero.
bool TryReadString(HKEY key, const wchar_t* name, CString& value);
/// A REG_DWORD of 4 bytes.
bool TryReadDword(HKEY key, const wchar_t* name, DWORD& value) noexcept;
/// A value of any type and at most 4 bytes; a shorter one replaces the low bytes of `value` only.
bool TryReadUpTo4Bytes(HKEY key, const wchar_t* name, DWORD& value) noexcept;
/// A REG_BINARY of 8 bytes, little-endian.
bool TryReadInt64(HKEY key, const wchar_t* name, std::int64_t& value) noexcept;

/// Writes a REG_SZ of exactly two bytes per character, without a terminator.
bool WriteString(HKEY key, const wchar_t* name, const CString& value);
bool WriteDword(HKEY key, const wchar_t* name, DWORD value) noexcept;
bool WriteInt64(HKEY key, const wchar_t* name, std::int64_t value) noexcept;

} // namespace ts
