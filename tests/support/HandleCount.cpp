#include "tests/support/HandleCount.h"

#include "platform/WindowsHeaders.h"

#include <bit>
#include <cstdint>
#include <cstring>
#include <stdexcept>
#include <vector>

namespace
{

/// One handle of the system's table.
struct Entry
{
    std::uint16_t process;
    std::uint16_t traceIndex;
    std::uint8_t type;
    std::uint8_t attributes;
    std::uint16_t value;
    void* object;
    std::uint32_t access;
};

using Query = LONG(WINAPI*)(int, void*, ULONG, ULONG*);

std::vector<std::uint8_t> SystemHandleTable()
{
    constexpr int kHandleInformation = 16;
    constexpr auto kTooSmall = static_cast<LONG>(0xC0000004);
    const auto query =
        std::bit_cast<Query>(GetProcAddress(GetModuleHandleW(L"ntdll.dll"), "NtQuerySystemInformation"));
    std::vector<std::uint8_t> table;
    LONG status = kTooSmall;
    for (std::size_t size = 1 << 18; status == kTooSmall; size *= 2)
    {
        table.resize(size);
        status = query(kHandleInformation, table.data(), static_cast<ULONG>(size), nullptr);
    }
    if (status != 0)
    {
        throw std::runtime_error("the system's handle table cannot be read");
    }
    return table;
}

} // namespace

std::size_t ts::test::HandleCount()
{
    const std::vector<std::uint8_t> table = SystemHandleTable();
    // The table begins with its length, padded to a pointer. It keeps the low half of a process's number.
    std::uint32_t length = 0;
    std::memcpy(&length, table.data(), sizeof length);
    const auto self = static_cast<std::uint16_t>(GetCurrentProcessId());
    std::size_t count = 0;
    for (std::size_t index = 0; index < length; ++index)
    {
        Entry entry;
        std::memcpy(&entry, table.data() + sizeof(void*) + index * sizeof entry, sizeof entry);
        count += entry.process == self ? 1 : 0;
    }
    return count;
}
