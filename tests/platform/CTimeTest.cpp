#include "platform/WindowsHeaders.h"
#include "platform/mfc/atlexcept.h"
#include "platform/mfc/atltime.h"
#include "tests/support/TextOutput.h"

#include <gtest/gtest.h>
#include <limits>

namespace
{

constexpr std::int64_t kMax = std::numeric_limits<std::int64_t>::max();
constexpr std::int64_t kMin = std::numeric_limits<std::int64_t>::min();

/// The code that building the time raises, or S_OK.
HRESULT CodeOf(int year, int month, int day, int hour, int minute, int second)
{
    try
    {
        const CTime time(year, month, day, hour, minute, second);
        EXPECT_NE(-1, time.GetTime());
        return S_OK;
    }
    catch (const COleException& error)
    {
        return error.m_sc;
    }
}

} // namespace

TEST(CTimeTest, Arithmetic_BeyondTheRange_StopsAtTheLimit)
{
    struct Row
    {
        const char* title;
        CTime result;
        std::int64_t expected;
    };
    const Row rows[] = {
        {"above the last second", CTime(kMax) + CTimeSpan(1), kMax},
        {"below the first second", CTime(kMin) + CTimeSpan(-1), kMin},
        {"subtracting the smallest span", CTime(0) - CTimeSpan(kMin), kMax},
        {"subtracting from the first second", CTime(kMin) - CTimeSpan(1), kMin},
        {"a plain sum", CTime(5) + CTimeSpan(-7), -2},
        {"a plain difference", CTime(5) - CTimeSpan(-7), 12},
    };
    for (const Row& row : rows)
    {
        EXPECT_EQ(row.expected, row.result.GetTime()) << row.title;
    }
    EXPECT_EQ(kMax, (CTime(kMax) - CTime(kMin)).GetTimeSpan());
    EXPECT_EQ(kMin, (CTime(kMin) - CTime(kMax)).GetTimeSpan());
}

TEST(CTimeTest, Construction_FromLocalFields_GivesThemBack)
{
    const CTime time(2026, 11, 21, 9, 30, 59);
    EXPECT_EQ(2026, time.GetYear());
    EXPECT_EQ(11, time.GetMonth());
    EXPECT_EQ(21, time.GetDay());
    EXPECT_EQ(9, time.GetHour());
    EXPECT_EQ(30, time.GetMinute());
    EXPECT_EQ(59, time.GetSecond());
    EXPECT_EQ(7, time.GetDayOfWeek()) << "a Saturday";
}

TEST(CTimeTest, Construction_DayBeyondTheMonth_GoesOverIntoTheNext)
{
    EXPECT_EQ(CTime(2009, 3, 2, 12, 0, 0), CTime(2009, 2, 30, 12, 0, 0));
    EXPECT_EQ(CTime(2009, 5, 1, 12, 0, 0), CTime(2009, 4, 31, 12, 0, 0));
}

TEST(CTimeTest, Construction_FieldOutOfRange_RaisesFail)
{
    const int rows[][6] = {
        {1969, 12, 31, 23, 59, 59}, {2026, 0, 1, 0, 0, 0},  {2026, 13, 1, 0, 0, 0}, {2026, 1, 0, 0, 0, 0},
        {2026, 1, 32, 0, 0, 0},     {2026, 1, 1, -1, 0, 0}, {2026, 1, 1, 24, 0, 0}, {2026, 1, 1, 0, -1, 0},
        {2026, 1, 1, 0, 60, 0},     {2026, 1, 1, 0, 0, -1}, {2026, 1, 1, 0, 0, 60},
    };
    for (const auto& row : rows)
    {
        EXPECT_EQ(E_FAIL, CodeOf(row[0], row[1], row[2], row[3], row[4], row[5]))
            << row[0] << '-' << row[1] << '-' << row[2] << ' ' << row[3] << ':' << row[4] << ':' << row[5];
    }
}

TEST(CTimeTest, Construction_BeyondTheRuntimesYears_RaisesInvalidArgument)
{
    EXPECT_EQ(S_OK, CodeOf(3000, 12, 30, 0, 0, 0));
    EXPECT_EQ(E_INVALIDARG, CodeOf(3001, 1, 2, 0, 0, 0));
    EXPECT_EQ(E_INVALIDARG, CodeOf(std::numeric_limits<int>::max(), 12, 31, 23, 59, 59));
}

TEST(CTimeTest, Fields_OfATimeThatCannotBeConverted_AreNoFields)
{
    for (const std::int64_t seconds : {kMin, std::int64_t{-200000}, std::int64_t{32'540'000'000}, kMax})
    {
        const CTime time(seconds);
        EXPECT_EQ(0, time.GetYear()) << seconds;
        EXPECT_EQ(0, time.GetMonth()) << seconds;
        EXPECT_EQ(0, time.GetDay()) << seconds;
        EXPECT_EQ(-1, time.GetHour()) << seconds;
        EXPECT_EQ(-1, time.GetMinute()) << seconds;
        EXPECT_EQ(-1, time.GetSecond()) << seconds;
        EXPECT_EQ(0, time.GetDayOfWeek()) << seconds;
    }
}

TEST(CTimeTest, SystemTime_HasTheFieldsOfTheLocalTime)
{
    // Each of them has to be written, the milliseconds too.
    SYSTEMTIME local{1, 2, 3, 4, 5, 6, 7, 8};
    ASSERT_TRUE(CTime(2026, 11, 21, 9, 30, 59).GetAsSystemTime(local));
    EXPECT_EQ(2026, local.wYear);
    EXPECT_EQ(11, local.wMonth);
    EXPECT_EQ(6, local.wDayOfWeek) << "a Saturday";
    EXPECT_EQ(21, local.wDay);
    EXPECT_EQ(9, local.wHour);
    EXPECT_EQ(30, local.wMinute);
    EXPECT_EQ(59, local.wSecond);
    EXPECT_EQ(0, local.wMilliseconds);
    ASSERT_TRUE(CTime(2027, 2, 28, 0, 0, 0).GetAsSystemTime(local));
    EXPECT_EQ(0, local.wDayOfWeek) << "a Sunday";
    EXPECT_EQ(2, local.wMonth);
}

TEST(CTimeTest, SystemTime_OfATimeThatCannotBeConverted_LeavesTheOther)
{
    for (const std::int64_t seconds : {kMin, std::int64_t{-200000}, std::int64_t{32'540'000'000}, kMax})
    {
        SYSTEMTIME local{1, 2, 3, 4, 5, 6, 7, 8};
        EXPECT_FALSE(CTime(seconds).GetAsSystemTime(local)) << seconds;
        EXPECT_EQ(1, local.wYear) << seconds;
        EXPECT_EQ(8, local.wMilliseconds) << seconds;
    }
}
