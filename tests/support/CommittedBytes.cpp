#include "tests/support/CommittedBytes.h"

#include "platform/WindowsHeaders.h"

#include <bit>
#include <cstdint>

std::size_t ts::test::CommittedBytes()
{
    std::size_t committed = 0;
    MEMORY_BASIC_INFORMATION region;
    for (std::uintptr_t address = 0;
         VirtualQuery(std::bit_cast<const void*>(address), &region, sizeof region) != 0;
         address = std::bit_cast<std::uintptr_t>(region.BaseAddress) + region.RegionSize)
    {
        committed += region.State == MEM_COMMIT ? region.RegionSize : 0;
    }
    return committed;
}
