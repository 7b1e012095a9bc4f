#pragma once

#include "TsServiceUtilities.h"

#include <cstddef>
#include <ostream>

namespace ts::console
{

/// How long a command waits at its end for Outlook.
inline constexpr CTimeSpan kOutlookPatience(30);

/// Whether the user can see windows. A window station without a screen lets programs make windows all the
/// same, which would wait for ever for somebody to close them.
[[nodiscard]] bool HasDisplay();

/// Where a command writes: UTF-8, and the columns of the terminal.
struct Session
{
    std::ostream& out;
    /// Lines for the user beside the output. The reason of a failure is written by Run.
    std::ostream& err;
    std::size_t width;
    CTimeSpan outlookPatience = kOutlookPatience;
    bool (*hasDisplay)() = HasDisplay;
};

} // namespace ts::console
