#include "reminders/CcvReminderDataUtilities.h"
#include "tests/reminders/recurrence/Patterns.h"
#include "tests/reminders/recurrence/RandomPatterns.h"
#include "tests/support/TextOutput.h"

#include <gtest/gtest.h>
#include <limits>

namespace
{

using namespace ts::test;
using Type = EcvReminderRecurrenceType;
using Ordinal = EcvReminderDayIntegralType;
using DayType = EcvReminderDayType;

struct Row
{
    const char* title;
    CcvReminderData record;
    CTime from;
    CTime expected;
};

void ExpectNext(const Row& row)
{
    EXPECT_EQ(row.expected, row.record.GetNextRecurrentTime(row.from)) << row.title;
}

CTime At(int year, int month, int day, int hour = 9, int minute = 30)
{
    return CTime(year, month, day, hour, minute, 15);
}

literal::Outcome LibraryNext(const CcvReminderData& record, std::int64_t from)
{
    return LibraryOutcome([&] { return record.GetNextRecurrentTime(from).GetTime(); });
}

literal::Outcome LiteralNext(const CcvReminderData& record, std::int64_t from)
{
    return literal::OutcomeOf([&] { return literal::Next(record.GetRecurrenceType(), from, record); });
}

} // namespace

// The dates lie away from clock changes, so that the rows hold in every zone.
TEST(NextDueTimeTest, Daily_GoesOnByDaysOrOverTheWeekend)
{
    const Row rows[] = {
        {"weekday from a Friday", EveryWeekday(), At(2009, 1, 9, 17), At(2009, 1, 12, 17)},
        {"weekday from a Thursday", EveryWeekday(), At(2009, 1, 8), At(2009, 1, 9)},
        {"weekday from a Saturday goes to Sunday", EveryWeekday(), At(2009, 1, 10), At(2009, 1, 11)},
        {"every 3 days over a month's end", EveryNDays(3), At(2009, 1, 30), At(2009, 2, 2)},
        {"every day", EveryNDays(1), At(2009, 1, 31), At(2009, 2, 1)},
        {"every 0 days stands still", EveryNDays(0), At(2009, 1, 31), At(2009, 1, 31)},
        {"every -1 days goes back", EveryNDays(-1), At(2009, 1, 31), At(2009, 1, 30)},
    };
    for (const Row& row : rows)
    {
        ExpectNext(row);
    }
}

TEST(NextDueTimeTest, DailyOfUnknownOccurrence_StandsStill)
{
    CcvReminderData record = EveryNDays(3);
    record.SetDailyOccurenceType(static_cast<EcvReminderDailyOccurence>(2));
    EXPECT_EQ(At(2009, 1, 9), record.GetNextRecurrentTime(At(2009, 1, 9)));
}

TEST(NextDueTimeTest, Weekly_TakesTheRestOfTheWeekThenTheWeekNWeeksOn)
{
    constexpr long kMonday = 2;
    constexpr long kWednesday = 8;
    constexpr long kThursday = 16;
    constexpr long kSaturday = 64;
    const Row rows[] = {
        {"Monday to Thursday", Weekly(1, kMonday | kThursday), At(2009, 1, 5), At(2009, 1, 8)},
        {"Thursday to Monday", Weekly(1, kMonday | kThursday), At(2009, 1, 8), At(2009, 1, 12)},
        {"every third Wednesday", Weekly(3, kWednesday), At(2009, 1, 7), At(2009, 1, 28)},
        {"Saturday to Saturday", Weekly(1, kSaturday), At(2009, 1, 10), At(2009, 1, 17)},
        {"Saturday to the Monday after next", Weekly(2, kMonday), At(2009, 1, 10), At(2009, 1, 19)},
        {"a day that is not flagged", Weekly(1, kThursday), At(2009, 1, 6), At(2009, 1, 8)},
        {"bits above Saturday are no days", Weekly(1, kMonday | 0x7FFFFF80), At(2009, 1, 5), At(2009, 1, 12)},
    };
    for (const Row& row : rows)
    {
        ExpectNext(row);
    }
}

TEST(NextDueTimeTest, WeeklyWithoutAWeekday_HasNoNextTime)
{
    EXPECT_EQ(CTime(0), Weekly(1, 0).GetNextRecurrentTime(At(2009, 1, 5)));
    EXPECT_EQ(CTime(0), Weekly(1, 0x7FFFFF80).GetNextRecurrentTime(At(2009, 1, 5)));
}

TEST(NextDueTimeTest, WeeklyOfHugeIntervals_NeverOverflows)
{
    constexpr std::int64_t kWeek = 7 * 86400;
    constexpr int kMaxWeeks = std::numeric_limits<int>::max();
    const CTime monday = At(2009, 1, 5);
    EXPECT_EQ(monday + CTimeSpan(kMaxWeeks * kWeek), Weekly(kMaxWeeks, 2).GetNextRecurrentTime(monday));
    const CTime late(std::numeric_limits<std::int64_t>::max() - 5);
    EXPECT_EQ(std::numeric_limits<std::int64_t>::max(),
              Weekly(kMaxWeeks, 2).GetNextRecurrentTime(late).GetTime());
}

TEST(NextDueTimeTest, MonthlyOnADay_ClampsTheDayToEachMonthAfresh)
{
    const Row rows[] = {
        {"31 to February", MonthlyOnDay(1, 31), At(2009, 1, 31), At(2009, 2, 28)},
        {"back to 31", MonthlyOnDay(1, 31), At(2009, 2, 28), At(2009, 3, 31)},
        {"31 to April", MonthlyOnDay(1, 31), At(2009, 3, 31), At(2009, 4, 30)},
        {"31 to a leap February", MonthlyOnDay(1, 31), At(2008, 1, 31), At(2008, 2, 29)},
        {"12 months", MonthlyOnDay(12, 5), At(2009, 5, 5), At(2010, 5, 5)},
        {"14 months over a year's end", MonthlyOnDay(14, 5), At(2009, 11, 5), At(2011, 1, 5)},
        {"the day of the pattern, not of the occurrence", MonthlyOnDay(1, 20), At(2009, 1, 5),
         At(2009, 2, 20)},
    };
    for (const Row& row : rows)
    {
        ExpectNext(row);
    }
}

TEST(NextDueTimeTest, MonthlyOnAnOrdinalDay_FindsItInTheNewMonth)
{
    const Row rows[] = {
        {"last weekday", MonthlyOn(1, Ordinal::Last, DayType::Weekday), At(2009, 1, 30), At(2009, 2, 27)},
        {"second Tuesday", MonthlyOn(1, Ordinal::Second, DayType::Tuesday), At(2026, 11, 10),
         At(2026, 12, 8)},
        {"first weekend day", MonthlyOn(2, Ordinal::First, DayType::WeekendDay), At(2026, 6, 6),
         At(2026, 8, 1)},
        {"last day", MonthlyOn(1, Ordinal::Last, DayType::Day), At(2008, 1, 31), At(2008, 2, 29)},
    };
    for (const Row& row : rows)
    {
        ExpectNext(row);
    }
}

TEST(NextDueTimeTest, Yearly_KeepsTheDateOfTheOccurrence)
{
    const Row rows[] = {
        {"29 February goes over to 1 March", YearlyOnDay(2, 29), At(2008, 2, 29), At(2009, 3, 1)},
        {"and stays there", YearlyOnDay(2, 29), At(2009, 3, 1), At(2010, 3, 1)},
        {"also in a leap year", YearlyOnDay(2, 29), At(2011, 3, 1), At(2012, 3, 1)},
        {"the pattern's date is not read again", YearlyOnDay(7, 4), At(2009, 5, 6), At(2010, 5, 6)},
        {"first Monday of September", YearlyOn(9, Ordinal::First, DayType::Monday), At(2009, 9, 7),
         At(2010, 9, 6)},
        {"last weekend day", YearlyOn(8, Ordinal::Last, DayType::WeekendDay), At(2026, 8, 30),
         At(2027, 8, 29)},
    };
    for (const Row& row : rows)
    {
        ExpectNext(row);
    }
}

TEST(NextDueTimeTest, UnknownOccurrenceOrType_HasNoNextTime)
{
    CcvReminderData monthly = MonthlyOnDay(1, 1);
    monthly.SetMonthlyOccurenceType(static_cast<EcvReminderMonthlyOccurence>(2));
    EXPECT_EQ(CTime(0), monthly.GetNextRecurrentTime(At(2009, 1, 1)));
    CcvReminderData yearly = YearlyOnDay(1, 1);
    yearly.SetYearlyOccurenceType(static_cast<EcvReminderYearlyOccurence>(-1));
    EXPECT_EQ(CTime(0), yearly.GetNextRecurrentTime(At(2009, 1, 1)));
    for (const int type : {0, 5, -1, std::numeric_limits<int>::max(), std::numeric_limits<int>::min()})
    {
        CcvReminderData record = EveryNDays(1);
        record.SetRecurrenceType(static_cast<Type>(type));
        EXPECT_EQ(CTime(0), record.GetNextRecurrentTime(At(2009, 1, 1))) << type;
    }
}

TEST(NextDueTimeTest, DateThatCannotBeBuilt_RaisesTheCode)
{
    const auto failureOf = [](const CcvReminderData& record, CTime from)
    { return LibraryNext(record, from.GetTime()).code; };
    EXPECT_EQ(E_FAIL, failureOf(MonthlyOnDay(1, 0), At(2009, 1, 1))) << "day 0";
    EXPECT_EQ(E_FAIL, failureOf(MonthlyOnDay(-12, 5), At(1970, 6, 5))) << "before 1970";
    EXPECT_EQ(E_FAIL, failureOf(MonthlyOnDay(-3, 5), At(2009, 2, 5))) << "a month before the first";
    EXPECT_EQ(E_INVALIDARG, failureOf(MonthlyOnDay(12, 5), At(3000, 6, 5))) << "after 3000";
    EXPECT_EQ(E_INVALIDARG, failureOf(MonthlyOnDay(std::numeric_limits<int>::max(), 5), At(2009, 6, 5)));
    EXPECT_EQ(E_INVALIDARG, failureOf(YearlyOnDay(6, 5), At(3000, 6, 5)));
    EXPECT_EQ(E_FAIL, failureOf(YearlyOnDay(6, 5), CTime(-1'000'000))) << "no date to start from";
    EXPECT_EQ(E_FAIL, failureOf(MonthlyOnDay(1, 5), CTime(std::numeric_limits<std::int64_t>::max())));
}

TEST(NextDueTimeTest, MembersOfEachType_ReadThePatternWhateverTheRecordsType)
{
    CcvReminderData record = EveryNDays(2);
    record.SetRecurrenceType(Type::None);
    const CTime from = At(2009, 1, 5);
    EXPECT_EQ(from + CTimeSpan(2 * 86400), record.GetNextDailyRecurrentTime(from));
    EXPECT_EQ(from + CTimeSpan(2 * 86400),
              CcvReminderDataUtilities::CalculateNextDailyRecurrentDueTime(from, &record));
    EXPECT_EQ(CcvReminderDataUtilities::CalculateNextWeeklyRecurrentDueTime(from, &record),
              record.GetNextWeeklyRecurrentTime(from));
    const CcvReminderData monthly = MonthlyOnDay(1, 7);
    EXPECT_EQ(At(2009, 2, 7), monthly.GetNextMonthlyRecurrentTime(from));
    EXPECT_EQ(At(2010, 1, 5), monthly.GetNextYearlyRecurrentTime(from));
}

TEST(NextDueTimeTest, PatternsOfDialogs_AdvanceAndEqualTheLiteralRule)
{
    RandomSource random;
    for (int round = 0; round < 8000; ++round)
    {
        const CcvReminderData record = RandomPattern(random, RandomType(random));
        std::int64_t from = RandomTime(random);
        for (int step = 0; step < 6; ++step)
        {
            const literal::Outcome next = LibraryNext(record, from);
            ASSERT_EQ(LiteralNext(record, from), next)
                << random << ' ' << PatternText{record} << ' ' << CTime(from);
            if (next.code != S_OK)
            {
                break;
            }
            ASSERT_LT(from, next.value) << random << ' ' << PatternText{record};
            from = next.value;
        }
    }
}

TEST(NextDueTimeTest, AnyOptions_EqualTheLiteralRule)
{
    RandomSource random;
    for (int round = 0; round < 40000; ++round)
    {
        const CcvReminderData record = RandomOptions(random, RandomType(random));
        const std::int64_t from = random.Chance(90)
                                      ? RandomTime(random)
                                      : random.Between<std::int64_t>(-50'000'000'000, 50'000'000'000);
        ASSERT_EQ(LiteralNext(record, from), LibraryNext(record, from))
            << random << ' ' << PatternText{record} << ' ' << CTime(from);
    }
}
