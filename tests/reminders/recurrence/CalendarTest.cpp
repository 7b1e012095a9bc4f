#include "reminders/CcvReminderDataUtilities.h"
#include "tests/reminders/recurrence/RandomPatterns.h"
#include "tests/support/TextOutput.h"

#include <cstdlib>
#include <ctime>
#include <gtest/gtest.h>
#include <string>
#include <vector>

namespace
{

using namespace ts::test;
using Utilities = CcvReminderDataUtilities;
using Ordinal = EcvReminderDayIntegralType;
using DayType = EcvReminderDayType;

literal::Outcome LibraryDay(int ordinal, int dayType, int year, int month)
{
    return LibraryOutcome(
        [&]
        {
            return Utilities::GetDayOfMonth(static_cast<Ordinal>(ordinal), static_cast<DayType>(dayType),
                                            year, month);
        });
}

literal::Outcome LiteralDay(int ordinal, int dayType, int year, int month)
{
    return literal::OutcomeOf([&] { return literal::GetDayOfMonth(ordinal, dayType, year, month); });
}

void ExpectSameDay(int ordinal, int dayType, int year, int month)
{
    ASSERT_EQ(LiteralDay(ordinal, dayType, year, month), LibraryDay(ordinal, dayType, year, month))
        << "ordinal " << ordinal << ", day type " << dayType << ", " << year << '-' << month;
}

constexpr int kDayTypes[] = {1, 2, 4, 8, 16, 32, 64, 128, 256, 512, 0, 3, 1024, -1};

} // namespace

TEST(GetDayOfMonthTest, KnownMonths_GiveTheDayOfTheCalendar)
{
    struct Row
    {
        Ordinal ordinal;
        DayType dayType;
        int year;
        int month;
        int expected;
    };
    const Row rows[] = {
        {Ordinal::Last, DayType::WeekendDay, 2009, 2, 28}, {Ordinal::First, DayType::Weekday, 2009, 8, 3},
        {Ordinal::Last, DayType::Day, 2008, 2, 29},        {Ordinal::Fourth, DayType::Day, 2026, 11, 4},
        {Ordinal::Second, DayType::Tuesday, 2026, 11, 10}, {Ordinal::Last, DayType::Sunday, 2026, 5, 31},
        {Ordinal::Fourth, DayType::Friday, 2026, 5, 22},   {Ordinal::Last, DayType::Friday, 2026, 5, 29},
        {Ordinal::Third, DayType::WeekendDay, 2026, 8, 8}, {Ordinal::Last, DayType::Weekday, 2026, 5, 29},
    };
    for (const Row& row : rows)
    {
        EXPECT_EQ(row.expected, Utilities::GetDayOfMonth(row.ordinal, row.dayType, row.year, row.month))
            << row.year << '-' << row.month;
    }
}

TEST(GetDayOfMonthTest, MonthOutsideTheYear_HasNoSuchDay)
{
    for (const int month : {-1, 0, 13, 1'000'000})
    {
        EXPECT_EQ(0, Utilities::GetDayOfMonth(Ordinal::First, DayType::Monday, 2009, month)) << month;
        EXPECT_EQ(0, Utilities::GetDayOfMonth(Ordinal::Last, DayType::Day, 2009, month)) << month;
    }
}

TEST(GetDayOfMonthTest, YearBefore1970_RaisesUnlessTheLastDayIsAskedFor)
{
    EXPECT_EQ((literal::Outcome{E_FAIL, 0}), LibraryDay(0, 2, 1969, 5));
    EXPECT_EQ((literal::Outcome{E_FAIL, 0}), LibraryDay(0, 128, 1969, 5));
    EXPECT_EQ((literal::Outcome{E_FAIL, 0}), LibraryDay(4, 512, 1969, 5));
    EXPECT_EQ((literal::Outcome{S_OK, 31}), LibraryDay(4, 128, 1969, 5));
}

TEST(GetDayOfMonthTest, OrdinalOfNoDialog_AnswersByTheFirstDay)
{
    // 1 August 2009 is a Saturday.
    for (const int ordinal : {-1, 5, 100})
    {
        EXPECT_EQ(0, LibraryDay(ordinal, 64, 2009, 8).value) << ordinal;
        EXPECT_EQ(1, LibraryDay(ordinal, 2, 2009, 8).value) << ordinal;
    }
}

TEST(GetDayOfMonthTest, EveryQuestionOfFourteenYears_EqualsTheDayByDayWalk)
{
    // Fourteen kinds of years exist: seven first weekdays, with and without a leap day.
    for (int year = 2020; year < 2048; ++year)
    {
        for (int month = 1; month <= 12; ++month)
        {
            for (int ordinal = 0; ordinal <= 5; ++ordinal)
            {
                ASSERT_NO_FATAL_FAILURE(ExpectSameDay(ordinal, kDayTypes[(year + month) % 14], year, month));
                ASSERT_NO_FATAL_FAILURE(
                    ExpectSameDay(ordinal, kDayTypes[(year + month + 5) % 14], year, month));
            }
        }
    }
}

TEST(GetDayOfMonthTest, EveryMonthThatTheRuntimeKnows_EqualsTheDayByDayWalk)
{
    RandomSource random;
    for (int year = 1969; year <= 3002; ++year)
    {
        const bool edge = year < 1973 || year > 2997;
        for (int month = 1; month <= 12; ++month)
        {
            for (const int dayType : kDayTypes)
            {
                if (edge || random.Chance(10))
                {
                    ASSERT_NO_FATAL_FAILURE(ExpectSameDay(random.Between(-1, 6), dayType, year, month))
                        << random;
                    ASSERT_NO_FATAL_FAILURE(ExpectSameDay(4, dayType, year, month));
                }
            }
        }
    }
}

TEST(GetDayOfMonthTest, AnotherZoneMeanwhile_IsFollowed)
{
    const auto expectSameDays = []
    {
        for (int year = 2020; year < 2034; ++year)
        {
            for (int month = 1; month <= 12; ++month)
            {
                const int dayType = 1 << (year + month) % 7;
                ASSERT_NO_FATAL_FAILURE(ExpectSameDay(0, dayType, year, month));
                ASSERT_NO_FATAL_FAILURE(ExpectSameDay(4, dayType, year, month));
                ASSERT_NO_FATAL_FAILURE(ExpectSameDay(0, 256, year, month));
            }
        }
    };
    ASSERT_NO_FATAL_FAILURE(expectSameDays());
    // Those in which the clocks do not change at midnight, one of them as far from UTC as this one, and back.
    const std::string asFar = "TZ=AAA" + std::to_string(_timezone / 3600) + "BBB";
    for (const std::string& zone : {std::string("TZ=AAA3BBB"), std::string("TZ="), asFar, std::string("TZ=")})
    {
        _putenv(zone.c_str());
        _tzset();
        EXPECT_NO_FATAL_FAILURE(expectSameDays()) << zone;
    }
}

TEST(GetDayTypeArrayTest, AnyContents_AreReplacedByTheOrderOfTheDialogs)
{
    CAtlArray<DayType> array;
    array.Add(DayType::Friday);
    const std::vector<int> expected = {128, 256, 512, 1, 2, 4, 8, 16, 32, 64};
    for (int round = 0; round < 2; ++round)
    {
        Utilities::GetDayTypeArray(&array);
        std::vector<int> found;
        for (std::size_t index = 0; index < array.GetCount(); ++index)
        {
            found.push_back(static_cast<int>(array[index]));
        }
        EXPECT_EQ(expected, found);
    }
}

TEST(OutlookDayTest, DayTypesAndMasks_TranslateBothWays)
{
    EXPECT_EQ(127, Utilities::TsToOutlookDay(DayType::Day));
    EXPECT_EQ(62, Utilities::TsToOutlookDay(DayType::Weekday));
    EXPECT_EQ(65, Utilities::TsToOutlookDay(DayType::WeekendDay));
    EXPECT_EQ(DayType::Day, Utilities::OutlookToTsDay(127));
    EXPECT_EQ(DayType::Weekday, Utilities::OutlookToTsDay(62));
    EXPECT_EQ(DayType::WeekendDay, Utilities::OutlookToTsDay(65));
    for (const long mask : {1L, 2L, 4L, 8L, 16L, 32L, 64L, 62L, 65L, 127L})
    {
        EXPECT_EQ(mask, Utilities::TsToOutlookDay(Utilities::OutlookToTsDay(mask))) << mask;
    }
    for (const long mask : {0L, 3L, 66L, 126L, 1024L, -1L})
    {
        EXPECT_EQ(mask, static_cast<long>(Utilities::OutlookToTsDay(mask))) << "passes unchanged";
        EXPECT_EQ(mask, Utilities::TsToOutlookDay(static_cast<DayType>(mask))) << "passes unchanged";
    }
}

TEST(IsInitialUpcomingDueDatePassedTest, EarlierTheSameDay_HasNotPassed)
{
    const CTime noon(2026, 11, 21, 12, 0, 0);
    EXPECT_FALSE(Utilities::IsInitialUpcomingDueDatePassed(CTime(2026, 11, 21, 15, 0, 0),
                                                           CTime(2026, 11, 21, 9, 0, 0)));
    EXPECT_TRUE(Utilities::IsInitialUpcomingDueDatePassed(CTime(2026, 11, 21, 0, 5, 0),
                                                          CTime(2026, 11, 20, 23, 59, 0)));
    EXPECT_FALSE(Utilities::IsInitialUpcomingDueDatePassed(noon, noon));
    EXPECT_FALSE(Utilities::IsInitialUpcomingDueDatePassed(noon, noon + CTimeSpan(1)));
    EXPECT_FALSE(Utilities::IsInitialUpcomingDueDatePassed(noon, noon + CTimeSpan(400 * 86400)));
    EXPECT_TRUE(Utilities::IsInitialUpcomingDueDatePassed(noon, CTime(2025, 11, 21, 12, 0, 0)))
        << "same day, last year";
    EXPECT_TRUE(Utilities::IsInitialUpcomingDueDatePassed(noon, CTime(-1'000'000'000)));
    EXPECT_FALSE(Utilities::IsInitialUpcomingDueDatePassed(CTime(-5), CTime(-1'000'000'000)))
        << "times without a date share one";
}

TEST(IsInitialUpcomingDueDatePassedTest, AnyTimes_EqualTheLiteralRule)
{
    RandomSource random;
    for (int round = 0; round < 20000; ++round)
    {
        const std::int64_t now = RandomTime(random);
        const std::int64_t candidate = now + random.Between<std::int64_t>(-200000, 200000);
        ASSERT_EQ(literal::IsPassed(now, candidate),
                  Utilities::IsInitialUpcomingDueDatePassed(now, candidate))
            << random << ' ' << now << ' ' << candidate;
    }
}
