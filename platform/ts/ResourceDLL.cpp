#include "platform/ts/ResourceDLL.h"

#include "platform/LoadedLibrary.h"
#include "platform/mfc/CWinApp.h"

#include <algorithm>
#include <bit>
#include <map>
#include <mutex>
#include <string>
#include <vector>

namespace
{

using ts::LoadedLibrary;

/// The folder of the module that holds this code, with its last backslash.
std::wstring OwnFolder()
{
    std::wstring path(MAX_PATH, L'\0');
    DWORD length = GetModuleFileNameW(AfxGetInstanceHandle(), path.data(), static_cast<DWORD>(path.size()));
    while (length == path.size())
    {
        path.resize(path.size() * 2);
        length = GetModuleFileNameW(AfxGetInstanceHandle(), path.data(), static_cast<DWORD>(path.size()));
    }
    path.resize(length);
    return path.substr(0, path.find_last_of(L'\\') + 1);
}

/// The interface languages that Windows would use for the calling thread: those of the thread and the
/// process, then the user's, then the system's.
std::vector<std::wstring> PreferredLanguages()
{
    ULONG count = 0;
    ULONG length = 0;
    constexpr DWORD kFlags = MUI_LANGUAGE_NAME | MUI_UI_FALLBACK;
    if (GetThreadPreferredUILanguages(kFlags, &count, nullptr, &length) == FALSE)
    {
        return {};
    }
    std::wstring names(length, L'\0');
    if (GetThreadPreferredUILanguages(kFlags, &count, names.data(), &length) == FALSE)
    {
        return {};
    }
    std::vector<std::wstring> languages;
    for (const wchar_t* name = names.c_str(); *name != L'\0'; name += languages.back().size() + 1)
    {
        languages.emplace_back(name);
    }
    return languages;
}

/// The languages to try: each with its region, then without; after them English.
std::vector<std::wstring> Candidates(const std::wstring& language)
{
    std::vector<std::wstring> candidates;
    const auto add = [&candidates](const std::wstring& name)
    {
        if (!name.empty() && std::ranges::find(candidates, name) == candidates.end())
        {
            candidates.push_back(name);
        }
    };
    for (const std::wstring& name :
         language.empty() ? PreferredLanguages() : std::vector<std::wstring>{language})
    {
        add(name);
        add(name.substr(0, name.find(L'-')));
    }
    add(L"en");
    return candidates;
}

BOOL CALLBACK StopAtFirst(HMODULE, LPCWSTR, LPWSTR, LONG_PTR found)
{
    *std::bit_cast<bool*>(found) = true;
    return FALSE;
}

/// The library at `path`, if it is one and holds texts.
LoadedLibrary TryLoad(const std::wstring& path)
{
    constexpr DWORD kResourcesOnly = LOAD_LIBRARY_AS_DATAFILE | LOAD_LIBRARY_AS_IMAGE_RESOURCE;
    LoadedLibrary library(LoadLibraryExW(path.c_str(), nullptr, kResourcesOnly));
    bool holdsTexts = false;
    if (library)
    {
        EnumResourceNamesW(library.get(), RT_STRING, StopAtFirst, std::bit_cast<LONG_PTR>(&holdsTexts));
    }
    return holdsTexts ? std::move(library) : LoadedLibrary();
}

/// What was asked for: the module's name and the language, an empty one for the user's.
using Request = std::pair<std::wstring, std::wstring>;

class LanguageLibraries
{
  public:
    void Prefer(const wchar_t* language)
    {
        const std::lock_guard lock(m_mutex);
        m_preferred = language == nullptr ? L"" : language;
    }

    HMODULE Find(const wchar_t* moduleName, const wchar_t* language)
    {
        const std::lock_guard lock(m_mutex);
        const Request request(moduleName, language == nullptr ? m_preferred : language);
        const auto known = m_answers.find(request);
        if (known != m_answers.end())
        {
            return known->second;
        }
        const HMODULE library = Load(request);
        if (library != nullptr)
        {
            m_answers.emplace(request, library);
        }
        return library;
    }

  private:
    HMODULE Load(const Request& request)
    {
        const std::wstring start = OwnFolder() + request.first + L".";
        for (const std::wstring& candidate : Candidates(request.second))
        {
            const std::wstring path = start + candidate + L".dll";
            LoadedLibrary& library = m_libraries[path];
            if (!library)
            {
                library = TryLoad(path);
            }
            if (library)
            {
                return library.get();
            }
        }
        return nullptr;
    }

    std::mutex m_mutex;
    std::wstring m_preferred;
    std::map<std::wstring, LoadedLibrary> m_libraries;
    std::map<Request, HMODULE> m_answers;
};

LanguageLibraries g_languageLibraries;

} // namespace

HMODULE ResourceDLL::LoadLanguageResource(const wchar_t* moduleName, const wchar_t* language)
{
    return g_languageLibraries.Find(moduleName, language);
}

void ResourceDLL::SetPreferredLanguage(const wchar_t* language)
{
    g_languageLibraries.Prefer(language);
}
