#pragma once

#include <bit>
#include <cstddef>
#include <type_traits>

namespace ts::test
{

/// The place of a virtual function in the table of its class, counted from 0; -1 for any other function. A
/// destructor takes two places, the second of which is the deleting one.
template <typename Function>
[[nodiscard]] std::ptrdiff_t VirtualSlotOf(Function function) noexcept
{
    static_assert(std::is_member_function_pointer_v<Function>);
    // What the compiler makes of a pointer to a member: one more than the offset in the table, which is even.
    struct Layout
    {
        std::ptrdiff_t offsetPlus1;
        std::ptrdiff_t adjustment;
    };
    const auto layout = std::bit_cast<Layout>(function);
    constexpr auto kSlotSize = static_cast<std::ptrdiff_t>(sizeof(void*));
    return layout.offsetPlus1 % 2 == 0 ? -1 : (layout.offsetPlus1 - 1) / kSlotSize;
}

} // namespace ts::test
