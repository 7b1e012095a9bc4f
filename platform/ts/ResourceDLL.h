#pragma once

#include "platform/WindowsHeaders.h"
#include "platform/mfc/afxstr.h"

/// Finds and loads the language libraries of a module: "<module>.<language>.dll" beside the library itself.
class ResourceDLL
{
  public:
    /// The language library of `moduleName`, mapped for its resources only and kept for the life of the
    /// process: later calls give the same handle. `language` is a language name such as L"de" or L"de-AT", or
    /// null for the preferred language, or else the interface languages of the user. Each language is tried
    /// with its region, then without; after them English. A library that is missing or holds no texts is
    /// passed over; null when none is left. Any thread.
    static HMODULE LoadLanguageResource(const wchar_t* moduleName, const wchar_t* language);

    /// Prefers `language` to those of the user in the whole process; null ends that.
    static void SetPreferredLanguage(const wchar_t* language);
};
