#include "tests/support/RegistrySandbox.h"

#include <cstdio>
#include <cstdlib>

namespace ts::test
{
namespace
{

/// Without the redirection a test would work on the user's own reminders.
void RequireSuccess(LSTATUS status, const char* what)
{
    if (status != ERROR_SUCCESS)
    {
        std::fprintf(stderr, "registry sandbox: %s failed with %ld\n", what, status);
        std::exit(EXIT_FAILURE);
    }
}

HKEY CreateSandboxKey(const std::wstring& path)
{
    HKEY key = nullptr;
    RequireSuccess(RegCreateKeyExW(HKEY_CURRENT_USER, path.c_str(), 0, nullptr, 0, KEY_ALL_ACCESS, nullptr,
                                   &key, nullptr),
                   "creating a key");
    return key;
}

} // namespace

RegistrySandbox::RegistrySandbox()
    : m_path(L"Software\\Sandbox\\" + std::to_wstring(GetCurrentProcessId()) + L"-" +
             std::to_wstring(GetTickCount64()))
{
    const HKEY user = CreateSandboxKey(m_path + L"\\User");
    const HKEY machine = CreateSandboxKey(m_path + L"\\Machine");
    RequireSuccess(RegOverridePredefKey(HKEY_LOCAL_MACHINE, machine), "redirecting HKEY_LOCAL_MACHINE");
    RequireSuccess(RegOverridePredefKey(HKEY_CURRENT_USER, user), "redirecting HKEY_CURRENT_USER");
    RegCloseKey(machine);
    RegCloseKey(user);
}

RegistrySandbox::~RegistrySandbox()
{
    RegOverridePredefKey(HKEY_CURRENT_USER, nullptr);
    RegOverridePredefKey(HKEY_LOCAL_MACHINE, nullptr);
    RegDeleteTreeW(HKEY_CURRENT_USER, m_path.c_str());
}

} // namespace ts::test
