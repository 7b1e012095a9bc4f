#pragma once

#include <cstdlib>
#include <functional>

namespace ts::test
{

/// How often a test goes round that opens something and closes it again: `usual`, unless the environment
/// says TS_TEST_ROUNDS. What a round leaves behind shows after few of them; many show what few may hide.
[[nodiscard]] inline int WantedRounds(int usual)
{
    const char* const wanted = std::getenv("TS_TEST_ROUNDS");
    return wanted == nullptr ? usual : std::atoi(wanted);
}

/// Goes round WantedRounds(usual) times, and expects as many windows, drawing objects and handles as before,
/// and no more memory. Stops at a fatal failure.
void ExpectRoundsLeaveNothing(int usual, const std::function<void()>& round);

} // namespace ts::test
