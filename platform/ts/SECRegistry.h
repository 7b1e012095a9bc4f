#pragma once

#include "platform/ts/RegistryValues.h"

/// A registry key that is connected to a root of this machine and opened by path.
/// Every operation is true when it succeeded; a failed read leaves its out-parameter untouched.
class SECRegistry
{
  public:
    /// Names the root (HKEY_CURRENT_USER, ...) below which Open looks. The root is not owned.
    bool Connect(HKEY root) noexcept;
    /// Opens the existing key at `path`, in place of one that was open before.
    bool Open(const CString& path, REGSAM access) noexcept;
    void Close() noexcept;

    /// The name of the subkey at `index`, from 0; false past the last one.
    bool EnumerateKeys(DWORD index, CString& name) const;
    /// Deletes the named subkey with everything below it.
    bool DeleteKey(const CString& name) noexcept;

    bool GetStringValue(const wchar_t* name, CString& value) const;
    bool SetStringValue(const wchar_t* name, const CString& value);
    bool GetDoubleWordValue(const wchar_t* name, DWORD& value) const noexcept;
    bool SetDoubleWordValue(const wchar_t* name, DWORD value) noexcept;

  private:
    HKEY m_root = nullptr;
    ts::RegistryKey m_key;
};
