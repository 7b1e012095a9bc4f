#pragma once

#include "platform/WindowsHeaders.h"

#include <filesystem>
#include <map>
#include <memory>
#include <string>
#include <type_traits>

namespace ts::test
{

struct Language
{
    const char* code;
    const wchar_t* locale;
    LANGID id;
};

inline constexpr Language kEnglish{"en", L"en-US", MAKELANGID(LANG_ENGLISH, SUBLANG_ENGLISH_US)};
inline constexpr Language kGerman{"de", L"de-DE", MAKELANGID(LANG_GERMAN, SUBLANG_GERMAN)};
inline constexpr Language kFrench{"fr", L"fr-FR", MAKELANGID(LANG_FRENCH, SUBLANG_FRENCH)};
inline constexpr Language kLanguages[] = {kEnglish, kGerman, kFrench};

/// The strings of a language DLL by their numbers.
using StringTable = std::map<unsigned, std::wstring>;

struct ModuleCloser
{
    void operator()(HMODULE module) const noexcept { FreeLibrary(module); }
};
using ModuleHandle = std::unique_ptr<std::remove_pointer_t<HMODULE>, ModuleCloser>;

/// Where the build puts the language DLL: beside the library, one folder above the tests.
std::filesystem::path LanguageModulePath(const Language& language);

/// Opens the language DLL for its resources only; null, and a failure of the test, when that does not work.
ModuleHandle OpenLanguageModule(const Language& language);

/// All strings of all blocks of the language DLL, read once.
const StringTable& StringsOf(const Language& language);

/// The text of a number; a failure of the test, and an empty text, when there is none.
std::wstring TextOf(const Language& language, unsigned id);

/// A text for messages and comparisons of tests.
std::string Utf8(const std::wstring& text);

/// "number 201 in de: Fällig in %s", for messages.
std::string Describe(const Language& language, unsigned id);

} // namespace ts::test
