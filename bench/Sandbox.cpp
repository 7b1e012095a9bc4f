#include "bench/Sandbox.h"

#include <stdexcept>

namespace ts::bench
{
namespace
{

constexpr wchar_t kSandboxes[] = L"Software\\Sandbox";

} // namespace

Sandbox::Sandbox() : m_path(std::wstring(kSandboxes) + L"\\" + std::to_wstring(GetCurrentProcessId()))
{
    // What an earlier process of that number left behind when it was killed.
    RegDeleteTreeW(HKEY_CURRENT_USER, m_path.c_str());
    const RegistryKey created = RegistryKey::TryOpenOrCreate(HKEY_CURRENT_USER, m_path.c_str());
    m_root = RegistryKey::TryOpen(HKEY_CURRENT_USER, m_path.c_str(), KEY_ALL_ACCESS);
    if (!m_root || RegOverridePredefKey(HKEY_CURRENT_USER, m_root.Get()) != ERROR_SUCCESS)
    {
        throw std::runtime_error("no registry key of its own");
    }
}

Sandbox::~Sandbox()
{
    RegOverridePredefKey(HKEY_CURRENT_USER, nullptr);
    m_root.Close();
    RegDeleteTreeW(HKEY_CURRENT_USER, m_path.c_str());
    // Refused while other processes have theirs.
    RegDeleteKeyW(HKEY_CURRENT_USER, kSandboxes);
}

} // namespace ts::bench
