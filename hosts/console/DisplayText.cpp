#include "DisplayText.h"

#include "CharacterWidths.h"
#include "hosts/common/Utf8.h"

#include <algorithm>
#include <cstdio>

namespace ts::console
{

using hosts::AppendUtf8;
using hosts::kReplacement;
using hosts::TakeCharacter;

namespace
{

constexpr std::string_view kEllipsis = "\xE2\x80\xA6";
constexpr char32_t kZeroWidthJoiner = 0x200D;
constexpr char32_t kEmojiPresentation = 0xFE0F;

bool IsControl(char32_t character) noexcept
{
    return character < 0x20 || (character >= 0x7F && character <= 0x9F) || character == 0x2028 ||
           character == 0x2029;
}

bool TurnsDirection(char32_t character) noexcept
{
    return (character >= 0x202A && character <= 0x202E) || (character >= 0x2066 && character <= 0x2069);
}

bool IsRegionalIndicator(char32_t character) noexcept
{
    return character >= 0x1F1E6 && character <= 0x1F1FF;
}

bool IsSkinTone(char32_t character) noexcept
{
    return character >= 0x1F3FB && character <= 0x1F3FF;
}

/// What a reader sees as one character.
struct Cluster
{
    std::string_view text;
    std::size_t width;
};

/// Takes the cluster at the front of `rest`, which is not empty.
Cluster TakeCluster(std::string_view& rest) noexcept
{
    const std::string_view whole = rest;
    char32_t previous = TakeCharacter(rest);
    int width = CharacterWidth(previous);
    bool awaitsIndicator = IsRegionalIndicator(previous);
    while (!rest.empty())
    {
        std::string_view after = rest;
        const char32_t next = TakeCharacter(after);
        const int nextWidth = CharacterWidth(next);
        const bool completesFlag = awaitsIndicator && IsRegionalIndicator(next);
        const bool joined = previous == kZeroWidthJoiner && nextWidth == 2;
        if (nextWidth != 0 && !completesFlag && !joined && !(IsSkinTone(next) && width == 2))
        {
            break;
        }
        // Terminals that do not join draw the joined characters side by side, so their widths count.
        width = next == kEmojiPresentation ? std::max(width, 2) : width + nextWidth;
        awaitsIndicator = false;
        previous = next;
        rest = after;
    }
    return {whole.substr(0, whole.size() - rest.size()), static_cast<std::size_t>(width)};
}

/// The end of the longest front of `text` that takes at most `width` columns.
std::size_t EndWithin(std::string_view text, std::size_t width) noexcept
{
    std::size_t used = 0;
    std::size_t end = 0;
    for (std::string_view rest = text; !rest.empty();)
    {
        const Cluster cluster = TakeCluster(rest);
        used += cluster.width;
        if (used > width)
        {
            break;
        }
        end += cluster.text.size();
    }
    return end;
}

} // namespace

std::string Printable(std::string_view text)
{
    std::string result;
    result.reserve(text.size());
    while (!text.empty())
    {
        const char32_t character = TakeCharacter(text);
        AppendUtf8(result, IsControl(character) || TurnsDirection(character) ? kReplacement : character);
    }
    return result;
}

std::size_t DisplayWidth(std::string_view text) noexcept
{
    std::size_t width = 0;
    while (!text.empty())
    {
        width += TakeCluster(text).width;
    }
    return width;
}

std::string CutToWidth(std::string_view text, std::size_t width)
{
    // Only the front is looked at: a stored text may be a megabyte long.
    if (EndWithin(text, width) == text.size())
    {
        return std::string(text);
    }
    if (width == 0)
    {
        return {};
    }
    std::string_view kept = text.substr(0, EndWithin(text, width - 1));
    while (!kept.empty() && kept.back() == ' ')
    {
        kept.remove_suffix(1);
    }
    return std::string(kept).append(kEllipsis);
}

std::vector<std::string> WrapToWidth(std::string_view text, std::size_t width)
{
    std::vector<std::string> lines;
    while (EndWithin(text, width) < text.size())
    {
        std::size_t end = EndWithin(text, width);
        if (end == 0)
        {
            std::string_view rest = text;
            end = TakeCluster(rest).text.size();
        }
        else if (const std::size_t space = text.rfind(' ', end - 1);
                 text[end] != ' ' && space != std::string_view::npos && space > 0)
        {
            end = space + 1;
        }
        std::string_view line = text.substr(0, end);
        text.remove_prefix(end);
        while (line.ends_with(' '))
        {
            line.remove_suffix(1);
        }
        while (text.starts_with(' '))
        {
            text.remove_prefix(1);
        }
        lines.emplace_back(line);
    }
    if (!text.empty() || lines.empty())
    {
        lines.emplace_back(text);
    }
    return lines;
}

std::string EscapeJsonControls(std::string_view document)
{
    std::string result;
    result.reserve(document.size());
    while (!document.empty())
    {
        const char32_t character = TakeCharacter(document);
        if (character >= 0x7F && (IsControl(character) || TurnsDirection(character)))
        {
            char escape[8];
            std::snprintf(escape, sizeof escape, "\\u%04x", static_cast<unsigned>(character));
            result += escape;
        }
        else
        {
            AppendUtf8(result, character);
        }
    }
    return result;
}

} // namespace ts::console
