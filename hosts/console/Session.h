#pragma once

#include <cstddef>
#include <ostream>

namespace ts::console
{

/// Where a command writes: UTF-8, and the columns of the terminal.
struct Session
{
    std::ostream& out;
    std::size_t width;
};

} // namespace ts::console
