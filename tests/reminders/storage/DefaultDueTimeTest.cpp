// The due time of a new reminder: now, rounded up to the quarter hour.

#include "reminders/CcvReminderData.h"
#include "tests/reminders/storage/RecordFields.h"
#include "tests/support/FixedClock.h"
#include "tests/support/TextOutput.h"

#include "platform/mfc/atlexcept.h"

#include <gtest/gtest.h>
#include <limits>
#include <optional>

namespace ts::test
{
namespace
{

/// A day on which no zone changes its clocks.
CTime At(int hour, int minute, int second)
{
    return CTime(2026, 11, 25, hour, minute, second);
}

/// The code that making a reminder raises at that time, or S_OK.
HRESULT CodeAt(std::int64_t now)
{
    const FixedClock clock(now);
    try
    {
        const CcvReminderData record;
        EXPECT_NE(0, record.GetNextDueDate().GetTime());
        return S_OK;
    }
    catch (const COleException& error)
    {
        return error.m_sc;
    }
}

} // namespace

TEST(DefaultDueTimeTest, Construction_AtExamples_RoundsUpToTheQuarter)
{
    struct Row
    {
        CTime now;
        CTime due;
    };
    const Row rows[] = {
        {At(10, 0, 30), At(10, 0, 0)},   {At(10, 1, 0), At(10, 15, 0)},  {At(10, 15, 59), At(10, 15, 0)},
        {At(10, 46, 0), At(11, 0, 0)},   {At(0, 0, 0), At(0, 0, 0)},     {At(22, 59, 59), At(23, 0, 0)},
        {At(23, 45, 59), At(23, 45, 0)}, {At(23, 31, 0), At(23, 45, 0)},
    };
    for (const Row& row : rows)
    {
        const FixedClock clock(row.now.GetTime());
        EXPECT_EQ(row.due, CcvReminderData().GetInitialDueDate()) << testing::PrintToString(row.now);
    }
}

TEST(DefaultDueTimeTest, Construction_AtEveryMinute_FollowsTheRule)
{
    for (int hour = 0; hour < 23; ++hour)
    {
        for (int minute = 0; minute < 60; ++minute)
        {
            CTime expected = At(hour, 0, 0);
            if (minute > 45)
            {
                expected = At(hour + 1, 0, 0);
            }
            else if (minute > 30)
            {
                expected = At(hour, 45, 0);
            }
            else if (minute > 15)
            {
                expected = At(hour, 30, 0);
            }
            else if (minute > 0)
            {
                expected = At(hour, 15, 0);
            }
            for (const int second : {0, 30, 59})
            {
                const FixedClock clock(At(hour, minute, second).GetTime());
                ASSERT_EQ(expected, CcvReminderData().GetNextDueDate())
                    << hour << ':' << minute << ':' << second;
            }
        }
    }
}

TEST(DefaultDueTimeTest, Construction_OfANewReminder_LeavesAllElseEmpty)
{
    const FixedClock clock(At(10, 0, 30).GetTime());
    RecordFields expected = FieldsOf(EmptyRecord());
    expected.initialDue = At(10, 0, 0);
    expected.nextDue = At(10, 0, 0);
    EXPECT_EQ(expected, FieldsOf(CcvReminderData()));
}

TEST(DefaultDueTimeTest, Construction_InTheLastQuarterOfADay_RaisesFail)
{
    for (int minute = 0; minute < 60; ++minute)
    {
        for (const int second : {0, 59})
        {
            EXPECT_EQ(minute < 46 ? S_OK : E_FAIL, CodeAt(At(23, minute, second).GetTime()))
                << "23:" << minute << ':' << second;
        }
    }
}

TEST(DefaultDueTimeTest, Construction_OutsideTheRuntimesYears_RaisesFail)
{
    using Limits = std::numeric_limits<std::int64_t>;
    for (const std::int64_t now : {std::int64_t{-2 * 86'400}, std::int64_t{-200'000},
                                   std::int64_t{32'540'000'000}, Limits::min(), Limits::max()})
    {
        EXPECT_EQ(E_FAIL, CodeAt(now)) << now;
    }
    EXPECT_EQ(S_OK, CodeAt(CTime(1970, 1, 3, 12, 7, 0).GetTime()));
    EXPECT_EQ(S_OK, CodeAt(CTime(2999, 12, 30, 12, 7, 0).GetTime()));
}

TEST(DefaultDueTimeTest, ConstructionFromAKey_AtAnyTime_LeavesAllElseEmpty)
{
    const FixedClock clock(At(23, 50, 0).GetTime());
    const CcvReminderData record{CString(L"{M-0}")};
    RecordFields expected{};
    expected.key = L"{M-0}";
    EXPECT_EQ(expected, FieldsOf(record));
}

} // namespace ts::test
