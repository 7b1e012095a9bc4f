#include "reminders/CatchUp.h"
#include "tests/reminders/recurrence/Patterns.h"
#include "tests/reminders/recurrence/RandomPatterns.h"
#include "tests/support/TextOutput.h"

#include <chrono>
#include <gtest/gtest.h>
#include <limits>

namespace
{

using namespace ts::test;
using Type = EcvReminderRecurrenceType;

constexpr std::int64_t kMax = std::numeric_limits<std::int64_t>::max();
constexpr std::int64_t kMin = std::numeric_limits<std::int64_t>::min();

literal::Outcome LibraryDue(CcvReminderData record, std::int64_t now)
{
    return LibraryOutcome([&] { return record.GetCalculatedDueTime(now).GetTime(); });
}

literal::Outcome LiteralDue(const CcvReminderData& record, std::int64_t now)
{
    return literal::OutcomeOf([&] { return literal::CalculatedDueTime(now, record); });
}

void ExpectSameDue(CcvReminderData record, std::int64_t due, std::int64_t lead, std::int64_t now,
                   const RandomSource& random)
{
    record.SetNextDueDate(due);
    record.SetReminderTimeSpan(lead);
    ASSERT_EQ(LiteralDue(record, now), LibraryDue(record, now))
        << random << ' ' << PatternText{record} << " due " << CTime(due) << " lead " << lead << " now "
        << CTime(now);
}

} // namespace

TEST(CatchUpTest, PatternsOfDialogs_EqualTheLiteralWalk)
{
    RandomSource random;
    for (int round = 0; round < 1500; ++round)
    {
        const std::int64_t due = RandomTime(random);
        const std::int64_t span =
            random.Between<std::int64_t>(0, random.Chance(20) ? 400'000'000 : 20'000'000);
        const std::int64_t lead = random.Chance(50) ? 0 : random.Between<std::int64_t>(-100'000, 1'000'000);
        ASSERT_NO_FATAL_FAILURE(
            ExpectSameDue(RandomPattern(random, RandomType(random)), due, lead, due + span, random));
    }
}

TEST(CatchUpTest, WeekdaysAtEveryHour_EqualTheLiteralWalkAcrossClockChanges)
{
    RandomSource random;
    const CTime midnight(2024, 1, 1, 0, 0, 0);
    for (int minute = 0; minute < 24 * 60; minute += 7)
    {
        const std::int64_t due =
            midnight.GetTime() + minute * 60 + random.Between(0, 86400 * 6) / 86400 * 86400;
        const std::int64_t now = due + 86400 * random.Between<std::int64_t>(300, 800);
        ASSERT_NO_FATAL_FAILURE(ExpectSameDue(EveryWeekday(), due, 0, now, random));
        ASSERT_NO_FATAL_FAILURE(
            ExpectSameDue(Weekly(random.Between(1, 3), random.Between(1L, 127L)), due, 0, now, random));
    }
}

TEST(CatchUpTest, OccurrenceWhoseReminderTimeIsNow_TakesOver)
{
    constexpr std::int64_t kDay = 86400;
    const std::int64_t due = CTime(2026, 11, 2, 9, 0, 0).GetTime();
    for (CcvReminderData record : {EveryNDays(1), Weekly(1, 127), EveryWeekday()})
    {
        record.SetReminderTimeSpan(3600);
        for (const std::int64_t offset : {-1, 0, 1})
        {
            record.SetNextDueDate(due);
            const std::int64_t now = due + kDay - 3600 + offset;
            EXPECT_EQ(offset < 0 ? due : due + kDay, record.GetCalculatedDueTime(now).GetTime())
                << PatternText{record} << ' ' << offset;
        }
    }
}

TEST(CatchUpTest, MonthOrYearWhoseReminderTimeIsNow_TakesOver)
{
    using Ordinal = EcvReminderDayIntegralType;
    using DayType = EcvReminderDayType;
    const CTime due(2026, 11, 2, 9, 0, 0);
    struct Row
    {
        CcvReminderData record;
        CTime next;
    };
    for (Row row : {Row{MonthlyOnDay(1, 2), CTime(2026, 12, 2, 9, 0, 0)},
                    Row{MonthlyOn(1, Ordinal::First, DayType::Monday), CTime(2026, 12, 7, 9, 0, 0)},
                    Row{YearlyOnDay(11, 2), CTime(2027, 11, 2, 9, 0, 0)},
                    Row{YearlyOn(11, Ordinal::First, DayType::Monday), CTime(2027, 11, 1, 9, 0, 0)}})
    {
        row.record.SetReminderTimeSpan(3600);
        for (const std::int64_t offset : {-1, 0, 1})
        {
            row.record.SetNextDueDate(due);
            const CTime now = row.next - CTimeSpan(3600 - offset);
            EXPECT_EQ(offset < 0 ? due : row.next, row.record.GetCalculatedDueTime(now))
                << PatternText{row.record} << ' ' << offset;
        }
    }
}

TEST(CatchUpTest, OccurrenceThatIsDueNow_StaysWhateverTheLeadTime)
{
    constexpr std::int64_t kYears = 3 * 366 * 86400;
    const CTime due(2026, 11, 2, 9, 0, 0);
    for (CcvReminderData record :
         {EveryNDays(1), EveryWeekday(), Weekly(1, 127), MonthlyOnDay(1, 2), YearlyOnDay(11, 2)})
    {
        // The reminder times of later occurrences have come long ago.
        record.SetReminderTimeSpan(kYears);
        record.SetNextDueDate(due);
        EXPECT_EQ(due, record.GetCalculatedDueTime(due)) << PatternText{record};
        EXPECT_EQ(due, record.GetNextDueDate()) << PatternText{record};
        EXPECT_LT(due, record.GetCalculatedDueTime(due + CTimeSpan(1))) << PatternText{record};
    }
}

TEST(CatchUpTest, BeyondTheRuntimesYears_StillEqualsTheLiteralWalk)
{
    RandomSource random;
    constexpr std::int64_t kEdges[] = {-1'000'000,    -300'000,       -50'000,        0,
                                       200'000,       32'499'000'000, 32'535'000'000, 32'539'000'000,
                                       32'541'000'000};
    for (int round = 0; round < 400; ++round)
    {
        const Type type = random.Chance(50) ? Type::Daily : Type::Weekly;
        const std::int64_t due = random.OneOf(kEdges) + random.Between<std::int64_t>(-100'000, 100'000);
        const std::int64_t now = due + random.Between<std::int64_t>(0, 60'000'000);
        ASSERT_NO_FATAL_FAILURE(ExpectSameDue(RandomPattern(random, type), due, 0, now, random));
    }
}

TEST(CatchUpTest, PatternThatDoesNotAdvance_KeepsThePresentOccurrence)
{
    const CTime due(2026, 1, 5, 9, 0, 0);
    const CTime now(2026, 11, 21, 9, 0, 0);
    CcvReminderData unknownType = EveryNDays(1);
    unknownType.SetRecurrenceType(static_cast<Type>(77));
    CcvReminderData unknownOccurrence = EveryNDays(1);
    unknownOccurrence.SetDailyOccurenceType(static_cast<EcvReminderDailyOccurence>(2));
    for (CcvReminderData record : {EveryNDays(0), EveryNDays(-1), Weekly(1, 0), Weekly(0, 2), Weekly(-5, 2),
                                   MonthlyOnDay(0, 5), unknownType, unknownOccurrence})
    {
        record.SetNextDueDate(due);
        EXPECT_EQ(due, record.GetCalculatedDueTime(now)) << PatternText{record};
        EXPECT_EQ(due, record.GetNextDueDate()) << PatternText{record};
    }
}

TEST(CatchUpTest, TimesOutOfAnyCalendar_EndQuickly)
{
    constexpr std::int64_t kTimes[] = {kMin, kMin + 1, -1, 0, 1'000'000'000, 32'600'000'000, kMax - 1, kMax};
    RandomSource random;
    const auto begin = std::chrono::steady_clock::now();
    for (const std::int64_t due : kTimes)
    {
        for (const std::int64_t now : kTimes)
        {
            for (const std::int64_t lead : kTimes)
            {
                CcvReminderData record = RandomOptions(random, RandomType(random));
                record.SetNextDueDate(due);
                record.SetReminderTimeSpan(lead);
                const literal::Outcome outcome = LibraryDue(record, now);
                if (outcome.code == S_OK && due < now)
                {
                    EXPECT_LE(due, outcome.value) << random << ' ' << PatternText{record};
                }
            }
        }
    }
    const auto elapsed = std::chrono::steady_clock::now() - begin;
    EXPECT_LT(elapsed, std::chrono::seconds(60)) << "a walk does not end";
}

TEST(CatchUpTest, FailureOnTheWay_LeavesTheRecordUnchanged)
{
    CcvReminderData record = YearlyOnDay(6, 5);
    const CTime due(2026, 6, 5, 9, 0, 0);
    record.SetNextDueDate(due);
    EXPECT_EQ(E_INVALIDARG, LibraryOutcome([&] { return record.GetCalculatedDueTime(kMax).GetTime(); }).code);
    EXPECT_EQ(due, record.GetNextDueDate());
}

TEST(CatchUpTest, TwentyYears_NeedAsManyStepsAsThereAreMonthsOrYears)
{
    const CTime due(2006, 11, 21, 9, 0, 0);
    const CTime now(2026, 11, 21, 8, 0, 0);
    struct Row
    {
        CcvReminderData record;
        int mostSteps;
    };
    for (const Row& row : {Row{MonthlyOnDay(1, 21), 250}, Row{YearlyOnDay(11, 21), 25}})
    {
        CTime walked = due;
        int steps = 0;
        for (CTime next = due; next <= now; next = row.record.GetNextRecurrentTime(next), ++steps)
        {
            walked = next;
        }
        EXPECT_GT(row.mostSteps, steps) << PatternText{row.record};
        EXPECT_EQ(walked, ts::LastOccurrenceUpTo(row.record.GetRecurrenceType(), due, now, row.record));
    }
}
