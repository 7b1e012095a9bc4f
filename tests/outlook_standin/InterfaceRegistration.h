#pragma once

#include <filesystem>

namespace ts::standin
{

/// Lets the system marshal Outlook's interfaces between apartments and processes: it needs a type library
/// that says that they are IDispatch. Writes one to the folder and enters it in the machine's registry, which
/// all programs of the prefix share. Throws std::runtime_error; refuses where a real Outlook could be.
void RegisterInterfaces(const std::filesystem::path& folder);
void UnregisterInterfaces() noexcept;

/// Whether this is Wine. On Windows a real Outlook may stand under the class id.
[[nodiscard]] bool IsWine() noexcept;

} // namespace ts::standin
