#include "DisplayText.h"

#include "CharacterWidths.h"
#include "hosts/common/Utf8.h"

#include <gtest/gtest.h>
#include <random>

using namespace ts::console;
using namespace ts::hosts;

namespace
{

std::string U8(std::wstring_view text)
{
    return ToUtf8(text);
}

TEST(DisplayWidth, Table)
{
    const std::pair<std::wstring, std::size_t> rows[] = {
        {L"", 0},
        {L"plan", 4},
        {L"B\u00FCro", 4},
        {L"Bu\u0308ro", 4},           // a combining diaeresis
        {L"\u9031\u6B21", 4},         // two ideographs
        {L"\uFF21\uFF71", 3},         // full-width A, half-width katakana
        {L"\u1112\u1161\u11AB", 2},   // one syllable of three conjoining letters
        {L"\U0001F4C5", 2},           // an emoji of a surrogate pair
        {L"\u2764", 1},               // a heart as a text character
        {L"\u2764\uFE0F", 2},         // the same as an emoji
        {L"\U0001F1E9\U0001F1EA", 2}, // a flag
        {L"\U0001F44D\U0001F3FD", 4}, // a hand with a skin tone
        {L"\u0E19\u0E49\u0E33", 2},   // Thai: a consonant with its mark, a vowel
        {L"\u0645\u064F", 1},         // Arabic: a letter with its vowel mark
        {L"\U00020000", 2},           // an ideograph beyond the first plane
    };
    for (const auto& [text, width] : rows)
    {
        EXPECT_EQ(width, DisplayWidth(U8(text))) << U8(text);
    }
}

TEST(CutToWidth, Table)
{
    struct Row
    {
        std::wstring text;
        std::size_t width;
        std::wstring expected;
    };
    const Row rows[] = {
        {L"", 0, L""},
        {L"plan", 4, L"plan"},
        {L"plan", 3, L"pl\u2026"},
        {L"plan", 1, L"\u2026"},
        {L"plan", 0, L""},
        {L"Send report", 6, L"Send\u2026"}, // no space before the ellipsis
        {L"\u9031\u6B21\u5831", 6, L"\u9031\u6B21\u5831"},
        {L"\u9031\u6B21\u5831", 5, L"\u9031\u6B21\u2026"},
        {L"\u9031\u6B21\u5831", 4, L"\u9031\u2026"}, // half an ideograph stays free
        {L"a\U0001F4C5b", 3, L"a\u2026"},
        {L"xe\u0301y", 3, L"xe\u0301y"},
        {L"xe\u0301yz", 3, L"xe\u0301\u2026"},
        {L"\U0001F1E9\U0001F1EAab", 2, L"\u2026"},       // half a flag would be another character
        {L"\U0001F468\u200D\U0001F469ab", 4, L"\u2026"}, // so would half a family
    };
    for (const Row& row : rows)
    {
        EXPECT_EQ(U8(row.expected), CutToWidth(U8(row.text), row.width)) << U8(row.text) << row.width;
    }
}

/// Texts of letters, marks, ideographs, emoji, joiners and flags.
std::string RandomText(std::mt19937& random)
{
    constexpr char32_t kCharacters[] = {U'a',          U' ',   U'\u00FC', U'\u0301', U'\u9031',
                                        U'\U0001F4C5', 0x200D, 0xFE0F,    0x1F1E9,   0x1F1EA,
                                        0x1F3FD,       0x1161, 0x0E49,    0x2764,    U'z'};
    std::string text;
    for (unsigned length = random() % 16; length > 0; --length)
    {
        AppendUtf8(text, kCharacters[random() % std::size(kCharacters)]);
    }
    return text;
}

TEST(CutToWidth, AnyText_FitsAndIsAFrontOfTheText)
{
    std::mt19937 random(7);
    for (int round = 0; round < 5000; ++round)
    {
        const std::string text = RandomText(random);
        const std::size_t width = random() % 20;
        std::string cut = CutToWidth(text, width);
        EXPECT_LE(DisplayWidth(cut), width) << round;
        if (cut != text && width > 0)
        {
            ASSERT_TRUE(cut.ends_with("\xE2\x80\xA6")) << round;
            cut.resize(cut.size() - 3);
            EXPECT_TRUE(text.starts_with(cut)) << round;
            // What follows must be able to begin a character of its own.
            std::string_view rest = std::string_view(text).substr(cut.size());
            const char32_t next = TakeCharacter(rest);
            EXPECT_TRUE(CharacterWidth(next) != 0 || cut.empty())
                << round << " " << std::hex << static_cast<unsigned>(next);
        }
    }
}

TEST(WrapToWidth, Table)
{
    struct Row
    {
        std::string text;
        std::size_t width;
        std::vector<std::string> expected;
    };
    const Row rows[] = {
        {"", 10, {""}},
        {"plan", 4, {"plan"}},
        {"send the report", 8, {"send the", "report"}},
        {"send the report", 9, {"send the", "report"}},
        {"send the report", 7, {"send", "the", "report"}},
        {"abcdefgh", 3, {"abc", "def", "gh"}},
        {U8(L"\u9031\u6B21"), 1, {U8(L"\u9031"), U8(L"\u6B21")}},
    };
    for (const Row& row : rows)
    {
        EXPECT_EQ(row.expected, WrapToWidth(row.text, row.width)) << row.text << " " << row.width;
    }
}

TEST(WrapToWidth, AnyText_KeepsAllButSpaces)
{
    std::mt19937 random(11);
    const auto withoutSpaces = [](std::string text)
    {
        std::erase(text, ' ');
        return text;
    };
    for (int round = 0; round < 3000; ++round)
    {
        const std::string text = RandomText(random);
        const std::size_t width = 1 + random() % 12;
        std::string all;
        for (const std::string& line : WrapToWidth(text, width))
        {
            all += line;
        }
        EXPECT_EQ(withoutSpaces(text), withoutSpaces(all)) << round;
    }
}

TEST(Printable, ControlAndDirectionCharacters_AreReplaced)
{
    for (const char32_t character :
         {0x01u, 0x07u, 0x0Au, 0x0Du, 0x1Bu, 0x7Fu, 0x85u, 0x9Bu, 0x2028u, 0x202Eu, 0x2066u})
    {
        std::string text = "a";
        AppendUtf8(text, character);
        EXPECT_EQ("a\xEF\xBF\xBD", Printable(text)) << std::hex << static_cast<unsigned>(character);
    }
    EXPECT_EQ(U8(L"B\u00FCro \u9031"), Printable(U8(L"B\u00FCro \u9031")));
}

TEST(CharacterWidth, RangesOfTheTables_AreInOrder)
{
    // The tables are searched by halving, so neighbours at the ends of ranges show a wrong order.
    EXPECT_EQ(1, CharacterWidth(0x02FF));
    EXPECT_EQ(0, CharacterWidth(0x0300));
    EXPECT_EQ(0, CharacterWidth(0x036F));
    EXPECT_EQ(1, CharacterWidth(0x0370));
    EXPECT_EQ(2, CharacterWidth(0x1100));
    EXPECT_EQ(0, CharacterWidth(0x1160));
    EXPECT_EQ(2, CharacterWidth(0xAC00));
    EXPECT_EQ(2, CharacterWidth(0xD7A3));
    EXPECT_EQ(1, CharacterWidth(0xE000));
    EXPECT_EQ(0, CharacterWidth(0xE01EF));
    EXPECT_EQ(1, CharacterWidth(0x10FFFF));
}

} // namespace
