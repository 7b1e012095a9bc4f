#include "platform/ts/SECRegistry.h"

bool SECRegistry::Connect(HKEY root) noexcept
{
    m_root = root;
    return m_root != nullptr;
}

bool SECRegistry::Open(const CString& path, REGSAM access) noexcept
{
    m_key = ts::RegistryKey::TryOpen(m_root, path, access);
    return static_cast<bool>(m_key);
}

void SECRegistry::Close() noexcept
{
    m_key.Close();
}

bool SECRegistry::EnumerateKeys(DWORD index, CString& name) const
{
    // Key names have at most 255 characters; Wine lets one more through.
    constexpr DWORD kRoom = 257;
    wchar_t buffer[kRoom];
    DWORD length = kRoom;
    if (RegEnumKeyExW(m_key.Get(), index, buffer, &length, nullptr, nullptr, nullptr, nullptr) !=
        ERROR_SUCCESS)
    {
        return false;
    }
    name = CString(buffer, static_cast<int>(length));
    return true;
}

bool SECRegistry::DeleteKey(const CString& name) noexcept
{
    // An empty name would mean the open key itself.
    return !name.IsEmpty() && RegDeleteTreeW(m_key.Get(), name) == ERROR_SUCCESS;
}

bool SECRegistry::GetStringValue(const wchar_t* name, CString& value) const
{
    return ts::TryReadString(m_key.Get(), name, value);
}

bool SECRegistry::SetStringValue(const wchar_t* name, const CString& value)
{
    return ts::WriteString(m_key.Get(), name, value);
}

bool SECRegistry::GetDoubleWordValue(const wchar_t* name, DWORD& value) const noexcept
{
    return ts::TryReadDword(m_key.Get(), name, value);
}

bool SECRegistry::SetDoubleWordValue(const wchar_t* name, DWORD value) noexcept
{
    return ts::WriteDword(m_key.Get(), name, value);
}
