#pragma once

#include <filesystem>

namespace ts::standin
{

/// Serves other processes until the last object was released, and answers the program's exit code. Ends also
/// when the process `owner` has ended (0: none) or when nothing was called for a long time, because a client
/// that was killed never releases anything. Throws std::runtime_error.
int Serve(const std::filesystem::path& folder, unsigned long owner);

} // namespace ts::standin
