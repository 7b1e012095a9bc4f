#include "hosts/common/Utf8.h"

#include <gtest/gtest.h>
#include <random>

using namespace ts::hosts;

namespace
{

struct Row
{
    const char* title;
    std::wstring wide;
    std::string utf8;
};

const Row kRows[] = {
    {"nothing", L"", ""},
    {"ASCII", L"plan", "plan"},
    {"umlaut", L"\u00FC", "\xC3\xBC"},
    {"last of two bytes", L"\u07FF", "\xDF\xBF"},
    {"first of three bytes", L"\u0800", "\xE0\xA0\x80"},
    {"last before the surrogates", L"\uD7FF", "\xED\x9F\xBF"},
    {"last of three bytes", L"\uFFFF", "\xEF\xBF\xBF"},
    {"surrogate pair", L"\U0001F4C5", "\xF0\x9F\x93\x85"},
    {"last character", L"\U0010FFFF", "\xF4\x8F\xBF\xBF"},
};

TEST(Utf8, ValidText_ConvertsBothWays)
{
    for (const Row& row : kRows)
    {
        EXPECT_EQ(row.utf8, ToUtf8(row.wide)) << row.title;
        EXPECT_EQ(row.wide, ToWide(row.utf8)) << row.title;
    }
}

TEST(Utf8, SurrogateWithoutPartner_BecomesReplacement)
{
    const std::pair<std::wstring, std::string> rows[] = {
        {{wchar_t(0xD83D)}, "\xEF\xBF\xBD"},
        {{wchar_t(0xDCC5)}, "\xEF\xBF\xBD"},
        {{wchar_t(0xDCC5), wchar_t(0xD83D)}, "\xEF\xBF\xBD\xEF\xBF\xBD"},
        {{wchar_t(0xD83D), L'a'},
         "\xEF\xBF\xBD"
         "a"},
        {{wchar_t(0xD83D), wchar_t(0xD83D), wchar_t(0xDCC5)}, "\xEF\xBF\xBD\xF0\x9F\x93\x85"},
    };
    for (const auto& [wide, expected] : rows)
    {
        EXPECT_EQ(expected, ToUtf8(wide));
    }
}

TEST(Utf8, BytesThatAreNoText_BecomeOneReplacementEach)
{
    const std::pair<std::string, std::wstring> rows[] = {
        {"\x80", L"\uFFFD"},
        {"\xC0\x80", L"\uFFFD\uFFFD"},
        {"\xE2\x82", L"\uFFFD\uFFFD"},
        {"\xED\xA0\x80", L"\uFFFD\uFFFD\uFFFD"},
        {"\xE0\x80\x80", L"\uFFFD\uFFFD\uFFFD"},
        {"\xF4\x90\x80\x80", L"\uFFFD\uFFFD\uFFFD\uFFFD"},
        {"\xF5", L"\uFFFD"},
        {"\xC3"
         "a",
         L"\uFFFDa"},
    };
    for (const auto& [utf8, expected] : rows)
    {
        EXPECT_EQ(expected, ToWide(utf8));
    }
}

TEST(Utf8, AnyUnits_GiveTextThatSurvivesARoundTrip)
{
    std::mt19937 random(20261121);
    for (int round = 0; round < 2000; ++round)
    {
        std::wstring wide;
        for (unsigned length = random() % 12; length > 0; --length)
        {
            // Every second unit is a surrogate, so that pairs and loners are common.
            wide += static_cast<wchar_t>(random() % 2 == 0 ? 0xD800 + random() % 0x800 : random() % 0x10000);
        }
        const std::string utf8 = ToUtf8(wide);
        EXPECT_EQ(utf8, ToUtf8(ToWide(utf8))) << "round " << round;
    }
}

} // namespace
