#pragma once

#include "platform/WindowsHeaders.h"

/// The names under which COM knows the application.
namespace ts::desktop
{

inline constexpr wchar_t kProgId[] = L"Tessaly.Application.25";

// {8C0F6B52-4D1A-4E7C-9B36-5A1D2E8F7043}
inline constexpr CLSID kApplicationClass = {
    0x8C0F6B52, 0x4D1A, 0x4E7C, {0x9B, 0x36, 0x5A, 0x1D, 0x2E, 0x8F, 0x70, 0x43}};
inline constexpr wchar_t kApplicationClassText[] = L"{8C0F6B52-4D1A-4E7C-9B36-5A1D2E8F7043}";

/// Derived from IDispatch, without methods of its own: "Visible" and "Quit" are reached by name.
inline constexpr IID kApplicationInterface = {
    0x37C44481, 0x6D32, 0x48F8, {0x90, 0x53, 0x2D, 0xBB, 0x42, 0x4C, 0xEA, 0x41}};
inline constexpr wchar_t kApplicationInterfaceText[] = L"{37C44481-6D32-48F8-9053-2DBB424CEA41}";
inline constexpr wchar_t kApplicationInterfaceName[] = L"ITessalyApplication";

// {E2B7A4D9-63F5-4C18-A0E4-17C95D3B8F26}
inline constexpr GUID kTypeLibrary = {
    0xE2B7A4D9, 0x63F5, 0x4C18, {0xA0, 0xE4, 0x17, 0xC9, 0x5D, 0x3B, 0x8F, 0x26}};
inline constexpr wchar_t kTypeLibraryText[] = L"{E2B7A4D9-63F5-4C18-A0E4-17C95D3B8F26}";

} // namespace ts::desktop
