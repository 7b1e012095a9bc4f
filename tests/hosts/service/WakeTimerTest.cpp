#include "hosts/service/WakeTimer.h"

#include <gtest/gtest.h>
#include <limits>

namespace
{

using ts::service::WakeTimer;

constexpr std::int64_t kLimit = std::numeric_limits<std::int64_t>::max();

bool Fires(const WakeTimer& timer, DWORD timeoutMilliseconds)
{
    return WaitForSingleObject(timer.GetHandle(), timeoutMilliseconds) == WAIT_OBJECT_0;
}

struct TimeRow
{
    const char* title;
    std::int64_t secondsSince1970;
    std::int64_t systemTime;
};

constexpr std::int64_t kLastSecond = kLimit / 10'000'000 * 10'000'000;

constexpr TimeRow kTimes[] = {
    {"1970", 0, 116'444'736'000'000'000},
    {"21 November 2026, 12:00 UTC", 1'795'262'400, 134'397'360'000'000'000},
    {"the system's first second", -11'644'473'599, 10'000'000},
    {"before it, where a span would begin", -11'644'473'600, 10'000'000},
    {"long before it", -kLimit, 10'000'000},
    {"the system's last second", kLimit / 10'000'000 - 11'644'473'600, kLastSecond},
    {"after it", kLimit / 10'000'000 - 11'644'473'599, kLastSecond},
    {"the last of all", kLimit, kLastSecond},
};

TEST(WakeTimer, SystemTime_IsAlwaysAPointInTime)
{
    for (const TimeRow& row : kTimes)
    {
        EXPECT_EQ(row.systemTime, WakeTimer::SystemTimeOf(CTime(row.secondsSince1970))) << row.title;
    }
}

TEST(WakeTimer, PastTimes_FireAtOnceAndOnce)
{
    WakeTimer timer;
    for (const std::int64_t time : {-kLimit, std::int64_t{0}, CTime::GetCurrentTime().GetTime()})
    {
        timer.Set(CTime(time));
        EXPECT_TRUE(Fires(timer, 1000)) << time;
        EXPECT_FALSE(Fires(timer, 20)) << time;
    }
}

TEST(WakeTimer, TimeAhead_FiresThen)
{
    WakeTimer timer;
    const CTime time = CTime::GetCurrentTime() + CTimeSpan(2);
    timer.Set(time);
    EXPECT_EQ(time, timer.GetTime());
    EXPECT_FALSE(Fires(timer, 500));
    EXPECT_TRUE(Fires(timer, 3000));
    EXPECT_EQ(time, CTime::GetCurrentTime());
}

TEST(WakeTimer, FarTimesAndNone_DoNotFire)
{
    WakeTimer timer;
    EXPECT_FALSE(Fires(timer, 20));
    for (const std::int64_t years : {1, 100, 1000, 10'000})
    {
        timer.Set(CTime::GetCurrentTime() + CTimeSpan(years * 31'557'600));
        EXPECT_FALSE(Fires(timer, 50)) << years;
    }
    timer.Set(CTime(kLimit));
    EXPECT_FALSE(Fires(timer, 50));
    timer.Set(CTime(0));
    timer.Set(std::nullopt);
    EXPECT_FALSE(Fires(timer, 50));
    EXPECT_EQ(std::nullopt, timer.GetTime());
}

TEST(WakeTimer, WhatWasSetBefore_IsForgotten)
{
    WakeTimer timer;
    timer.Set(CTime(0));
    timer.Set(CTime::GetCurrentTime() + CTimeSpan(60));
    EXPECT_FALSE(Fires(timer, 50));
    timer.Set(CTime(0));
    EXPECT_TRUE(Fires(timer, 1000));
}

} // namespace
