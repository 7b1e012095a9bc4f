// Replaces the global operator new, so that the library's allocations can be counted. The array, nothrow and
// sized forms of the standard library all end in the two functions here; nothing over-aligned is used.

#include "bench/Allocations.h"

#include <atomic>
#include <cstdlib>
#include <new>

namespace
{

std::atomic<std::uint64_t> g_allocations{0};

} // namespace

std::uint64_t ts::bench::AllocationCount() noexcept
{
    return g_allocations.load(std::memory_order_relaxed);
}

void* operator new(std::size_t size)
{
    g_allocations.fetch_add(1, std::memory_order_relaxed);
    if (void* memory = std::malloc(size == 0 ? 1 : size))
    {
        return memory;
    }
    throw std::bad_alloc();
}

void operator delete(void* memory) noexcept
{
    std::free(memory);
}

void operator delete(void* memory, std::size_t) noexcept
{
    std::free(memory);
}
