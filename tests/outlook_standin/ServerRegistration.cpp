#include "tests/outlook_standin/ServerRegistration.h"

#include "platform/WindowsHeaders.h"

#include <memory>
#include <stdexcept>
#include <string>

namespace
{

// COM under Wine reads classes of the machine only, not those of the user. By this root key they are reached
// even where a test redirects the machine's key.
constexpr wchar_t kClassKey[] = L"CLSID\\{0006F03A-0000-0000-C000-000000000046}";
constexpr wchar_t kProgId[] = L"Outlook.Application";
constexpr wchar_t kClassId[] = L"{0006F03A-0000-0000-C000-000000000046}";

void RequireWine(bool isWine)
{
    if (!isWine)
    {
        throw std::runtime_error("the stand-in for Outlook registers itself under Wine only");
    }
}

void SetDefaultValue(const std::wstring& key, const std::wstring& value)
{
    HKEY opened = nullptr;
    LSTATUS status =
        RegCreateKeyExW(HKEY_CLASSES_ROOT, key.c_str(), 0, nullptr, 0, KEY_WRITE, nullptr, &opened, nullptr);
    if (status == ERROR_SUCCESS)
    {
        const auto size = static_cast<DWORD>((value.size() + 1) * sizeof(wchar_t));
        const void* const bytes = value.c_str();
        status = RegSetValueExW(opened, nullptr, 0, REG_SZ, static_cast<const BYTE*>(bytes), size);
        RegCloseKey(opened);
    }
    if (status != ERROR_SUCCESS)
    {
        throw std::runtime_error("cannot register the stand-in for Outlook: error " + std::to_string(status));
    }
}

} // namespace

void ts::standin::RegisterServer(const std::filesystem::path& server, const std::filesystem::path& folder,
                                 unsigned long owner, bool isWine)
{
    RequireWine(isWine);
    std::filesystem::create_directories(folder);
    RegisterInterfaces(folder);
    const std::wstring command = L"\"" + server.wstring() + L"\" --folder \"" + folder.wstring() +
                                 L"\" --owner " + std::to_wstring(owner);
    SetDefaultValue(std::wstring(kClassKey) + L"\\LocalServer32", command);
    SetDefaultValue(std::wstring(kClassKey) + L"\\ProgID", kProgId);
    SetDefaultValue(std::wstring(kProgId) + L"\\CLSID", kClassId);
}

void ts::standin::UnregisterServer(bool isWine)
{
    RequireWine(isWine);
    RegDeleteTreeW(HKEY_CLASSES_ROOT, kClassKey);
    RegDeleteTreeW(HKEY_CLASSES_ROOT, kProgId);
    UnregisterInterfaces();
}
