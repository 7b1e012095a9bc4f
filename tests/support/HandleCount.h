#pragma once

#include <cstddef>

namespace ts::test
{

/// The number of kernel handles that this process holds, counted in the system's own table: the documented
/// GetProcessHandleCount always answers 0 under Wine. Throws std::runtime_error when the table is refused.
[[nodiscard]] std::size_t HandleCount();

} // namespace ts::test
