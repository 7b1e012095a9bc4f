#pragma once

#include <cstddef>

namespace ts::test
{

/// The number of kernel handles that this process holds. The documented GetProcessHandleCount always answers
/// 0 under Wine, and a look into the system's table of handles may crash Wine's server, so there they are
/// tried one by one, which takes some 20 ms.
[[nodiscard]] std::size_t HandleCount();

} // namespace ts::test
