#include "tests/support/Allocations.h"

#include <atomic>
#include <new>

namespace
{

std::atomic<std::size_t> g_allocations{0};
std::atomic<std::size_t> g_frees{0};
std::atomic<DWORD> g_starvedThread{0};
std::atomic<int> g_spared{0};
std::atomic<int> g_refusals{0};

} // namespace

std::size_t ts::test::AllocationCount() noexcept
{
    return g_allocations;
}

std::size_t ts::test::LiveAllocationCount() noexcept
{
    return g_allocations - g_frees;
}

ts::test::StarvedThread::StarvedThread(int spared, DWORD thread) noexcept
{
    g_spared = spared;
    g_refusals = 0;
    g_starvedThread = thread;
}

ts::test::StarvedThread::~StarvedThread()
{
    g_starvedThread = 0;
}

int ts::test::StarvedThread::Refusals() const noexcept
{
    return g_refusals;
}

void ts::test::CountAllocation()
{
    if (g_starvedThread != 0 && g_starvedThread == GetCurrentThreadId() && g_spared-- <= 0)
    {
        ++g_refusals;
        throw std::bad_alloc();
    }
    ++g_allocations;
}

void ts::test::CountFree() noexcept
{
    ++g_frees;
}
