#pragma once

namespace ts::hosts
{

/// What a program ends with.
enum ExitCode : int
{
    kDone = 0,
    kFailed = 1,
    kWrongUse = 2
};

} // namespace ts::hosts
