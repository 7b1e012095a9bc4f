// Lead times are shown with words of the string table and read back by comparing with them. The rules stand
// here once more, word for word, to prove that each language's words survive the way there and back.

#include "resources/StringIds.h"
#include "tests/resources/LanguageModule.h"

#include <algorithm>
#include <cwctype>
#include <gtest/gtest.h>
#include <set>
#include <string>

namespace
{

using namespace ts::test;

constexpr int kMinute = 60;
constexpr int kHour = 60 * kMinute;
constexpr int kDay = 24 * kHour;
constexpr int kWeek = 7 * kDay;

std::wstring Shown(const Language& language, int number, unsigned one, unsigned several)
{
    return std::to_wstring(number) + L" " + TextOf(language, number == 1 ? one : several);
}

/// The text of a lead time that is a whole number of weeks, days, hours or minutes.
std::wstring Show(const Language& language, int seconds)
{
    if (seconds == 0)
    {
        return L"0 " + TextOf(language, IDS_LEAD_MINUTE);
    }
    if (seconds % kWeek == 0)
    {
        return Shown(language, seconds / kWeek, IDS_LEAD_WEEK, IDS_LEAD_WEEKS);
    }
    if (seconds % kDay == 0)
    {
        return Shown(language, seconds / kDay, IDS_LEAD_DAY, IDS_LEAD_DAYS);
    }
    if (seconds % kHour == 0)
    {
        return Shown(language, seconds / kHour, IDS_LEAD_HOUR, IDS_LEAD_HOURS);
    }
    return Shown(language, seconds / kMinute, IDS_LEAD_MINUTE, IDS_LEAD_MINUTES);
}

std::wstring Lower(std::wstring text)
{
    std::ranges::transform(text, text.begin(),
                           [](wchar_t c) { return static_cast<wchar_t>(std::towlower(c)); });
    return text;
}

struct Unit
{
    int seconds;
    unsigned one;
    unsigned several;
};

constexpr Unit kUnits[] = {{kWeek, IDS_LEAD_WEEK, IDS_LEAD_WEEKS},
                           {kDay, IDS_LEAD_DAY, IDS_LEAD_DAYS},
                           {kHour, IDS_LEAD_HOUR, IDS_LEAD_HOURS},
                           {kMinute, IDS_LEAD_MINUTE, IDS_LEAD_MINUTES}};

struct Initial
{
    int seconds;
    unsigned id;
};

constexpr Initial kInitials[] = {
    {kWeek, IDS_LEAD_WEEK_INITIAL}, {kDay, IDS_LEAD_DAY_INITIAL}, {kHour, IDS_LEAD_HOUR_INITIAL}};

/// The length of the unit that a word names.
int UnitSeconds(const Language& language, const std::wstring& word)
{
    for (const Unit& unit : kUnits)
    {
        if (word == Lower(TextOf(language, unit.one)) || word == Lower(TextOf(language, unit.several)))
        {
            return unit.seconds;
        }
    }
    for (const Initial& initial : kInitials)
    {
        if (word.substr(0, 1) == TextOf(language, initial.id).substr(0, 1))
        {
            return initial.seconds;
        }
    }
    return kMinute;
}

/// The lead time that a text names.
int Parse(const Language& language, const std::wstring& text)
{
    std::size_t end = 0;
    const int number = std::stoi(text, &end);
    const std::size_t word = text.find_first_not_of(L' ', end);
    return number * UnitSeconds(language, word == std::wstring::npos ? L"" : Lower(text.substr(word)));
}

constexpr int kOffered[] = {0,     5 * kMinute, 10 * kMinute, 15 * kMinute, 30 * kMinute, 45 * kMinute,
                            kHour, 2 * kHour,   3 * kHour,    4 * kHour,    8 * kHour,    12 * kHour,
                            kDay,  2 * kDay,    3 * kDay,     4 * kDay,     kWeek,        2 * kWeek};

} // namespace

TEST(LeadTimeTextsTest, OfferedTexts_AreThoseThatTheDialogShows)
{
    static_assert(std::size(kOffered) == IDS_LEAD_TIME_2_WEEKS - IDS_LEAD_TIME_0_MINUTES + 1);
    for (const Language& language : kLanguages)
    {
        unsigned id = IDS_LEAD_TIME_0_MINUTES;
        for (const int seconds : kOffered)
        {
            EXPECT_EQ(Utf8(Show(language, seconds)), Utf8(TextOf(language, id))) << Describe(language, id);
            EXPECT_EQ(seconds, Parse(language, TextOf(language, id))) << Describe(language, id);
            ++id;
        }
    }
}

TEST(LeadTimeTextsTest, AnyWholeLeadTime_SurvivesShowingAndReading)
{
    for (const Language& language : kLanguages)
    {
        for (const Unit& unit : kUnits)
        {
            for (int number = 0; number < 100; ++number)
            {
                const std::wstring text = Show(language, number * unit.seconds);
                EXPECT_EQ(number * unit.seconds, Parse(language, text))
                    << language.code << ": " << Utf8(text);
            }
        }
    }
}

TEST(LeadTimeTextsTest, FirstLetters_AreThoseOfTheWordsAndDiffer)
{
    for (const Language& language : kLanguages)
    {
        std::set<std::wstring> letters{Lower(TextOf(language, IDS_LEAD_MINUTE)).substr(0, 1)};
        for (const Initial& initial : kInitials)
        {
            const std::wstring letter = TextOf(language, initial.id);
            EXPECT_EQ(1U, letter.size()) << Describe(language, initial.id);
            EXPECT_EQ(Lower(letter), letter) << Describe(language, initial.id);
            EXPECT_TRUE(letters.insert(letter).second) << Describe(language, initial.id) << " stands twice";
            const auto* unit = std::ranges::find(kUnits, initial.seconds, &Unit::seconds);
            EXPECT_EQ(letter, Lower(TextOf(language, unit->one)).substr(0, 1))
                << Describe(language, initial.id);
            EXPECT_EQ(letter, Lower(TextOf(language, unit->several)).substr(0, 1));
        }
    }
}

TEST(LeadTimeTextsTest, TypedMinutes_AreMinutesAlsoWhenSpeltOut)
{
    const struct
    {
        Language language;
        const wchar_t* text;
    } rows[] = {{kEnglish, L"90 minutes"}, {kEnglish, L"90"},        {kGerman, L"90 Minuten"},
                {kGerman, L"90 min"},      {kFrench, L"90 minutes"}, {kFrench, L"90 min"},
                {kFrench, L"90mn"}};
    for (const auto& row : rows)
    {
        EXPECT_EQ(90 * kMinute, Parse(row.language, row.text)) << row.language.code << ": " << Utf8(row.text);
    }
}
