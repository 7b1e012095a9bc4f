#pragma once

#include "platform/WindowsHeaders.h"

#include <stdexcept>
#include <string>

/// Gives the process a user and a machine part of the registry of its own, and removes them in the end.
class RegistrySandbox
{
  public:
    RegistrySandbox()
    {
        m_user = Redirect(HKEY_CURRENT_USER, L"\\user");
        m_machine = Redirect(HKEY_LOCAL_MACHINE, L"\\machine");
    }
    RegistrySandbox(const RegistrySandbox&) = delete;
    RegistrySandbox& operator=(const RegistrySandbox&) = delete;
    ~RegistrySandbox()
    {
        RegOverridePredefKey(HKEY_LOCAL_MACHINE, nullptr);
        RegOverridePredefKey(HKEY_CURRENT_USER, nullptr);
        RegCloseKey(m_machine);
        RegCloseKey(m_user);
        RegDeleteTreeW(HKEY_CURRENT_USER, m_path.c_str());
    }

  private:
    HKEY Redirect(HKEY root, const wchar_t* name)
    {
        // The second key comes to lie below the first one, which is removed as a whole.
        HKEY key = nullptr;
        const std::wstring path = m_path + name;
        if (RegCreateKeyExW(HKEY_CURRENT_USER, path.c_str(), 0, nullptr, 0, KEY_ALL_ACCESS, nullptr, &key,
                            nullptr) != ERROR_SUCCESS ||
            RegOverridePredefKey(root, key) != ERROR_SUCCESS)
        {
            throw std::runtime_error("the registry cannot be redirected");
        }
        return key;
    }

    std::wstring m_path = L"Software\\Sandbox\\" + std::to_wstring(GetCurrentProcessId());
    HKEY m_user = nullptr;
    HKEY m_machine = nullptr;
};
