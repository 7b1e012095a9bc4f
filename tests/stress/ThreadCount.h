#pragma once

#include <cstddef>

namespace ts::test
{

/// The number of threads of this process.
[[nodiscard]] std::size_t ThreadCount();

} // namespace ts::test
