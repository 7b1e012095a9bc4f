#include "tests/platform/RegistryCalls.h"

#include "tests/platform/ImportPatch.h"

#include <algorithm>
#include <sstream>
#include <utility>

extern "C"
{
    extern decltype(&RegOpenKeyExW) __imp_RegOpenKeyExW;
    extern decltype(&RegCreateKeyW) __imp_RegCreateKeyW;
    extern decltype(&RegQueryValueExW) __imp_RegQueryValueExW;
    extern decltype(&RegSetValueExW) __imp_RegSetValueExW;
    extern decltype(&RegEnumKeyExW) __imp_RegEnumKeyExW;
    extern decltype(&RegDeleteTreeW) __imp_RegDeleteTreeW;
    extern decltype(&RegCloseKey) __imp_RegCloseKey;
}

namespace ts::test
{
namespace
{

std::vector<std::wstring> g_lines;
std::vector<std::wstring> g_refused;

/// Writes the line down; whether the call may go on.
bool Note(const std::wstring& line)
{
    g_lines.push_back(line);
    return std::ranges::none_of(g_refused,
                                [&](const std::wstring& start) { return line.starts_with(start); });
}

std::wstring PathOf(HKEY root, LPCWSTR path)
{
    return (root == HKEY_LOCAL_MACHINE ? L"HKLM\\" : L"HKCU\\") + std::wstring(path);
}

} // namespace

struct RegistryCalls::Patches
{
    static LSTATUS WINAPI Open(HKEY root, LPCWSTR path, DWORD options, REGSAM access, PHKEY key);
    static LSTATUS WINAPI Create(HKEY root, LPCWSTR path, PHKEY key);
    static LSTATUS WINAPI Query(HKEY key, LPCWSTR name, LPDWORD reserved, LPDWORD type, LPBYTE data,
                                LPDWORD size);
    static LSTATUS WINAPI Set(HKEY key, LPCWSTR name, DWORD reserved, DWORD type, const BYTE* data,
                              DWORD size);
    static LSTATUS WINAPI Enumerate(HKEY key, DWORD index, LPWSTR name, LPDWORD length, LPDWORD reserved,
                                    LPWSTR kind, LPDWORD kindLength, PFILETIME written);
    static LSTATUS WINAPI DeleteTree(HKEY key, LPCWSTR name);
    static LSTATUS WINAPI Close(HKEY key);

    ImportPatch<decltype(&RegOpenKeyExW)> open{&__imp_RegOpenKeyExW, Open};
    ImportPatch<decltype(&RegCreateKeyW)> create{&__imp_RegCreateKeyW, Create};
    ImportPatch<decltype(&RegQueryValueExW)> query{&__imp_RegQueryValueExW, Query};
    ImportPatch<decltype(&RegSetValueExW)> set{&__imp_RegSetValueExW, Set};
    ImportPatch<decltype(&RegEnumKeyExW)> enumerate{&__imp_RegEnumKeyExW, Enumerate};
    ImportPatch<decltype(&RegDeleteTreeW)> deleteTree{&__imp_RegDeleteTreeW, DeleteTree};
    ImportPatch<decltype(&RegCloseKey)> close{&__imp_RegCloseKey, Close};

    static inline const Patches* s_present = nullptr;
};

LSTATUS RegistryCalls::Patches::Open(HKEY root, LPCWSTR path, DWORD options, REGSAM access, PHKEY key)
{
    std::wostringstream line;
    line << L"open " << PathOf(root, path) << L' ' << std::hex << access;
    return Note(line.str()) ? s_present->open.Original()(root, path, options, access, key)
                            : ERROR_ACCESS_DENIED;
}

LSTATUS RegistryCalls::Patches::Create(HKEY root, LPCWSTR path, PHKEY key)
{
    return Note(L"create " + PathOf(root, path)) ? s_present->create.Original()(root, path, key)
                                                 : ERROR_ACCESS_DENIED;
}

LSTATUS RegistryCalls::Patches::Query(HKEY key, LPCWSTR name, LPDWORD reserved, LPDWORD type, LPBYTE data,
                                      LPDWORD size)
{
    return Note(L"query " + std::wstring(name))
               ? s_present->query.Original()(key, name, reserved, type, data, size)
               : ERROR_ACCESS_DENIED;
}

LSTATUS RegistryCalls::Patches::Set(HKEY key, LPCWSTR name, DWORD reserved, DWORD type, const BYTE* data,
                                    DWORD size)
{
    return Note(L"set " + std::wstring(name) + L' ' + std::to_wstring(size))
               ? s_present->set.Original()(key, name, reserved, type, data, size)
               : ERROR_ACCESS_DENIED;
}

LSTATUS RegistryCalls::Patches::Enumerate(HKEY key, DWORD index, LPWSTR name, LPDWORD length,
                                          LPDWORD reserved, LPWSTR kind, LPDWORD kindLength,
                                          PFILETIME written)
{
    return Note(L"enum " + std::to_wstring(index))
               ? s_present->enumerate.Original()(key, index, name, length, reserved, kind, kindLength,
                                                 written)
               : ERROR_ACCESS_DENIED;
}

LSTATUS RegistryCalls::Patches::DeleteTree(HKEY key, LPCWSTR name)
{
    return Note(L"delete " + std::wstring(name)) ? s_present->deleteTree.Original()(key, name)
                                                 : ERROR_ACCESS_DENIED;
}

LSTATUS RegistryCalls::Patches::Close(HKEY key)
{
    Note(L"close");
    return s_present->close.Original()(key);
}

RegistryCalls::RegistryCalls() : m_patches(std::make_unique<Patches>())
{
    Patches::s_present = m_patches.get();
    g_lines.clear();
    g_refused.clear();
}

RegistryCalls::~RegistryCalls() = default;

void RegistryCalls::Refuse(const std::wstring& start)
{
    g_refused.push_back(start);
}

std::vector<std::wstring> RegistryCalls::Take()
{
    return std::exchange(g_lines, {});
}

} // namespace ts::test
