#include "outlook/OutlookTime.h"

#include "module/CcvComException.h"
#include "tests/support/RandomSource.h"
#include "tests/support/TextOutput.h"

#include <chrono>
#include <cstring>
#include <gtest/gtest.h>
#include <limits>

namespace ts::test
{
namespace
{

/// Far below the length of a second in days.
constexpr double kTolerance = 1e-8;

struct Moment
{
    int year, month, day, hour, minute, second;
};

/// Local times that are skipped in no zone.
constexpr Moment kMoments[] = {
    {1971, 1, 15, 0, 0, 0}, {1999, 12, 31, 23, 59, 59}, {2000, 2, 29, 12, 0, 0},   {2009, 2, 1, 9, 30, 0},
    {2024, 7, 14, 6, 0, 1}, {2026, 11, 15, 17, 45, 59}, {2099, 6, 30, 12, 34, 56},
};

CTime TimeOf(const Moment& moment)
{
    return CTime(moment.year, moment.month, moment.day, moment.hour, moment.minute, moment.second);
}

/// Whole days since 30 December 1899.
double DaysOf(int year, int month, int day)
{
    using namespace std::chrono;
    const auto date = std::chrono::year(year) / std::chrono::month(static_cast<unsigned>(month)) /
                      std::chrono::day(static_cast<unsigned>(day));
    return static_cast<double>((sys_days(date) - sys_days(std::chrono::year(1899) / 12 / 30)).count());
}

double FractionOf(int hour, int minute, int second)
{
    return (hour * 3600 + minute * 60 + second) / 86400.0;
}

HRESULT FailureOf(std::int64_t seconds)
{
    try
    {
        static_cast<void>(ToOutlookDate(CTime(seconds)));
    }
    catch (const CcvComException& error)
    {
        return error.GetCode();
    }
    return S_OK;
}

} // namespace

TEST(OutlookTimeTest, LocalTime_HasTheFieldsOfTheClockOnTheWall)
{
    for (const Moment& moment : kMoments)
    {
        const SYSTEMTIME local = ToLocalTime(TimeOf(moment));
        EXPECT_EQ(moment.year, local.wYear);
        EXPECT_EQ(moment.month, local.wMonth);
        EXPECT_EQ(moment.day, local.wDay);
        EXPECT_EQ(moment.hour, local.wHour);
        EXPECT_EQ(moment.minute, local.wMinute);
        EXPECT_EQ(moment.second, local.wSecond);
        EXPECT_EQ(0, local.wMilliseconds);
        EXPECT_EQ(TimeOf(moment).GetDayOfWeek() - 1, local.wDayOfWeek);
    }
}

TEST(OutlookTimeTest, Date_CountsLocalDaysSince1899)
{
    for (const Moment& moment : kMoments)
    {
        const double days = DaysOf(moment.year, moment.month, moment.day);
        const double fraction = FractionOf(moment.hour, moment.minute, moment.second);
        const SYSTEMTIME local = ToLocalTime(TimeOf(moment));
        EXPECT_NEAR(days + fraction, ToOutlookDate(TimeOf(moment)), kTolerance) << moment.year;
        EXPECT_EQ(ToOutlookDate(local), ToOutlookDate(TimeOf(moment)));
        EXPECT_NEAR(fraction, ToOutlookTimeOnly(local), kTolerance) << moment.year;
        EXPECT_EQ(days, ToOutlookDateOnly(local)) << moment.year;
    }
}

TEST(OutlookTimeTest, Date_OfKnownMoments_IsExact)
{
    EXPECT_EQ(39845.0, ToOutlookDate(CTime(2009, 2, 1, 0, 0, 0)));
    EXPECT_EQ(39845.75, ToOutlookDate(CTime(2009, 2, 1, 18, 0, 0)));
    EXPECT_EQ(0.375, ToOutlookTimeOnly(ToLocalTime(CTime(2009, 2, 1, 9, 0, 0))));
    EXPECT_EQ(0.0, ToOutlookTimeOnly(ToLocalTime(CTime(2009, 2, 1, 0, 0, 0))));
}

TEST(OutlookTimeTest, Date_OfAnyTime_ReadsBackAsTheSameFields)
{
    RandomSource random;
    for (int round = 0; round < 500; ++round)
    {
        const CTime time(random.Between<std::int64_t>(0, 4'000'000'000));
        SYSTEMTIME local = ToLocalTime(time);
        SYSTEMTIME back{};
        ASSERT_TRUE(VariantTimeToSystemTime(ToOutlookDate(time), &back)) << time << ' ' << random;
        EXPECT_EQ(0, std::memcmp(&local, &back, sizeof back)) << time << ' ' << random;
        const double sum = ToOutlookDateOnly(local) + ToOutlookTimeOnly(local);
        EXPECT_NEAR(ToOutlookDate(time), sum, kTolerance) << time << ' ' << random;
    }
}

TEST(OutlookTimeTest, Date_OfTheFirstSecond_IsConverted)
{
    // In the zones west of Greenwich it lies in 1969.
    EXPECT_NEAR(25569.0, ToOutlookDate(CTime(0)), 1.0);
}

TEST(OutlookTimeTest, Date_OfTimesOutOfTheCalendar_RaisesInvalidArgument)
{
    constexpr std::int64_t kTenThousandYears = 316'000'000'000;
    using Limits = std::numeric_limits<std::int64_t>;
    for (const std::int64_t seconds :
         {Limits::min(), Limits::max(), -kTenThousandYears, kTenThousandYears, 7 * kTenThousandYears,
          std::int64_t{-86400}, std::int64_t{-3'000'000'000}})
    {
        EXPECT_EQ(E_INVALIDARG, FailureOf(seconds)) << seconds;
    }
}

TEST(OutlookTimeTest, Date_OfFieldsThatAreNoDate_RaisesInvalidArgument)
{
    SYSTEMTIME none{};
    none.wYear = 2009;
    none.wMonth = 13;
    none.wDay = 1;
    EXPECT_THROW(static_cast<void>(ToOutlookDate(none)), CcvComException);
    EXPECT_THROW(static_cast<void>(ToOutlookDateOnly(none)), CcvComException);
}

} // namespace ts::test
