// What a reader of each language relies on: right letters, right punctuation, one number for each count.

#include "resources/StringIds.h"
#include "tests/resources/LanguageModule.h"

#include <algorithm>
#include <gtest/gtest.h>
#include <iterator>
#include <set>
#include <string>
#include <string_view>

namespace
{

using namespace ts::test;

struct Letters
{
    Language language;
    std::wstring_view beyondAscii; // what may stand in a text besides ASCII
    std::wstring_view certain;     // what stands in some text, if none were lost
    std::wstring_view quotes;      // the opening and closing quotation mark
};

constexpr Letters kLetters[] = {
    {kEnglish, L"–“”", L"–“”", L"“”"},
    {kGerman, L"äöüÄÖÜß–„“", L"äöüÜ–„“", L"„“"},
    {kFrench, L"àâçèéêëîïôùûüÀÉœ\u00A0–’«»", L"àèéêûÀÉ\u00A0–’«»", L"«»"},
};

/// Texts that are right although they read as in English: names, words that both languages share.
constexpr unsigned kSharedWithGerman[] = {
    IDS_COLUMN_MAP, IDS_MESSAGE_CAPTION,   IDS_APRIL, IDS_AUGUST, IDS_SEPTEMBER,
    IDS_NOVEMBER,   IDS_LEAD_WEEK_INITIAL,
};
constexpr unsigned kSharedWithFrench[] = {
    IDS_MESSAGE_CAPTION,  IDS_DUE_MINUTE,        IDS_DUE_MINUTES,       IDS_LEAD_HOUR_INITIAL,
    IDS_SNOOZE_5_MINUTES, IDS_SNOOZE_15_MINUTES, IDS_SNOOZE_30_MINUTES, IDS_SNOOZE_45_MINUTES,
};

struct Plural
{
    unsigned one;
    unsigned several;
};

constexpr Plural kPlurals[] = {
    {IDS_DUE_MINUTE, IDS_DUE_MINUTES},   {IDS_DUE_HOUR, IDS_DUE_HOURS},   {IDS_DUE_DAY, IDS_DUE_DAYS},
    {IDS_DUE_WEEK, IDS_DUE_WEEKS},       {IDS_DUE_MONTH, IDS_DUE_MONTHS}, {IDS_DUE_YEAR, IDS_DUE_YEARS},
    {IDS_LEAD_MINUTE, IDS_LEAD_MINUTES}, {IDS_LEAD_HOUR, IDS_LEAD_HOURS}, {IDS_LEAD_DAY, IDS_LEAD_DAYS},
    {IDS_LEAD_WEEK, IDS_LEAD_WEEKS},
};

/// Abbreviations and words that have one form for both numbers.
bool IsInvariable(const Language& language, unsigned id)
{
    return language.id == kFrench.id ? id == IDS_DUE_MONTH : id == IDS_LEAD_MINUTE;
}

template <std::size_t Size>
void ExpectOnlyTheseAsInEnglish(const Language& language, const unsigned (&shared)[Size])
{
    for (const auto& [id, text] : StringsOf(language))
    {
        const bool mayBeEqual = std::ranges::find(shared, id) != std::end(shared);
        EXPECT_EQ(mayBeEqual, text == TextOf(kEnglish, id)) << Describe(language, id);
    }
}

std::wstring LocaleText(const Language& language, LCTYPE type)
{
    wchar_t text[80]{};
    GetLocaleInfoEx(language.locale, type, text, static_cast<int>(std::size(text)));
    return text;
}

} // namespace

TEST(WordingTest, EachText_HasOnlyTheLettersOfItsLanguage)
{
    for (const Letters& row : kLetters)
    {
        std::set<wchar_t> seen;
        for (const auto& [id, text] : StringsOf(row.language))
        {
            for (const wchar_t character : text)
            {
                seen.insert(character);
                EXPECT_TRUE(character < 0x7F || row.beyondAscii.find(character) != std::wstring_view::npos)
                    << Describe(row.language, id) << ": U+" << std::hex << static_cast<unsigned>(character);
            }
        }
        for (const wchar_t character : row.certain)
        {
            EXPECT_TRUE(seen.contains(character))
                << row.language.code << " lost U+" << std::hex << static_cast<unsigned>(character);
        }
    }
}

TEST(WordingTest, EachText_UsesTypographicMarks)
{
    for (const Language& language : kLanguages)
    {
        for (const auto& [id, text] : StringsOf(language))
        {
            // A question mark would be a lost letter: no text asks anything.
            EXPECT_EQ(std::wstring::npos, text.find_first_of(L"\"'?\\")) << Describe(language, id);
            EXPECT_EQ(std::wstring::npos, text.find(L"...")) << Describe(language, id);
            EXPECT_EQ(std::wstring::npos, text.find(L"  ")) << Describe(language, id);
            EXPECT_EQ(std::wstring::npos, text.find(L" - ")) << Describe(language, id);
        }
    }
}

TEST(WordingTest, QuotationMarks_AreThoseOfTheLanguageInPairs)
{
    for (const Letters& row : kLetters)
    {
        for (const auto& [id, text] : StringsOf(row.language))
        {
            std::wstring marks;
            std::ranges::copy_if(text, std::back_inserter(marks),
                                 [](wchar_t c)
                                 { return std::wstring_view(L"“”„«»").find(c) != std::wstring_view::npos; });
            EXPECT_TRUE(marks.empty() || marks == row.quotes) << Describe(row.language, id);
        }
    }
}

TEST(WordingTest, FrenchPunctuation_HasNoBreakSpaces)
{
    for (const auto& [id, text] : StringsOf(kFrench))
    {
        for (std::size_t at = 0; at < text.size(); ++at)
        {
            if (std::wstring_view(L":;!?»").find(text[at]) != std::wstring_view::npos)
            {
                EXPECT_TRUE(at > 0 && text[at - 1] == 0xA0) << Describe(kFrench, id) << ", before " << at;
            }
            if (text[at] == L'«')
            {
                EXPECT_TRUE(at + 1 < text.size() && text[at + 1] == 0xA0) << Describe(kFrench, id);
            }
        }
    }
}

TEST(WordingTest, OtherLanguages_HaveNoSpaceBeforePunctuation)
{
    for (const Language& language : {kEnglish, kGerman})
    {
        for (const auto& [id, text] : StringsOf(language))
        {
            for (const wchar_t* pair : {L" :", L" ;", L" !", L" ,", L" ."})
            {
                EXPECT_EQ(std::wstring::npos, text.find(pair)) << Describe(language, id);
            }
        }
    }
}

TEST(WordingTest, GermanAndFrench_DifferFromEnglishExceptForSharedWords)
{
    ExpectOnlyTheseAsInEnglish(kGerman, kSharedWithGerman);
    ExpectOnlyTheseAsInEnglish(kFrench, kSharedWithFrench);
}

TEST(WordingTest, SingularAndPlural_DifferWhereTheLanguageDoes)
{
    for (const Language& language : kLanguages)
    {
        for (const Plural& pair : kPlurals)
        {
            EXPECT_EQ(IsInvariable(language, pair.one),
                      TextOf(language, pair.one) == TextOf(language, pair.several))
                << Describe(language, pair.one) << " / " << Describe(language, pair.several);
        }
    }
}

TEST(WordingTest, MonthNames_AreThoseOfTheSystem)
{
    for (const Language& language : kLanguages)
    {
        for (unsigned month = 0; month < 12; ++month)
        {
            EXPECT_EQ(Utf8(LocaleText(language, LOCALE_SMONTHNAME1 + month)),
                      Utf8(TextOf(language, IDS_JANUARY + month)))
                << Describe(language, IDS_JANUARY + month);
        }
    }
}

TEST(WordingTest, DayNames_AreThoseOfTheSystem)
{
    for (const Language& language : kLanguages)
    {
        for (unsigned day = 0; day < 7; ++day)
        {
            // The system's days begin with Monday, ours with Sunday.
            EXPECT_EQ(Utf8(LocaleText(language, LOCALE_SDAYNAME1 + (day + 6) % 7)),
                      Utf8(TextOf(language, IDS_SUNDAY + day)))
                << Describe(language, IDS_SUNDAY + day);
        }
    }
}

TEST(WordingTest, EntriesOfOneList_Differ)
{
    constexpr Plural kLists[] = {{IDS_SUGGESTED_SUBJECT_1, IDS_SUGGESTED_SUBJECT_6},
                                 {IDS_JANUARY, IDS_DECEMBER},
                                 {IDS_FIRST, IDS_LAST},
                                 {IDS_DAY, IDS_SATURDAY},
                                 {IDS_LEAD_TIME_0_MINUTES, IDS_LEAD_TIME_2_WEEKS},
                                 {IDS_SNOOZE_15_MINUTES, IDS_SNOOZE_1_WEEK}};
    for (const Language& language : kLanguages)
    {
        for (const Plural& list : kLists)
        {
            std::set<std::wstring> texts;
            const StringTable& strings = StringsOf(language);
            for (auto at = strings.lower_bound(list.one); at != strings.upper_bound(list.several); ++at)
            {
                EXPECT_TRUE(texts.insert(at->second).second)
                    << Describe(language, at->first) << " stands twice";
            }
        }
    }
}
