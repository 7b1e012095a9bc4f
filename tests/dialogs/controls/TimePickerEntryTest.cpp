// What stepping and typing make of the time.

#include "tests/dialogs/controls/TimePickerUsers.h"
#include "tests/support/RandomSource.h"
#include "tests/support/TextOutput.h"

#include <gtest/gtest.h>
#include <set>
#include <string>
#include <vector>

using Field = ts::TimePickerField;
using ts::test::kAmerican;
using ts::test::kGerman;
using ts::test::kKorean;
using ts::test::TimePickerUser;
using ts::test::UsersFields;

namespace
{

constexpr TimePickerUser kEqualDesignators{"equal designators", false, L"", L"", L"h:mm tt", L":"};
constexpr TimePickerUser kDifferInCase{
    "designators that differ in case", false, L"Xm", L"xM", L"h:mm tt", L":"};
constexpr TimePickerUser kSameKey{"same key", false, L"\u5348\u524D", L"\u5348\u5F8C", L"tt h:mm", L":"};

CTime At(int hour, int minute, int second = 0)
{
    return {2026, 3, 17, hour, minute, second};
}

/// Types one character after another, as a user does who sees the field selected again after each.
CTime TimeAfter(const TimePickerUser& user, CTime time, Field field, const std::wstring& characters)
{
    UsersFields users(user, time);
    for (const wchar_t character : characters)
    {
        users.fields.Type(field, character);
    }
    return users.fields.GetTime();
}

/// The rule for minutes, row by row.
int LiteralQuarter(int minute, bool up)
{
    if (minute == 0 || minute == 15 || minute == 30 || minute == 45)
    {
        return up ? minute + 15 : minute - 15;
    }
    if (minute < 15)
    {
        return up ? 15 : 0;
    }
    if (minute < 30)
    {
        return up ? 30 : 15;
    }
    if (minute < 45)
    {
        return up ? 45 : 30;
    }
    return up ? 60 : 45;
}

CTime LiteralMinuteStep(int hour, int minute, bool up)
{
    int stepped = LiteralQuarter(minute, up);
    if (stepped > 59)
    {
        stepped -= 60;
        hour = hour == 23 ? 0 : hour + 1;
    }
    if (stepped < 0)
    {
        stepped += 60;
        hour = hour == 0 ? 23 : hour - 1;
    }
    return At(hour, stepped);
}

} // namespace

TEST(TimePickerStepTest, OfMinutes_GoesToTheNextQuarter)
{
    for (int minuteOfDay = 0; minuteOfDay < 24 * 60; ++minuteOfDay)
    {
        const int hour = minuteOfDay / 60;
        const int minute = minuteOfDay % 60;
        for (const bool up : {false, true})
        {
            UsersFields american(kAmerican, At(hour, minute, 37));
            EXPECT_EQ(Field::Minute, american.fields.Step(Field::Minute, up));
            EXPECT_EQ(LiteralMinuteStep(hour, minute, up), american.fields.GetTime())
                << hour << ":" << minute << up;

            UsersFields german(kGerman, At(hour, minute, 37));
            EXPECT_EQ(Field::Minute, german.fields.Step(std::nullopt, up));
            EXPECT_EQ(LiteralMinuteStep(hour, minute, up), german.fields.GetTime())
                << hour << ":" << minute << up;
        }
    }
}

TEST(TimePickerStepTest, OfMinutes_KeepsTheDateAtMidnight)
{
    UsersFields user(kGerman, At(23, 45));
    user.fields.Step(Field::Minute, true);
    EXPECT_EQ(At(0, 0), user.fields.GetTime());
    user.fields.Step(Field::Minute, false);
    EXPECT_EQ(At(23, 45), user.fields.GetTime());
}

TEST(TimePickerStepTest, OfHours_WrapsWithinTheDayAndTurnsTheDesignator)
{
    for (const TimePickerUser& who : {kAmerican, kGerman, kKorean, kEqualDesignators})
    {
        for (int hour = 0; hour < 24; ++hour)
        {
            UsersFields up(who, At(hour, 7, 37));
            EXPECT_EQ(Field::Hour, up.fields.Step(Field::Hour, true));
            EXPECT_EQ(At((hour + 1) % 24, 7), up.fields.GetTime()) << who.title << hour;
            UsersFields down(who, At(hour, 7, 37));
            down.fields.Step(Field::Hour, false);
            EXPECT_EQ(At((hour + 23) % 24, 7), down.fields.GetTime()) << who.title << hour;
        }
    }
    UsersFields american(kAmerican, At(11, 7));
    american.fields.Step(Field::Hour, true);
    EXPECT_EQ(CString(L"12:07 PM"), american.fields.GetText());
}

TEST(TimePickerStepTest, OfDesignator_TurnsTheHalfOfTheDayInBothDirections)
{
    for (const bool up : {false, true})
    {
        for (int hour = 0; hour < 24; ++hour)
        {
            UsersFields user(kAmerican, At(hour, 7, 37));
            EXPECT_EQ(Field::Designator, user.fields.Step(Field::Designator, up));
            EXPECT_EQ(At((hour + 12) % 24, 7), user.fields.GetTime()) << hour;
        }
    }
}

TEST(TimePickerStepTest, OfDesignatorWithoutMeaning_LeavesTheHour)
{
    for (const TimePickerUser& who : {kEqualDesignators, kDifferInCase})
    {
        UsersFields equal(who, At(15, 7));
        equal.fields.Step(Field::Designator, true);
        EXPECT_EQ(At(15, 7), equal.fields.GetTime()) << who.title;
    }
    // Twenty-four hours say by themselves which half it is.
    UsersFields whole({"", true, L"AM", L"PM", L"H:mm tt", L":"}, At(15, 7));
    whole.fields.Step(Field::Designator, true);
    EXPECT_EQ(At(15, 7), whole.fields.GetTime());
    EXPECT_EQ(CString(L"15:07 PM"), whole.fields.GetText());
}

namespace
{

// No CTime: the zone is known when main() begins.
struct Clock
{
    int hour;
    int minute;
};

struct TypingRow
{
    const char* title;
    TimePickerUser user;
    Clock from;
    Field field;
    const wchar_t* characters;
    Clock to;
};

const TypingRow kTyping[] = {
    {"1 and 5 are fifteen", kGerman, {10, 50}, Field::Hour, L"15", {15, 50}},
    {"1 and 5 after a one-digit hour",
     {"", true, L"", L"", L"H:mm", L":"},
     {9, 50},
     Field::Hour,
     L"15",
     {15, 50}},
    {"34 is too much, so 4", kGerman, {10, 50}, Field::Hour, L"34", {4, 50}},
    {"the last digit moves on", kGerman, {12, 50}, Field::Hour, L"3", {23, 50}},
    {"24 is too much", kGerman, {2, 50}, Field::Hour, L"4", {4, 50}},
    {"the maximum itself", kGerman, {2, 50}, Field::Hour, L"3", {23, 50}},
    {"no hour 0", kGerman, {10, 50}, Field::Hour, L"00", {10, 50}},
    {"hour 0 by arrow keys, then a digit", kGerman, {0, 50}, Field::Hour, L"7", {7, 50}},
    {"no hour 0 after 0", kGerman, {0, 50}, Field::Hour, L"0", {0, 50}},
    {"ten", kGerman, {1, 50}, Field::Hour, L"0", {10, 50}},
    {"no letters in the hour", kGerman, {10, 50}, Field::Hour, L"a\bp x-", {10, 50}},
    {"12 in the morning is midnight", kAmerican, {1, 50}, Field::Hour, L"2", {0, 50}},
    {"12 in the afternoon is noon", kAmerican, {13, 50}, Field::Hour, L"2", {12, 50}},
    {"13 is too much for twelve hours", kAmerican, {13, 50}, Field::Hour, L"3", {15, 50}},
    {"the afternoon stays", kAmerican, {22, 50}, Field::Hour, L"7", {19, 50}},
    {"the morning stays", kAmerican, {9, 50}, Field::Hour, L"11", {11, 50}},
    {"no hour 0 of twelve", kAmerican, {22, 50}, Field::Hour, L"0", {22, 50}},
    {"no designator keys in the hour", kAmerican, {10, 50}, Field::Hour, L"pPaA", {10, 50}},
    {"designator before the time", kKorean, {15, 50}, Field::Hour, L"9", {21, 50}},
    {"the half stays when both designators are the same",
     kEqualDesignators,
     {15, 50},
     Field::Hour,
     L"4",
     {16, 50}},
    {"minutes", kGerman, {10, 50}, Field::Minute, L"37", {10, 37}},
    {"60 is too much", kGerman, {10, 46}, Field::Minute, L"0", {10, 0}},
    {"59 is not", kGerman, {10, 45}, Field::Minute, L"9", {10, 59}},
    {"minute 0", kGerman, {10, 10}, Field::Minute, L"0", {10, 0}},
    {"one-digit minutes", {"", true, L"", L"", L"H:m", L":"}, {9, 5}, Field::Minute, L"7", {9, 57}},
    {"no letters in the minutes", kAmerican, {10, 50}, Field::Minute, L"p\ba", {10, 50}},
    {"minutes in the afternoon", kAmerican, {22, 50}, Field::Minute, L"05", {22, 5}},
    {"p is PM", kAmerican, {10, 50}, Field::Designator, L"p", {22, 50}},
    {"P is PM", kAmerican, {10, 50}, Field::Designator, L"P", {22, 50}},
    {"a is AM", kAmerican, {22, 50}, Field::Designator, L"a", {10, 50}},
    {"A is AM", kAmerican, {22, 50}, Field::Designator, L"A", {10, 50}},
    {"PM stays PM", kAmerican, {22, 50}, Field::Designator, L"pP", {22, 50}},
    {"noon becomes midnight", kAmerican, {12, 50}, Field::Designator, L"a", {0, 50}},
    {"no other letters, no digits", kAmerican, {10, 50}, Field::Designator, L"xm1\b ", {10, 50}},
    {"keys beyond ASCII", kKorean, {15, 50}, Field::Designator, L"\uC624", {3, 50}},
    {"the same key gives AM", kSameKey, {15, 50}, Field::Designator, L"\u5348", {3, 50}},
    {"Greek capital letters",
     {"", false, L"\u03C0\u03BC", L"\u03BC\u03BC", L"h:mm tt", L":"},
     {10, 50},
     Field::Designator,
     L"\u039C",
     {22, 50}},
    {"designator 0 cannot be typed", kEqualDesignators, {15, 50}, Field::Designator, L"0", {15, 50}},
};

} // namespace

TEST(TimePickerTypingTest, IntoAField_FollowsTheRules)
{
    for (const TypingRow& row : kTyping)
    {
        EXPECT_EQ(At(row.to.hour, row.to.minute),
                  TimeAfter(row.user, At(row.from.hour, row.from.minute), row.field, row.characters))
            << row.title;
    }
}

TEST(TimePickerTypingTest, OfDroppedCharacters_ChangesNothingNotEvenTheSeconds)
{
    UsersFields user(kAmerican, At(10, 50, 37));
    for (const auto field : {Field::Hour, Field::Minute, Field::Designator, Field::Separator, Field::Space})
    {
        for (const wchar_t character : {L'\b', L'\x16', L'x', L' ', L':', L'/', L'\x3A', L'\u0661', L'\0'})
        {
            EXPECT_FALSE(user.fields.Type(field, character)) << static_cast<int>(character);
        }
    }
    EXPECT_FALSE(user.fields.Type(Field::Separator, L'1'));
    EXPECT_FALSE(user.fields.Type(Field::Designator, L'1'));
    EXPECT_EQ(At(10, 50, 37), user.fields.GetTime());
}

TEST(TimePickerTypingTest, OfATakenCharacter_SetsTheSecondsTo0)
{
    UsersFields user(kAmerican, At(10, 50, 37));
    EXPECT_TRUE(user.fields.Type(Field::Minute, L'1'));
    EXPECT_EQ(At(10, 1, 0), user.fields.GetTime());
}

TEST(TimePickerTypingTest, OfAllDigits_StaysInTheRange)
{
    for (const TimePickerUser& who : {kAmerican, kGerman, kKorean})
    {
        for (int hour = 0; hour < 24; ++hour)
        {
            for (wchar_t digit = L'0'; digit <= L'9'; ++digit)
            {
                const int before = who.is24Hour ? hour : (hour + 11) % 12 + 1;
                const int maximum = who.is24Hour ? 23 : 12;
                int expected = before % 10 * 10 + (digit - L'0');
                expected = expected > maximum ? digit - L'0' : expected;
                expected = expected < 1 ? before : expected;
                const int typed = TimeAfter(who, At(hour, 50), Field::Hour, {digit}).GetHour();
                const int shown = who.is24Hour ? typed : (typed + 11) % 12 + 1;
                EXPECT_EQ(expected, shown) << who.title << hour << static_cast<char>(digit);
                EXPECT_TRUE(who.is24Hour || typed / 12 == hour / 12) << who.title << hour;
            }
        }
    }
}

namespace
{

/// The dates of a year on which some local time does not exist.
std::vector<CTime> DatesWithGaps()
{
    std::vector<CTime> dates;
    for (CTime noon(2026, 1, 1, 12, 0, 0); noon.GetYear() == 2026; noon += CTimeSpan(24 * 3600))
    {
        for (int minuteOfDay = 0; minuteOfDay < 24 * 60; minuteOfDay += 30)
        {
            const CTime time(2026, noon.GetMonth(), noon.GetDay(), minuteOfDay / 60, minuteOfDay % 60, 0);
            if (time.GetHour() * 60 + time.GetMinute() != minuteOfDay)
            {
                dates.push_back(noon);
                break;
            }
        }
    }
    return dates;
}

bool SameDate(CTime left, CTime right)
{
    return left.GetYear() == right.GetYear() && left.GetMonth() == right.GetMonth() &&
           left.GetDay() == right.GetDay();
}

} // namespace

TEST(TimePickerEntryTest, WhereTheClocksGoForward_StepsOverTheGapAndComesRound)
{
    const std::vector<CTime> dates = DatesWithGaps();
    EXPECT_EQ(_daylight == 0, dates.empty());
    for (const CTime noon : dates)
    {
        for (const bool up : {false, true})
        {
            for (const Field field : {Field::Hour, Field::Minute})
            {
                UsersFields user(kAmerican, noon);
                std::set<CTime> visited;
                const std::size_t most = field == Field::Hour ? 24 : 96;
                for (std::size_t step = 0; step < most && (step == 0 || user.fields.GetTime() != noon);
                     ++step)
                {
                    user.fields.Step(field, up);
                    EXPECT_TRUE(SameDate(noon, user.fields.GetTime())) << user.fields.GetTime();
                    EXPECT_TRUE(visited.insert(user.fields.GetTime()).second) << user.fields.GetTime();
                }
                EXPECT_EQ(noon, user.fields.GetTime()) << up;
                EXPECT_GE(visited.size(), field == Field::Hour ? most - 2 : most - 8) << noon << up;
            }
        }
    }
}

TEST(TimePickerEntryTest, WhereTheClocksSkipMidnight_TypingDoesNotLeaveTheDate)
{
    for (const CTime noon : DatesWithGaps())
    {
        const CTime early(noon.GetYear(), noon.GetMonth(), noon.GetDay(), 0, 0, 0);
        UsersFields user(kAmerican, CTime(noon.GetYear(), noon.GetMonth(), noon.GetDay(), 12, 0, 0));
        user.fields.Type(Field::Designator, L'a');
        EXPECT_EQ(SameDate(early, noon) ? 0 : 12, user.fields.GetTime().GetHour()) << noon;
        EXPECT_TRUE(SameDate(noon, user.fields.GetTime())) << user.fields.GetTime();
    }
}

TEST(TimePickerEntryTest, OnAnyDate_NeverLeavesIt)
{
    ts::test::RandomSource random;
    std::vector<CTime> dates = DatesWithGaps();
    for (int day = 0; day < 50; ++day)
    {
        dates.emplace_back(2026, random.Between(1, 12), random.Between(1, 28), 12, 0, 0);
    }
    constexpr wchar_t kKeys[] = {L'0', L'1', L'2', L'3', L'4', L'5', L'6', L'7', L'8', L'9', L'a', L'p'};
    for (const CTime noon : dates)
    {
        UsersFields user(random.Chance(50) ? kAmerican : kGerman, noon);
        for (int action = 0; action < 100; ++action)
        {
            constexpr Field kFields[] = {Field::Hour, Field::Minute, Field::Designator};
            const Field field = random.OneOf(kFields);
            if (random.Chance(50))
            {
                user.fields.Step(field, random.Chance(50));
            }
            else
            {
                user.fields.Type(field, random.OneOf(kKeys));
            }
            ASSERT_TRUE(SameDate(noon, user.fields.GetTime())) << random << " " << user.fields.GetTime();
        }
    }
}
