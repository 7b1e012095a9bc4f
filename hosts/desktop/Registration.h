#pragma once

#include <filesystem>

/// What lets COM start this program when another one asks for the application.
namespace ts::desktop
{

/// Enters `program` for the user, or for the machine where COM does not look at the user's entries: it does
/// not for programs with an administrator's rights. May be called again, also after the program was moved.
/// Raises std::runtime_error when that is refused; then as much as was written is taken back.
void Register(const std::filesystem::path& program);

/// Takes back all that Register wrote, for whomever. What another program entered under the same names stays.
/// Nothing to take back is no failure. Raises std::runtime_error.
void Unregister();

} // namespace ts::desktop
