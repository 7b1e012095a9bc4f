#include "platform/KernelHandle.h"
#include "tests/support/HandleCount.h"

#include <gtest/gtest.h>

static_assert(!std::is_copy_constructible_v<ts::KernelHandle>);
static_assert(std::is_nothrow_move_constructible_v<ts::KernelHandle>);

TEST(KernelHandleTest, Destruction_OfAnOwner_ClosesTheHandle)
{
    const auto newEvent = [] { return CreateEventW(nullptr, FALSE, FALSE, nullptr); };
    const std::size_t before = ts::test::HandleCount();
    {
        ts::KernelHandle event(newEvent());
        ASSERT_NE(nullptr, event);
        EXPECT_EQ(before + 1, ts::test::HandleCount());
        event.reset(newEvent());
        EXPECT_EQ(before + 1, ts::test::HandleCount()) << "one for the other";
        const ts::KernelHandle other = std::move(event);
        EXPECT_EQ(before + 1, ts::test::HandleCount());
    }
    EXPECT_EQ(before, ts::test::HandleCount());
}
