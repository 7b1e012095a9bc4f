#include "platform/Clock.h"
#include "platform/mfc/atltime.h"
#include "tests/support/FixedClock.h"
#include "tests/support/TextOutput.h"

#include <ctime>
#include <gtest/gtest.h>
#include <limits>

namespace
{

/// Whether the library's clock stands between two readings of the system's.
bool FollowsTheSystem()
{
    const std::int64_t before = _time64(nullptr);
    const std::int64_t now = ts::Now();
    return before <= now && now <= _time64(nullptr);
}

} // namespace

TEST(ClockTest, Now_Unreplaced_FollowsTheSystem)
{
    EXPECT_TRUE(FollowsTheSystem());
}

TEST(ClockTest, Now_Replaced_AnswersWithTheReplacement)
{
    constexpr std::int64_t kMin = std::numeric_limits<std::int64_t>::min();
    constexpr std::int64_t kMax = std::numeric_limits<std::int64_t>::max();
    ts::test::FixedClock clock(0);
    for (const std::int64_t now :
         {std::int64_t{0}, std::int64_t{1'795'000'000}, std::int64_t{-1}, kMin, kMax})
    {
        clock.Set(now);
        EXPECT_EQ(now, ts::Now());
        EXPECT_EQ(CTime(now), CTime::GetCurrentTime());
    }
}

TEST(ClockTest, ReplaceClock_WithNull_FollowsTheSystemAgain)
{
    {
        const ts::test::FixedClock clock(42);
        EXPECT_FALSE(FollowsTheSystem());
    }
    EXPECT_TRUE(FollowsTheSystem());
    ts::ReplaceClock(nullptr);
    EXPECT_TRUE(FollowsTheSystem());
}
