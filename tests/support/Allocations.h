#pragma once

#include "platform/WindowsHeaders.h"

#include <cstddef>

// What the memory of operator new tells and can be told to do, in every test program.

namespace ts::test
{

/// The number of allocations of this process so far.
[[nodiscard]] std::size_t AllocationCount() noexcept;
/// How many of them are not freed.
[[nodiscard]] std::size_t LiveAllocationCount() noexcept;

/// While it lives, one thread gets no memory after `spared` more allocations. One at a time.
class StarvedThread
{
  public:
    explicit StarvedThread(int spared, DWORD thread = GetCurrentThreadId()) noexcept;
    StarvedThread(const StarvedThread&) = delete;
    StarvedThread& operator=(const StarvedThread&) = delete;
    ~StarvedThread();

    /// How many allocations were refused.
    [[nodiscard]] int Refusals() const noexcept;
};

/// For the heaps: called for each allocation, before it is made. Throws std::bad_alloc to a starved thread.
void CountAllocation();
/// For the heaps: called for each block that is freed.
void CountFree() noexcept;

} // namespace ts::test
