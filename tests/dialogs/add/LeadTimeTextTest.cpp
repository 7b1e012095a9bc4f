#include "dialogs/LeadTimeText.h"
#include "module/InterfaceLanguage.h"
#include "module/LanguageText.h"
#include "platform/WindowsHeaders.h"
#include "tests/support/HeapKind.h"
#include "tests/support/RandomSource.h"
#include "tests/support/TextOutput.h"

#include <gtest/gtest.h>
#include <limits>
#include <string>

namespace
{

using namespace ts::test;

constexpr std::int64_t kMinute = 60;
constexpr std::int64_t kHour = 3600;
constexpr std::int64_t kDay = 86400;
constexpr std::int64_t kWeek = 7 * kDay;
constexpr std::int64_t kMax = std::numeric_limits<std::int64_t>::max();
constexpr std::int64_t kMin = std::numeric_limits<std::int64_t>::min();

constexpr std::int64_t kPresets[] = {0,     5 * kMinute, 10 * kMinute, 15 * kMinute, 30 * kMinute, 2700,
                                     kHour, 2 * kHour,   3 * kHour,    4 * kHour,    8 * kHour,    12 * kHour,
                                     kDay,  2 * kDay,    3 * kDay,     4 * kDay,     kWeek,        2 * kWeek};
constexpr unsigned kFirstPreset = 4301;

std::wstring Word(unsigned id)
{
    return ts::LoadText(id).GetString();
}

std::wstring Shown(std::int64_t seconds)
{
    return ts::ShowLeadTime(seconds).GetString();
}

/// The rule of the texts, word for word.
std::wstring LiteralText(std::int64_t s)
{
    const std::int64_t days = s / 86400;
    const std::int64_t hours = s / 3600;
    const std::int64_t hoursOfTheDay = hours - 24 * days;
    const std::int64_t minutes = (s / 60) % 60;
    const std::int64_t weeks = days % 7 == 0 ? days / 7 : 0;
    const std::int64_t totalMinutes = hoursOfTheDay * 60 + minutes;
    const auto counted = [](std::int64_t count, unsigned id)
    { return std::to_wstring(count) + L" " + Word(id); };
    if (weeks >= 1 && hoursOfTheDay == 0 && minutes == 0)
    {
        return counted(weeks, weeks == 1 ? 183 : 184);
    }
    if (days >= 1 && hoursOfTheDay == 0 && minutes == 0)
    {
        return counted(days, days == 1 ? 181 : 182);
    }
    if (hoursOfTheDay >= 1 && minutes == 0)
    {
        return counted(hoursOfTheDay, hoursOfTheDay == 1 ? 110 : 101);
    }
    if (totalMinutes > 1)
    {
        return counted(totalMinutes, 102);
    }
    return counted(totalMinutes == 1 ? 1 : 0, 111);
}

/// What of a span its text keeps: all of whole days, else the whole minutes beyond them.
std::int64_t Kept(std::int64_t seconds)
{
    const std::int64_t minutes = seconds - seconds % kMinute;
    return minutes % kDay == 0 ? minutes : minutes % kDay;
}

std::optional<std::int64_t> Parsed(const std::wstring& text)
{
    const auto span = ts::ParseLeadTime(text.c_str());
    return span ? std::optional(span->GetTimeSpan()) : std::nullopt;
}

class LeadTimeTextTest : public testing::TestWithParam<const wchar_t*>
{
  protected:
    LeadTimeTextTest() { ts::SetInterfaceLanguage(GetParam()); }
    ~LeadTimeTextTest() override { ts::SetInterfaceLanguage(nullptr); }
};

INSTANTIATE_TEST_SUITE_P(Languages, LeadTimeTextTest, testing::Values(L"en", L"de", L"fr"),
                         [](const auto& language)
                         { return std::string(language.param, language.param + 2); });

} // namespace

TEST_P(LeadTimeTextTest, OfferedLeadTimes_AreShownAsTheyAreOfferedAndReadBack)
{
    unsigned id = kFirstPreset;
    for (const std::int64_t seconds : kPresets)
    {
        EXPECT_EQ(Word(id), Shown(seconds)) << seconds;
        EXPECT_EQ(seconds, Parsed(Word(id))) << seconds;
        ++id;
    }
    EXPECT_FALSE(Word(id - 1).empty());
    EXPECT_TRUE(Word(id).empty()) << "all were looked at";
}

TEST_P(LeadTimeTextTest, SpansAroundEachBoundary_FollowTheRule)
{
    const std::int64_t boundaries[] = {0,         kMinute,      2 * kMinute, kHour,      90 * kMinute,
                                       2 * kHour, 23 * kHour,   kDay,        25 * kHour, kDay + 30 * kMinute,
                                       2 * kDay,  6 * kDay,     kWeek,       8 * kDay,   2 * kWeek,
                                       70 * kDay, 1000 * kWeek, 1LL << 31,   1LL << 32,  7LL << 40};
    for (const std::int64_t boundary : boundaries)
    {
        for (const std::int64_t offset :
             {-kMinute, std::int64_t{-1}, std::int64_t{0}, std::int64_t{1}, kMinute})
        {
            EXPECT_EQ(LiteralText(boundary + offset), Shown(boundary + offset)) << boundary + offset;
        }
    }
    for (const std::int64_t limit : {kMin, kMin + 1, -kWeek, -kHour, kMax - 1, kMax})
    {
        EXPECT_EQ(LiteralText(limit), Shown(limit)) << limit;
    }
}

TEST_P(LeadTimeTextTest, AnySpan_FollowsTheRuleAndComesBackAsShown)
{
    constexpr std::int64_t kReaches[] = {2 * kHour, 3 * kDay, 60 * kDay, 40'000 * kDay};
    constexpr std::int64_t kGrains[] = {1, kMinute, 15 * kMinute, kHour, kDay, kWeek};
    RandomSource random;
    for (int round = 0; round < Rounds(10'000); ++round)
    {
        const std::int64_t grain = random.OneOf(kGrains);
        const std::int64_t seconds =
            random.Between<std::int64_t>(0, random.OneOf(kReaches) / grain + 1) * grain;
        const std::wstring text = Shown(seconds);
        ASSERT_EQ(LiteralText(seconds), text) << random << ' ' << seconds;
        ASSERT_EQ(Kept(seconds), Parsed(text)) << random << ' ' << seconds;
        ASSERT_EQ(text, Shown(Kept(seconds))) << random << ' ' << seconds;
    }
}

TEST_P(LeadTimeTextTest, EveryUnitWord_IsReadInAnyCaseAndSpacing)
{
    const struct
    {
        unsigned id;
        std::int64_t seconds;
    } words[] = {{183, kWeek}, {184, kWeek}, {181, kDay},  {182, kDay}, {110, kHour}, {101, kHour},
                 {111, 60},    {102, 60},    {186, kWeek}, {185, kDay}, {162, kHour}};
    for (const auto& word : words)
    {
        std::wstring upper = Word(word.id);
        CharUpperBuffW(upper.data(), static_cast<DWORD>(upper.size()));
        for (const std::wstring& text : {Word(word.id), upper})
        {
            EXPECT_EQ(3 * word.seconds, Parsed(L"3 " + text)) << word.id;
            EXPECT_EQ(3 * word.seconds, Parsed(L"3" + text)) << word.id;
            EXPECT_EQ(3 * word.seconds, Parsed(L" \t3   " + text + L" \r\n")) << word.id;
        }
    }
}

TEST_P(LeadTimeTextTest, Words_AreComparedAsAWholeThenByTheirFirstLetter)
{
    EXPECT_EQ(2 * kWeek, Parsed(L"2 " + Word(186) + L"xyz"));
    EXPECT_EQ(2 * kDay, Parsed(L"2" + Word(185) + L"!"));
    EXPECT_EQ(2 * kHour, Parsed(L"2 " + Word(162) + L" 30"));
    EXPECT_EQ(2 * kMinute, Parsed(L"2 xyz"));
    EXPECT_EQ(2 * kMinute, Parsed(L"2"));
    EXPECT_EQ(2 * kMinute, Parsed(L"2 ,5 " + Word(182)));
}

TEST_P(LeadTimeTextTest, TypedMinutes_AreCarried)
{
    EXPECT_EQ(5400, Parsed(L"90 " + Word(102)));
    EXPECT_EQ(L"90 " + Word(102), Shown(5400));
    EXPECT_EQ(kHour, Parsed(L"60 " + Word(102)));
    EXPECT_EQ(L"1 " + Word(110), Shown(kHour));
    EXPECT_EQ(kDay, Parsed(L"24 " + Word(101)));
    EXPECT_EQ(L"1 " + Word(181), Shown(kDay));
    EXPECT_EQ(25 * kHour, Parsed(L"25 " + Word(101)));
    EXPECT_EQ(L"1 " + Word(110), Shown(25 * kHour));
}

TEST_P(LeadTimeTextTest, TextWithoutALeadingNumber_IsRefused)
{
    for (const wchar_t* text : {L"", L" ", L"abc", L"- 5", L"\u0664 x"})
    {
        EXPECT_EQ(std::nullopt, Parsed(text));
    }
    EXPECT_EQ(std::nullopt, Parsed(Word(184)));
    // The number is 0 then, and its decimal form does stand in the text.
    EXPECT_EQ(0, Parsed(L"in 10 " + Word(182)));
}

TEST_P(LeadTimeTextTest, NumberBeyond32Bits_IsRefused)
{
    for (const wchar_t* digits : {L"99999999999 ", L"2147483648 ", L"-2147483649 ", L"4294967297 ",
                                  L"18446744073709551617 ", L"-99999999999999999999999999 "})
    {
        EXPECT_EQ(std::nullopt, Parsed(digits + Word(184)));
    }
}

TEST_P(LeadTimeTextTest, NumberAtTheLimits_IsCountedInFull)
{
    constexpr std::int64_t kMost = std::numeric_limits<std::int32_t>::max();
    EXPECT_EQ(kMost * kWeek, Parsed(L"2147483647 " + Word(184)));
    EXPECT_EQ(L"2147483647 " + Word(184), Shown(kMost * kWeek));
    EXPECT_EQ((-kMost - 1) * kWeek, Parsed(L"-2147483648 " + Word(184)));
    EXPECT_EQ(-5 * kMinute, Parsed(L"-5 " + Word(102)));
    EXPECT_EQ(5 * kDay, Parsed(L"+005 " + Word(182)));
}
