#include "Registration.h"

#include "ApplicationIds.h"
#include "ApplicationTypeLibrary.h"

#include "platform/WindowsHeaders.h"

#include <array>
#include <memory>
#include <objbase.h>
#include <optional>
#include <stdexcept>
#include <string>
#include <type_traits>
#include <vector>

namespace ts::desktop
{
namespace
{

constexpr wchar_t kClasses[] = L"Software\\Classes\\";
constexpr wchar_t kTitle[] = L"Tessaly Application";
/// The system's own proxy of IDispatch.
constexpr wchar_t kDispatchProxy[] = L"{00020420-0000-0000-C000-000000000046}";

struct KeyCloser
{
    void operator()(HKEY key) const noexcept { RegCloseKey(key); }
};
using Key = std::unique_ptr<std::remove_pointer_t<HKEY>, KeyCloser>;

/// One value below the classes.
struct Entry
{
    std::wstring key;
    std::wstring name;
    std::wstring text;
};

/// A key that is ours with all that is below it, as long as the value says so.
struct OwnedKey
{
    std::wstring key;
    std::wstring proofKey;
    std::wstring proof;
};

std::wstring ClassKey()
{
    return std::wstring(L"CLSID\\") + kApplicationClassText;
}
std::wstring InterfaceKey()
{
    return std::wstring(L"Interface\\") + kApplicationInterfaceText;
}
std::wstring TypeLibraryKey()
{
    return std::wstring(L"TypeLib\\") + kTypeLibraryText;
}

std::vector<Entry> Entries(const std::filesystem::path& program, const std::filesystem::path& typeLibrary)
{
    return {
        {kProgId, L"", kTitle},
        {std::wstring(kProgId) + L"\\CLSID", L"", kApplicationClassText},
        {ClassKey(), L"", kTitle},
        {ClassKey() + L"\\ProgID", L"", kProgId},
        // Quoted, or Windows would try C:\Program.exe for C:\Program Files\...
        {ClassKey() + L"\\LocalServer32", L"", L"\"" + program.wstring() + L"\""},
        {InterfaceKey(), L"", kApplicationInterfaceName},
        {InterfaceKey() + L"\\ProxyStubClsid32", L"", kDispatchProxy},
        // Windows' proxy does without the type library; others ask it what the interface is.
        {InterfaceKey() + L"\\TypeLib", L"", kTypeLibraryText},
        {InterfaceKey() + L"\\TypeLib", L"Version", L"1.0"},
        {TypeLibraryKey() + L"\\1.0", L"", L"Tessaly 25"},
        {TypeLibraryKey() + L"\\1.0\\0\\win64", L"", typeLibrary.wstring()},
        {TypeLibraryKey() + L"\\1.0\\FLAGS", L"", L"0"},
    };
}

std::vector<OwnedKey> OwnedKeys()
{
    return {
        {kProgId, std::wstring(kProgId) + L"\\CLSID", kApplicationClassText},
        {InterfaceKey(), InterfaceKey() + L"\\TypeLib", kTypeLibraryText},
        {ClassKey(), ClassKey() + L"\\ProgID", kProgId},
        {TypeLibraryKey(), TypeLibraryKey() + L"\\1.0\\FLAGS", L"0"},
    };
}

[[noreturn]] void Fail(const char* what, LSTATUS error)
{
    throw std::runtime_error(std::string(what) + ": Windows error " + std::to_string(error));
}

LSTATUS Write(HKEY root, const Entry& entry)
{
    HKEY opened = nullptr;
    const std::wstring path = kClasses + entry.key;
    const LSTATUS status =
        RegCreateKeyExW(root, path.c_str(), 0, nullptr, 0, KEY_SET_VALUE, nullptr, &opened, nullptr);
    if (status != ERROR_SUCCESS)
    {
        return status;
    }
    const Key key(opened);
    const auto size = static_cast<DWORD>((entry.text.size() + 1) * sizeof(wchar_t));
    const void* const bytes = entry.text.c_str();
    return RegSetValueExW(key.get(), entry.name.c_str(), 0, REG_SZ, static_cast<const BYTE*>(bytes), size);
}

std::optional<std::wstring> Read(HKEY root, const std::wstring& key)
{
    std::array<wchar_t, MAX_PATH> text{};
    DWORD size = sizeof text;
    const std::wstring path = kClasses + key;
    const LSTATUS status =
        RegGetValueW(root, path.c_str(), nullptr, RRF_RT_REG_SZ, nullptr, text.data(), &size);
    return status == ERROR_SUCCESS ? std::optional<std::wstring>(text.data()) : std::nullopt;
}

void WriteAll(HKEY root, const std::vector<Entry>& entries)
{
    for (const Entry& entry : entries)
    {
        const LSTATUS status = Write(root, entry);
        if (status != ERROR_SUCCESS)
        {
            Fail("the application cannot be entered in the registry", status);
        }
    }
}

void RemoveAll(HKEY root)
{
    for (const OwnedKey& owned : OwnedKeys())
    {
        if (Read(root, owned.proofKey) != owned.proof)
        {
            continue;
        }
        const LSTATUS status = RegDeleteTreeW(root, (kClasses + owned.key).c_str());
        if (status != ERROR_SUCCESS && status != ERROR_FILE_NOT_FOUND)
        {
            Fail("the application cannot be removed from the registry", status);
        }
    }
}

/// The user may have had none of these before. One with something in it is not deleted.
void RemoveEmptyFolders()
{
    for (const wchar_t* const folder : {L"CLSID", L"Interface", L"TypeLib"})
    {
        RegDeleteKeyW(HKEY_CURRENT_USER, (std::wstring(kClasses) + folder).c_str());
    }
}

bool IsSeenByCom()
{
    CLSID found;
    return SUCCEEDED(CLSIDFromProgID(kProgId, &found)) && found == kApplicationClass;
}

} // namespace

void Register(const std::filesystem::path& program)
{
    const std::filesystem::path typeLibrary = TypeLibraryFile();
    WriteTypeLibrary(typeLibrary);
    const std::vector<Entry> entries = Entries(program, typeLibrary);
    try
    {
        WriteAll(HKEY_CURRENT_USER, entries);
        // An earlier entry of the machine may name a program that is gone.
        if (!IsSeenByCom() || Read(HKEY_LOCAL_MACHINE, ClassKey() + L"\\ProgID") == kProgId)
        {
            WriteAll(HKEY_LOCAL_MACHINE, entries);
        }
    }
    catch (const std::exception&)
    {
        Unregister();
        throw;
    }
}

void Unregister()
{
    RemoveAll(HKEY_CURRENT_USER);
    RemoveEmptyFolders();
    RemoveAll(HKEY_LOCAL_MACHINE);
    // The folders above are the product's, with other files perhaps.
    std::error_code error;
    std::filesystem::remove(TypeLibraryFile(), error);
    if (error)
    {
        Fail("the type library cannot be deleted", error.value());
    }
}

} // namespace ts::desktop
