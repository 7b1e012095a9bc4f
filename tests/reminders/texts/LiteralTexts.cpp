#include "tests/reminders/texts/LiteralTexts.h"

#include "platform/WindowsHeaders.h"

#include <cwchar>
#include <gtest/gtest.h>
#include <map>
#include <string>

namespace ts::test::literal
{
namespace
{

/// The language library beside this program. Kept until the program ends.
HMODULE LibraryOf(const std::wstring& language)
{
    static std::map<std::wstring, HMODULE> libraries;
    HMODULE& library = libraries[language];
    if (library == nullptr)
    {
        wchar_t program[MAX_PATH];
        GetModuleFileNameW(nullptr, program, MAX_PATH);
        std::wstring path(program);
        path = path.substr(0, path.find_last_of(L'\\') + 1) + L"TsServiceUtilities." + language + L".dll";
        library = LoadLibraryExW(path.c_str(), nullptr, LOAD_LIBRARY_AS_DATAFILE);
    }
    EXPECT_NE(nullptr, library);
    return library;
}

/// A text for a count, by its number.
struct Counted
{
    unsigned id = 0;
    std::int64_t count = 0;
};

Counted CountedDays(std::int64_t d)
{
    Counted counted;
    if (d > 350)
    {
        counted.count = d / 365;
        counted.count += d - 365 * counted.count >= 183 ? 1 : 0;
        counted.id = counted.count < 2 ? 207 : 213;
    }
    else if (d > 30)
    {
        counted.count = d / 30;
        counted.count += d - 30 * counted.count >= 16 ? 1 : 0;
        counted.id = counted.count < 2 ? 204 : 211;
    }
    else if (d < 8)
    {
        counted.count = d;
        counted.id = d < 2 ? 200 : 208;
    }
    else
    {
        counted.count = d / 7;
        counted.count += d - 7 * counted.count >= 4 ? 1 : 0;
        counted.id = counted.count < 2 ? 206 : 212;
    }
    return counted;
}

} // namespace

CString TextOf(const wchar_t* language, unsigned id)
{
    wchar_t text[512] = L"";
    EXPECT_NE(0, LoadStringW(LibraryOf(language), id, text, 512)) << id;
    return text;
}

CString Formatted(const wchar_t* language, unsigned id, std::int64_t count)
{
    wchar_t text[512] = L"";
    _snwprintf(text, 511, TextOf(language, id), static_cast<int>(count));
    return text;
}

CString DueIn(const wchar_t* language, std::int64_t seconds)
{
    const bool overdue = seconds < 0;
    const std::int64_t s = overdue ? -seconds : seconds;
    const std::int64_t days = s / 86400;
    const std::int64_t totalHours = s / 3600;
    const std::int64_t hours = totalHours - 24 * days;
    const std::int64_t totalMinutes = s / 60;
    const std::int64_t minutes = totalMinutes - 60 * totalHours;
    Counted counted;
    if (days > 0)
    {
        counted = CountedDays(hours >= 12 ? days + 1 : days);
    }
    else if (hours < 1)
    {
        counted.count = minutes < 1 ? 1 : minutes;
        counted.id = counted.count < 2 ? 203 : 210;
    }
    else
    {
        counted.count = minutes >= 30 ? hours + 1 : hours;
        counted.id = counted.count < 2 ? 202 : 209;
    }
    const CString inner = Formatted(language, counted.id, counted.count);
    wchar_t text[512] = L"";
    _snwprintf(text, 511, TextOf(language, overdue ? 205 : 201), inner.GetString());
    return text;
}

CString TooltipStatus(const wchar_t* language, std::int64_t seconds, std::int64_t secondsToReminder)
{
    const std::int64_t s = seconds < 0 ? -seconds : seconds;
    const std::int64_t days = s / 86400;
    const std::int64_t hours = s / 3600 - 24 * days;
    const std::int64_t minutes = s / 60 - 60 * (s / 3600);
    const std::int64_t roundedDays = hours >= 12 ? days + 1 : days;
    const std::int64_t roundedHours = minutes >= 30 ? hours + 1 : hours;
    if (seconds < 0)
    {
        return days > 0    ? Formatted(language, 177, roundedDays)
               : hours < 1 ? Formatted(language, 173, minutes < 1 ? 1 : minutes)
                           : Formatted(language, 172, roundedHours);
    }
    if (secondsToReminder > 0)
    {
        return days > 0    ? Formatted(language, 178, roundedDays)
               : hours < 1 ? Formatted(language, 176, s == minutes * 60 ? minutes : minutes + 1)
                           : Formatted(language, 175, roundedHours);
    }
    return TextOf(language, 174);
}

} // namespace ts::test::literal
