#include "hosts/common/Utf8.h"

namespace ts::hosts
{
namespace
{

constexpr bool IsLeadSurrogate(char32_t unit) noexcept
{
    return unit >= 0xD800 && unit <= 0xDBFF;
}

constexpr bool IsTrailSurrogate(char32_t unit) noexcept
{
    return unit >= 0xDC00 && unit <= 0xDFFF;
}

/// The bytes of the character that `lead` begins, and the smallest one that needs so many.
struct Form
{
    std::size_t length;
    char32_t smallest;
    char32_t bits;
};

/// Length 0 for a byte that begins no character.
constexpr Form FormOf(unsigned char lead) noexcept
{
    if (lead < 0x80)
    {
        return {1, 0, lead};
    }
    if (lead >= 0xC2 && lead < 0xE0)
    {
        return {2, 0x80, lead & 0x1Fu};
    }
    if (lead >= 0xE0 && lead < 0xF0)
    {
        return {3, 0x800, lead & 0x0Fu};
    }
    if (lead >= 0xF0 && lead < 0xF5)
    {
        return {4, 0x10000, lead & 0x07u};
    }
    return {0, 0, 0};
}

} // namespace

void AppendUtf8(std::string& text, char32_t character)
{
    const auto append = [&text](char32_t byte)
    { text += static_cast<char>(static_cast<unsigned char>(byte)); };
    const auto appendRest = [&](int shift) { append(0x80 | ((character >> shift) & 0x3F)); };
    if (character < 0x80)
    {
        append(character);
    }
    else if (character < 0x800)
    {
        append(0xC0 | (character >> 6));
        appendRest(0);
    }
    else if (character < 0x10000)
    {
        append(0xE0 | (character >> 12));
        appendRest(6);
        appendRest(0);
    }
    else
    {
        append(0xF0 | (character >> 18));
        appendRest(12);
        appendRest(6);
        appendRest(0);
    }
}

char32_t TakeCharacter(std::string_view& rest) noexcept
{
    const Form form = FormOf(static_cast<unsigned char>(rest.front()));
    char32_t character = form.bits;
    bool valid = form.length != 0 && form.length <= rest.size();
    for (std::size_t index = 1; valid && index < form.length; ++index)
    {
        const auto byte = static_cast<unsigned char>(rest[index]);
        valid = (byte & 0xC0) == 0x80;
        character = (character << 6) | (byte & 0x3F);
    }
    valid = valid && character >= form.smallest && character <= 0x10FFFF && !IsLeadSurrogate(character) &&
            !IsTrailSurrogate(character);
    rest.remove_prefix(valid ? form.length : 1);
    return valid ? character : kReplacement;
}

std::string ToUtf8(std::wstring_view text)
{
    std::string result;
    result.reserve(text.size());
    for (std::size_t index = 0; index < text.size(); ++index)
    {
        const char32_t unit = text[index];
        const char32_t next = index + 1 < text.size() ? text[index + 1] : U'\0';
        if (IsLeadSurrogate(unit) && IsTrailSurrogate(next))
        {
            AppendUtf8(result, 0x10000 + ((unit - 0xD800) << 10) + (next - 0xDC00));
            ++index;
        }
        else
        {
            AppendUtf8(result, IsLeadSurrogate(unit) || IsTrailSurrogate(unit) ? kReplacement : unit);
        }
    }
    return result;
}

std::wstring ToWide(std::string_view text)
{
    std::wstring result;
    result.reserve(text.size());
    while (!text.empty())
    {
        const char32_t character = TakeCharacter(text);
        if (character < 0x10000)
        {
            result += static_cast<wchar_t>(character);
        }
        else
        {
            result += static_cast<wchar_t>(0xD800 + ((character - 0x10000) >> 10));
            result += static_cast<wchar_t>(0xDC00 + (character & 0x3FF));
        }
    }
    return result;
}

} // namespace ts::hosts
