// A heap that finds what plain memory forgives. Each allocation ends at an inaccessible page, so that reading
// or writing past its end faults at once. The few bytes that alignment leaves between them are checked when
// the memory is freed. Freed memory stays inaccessible for a long while, so that late use faults too.
//
// Replaces operator new and delete of the whole program; everything must be linked statically.

#include "platform/WindowsHeaders.h"
#include "tests/support/Allocations.h"
#include "tests/support/HeapKind.h"

#include <atomic>
#include <bit>
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstring>
#include <new>

namespace
{

constexpr std::size_t kPage = 4096;
constexpr unsigned char kSlack = 0xFD;
// The system's mappings are limited; freed blocks beyond this number are given back, the oldest first.
constexpr std::size_t kQuarantine = 8000;

std::atomic<void*> g_quarantine[kQuarantine];
std::atomic<std::size_t> g_freed{0};

/// Stands at the start of a block, a page before the memory that is handed out.
struct BlockHeader
{
    std::size_t size;
    std::size_t alignedSize;
};

std::size_t RoundUp(std::size_t value, std::size_t unit)
{
    return (value + unit - 1) / unit * unit;
}

void Fail(const char* what, const void* memory)
{
    std::fprintf(stderr, "guard-page heap: %s at %p\n", what, memory);
    std::fflush(stderr);
    TerminateProcess(GetCurrentProcess(), 98);
}

std::byte* BlockOf(void* memory)
{
    // The header page precedes the first page of the memory.
    const auto address = static_cast<std::byte*>(memory) - std::bit_cast<std::uintptr_t>(memory) % kPage;
    return address - kPage;
}

void* Allocate(std::size_t size, std::size_t alignment)
{
    ts::test::CountAllocation();
    const std::size_t alignedSize = RoundUp(size == 0 ? 1 : size, alignment);
    const std::size_t pages = RoundUp(alignedSize, kPage);
    // Header page, the memory, and one page that is reserved but never committed. Memory longer than a page
    // starts somewhere in its first page, so the header always lies in the page before.
    auto* block =
        static_cast<std::byte*>(VirtualAlloc(nullptr, kPage + pages + kPage, MEM_RESERVE, PAGE_NOACCESS));
    if (block == nullptr || VirtualAlloc(block, kPage + pages, MEM_COMMIT, PAGE_READWRITE) == nullptr)
    {
        throw std::bad_alloc();
    }
    new (block) BlockHeader{size, alignedSize};
    std::byte* memory = block + kPage + pages - alignedSize;
    std::memset(memory + size, kSlack, alignedSize - size);
    return memory;
}

void CheckSlack(const BlockHeader& header, const std::byte* memory)
{
    for (std::size_t index = header.size; index < header.alignedSize; ++index)
    {
        if (memory[index] != std::byte{kSlack})
        {
            Fail("written past the end", memory);
        }
    }
}

void Free(void* memory) noexcept
{
    if (memory == nullptr)
    {
        return;
    }
    ts::test::CountFree();
    std::byte* block = BlockOf(memory);
    const auto header = *std::launder(static_cast<const BlockHeader*>(static_cast<void*>(block)));
    CheckSlack(header, static_cast<const std::byte*>(memory));
    const std::size_t pages = RoundUp(header.alignedSize, kPage);
    if (VirtualFree(block, kPage + pages, MEM_DECOMMIT) == 0)
    {
        Fail("freed twice or never allocated", memory);
    }
    void* oldest = g_quarantine[g_freed++ % kQuarantine].exchange(block);
    if (oldest != nullptr)
    {
        VirtualFree(oldest, 0, MEM_RELEASE);
    }
}

} // namespace

bool ts::test::UsesGuardPageHeap() noexcept
{
    return true;
}

void* operator new(std::size_t size)
{
    return Allocate(size, __STDCPP_DEFAULT_NEW_ALIGNMENT__);
}

void* operator new(std::size_t size, std::align_val_t alignment)
{
    return Allocate(size, static_cast<std::size_t>(alignment));
}

void operator delete(void* memory) noexcept
{
    Free(memory);
}

void operator delete(void* memory, std::size_t) noexcept
{
    Free(memory);
}

void operator delete(void* memory, std::align_val_t) noexcept
{
    Free(memory);
}

void operator delete(void* memory, std::size_t, std::align_val_t) noexcept
{
    Free(memory);
}
