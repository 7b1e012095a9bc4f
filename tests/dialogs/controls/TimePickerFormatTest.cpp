// What a time picker shows: which fields, in which order, and where.

#include "tests/dialogs/controls/TimePickerUsers.h"
#include "tests/support/FixedClock.h"
#include "tests/support/TextOutput.h"

#include <gtest/gtest.h>
#include <limits>

using Field = ts::TimePickerField;
using ts::test::kAmerican;
using ts::test::kGerman;
using ts::test::kKorean;
using ts::test::TimePickerUser;
using ts::test::UsersFields;

namespace
{

struct TextRow
{
    TimePickerUser user;
    int hour;
    int minute;
    const wchar_t* text;
};

const TextRow kTexts[] = {
    {kAmerican, 9, 5, L" 9:05 AM"},
    {kAmerican, 0, 0, L"12:00 AM"},
    {kAmerican, 11, 59, L"11:59 AM"},
    {kAmerican, 12, 0, L"12:00 PM"},
    {kAmerican, 23, 45, L"11:45 PM"},
    {kGerman, 9, 5, L"09:05"},
    {kGerman, 0, 0, L"00:00"},
    {kGerman, 23, 45, L"23:45"},
    {kKorean, 9, 5, L"\uC624\uC804  9:05"},
    {kKorean, 15, 7, L"\uC624\uD6C4  3:07"},
    {{"two digits of twelve hours", false, L"am", L"pm", L"hh:mm:ss tt", L":"}, 9, 5, L"09:05 am"},
    {{"one digit of twenty-four hours", true, L"", L"", L"H:mm:ss", L":"}, 9, 5, L" 9:05"},
    {{"one-digit minutes", true, L"", L"", L"H:m:s", L":"}, 9, 5, L" 9: 5"},
    {{"full stops", true, L"", L"", L"H.mm.ss", L"."}, 9, 5, L" 9.05"},
    {{"separator of two characters", true, L"", L"", L"HH::mm::ss", L"::"}, 9, 5, L"09::05"},
    {{"seconds of another separator", true, L"", L"", L"HH:mm.ss", L":"}, 9, 5, L"09:05:"},
    {{"no seconds", true, L"", L"", L"HH:mm", L":"}, 9, 5, L"09:05"},
    {{"no separator", true, L"", L"", L"HHmmss", L""}, 9, 5, L"0905"},
    {{"separator that the format does not use", true, L"", L"", L"HH-mm", L":"}, 9, 5, L"09:05"},
    {{"minutes first", true, L"", L"", L"mm:HH", L":"}, 9, 5, L"05:09"},
    {{"one designator letter", false, L"AM", L"PM", L"h:mm t", L":"}, 9, 5, L" 9:05 AM"},
    {{"designator without a space", false, L"AM", L"PM", L"tth:mm", L":"}, 9, 5, L"AM 9:05"},
    {{"designator before a separator", false, L"AM", L"PM", L"tt.h.mm", L"."}, 9, 5, L"AM. 9.05"},
    {{"several spaces", false, L"AM", L"PM", L"h:mm   tt", L":"}, 9, 5, L" 9:05 AM"},
    {{"designators in a 24-hour format", true, L"AM", L"PM", L"H:mm tt", L":"}, 15, 5, L"15:05 PM"},
    {{"no designators in a 12-hour format", false, L"", L"", L"h:mm tt", L":"}, 15, 5, L" 3:05 0"},
    {{"an hour of capital letters in a 12-hour locale", false, L"AM", L"PM", L"HH:mm tt", L":"},
     15,
     5,
     L"03:05 PM"},
    {{"other letters", true, L"", L"", L"xH:mmyz", L":"}, 9, 5, L" 9:05:"},
    {{"a quoted word", true, L"", L"", L"HH' Uhr 'mm", L":"}, 9, 5, L"09: 09: 05"},
    {{"no format", true, L"", L"", L"", L":"}, 9, 5, L""},
    {{"only the hour", true, L"", L"", L"HH", L":"}, 9, 5, L"09"},
};

using Range = ts::CharacterRange;

} // namespace

TEST(TimePickerFormatTest, OfAUser_ShowsTheFieldsInOrder)
{
    for (const TextRow& row : kTexts)
    {
        const UsersFields user(row.user, CTime(2026, 3, 17, row.hour, row.minute, 59));
        EXPECT_EQ(CString(row.text), user.fields.GetText()) << row.user.title;
    }
}

TEST(TimePickerFormatTest, SetAgain_ForgetsTheFirst)
{
    UsersFields user(kGerman, CTime(2026, 3, 17, 9, 5, 0));
    user.fields.SetFormat({L"H.m", L"."});
    EXPECT_EQ(CString(L" 9. 5"), user.fields.GetText());
}

TEST(TimePickerFormatTest, OfATimeWithoutADate_IsMidnight)
{
    for (const std::int64_t seconds :
         {std::numeric_limits<std::int64_t>::min(), std::int64_t{-1'000'000}, std::int64_t{40'000'000'000},
          std::numeric_limits<std::int64_t>::max()})
    {
        const UsersFields user(kGerman, CTime(seconds));
        EXPECT_EQ(CString(L"00:00"), user.fields.GetText()) << seconds;
        EXPECT_EQ(CTime(seconds), user.fields.GetTime());
    }
}

TEST(TimePickerFormatTest, OfATimeWithoutADate_TakesTodayWhenItIsChanged)
{
    const ts::test::FixedClock clock(CTime(2026, 7, 4, 16, 20, 11));
    UsersFields user(kGerman, CTime(40'000'000'000));
    user.fields.Step(Field::Hour, true);
    EXPECT_EQ(CTime(2026, 7, 4, 1, 0, 0), user.fields.GetTime());
}

TEST(TimePickerRangesTest, OfShownFields_CoverTheirFirstPlace)
{
    const UsersFields american(kAmerican);
    EXPECT_EQ((Range{0, 2}), american.fields.RangeOf(Field::Hour));
    EXPECT_EQ((Range{2, 3}), american.fields.RangeOf(Field::Separator));
    EXPECT_EQ((Range{3, 5}), american.fields.RangeOf(Field::Minute));
    EXPECT_EQ((Range{5, 6}), american.fields.RangeOf(Field::Space));
    EXPECT_EQ((Range{6, 8}), american.fields.RangeOf(Field::Designator));

    const UsersFields korean(kKorean);
    EXPECT_EQ((Range{0, 2}), korean.fields.RangeOf(Field::Designator));
    EXPECT_EQ((Range{3, 5}), korean.fields.RangeOf(Field::Hour));
    EXPECT_EQ((Range{6, 8}), korean.fields.RangeOf(Field::Minute));
}

TEST(TimePickerRangesTest, WithSeparator_TakeInTheOneDirectlyBehind)
{
    const UsersFields american(kAmerican);
    EXPECT_EQ((Range{0, 3}), american.fields.RangeOf(Field::Hour, true));
    // A space is no separator.
    EXPECT_EQ((Range{3, 5}), american.fields.RangeOf(Field::Minute, true));
    EXPECT_EQ((Range{6, 8}), american.fields.RangeOf(Field::Designator, true));

    const UsersFields wide({"", true, L"", L"", L"HH::mm::ss", L"::"});
    EXPECT_EQ((Range{0, 4}), wide.fields.RangeOf(Field::Hour, true));
    EXPECT_EQ((Range{4, 6}), wide.fields.RangeOf(Field::Minute, true));
}

TEST(TimePickerRangesTest, OfHiddenFields_AreNone)
{
    const UsersFields german(kGerman);
    EXPECT_EQ(std::nullopt, german.fields.RangeOf(Field::Designator));
    EXPECT_EQ(std::nullopt, german.fields.RangeOf(Field::Space, true));
    const UsersFields empty({"", true, L"", L"", L"", L":"});
    EXPECT_EQ(std::nullopt, empty.fields.RangeOf(Field::Hour));
    EXPECT_EQ(std::nullopt, empty.fields.FieldAt(0));
    EXPECT_EQ(std::nullopt, empty.fields.FieldOf({0, 0}));
}

TEST(TimePickerFieldAtTest, EachCharacter_IsAFieldWithItsSeparator)
{
    // " 9:05 AM": the separator belongs to the hour, the space to nothing.
    const UsersFields user(kAmerican);
    const std::optional<Field> expected[] = {
        Field::Hour,  Field::Hour,       Field::Hour,       Field::Minute, Field::Minute,
        std::nullopt, Field::Designator, Field::Designator, std::nullopt,  std::nullopt};
    for (int character = 0; character < std::ssize(expected); ++character)
    {
        EXPECT_EQ(expected[character], user.fields.FieldAt(character)) << character;
    }
    EXPECT_EQ(std::nullopt, user.fields.FieldAt(-1));
    EXPECT_EQ(std::nullopt, user.fields.FieldAt(0xFFFF));
}

TEST(TimePickerFieldOfTest, ARange_MustFitExactly)
{
    const UsersFields user(kAmerican);
    EXPECT_EQ(Field::Hour, user.fields.FieldOf({0, 2}));
    EXPECT_EQ(Field::Minute, user.fields.FieldOf({3, 5}));
    EXPECT_EQ(Field::Designator, user.fields.FieldOf({6, 8}));
    for (const Range range : {Range{0, 0}, Range{0, 1}, Range{0, 3}, Range{1, 2}, Range{2, 3}, Range{5, 6},
                              Range{0, 8}, Range{6, 7}, Range{8, 8}})
    {
        EXPECT_EQ(std::nullopt, user.fields.FieldOf(range)) << range.first << " to " << range.end;
    }
}

TEST(TimePickerNeighboursTest, FromField_SkipSeparatorsAndSpaces)
{
    const UsersFields american(kAmerican);
    EXPECT_EQ(Field::Minute, american.fields.Next(Field::Hour));
    EXPECT_EQ(Field::Designator, american.fields.Next(Field::Minute));
    EXPECT_EQ(std::nullopt, american.fields.Next(Field::Designator));
    EXPECT_EQ(Field::Minute, american.fields.Previous(Field::Designator));
    EXPECT_EQ(Field::Hour, american.fields.Previous(Field::Minute));
    EXPECT_EQ(std::nullopt, american.fields.Previous(Field::Hour));

    const UsersFields korean(kKorean);
    EXPECT_EQ(Field::Hour, korean.fields.Next(Field::Designator));
    EXPECT_EQ(std::nullopt, korean.fields.Previous(Field::Designator));
}

TEST(TimePickerNeighboursTest, FromNoField_AreTheEnds)
{
    const UsersFields american(kAmerican);
    EXPECT_EQ(Field::Hour, american.fields.Next(std::nullopt));
    EXPECT_EQ(Field::Designator, american.fields.Previous(std::nullopt));
    const UsersFields trailing({"", true, L"", L"", L"H:mm ", L":"});
    EXPECT_EQ(Field::Minute, trailing.fields.Previous(std::nullopt));
    const UsersFields empty({"", true, L"", L"", L"", L":"});
    EXPECT_EQ(std::nullopt, empty.fields.Next(std::nullopt));
    EXPECT_EQ(std::nullopt, empty.fields.Previous(std::nullopt));
}

TEST(TimePickerNeighboursTest, OfARepeatedField_LeadToTheOthers)
{
    // The h of the quoted word is an hour too.
    const UsersFields user({"", true, L"", L"", L"HH' Uhr 'mm", L":"});
    EXPECT_EQ(Field::Minute, user.fields.Next(Field::Hour));
    EXPECT_EQ(Field::Hour, user.fields.Previous(Field::Minute));
    EXPECT_EQ(std::nullopt, user.fields.Previous(Field::Hour));
}
