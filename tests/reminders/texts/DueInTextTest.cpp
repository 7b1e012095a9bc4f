#include "module/InterfaceLanguage.h"
#include "reminders/CcvReminderDataUtilities.h"
#include "tests/reminders/recurrence/Patterns.h"
#include "tests/reminders/texts/LiteralTexts.h"
#include "tests/support/HeapKind.h"
#include "tests/support/RandomSource.h"
#include "tests/support/TextOutput.h"

#include <gtest/gtest.h>
#include <limits>

namespace
{

using namespace ts::test;

constexpr std::int64_t kMinute = 60;
constexpr std::int64_t kHour = 3600;
constexpr std::int64_t kDay = 86400;
constexpr std::int64_t kHundredYears = 36525 * kDay;
// A text costs dozens of allocations, so over guard pages only some of the distances are asked for.
const std::int64_t kStride = UsesGuardPageHeap() ? 41 : 1;
constexpr std::int64_t kNow = 1'800'000'000;

/// What the library says of a one-off reminder that is due in `seconds`.
CString DueIn(std::int64_t seconds)
{
    CcvReminderData record{CString(L"{text-0}")};
    record.SetNextDueDate(CTime(kNow) + CTimeSpan(seconds));
    return CcvReminderDataUtilities::GetDueInString(&record, CTime(kNow));
}

void ExpectLiteral(const wchar_t* language, std::int64_t seconds)
{
    ASSERT_EQ(literal::DueIn(language, seconds), DueIn(seconds))
        << CString(language).GetString() << ' ' << seconds;
    ASSERT_EQ(literal::DueIn(language, -seconds), DueIn(-seconds))
        << CString(language).GetString() << " -" << seconds;
}

class DueInTextTest : public testing::TestWithParam<const wchar_t*>
{
  protected:
    DueInTextTest() { ts::SetInterfaceLanguage(GetParam()); }
    ~DueInTextTest() override { ts::SetInterfaceLanguage(nullptr); }
};

INSTANTIATE_TEST_SUITE_P(Languages, DueInTextTest, testing::Values(L"en", L"de", L"fr"),
                         [](const auto& language)
                         { return std::string(language.param, language.param + 2); });

/// A distance, and the number and the count of the text that tells it.
struct Distance
{
    std::int64_t seconds;
    unsigned id;
    int count;
};
constexpr Distance kDistances[] = {
    {0, 203, 1},
    {59, 203, 1},
    {2 * kMinute, 210, 2},
    {59 * kMinute + 59, 210, 59},
    {kHour, 202, 1},
    {kHour + 29 * kMinute, 202, 1},
    {90 * kMinute, 209, 2},
    {23 * kHour + 30 * kMinute, 209, 24},
    {kDay, 200, 1},
    {kDay + 12 * kHour, 208, 2},
    {7 * kDay + 11 * kHour, 208, 7},
    {7 * kDay + 12 * kHour, 206, 1},
    {10 * kDay, 206, 1},
    {11 * kDay, 212, 2},
    {30 * kDay, 212, 4},
    {31 * kDay, 204, 1},
    {45 * kDay, 204, 1},
    {46 * kDay, 211, 2},
    {350 * kDay, 211, 12},
    {351 * kDay, 207, 1},
    {547 * kDay, 207, 1},
    {548 * kDay, 213, 2},
    {36500 * kDay, 213, 100},
};

} // namespace

TEST_P(DueInTextTest, SecondsAroundEveryMinuteOfThreeDays_EqualTheLiteralRule)
{
    for (std::int64_t seconds = 0; seconds <= 3 * kDay; seconds += kStride * kMinute)
    {
        for (const std::int64_t offset : {-1, 0, 1})
        {
            ASSERT_NO_FATAL_FAILURE(ExpectLiteral(GetParam(), seconds + offset < 0 ? 0 : seconds + offset));
        }
    }
}

TEST_P(DueInTextTest, SecondsAroundEveryHalfDayOfAHundredYears_EqualTheLiteralRule)
{
    // Every day of the first three years, then every eleventh half day with all its neighbours in turn.
    for (std::int64_t seconds = kDay; seconds <= kHundredYears;
         seconds += kStride * (seconds < 1100 * kDay ? kDay / 2 : 11 * kDay / 2))
    {
        for (const std::int64_t offset : {-1, 0, 1})
        {
            ASSERT_NO_FATAL_FAILURE(ExpectLiteral(GetParam(), seconds + offset));
        }
    }
}

TEST_P(DueInTextTest, AnyDistance_EqualsTheLiteralRule)
{
    constexpr std::int64_t kReaches[] = {kDay, 40 * kDay, 800 * kDay, kHundredYears};
    RandomSource random;
    for (int round = 0; round < Rounds(3000); ++round)
    {
        const std::int64_t seconds = random.Between<std::int64_t>(0, random.OneOf(kReaches));
        ASSERT_NO_FATAL_FAILURE(ExpectLiteral(GetParam(), seconds)) << random;
    }
}

TEST(DueInTextRoundingTest, KnownDistances_ChooseUnitAndCount)
{
    ts::SetInterfaceLanguage(L"en");
    for (const Distance& row : kDistances)
    {
        const CString inner = literal::Formatted(L"en", row.id, row.count);
        wchar_t expected[200] = L"";
        _snwprintf(expected, 199, literal::TextOf(L"en", 201), inner.GetString());
        EXPECT_EQ(CString(expected), DueIn(row.seconds)) << row.seconds;
        if (row.seconds != 0)
        {
            _snwprintf(expected, 199, literal::TextOf(L"en", 205), inner.GetString());
            EXPECT_EQ(CString(expected), DueIn(-row.seconds)) << "overdue by " << row.seconds;
        }
    }
    ts::SetInterfaceLanguage(nullptr);
}

TEST(DueInTextRoundingTest, TimesOutOfAnyCalendar_StillHaveAText)
{
    constexpr std::int64_t kMax = std::numeric_limits<std::int64_t>::max();
    constexpr std::int64_t kMin = std::numeric_limits<std::int64_t>::min();
    for (const std::int64_t due : {kMin, kMin + 1, std::int64_t{-1}, kMax - 1, kMax})
    {
        for (const std::int64_t now : {kMin, std::int64_t{0}, kNow, kMax})
        {
            CcvReminderData record{CString(L"{text-0}")};
            record.SetNextDueDate(due);
            EXPECT_FALSE(CcvReminderDataUtilities::GetDueInString(&record, now).IsEmpty())
                << due << ' ' << now;
            EXPECT_FALSE(CcvReminderDataUtilities::GetReminderTooltip(&record, now).IsEmpty())
                << due << ' ' << now;
        }
    }
}

TEST(DueInTextRoundingTest, RecurringReminder_TellsTheOccurrenceInForce)
{
    CcvReminderData record = EveryNDays(1);
    record.SetNextDueDate(kNow - 10 * kDay);
    ts::SetInterfaceLanguage(L"en");
    EXPECT_EQ(literal::DueIn(L"en", 0), CcvReminderDataUtilities::GetDueInString(&record, CTime(kNow)));
    EXPECT_EQ(literal::DueIn(L"en", -kHour),
              CcvReminderDataUtilities::GetDueInString(&record, CTime(kNow + kHour)));
    ts::SetInterfaceLanguage(nullptr);
}
