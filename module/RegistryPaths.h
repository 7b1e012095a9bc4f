#pragma once

/// Where the product keeps its data in the registry.
namespace ts
{

/// Below HKEY_CURRENT_USER: one subkey per reminder. The base path that the persistence members take.
inline constexpr wchar_t kRemindersPath[] = L"Software\\Corvane\\Tessaly\\25\\Current";

/// Below HKEY_CURRENT_USER, and for one option also below HKEY_LOCAL_MACHINE: the options.
inline constexpr wchar_t kSettingsPath[] = L"Software\\Corvane\\Tessaly\\25\\Settings";

} // namespace ts
