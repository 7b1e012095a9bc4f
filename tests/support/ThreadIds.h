#pragma once

#include "platform/WindowsHeaders.h"

#include <cstddef>
#include <vector>

namespace ts::test
{

/// The ids of the threads of this process.
[[nodiscard]] std::vector<DWORD> ThreadIds();

[[nodiscard]] inline std::size_t ThreadCount()
{
    return ThreadIds().size();
}

} // namespace ts::test
