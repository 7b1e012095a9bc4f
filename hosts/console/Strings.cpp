#include "Strings.h"

#include "Errors.h"
#include "hosts/common/Utf8.h"

#include <algorithm>
#include <charconv>

namespace ts::console
{

using hosts::ToUtf8;
using hosts::ToWide;

namespace
{

constexpr std::string_view kGuidShape = "hhhhhhhh-hhhh-hhhh-hhhh-hhhhhhhhhhhh";

bool IsHexDigit(char character) noexcept
{
    return (character >= '0' && character <= '9') || (character >= 'a' && character <= 'f') ||
           (character >= 'A' && character <= 'F');
}

bool IsGuid(std::string_view text) noexcept
{
    return std::equal(text.begin(), text.end(), kGuidShape.begin(), kGuidShape.end(),
                      [](char character, char shape)
                      { return shape == '-' ? character == '-' : IsHexDigit(character); });
}

} // namespace

std::string FromLibrary(const CString& text)
{
    return ToUtf8({text.GetString(), static_cast<std::size_t>(text.GetLength())});
}

CString ToLibrary(std::string_view text)
{
    return CString(ToWide(text).c_str());
}

std::string ToLower(std::string_view text)
{
    std::string lower(text);
    std::transform(lower.begin(), lower.end(), lower.begin(),
                   [](char character) {
                       return character >= 'A' && character <= 'Z' ? static_cast<char>(character - 'A' + 'a')
                                                                   : character;
                   });
    return lower;
}

CString ParseGuid(std::string_view text, std::string_view what)
{
    const bool braced = text.size() >= 2 && text.front() == '{' && text.back() == '}';
    const std::string_view bare = braced ? text.substr(1, text.size() - 2) : text;
    if (!IsGuid(bare))
    {
        throw UsageError(std::string(what) + " is no GUID: " + Quoted(text) +
                         " (expected {8-4-4-4-12 hexadecimal digits})");
    }
    return L"{" + ToLibrary(bare) + L"}";
}

int ParseNumber(std::string_view text, std::string_view what, int last)
{
    int number = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
    if (error != std::errc() || end != text.data() + text.size() || number < 1 || number > last)
    {
        throw UsageError(std::string(what) + " takes a number from 1 to " + std::to_string(last) + ", not " +
                         Quoted(text));
    }
    return number;
}

std::string Quoted(std::string_view text)
{
    return std::string("'").append(text) + "'";
}

} // namespace ts::console
