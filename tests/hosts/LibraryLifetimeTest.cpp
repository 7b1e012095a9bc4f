#include "platform/WindowsHeaders.h"
#include "tests/support/HandleCount.h"
#include "tests/support/ManyRounds.h"

#include <bit>
#include <cstdint>
#include <gtest/gtest.h>

namespace
{

/// Loads a module that uses the library, lets it do so, and unloads both.
void LoadUseUnload()
{
    const HMODULE user = LoadLibraryW(L"hosts_library_user.dll");
    ASSERT_NE(nullptr, user) << GetLastError();
    EXPECT_NE(nullptr, GetModuleHandleW(L"TsServiceUtilities.dll"));
    const auto use = std::bit_cast<bool (*)()>(GetProcAddress(user, "UseLibrary"));
    ASSERT_NE(nullptr, use);
    EXPECT_TRUE(use());
    ASSERT_NE(FALSE, FreeLibrary(user));
    ASSERT_EQ(nullptr, GetModuleHandleW(L"TsServiceUtilities.dll"));
}

/// The bytes of this process's address space that hold something: heaps, stacks, and mapped files.
std::size_t CommittedBytes()
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

} // namespace

TEST(LibraryLifetimeTest, AThousandLoadsAndUnloads_LeaveNothingBehind)
{
    const int rounds = ts::test::WantedRounds(1000);
    for (int warmUp = 0; warmUp < 20; ++warmUp)
    {
        ASSERT_NO_FATAL_FAILURE(LoadUseUnload());
    }
    const std::size_t handles = ts::test::HandleCount();
    const std::size_t committed = CommittedBytes();
    for (int round = 0; round < rounds; ++round)
    {
        ASSERT_NO_FATAL_FAILURE(LoadUseUnload()) << round;
    }
    EXPECT_EQ(handles, ts::test::HandleCount());
    // A language library that stayed mapped would cost 12 KB a round, a slot or a heap block less.
    EXPECT_LT(CommittedBytes(), committed + static_cast<std::size_t>(rounds) * 256);
}
