#include "tests/support/ManyRounds.h"

#include "tests/support/HandleCount.h"
#include "tests/support/WindowDriver.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <gtest/gtest.h>
#include <numeric>
#include <ostream>

namespace
{

using namespace ts::test;

// What the system and the runtime keep between two rounds varies a little. Each text control of the common
// controls' version 6 leaves 24 bytes behind under Wine, in any program, and other controls some too: a round
// that opens the add-reminder dialog twice leaves 1,000 bytes, and none of them is the library's.
constexpr std::size_t kNoise = 0x10000;
constexpr std::size_t kNoiseOfARound = 2048;

/// The bytes in use on a heap.
std::size_t BytesOn(HANDLE heap)
{
    std::size_t bytes = 0;
    PROCESS_HEAP_ENTRY entry{};
    HeapLock(heap);
    while (HeapWalk(heap, &entry) != FALSE)
    {
        bytes += (entry.wFlags & PROCESS_HEAP_ENTRY_BUSY) != 0 ? entry.cbData : 0;
    }
    HeapUnlock(heap);
    return bytes;
}

/// On all heaps of this process.
std::size_t HeapBytes()
{
    std::array<HANDLE, 64> heaps{};
    const DWORD count = GetProcessHeaps(static_cast<DWORD>(heaps.size()), heaps.data());
    EXPECT_LE(count, heaps.size());
    return std::transform_reduce(heaps.begin(),
                                 heaps.begin() + std::min<std::ptrdiff_t>(count, std::ssize(heaps)),
                                 std::size_t{0}, std::plus<>(), BytesOn);
}

struct Counts
{
    std::size_t windows = WindowCount();
    std::size_t drawing = GdiObjectCount();
    std::size_t handles = HandleCount();

    bool operator==(const Counts&) const = default;

    friend void PrintTo(const Counts& counts, std::ostream* out)
    {
        *out << counts.windows << " windows, " << counts.drawing << " drawing objects, " << counts.handles
             << " handles";
    }
};

void GoRound(int rounds, const std::function<void()>& round)
{
    for (int count = 0; count < rounds && !testing::Test::HasFatalFailure(); ++count)
    {
        round();
    }
}

} // namespace

void ts::test::ExpectRoundsLeaveNothing(int usual, const std::function<void()>& round)
{
    // The first rounds, and the first counting, take what is kept for the later ones.
    constexpr int kWarmUp = 5;
    const int rounds = WantedRounds(usual);
    GoRound(kWarmUp < rounds ? kWarmUp : rounds, round);
    static_cast<void>(Counts());
    const std::size_t memory = HeapBytes();
    const Counts before;
    GoRound(rounds, round);
    EXPECT_EQ(before, Counts()) << "after " << rounds << " rounds";
    EXPECT_LT(HeapBytes(), memory + kNoise + static_cast<std::size_t>(rounds) * kNoiseOfARound)
        << "after " << rounds << " rounds";
}
