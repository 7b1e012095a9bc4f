// What the code that loads the strings relies on: their numbers, their placeholders, and how they end.

#include "resources/StringIds.h"
#include "tests/resources/LanguageModule.h"

#include <algorithm>
#include <gtest/gtest.h>
#include <iterator>
#include <set>
#include <string>
#include <vector>

namespace
{

using namespace ts::test;

struct HeaderString
{
    const char* name;
    unsigned id;
};

constexpr HeaderString kHeaderStrings[] = {
#include "HeaderStrings.inc"
};

/// Every number of the product, as ranges with both ends included.
struct Range
{
    unsigned first;
    unsigned last;
};

constexpr Range kNumbers[] = {
    {101, 103},     {110, 111},     {113, 115},     {117, 117},     {122, 122},
    {125, 157},     {162, 162},     {164, 166},     {168, 178},     {180, 186},
    {188, 188},     {200, 213},     {4301, 4318},   {40101, 40101}, {40103, 40106},
    {40108, 40112}, {40114, 40115}, {45000, 45002}, {61712, 61712},
};

/// What is special about a string; all others stand alone, without placeholders and mnemonics.
struct Contract
{
    unsigned id;
    const char* placeholders; // in their order
    bool joined = false;      // something follows directly, so the text ends with one space
    bool mnemonic = false;    // the text becomes that of a button
};

constexpr Contract kContracts[] = {
    {122, "", false, true},
    {164, "%d"},
    {165, "%d"},
    {171, "%s%s"},
    {172, "%d", true},
    {173, "%d", true},
    {174, "", true},
    {175, "%d", true},
    {176, "%d", true},
    {177, "%d", true},
    {178, "%d", true},
    {188, "", true},
    {200, "%d"},
    {201, "%s"},
    {202, "%d"},
    {203, "%d"},
    {204, "%d"},
    {205, "%s"},
    {206, "%d"},
    {207, "%d"},
    {208, "%d"},
    {209, "%d"},
    {210, "%d"},
    {211, "%d"},
    {212, "%d"},
    {213, "%d"},
    {45000, "", false, true},
    {45001, "", false, true},
};

Contract ContractOf(unsigned id)
{
    const auto* row = std::ranges::find(kContracts, id, &Contract::id);
    return row == std::end(kContracts) ? Contract{id, ""} : *row;
}

std::set<unsigned> ProductNumbers()
{
    std::set<unsigned> numbers;
    for (const Range& range : kNumbers)
    {
        for (unsigned id = range.first; id <= range.last; ++id)
        {
            numbers.insert(id);
        }
    }
    return numbers;
}

std::vector<unsigned> Missing(const std::set<unsigned>& from, const std::set<unsigned>& wanted)
{
    std::vector<unsigned> missing;
    std::ranges::set_difference(wanted, from, std::back_inserter(missing));
    return missing;
}

/// The conversions of a template, each as the per cent sign and the character after it.
std::string PlaceholdersOf(const std::wstring& text)
{
    std::string placeholders;
    for (std::size_t at = text.find(L'%'); at != std::wstring::npos; at = text.find(L'%', at + 2))
    {
        placeholders += Utf8(text.substr(at, 2));
    }
    return placeholders;
}

template <typename Check>
void ForEachText(Check check)
{
    for (const Language& language : kLanguages)
    {
        for (const auto& [id, text] : StringsOf(language))
        {
            SCOPED_TRACE(Describe(language, id));
            check(language, id, text);
        }
    }
}

} // namespace

TEST(StringIdsTest, NumbersOfTheHeader_AreThoseOfTheProduct)
{
    std::set<unsigned> header;
    for (const HeaderString& row : kHeaderStrings)
    {
        EXPECT_TRUE(header.insert(row.id).second)
            << row.name << " has the number of another string: " << row.id;
    }
    EXPECT_EQ(std::vector<unsigned>{}, Missing(header, ProductNumbers())) << "the header lacks these";
    EXPECT_EQ(std::vector<unsigned>{}, Missing(ProductNumbers(), header)) << "the product knows no such";
}

TEST(StringTablesTest, EachLanguage_HasExactlyTheNumbersOfTheHeader)
{
    std::set<unsigned> header;
    for (const HeaderString& row : kHeaderStrings)
    {
        header.insert(row.id);
    }
    for (const Language& language : kLanguages)
    {
        std::set<unsigned> numbers;
        for (const auto& [id, text] : StringsOf(language))
        {
            numbers.insert(id);
        }
        EXPECT_EQ(std::vector<unsigned>{}, Missing(numbers, header)) << "missing in " << language.code;
        EXPECT_EQ(std::vector<unsigned>{}, Missing(header, numbers))
            << "not in the header, " << language.code;
    }
}

TEST(StringTablesTest, EachText_HasTheStatedPlaceholdersAndNoOther)
{
    ForEachText([](const Language&, unsigned id, const std::wstring& text)
                { EXPECT_EQ(ContractOf(id).placeholders, PlaceholdersOf(text)); });
}

TEST(StringTablesTest, EachText_HasNoSpaceAtItsEndsUnlessSomethingFollows)
{
    ForEachText(
        [](const Language&, unsigned id, const std::wstring& text)
        {
            const std::wstring space = L" \u00A0\u202F\u2009";
            EXPECT_EQ(std::wstring::npos, space.find(text.front())) << "begins with a space";
            const std::size_t end = text.find_last_not_of(space) + 1;
            EXPECT_EQ(ContractOf(id).joined ? L" " : L"", text.substr(end)) << "wrong end";
            EXPECT_NE(0U, end) << "nothing but spaces";
        });
}

TEST(StringTablesTest, EachText_HasItsMnemonicAndNoOther)
{
    ForEachText(
        [](const Language&, unsigned id, const std::wstring& text)
        {
            const auto count = std::ranges::count(text, L'&');
            EXPECT_EQ(ContractOf(id).mnemonic ? 1 : 0, count);
            if (count == 1)
            {
                const std::size_t at = text.find(L'&');
                EXPECT_TRUE(at + 1 < text.size() && IsCharAlphaW(text[at + 1])) << "no letter follows";
            }
        });
}

TEST(StringTablesTest, EachText_HasNoControlCharacters)
{
    ForEachText(
        [](const Language&, unsigned, const std::wstring& text) {
            EXPECT_TRUE(
                std::ranges::none_of(text, [](wchar_t c) { return c < 0x20 || (c >= 0x7F && c < 0xA0); }));
        });
}

TEST(StringTablesTest, TooltipTexts_HaveNoMarkUpCharacters)
{
    for (const Language& language : kLanguages)
    {
        for (unsigned id = IDS_TOOLTIP_HOURS_OVERDUE; id <= IDS_TOOLTIP_DAYS_LEFT; ++id)
        {
            EXPECT_EQ(std::wstring::npos, TextOf(language, id).find_first_of(L"<>&\""))
                << Describe(language, id);
        }
    }
}

TEST(StringTablesTest, LanguageCode_IsThatOfTheDll)
{
    for (const Language& language : kLanguages)
    {
        EXPECT_EQ(language.code, Utf8(TextOf(language, IDS_LANGUAGE_CODE)));
    }
}
