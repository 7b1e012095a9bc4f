#pragma once

#include "TsServiceUtilities.h"

namespace ts::hosts
{

/// Owns an open registry key.
class RegistryHandle
{
  public:
    RegistryHandle() noexcept = default;
    RegistryHandle(const RegistryHandle&) = delete;
    RegistryHandle& operator=(const RegistryHandle&) = delete;
    ~RegistryHandle()
    {
        if (m_key != nullptr)
        {
            RegCloseKey(m_key);
        }
    }

    /// Opens the existing key at `path` below `parent`; this or Create is to be called once. The system's
    /// error code.
    [[nodiscard]] LSTATUS Open(HKEY parent, const wchar_t* path, REGSAM access) noexcept
    {
        return RegOpenKeyExW(parent, path, 0, access, &m_key);
    }

    /// The same, and creates it with its parents when it is missing.
    [[nodiscard]] LSTATUS Create(HKEY parent, const wchar_t* path, REGSAM access) noexcept
    {
        return RegCreateKeyExW(parent, path, 0, nullptr, REG_OPTION_NON_VOLATILE, access, nullptr, &m_key,
                               nullptr);
    }

    [[nodiscard]] HKEY Get() const noexcept { return m_key; }

  private:
    HKEY m_key = nullptr;
};

} // namespace ts::hosts
