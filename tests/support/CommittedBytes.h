#pragma once

#include <cstddef>

namespace ts::test
{

/// The bytes of this process's address space that hold something: heaps, stacks, and mapped files.
[[nodiscard]] std::size_t CommittedBytes();

} // namespace ts::test
