#pragma once

#include <cstdint>

namespace ts::bench
{

/// How often this program, the library's objects included, has asked operator new for memory. Any thread.
[[nodiscard]] std::uint64_t AllocationCount() noexcept;

} // namespace ts::bench
