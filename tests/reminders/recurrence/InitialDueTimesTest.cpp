#include "platform/Clock.h"
#include "reminders/CcvReminderDataUtilities.h"
#include "tests/reminders/recurrence/Patterns.h"
#include "tests/reminders/recurrence/RandomPatterns.h"
#include "tests/support/FixedClock.h"
#include "tests/support/TextOutput.h"

#include <gtest/gtest.h>

namespace
{

using namespace ts::test;
using Type = EcvReminderRecurrenceType;
using Utilities = CcvReminderDataUtilities;
using Ordinal = EcvReminderDayIntegralType;
using DayType = EcvReminderDayType;

CTime Initial(const CTime& start, const CcvReminderData& record)
{
    switch (record.GetRecurrenceType())
    {
    case Type::Daily:
        return Utilities::CalculateInitialDailyRecurrentDueTime(start, &record);
    case Type::Weekly:
        return Utilities::CalculateInitialWeeklyRecurrentDueTime(start, &record);
    case Type::Monthly:
        return Utilities::CalculateInitialMonthlyRecurrentDueTime(start, &record);
    default:
        return Utilities::CalculateInitialYearlyRecurrentDueTime(start, &record);
    }
}

CTime Upcoming(const CTime& start, const CcvReminderData& record)
{
    switch (record.GetRecurrenceType())
    {
    case Type::Daily:
        return Utilities::CalculateInitialUpcomingDailyRecurrentDueTime(start, &record);
    case Type::Weekly:
        return Utilities::CalculateInitialUpcomingWeeklyRecurrentDueTime(start, &record);
    case Type::Monthly:
        return Utilities::CalculateInitialUpcomingMonthlyRecurrentDueTime(start, &record);
    default:
        return Utilities::CalculateInitialUpcomingYearlyRecurrentDueTime(start, &record);
    }
}

std::int64_t LiteralInitial(std::int64_t start, const CcvReminderData& record)
{
    switch (record.GetRecurrenceType())
    {
    case Type::Daily:
        return literal::InitialDaily(start, record);
    case Type::Weekly:
        return literal::InitialWeekly(start, record);
    case Type::Monthly:
        return literal::InitialMonthly(start, record);
    default:
        return literal::InitialYearly(start, record);
    }
}

literal::Outcome LibraryInitialOutcome(const CcvReminderData& record, std::int64_t start)
{
    return LibraryOutcome([&] { return Initial(start, record).GetTime(); });
}

literal::Outcome LiteralInitialOutcome(const CcvReminderData& record, std::int64_t start)
{
    return literal::OutcomeOf([&] { return LiteralInitial(start, record); });
}

} // namespace

TEST(InitialDueTimeTest, EachPattern_GivesTheFirstTimeAtOrAfterTheStart)
{
    struct Row
    {
        const char* title;
        CcvReminderData record;
        CTime start;
        CTime expected;
    };
    const Row rows[] = {
        {"weekday, from a Saturday", EveryWeekday(), CTime(2009, 1, 10, 8, 0, 0),
         CTime(2009, 1, 12, 8, 0, 0)},
        {"weekday, from a Sunday", EveryWeekday(), CTime(2009, 1, 11, 8, 0, 0), CTime(2009, 1, 12, 8, 0, 0)},
        {"weekday, from a Wednesday", EveryWeekday(), CTime(2009, 1, 14, 8, 0, 0),
         CTime(2009, 1, 14, 8, 0, 0)},
        {"every N days is the start", EveryNDays(9), CTime(2009, 1, 10, 8, 0, 0),
         CTime(2009, 1, 10, 8, 0, 0)},
        {"Monday two weeks on", Weekly(2, 2), CTime(2009, 1, 6, 8, 0, 0), CTime(2009, 1, 19, 8, 0, 0)},
        {"a flagged day is the start", Weekly(2, 4), CTime(2009, 1, 6, 8, 0, 0), CTime(2009, 1, 6, 8, 0, 0)},
        {"later in the week", Weekly(2, 64), CTime(2009, 1, 6, 8, 0, 0), CTime(2009, 1, 10, 8, 0, 0)},
        {"weekly with no day", Weekly(2, 0), CTime(2009, 1, 6, 8, 0, 0), CTime(0)},
        {"day 31 in April", MonthlyOnDay(1, 31), CTime(2009, 4, 10, 10, 0, 0), CTime(2009, 4, 30, 10, 0, 0)},
        {"day 31 on the day", MonthlyOnDay(1, 31), CTime(2009, 4, 30, 11, 0, 0),
         CTime(2009, 4, 30, 11, 0, 0)},
        {"day 5 has passed", MonthlyOnDay(3, 5), CTime(2009, 4, 10, 8, 0, 0), CTime(2009, 7, 5, 8, 0, 0)},
        {"second Tuesday ahead", MonthlyOn(1, Ordinal::Second, DayType::Tuesday), CTime(2026, 11, 2, 8, 0, 0),
         CTime(2026, 11, 10, 8, 0, 0)},
        {"second Tuesday passed", MonthlyOn(2, Ordinal::Second, DayType::Tuesday),
         CTime(2026, 11, 12, 8, 0, 0), CTime(2027, 1, 12, 8, 0, 0)},
        {"29 February in a common year", YearlyOnDay(2, 29), CTime(2009, 1, 15, 12, 0, 0),
         CTime(2009, 3, 1, 12, 0, 0)},
        {"31 April", YearlyOnDay(4, 31), CTime(2009, 1, 15, 12, 0, 0), CTime(2009, 5, 1, 12, 0, 0)},
        {"a date that has passed", YearlyOnDay(3, 4), CTime(2009, 6, 15, 12, 0, 0),
         CTime(2010, 3, 4, 12, 0, 0)},
        {"last weekend day of August", YearlyOn(8, Ordinal::Last, DayType::WeekendDay),
         CTime(2026, 8, 31, 12, 0, 0), CTime(2027, 8, 29, 12, 0, 0)},
    };
    for (const Row& row : rows)
    {
        EXPECT_EQ(row.expected, Initial(row.start, row.record)) << row.title;
    }
}

TEST(InitialDueTimeTest, UnknownOccurrence_GivesNoTime)
{
    CcvReminderData monthly = MonthlyOnDay(1, 1);
    monthly.SetMonthlyOccurenceType(static_cast<EcvReminderMonthlyOccurence>(7));
    EXPECT_EQ(CTime(0), Initial(CTime(2009, 1, 1, 0, 0, 0), monthly));
    CcvReminderData yearly = YearlyOnDay(1, 1);
    yearly.SetYearlyOccurenceType(static_cast<EcvReminderYearlyOccurence>(7));
    EXPECT_EQ(CTime(0), Initial(CTime(2009, 1, 1, 0, 0, 0), yearly));
}

TEST(InitialDueTimeTest, PatternsOfDialogs_StartAtOrAfterTheStartAndEqualTheLiteralRule)
{
    RandomSource random;
    for (int round = 0; round < 20000; ++round)
    {
        const CcvReminderData record = RandomPattern(random, RandomType(random));
        const std::int64_t start = RandomTime(random);
        const literal::Outcome initial = LibraryInitialOutcome(record, start);
        ASSERT_EQ(LiteralInitialOutcome(record, start), initial)
            << random << ' ' << PatternText{record} << ' ' << CTime(start);
        if (initial.code == S_OK)
        {
            ASSERT_LE(start, initial.value) << random << ' ' << PatternText{record} << ' ' << CTime(start);
        }
    }
}

TEST(InitialDueTimeTest, AnyOptions_EqualTheLiteralRule)
{
    RandomSource random;
    for (int round = 0; round < 20000; ++round)
    {
        const CcvReminderData record = RandomOptions(random, RandomType(random));
        const std::int64_t start = random.Chance(90)
                                       ? RandomTime(random)
                                       : random.Between<std::int64_t>(-50'000'000'000, 50'000'000'000);
        ASSERT_EQ(LiteralInitialOutcome(record, start), LibraryInitialOutcome(record, start))
            << random << ' ' << PatternText{record} << ' ' << CTime(start);
    }
}

TEST(UpcomingDueTimeTest, OccurrenceEarlierToday_IsKept)
{
    const FixedClock clock(CTime(2026, 11, 21, 10, 0, 0));
    EXPECT_EQ(CTime(2026, 11, 21, 9, 0, 0), Upcoming(CTime(2026, 11, 20, 9, 0, 0), EveryNDays(1)));
    EXPECT_EQ(CTime(2026, 11, 21, 9, 0, 0), Upcoming(CTime(2026, 11, 21, 9, 0, 0), EveryNDays(1)));
    EXPECT_EQ(CTime(2026, 11, 22, 9, 0, 0), Upcoming(CTime(2026, 11, 20, 9, 0, 0), EveryNDays(2)));
    EXPECT_EQ(CTime(2026, 12, 1, 9, 0, 0), Upcoming(CTime(2026, 12, 1, 9, 0, 0), EveryNDays(2)))
        << "ahead already";
}

TEST(UpcomingDueTimeTest, EachType_AsksForTheTimeOnce)
{
    // A clock that leaps a year whenever it is asked.
    static std::int64_t s_now = 0;
    ts::ReplaceClock([]() noexcept { return s_now += 366 * 86400; });
    const CTime start(2026, 11, 21, 9, 0, 0);
    const CTime today(2027, 11, 22, 9, 0, 0);
    struct Row
    {
        CcvReminderData record;
        CTime expected;
    };
    for (const Row& row : {Row{EveryNDays(1), today}, Row{Weekly(1, 127), today},
                           Row{MonthlyOnDay(1, 21), CTime(2027, 12, 21, 9, 0, 0)},
                           Row{YearlyOnDay(11, 21), CTime(2028, 11, 21, 9, 0, 0)}})
    {
        s_now = CTime(2026, 11, 21, 12, 0, 0).GetTime();
        EXPECT_EQ(row.expected, Upcoming(start, row.record)) << PatternText{row.record};
    }
    ts::ReplaceClock(nullptr);
}

TEST(UpcomingDueTimeTest, PatternThatDoesNotAdvance_KeepsTheStart)
{
    const FixedClock clock(CTime(2026, 11, 21, 10, 0, 0));
    const CTime start(2026, 1, 5, 9, 0, 0);
    CcvReminderData unknownDaily = EveryNDays(1);
    unknownDaily.SetDailyOccurenceType(static_cast<EcvReminderDailyOccurence>(9));
    CcvReminderData unknownMonthly = MonthlyOnDay(1, 5);
    unknownMonthly.SetMonthlyOccurenceType(static_cast<EcvReminderMonthlyOccurence>(9));
    for (const CcvReminderData& record : {EveryNDays(0), EveryNDays(-3), Weekly(1, 0), Weekly(0, 2),
                                          MonthlyOnDay(0, 5), unknownDaily, unknownMonthly})
    {
        EXPECT_EQ(start, Upcoming(start, record)) << PatternText{record};
    }
}

TEST(UpcomingDueTimeTest, TwoOccurrencesOnOneLongDay_KeepsTheFirst)
{
    // Where the clocks go back, two occurrences that are 24 hours apart can share a date.
    for (int day = 1; day <= 365; ++day)
    {
        const CTime noon = CTime(2026, 1, 1, 12, 0, 0) + CTimeSpan((day - 1) * 86400);
        const CTime first(noon.GetYear(), noon.GetMonth(), noon.GetDay(), 0, 5, 0);
        const CTime start = first - CTimeSpan(7 * 86400);
        const CTime now = first + CTimeSpan(86400 + 600);
        const FixedClock clock(now);
        ASSERT_EQ(CTime(literal::Upcoming(Type::Daily, start.GetTime(), now.GetTime(), EveryNDays(1))),
                  Upcoming(start, EveryNDays(1)))
            << first;
    }
}

TEST(UpcomingDueTimeTest, TimesWithoutADate_ShareOneAndHaveNotPassed)
{
    for (const std::int64_t now : {std::int64_t{-1'000'000}, std::int64_t{40'000'000'000}})
    {
        const FixedClock clock{CTime(now)};
        const CTime start(now - 500'000);
        for (const CcvReminderData& record : {EveryNDays(1), Weekly(1, 127), EveryWeekday()})
        {
            EXPECT_EQ(start, Upcoming(start, record)) << PatternText{record};
        }
    }
}

TEST(UpcomingDueTimeTest, AnyPattern_EqualsTheLiteralWalk)
{
    RandomSource random;
    for (int round = 0; round < 600; ++round)
    {
        const CcvReminderData record = RandomPattern(random, RandomType(random));
        const std::int64_t now = random.Between<std::int64_t>(400'000'000, 4'000'000'000);
        const std::int64_t start = now - random.Between<std::int64_t>(-100'000, 300'000'000);
        const FixedClock clock{CTime(now)};
        const literal::Outcome expected = literal::OutcomeOf(
            [&] { return literal::Upcoming(record.GetRecurrenceType(), start, now, record); });
        ASSERT_EQ(expected, LibraryOutcome([&] { return Upcoming(start, record).GetTime(); }))
            << random << ' ' << PatternText{record} << ' ' << CTime(start) << ' ' << CTime(now);
    }
}
