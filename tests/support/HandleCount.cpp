#include "tests/support/HandleCount.h"

#include "platform/WindowsHeaders.h"

#include <bit>
#include <cstdint>

namespace
{

bool IsOpen(std::uintptr_t value)
{
    DWORD flags = 0;
    return GetHandleInformation(std::bit_cast<HANDLE>(value), &flags) != 0;
}

} // namespace

std::size_t ts::test::HandleCount()
{
    DWORD documented = 0;
    if (GetProcessHandleCount(GetCurrentProcess(), &documented) != 0 && documented != 0)
    {
        return documented;
    }
    // Handles are multiples of 4, and a new one takes the lowest free value, so gaps are small.
    constexpr std::uintptr_t kStep = 4;
    constexpr std::uintptr_t kLargestGap = 256 * kStep;
    std::size_t count = 0;
    std::uintptr_t last = 0;
    for (std::uintptr_t value = kStep; value <= last + kLargestGap; value += kStep)
    {
        if (IsOpen(value))
        {
            ++count;
            last = value;
        }
    }
    return count;
}
