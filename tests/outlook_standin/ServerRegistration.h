#pragma once

#include "tests/outlook_standin/InterfaceRegistration.h"

#include <filesystem>

namespace ts::standin
{

/// Enters the program `server` in the machine's registry under Outlook's class id, so that activation starts
/// it with its calendar in `folder`. It ends at the latest when the process `owner` has ended; 0 for none.
/// Throws std::runtime_error, without having changed anything when this is not Wine.
void RegisterServer(const std::filesystem::path& server, const std::filesystem::path& folder,
                    unsigned long owner, bool isWine = IsWine());

/// Throws std::runtime_error when this is not Wine. What is not registered is no error.
void UnregisterServer(bool isWine = IsWine());

} // namespace ts::standin
