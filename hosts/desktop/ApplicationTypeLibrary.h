#pragma once

#include <filesystem>

namespace ts::desktop
{

/// Where the type library of the application's interface stands, among the user's own files. Raises
/// std::runtime_error when the system does not say where those are.
[[nodiscard]] std::filesystem::path TypeLibraryFile();

/// Writes the type library, which says no more than that the interface is IDispatch. Raises
/// std::runtime_error.
void WriteTypeLibrary(const std::filesystem::path& file);

} // namespace ts::desktop
