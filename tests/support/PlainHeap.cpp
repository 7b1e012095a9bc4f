// Linked in place of GuardPageHeap.cpp: memory comes from the runtime's heap.

#include "tests/support/Allocations.h"
#include "tests/support/HeapKind.h"

#include <cstdlib>
#include <new>

bool ts::test::UsesGuardPageHeap() noexcept
{
    return false;
}

void* operator new(std::size_t size)
{
    ts::test::CountAllocation();
    void* const memory = std::malloc(size == 0 ? 1 : size);
    if (memory == nullptr)
    {
        throw std::bad_alloc();
    }
    return memory;
}

void operator delete(void* memory) noexcept
{
    if (memory != nullptr)
    {
        ts::test::CountFree();
        std::free(memory);
    }
}

void operator delete(void* memory, std::size_t) noexcept
{
    operator delete(memory);
}
