#pragma once

#include "platform/WindowsHeaders.h"

#include <string>

namespace ts::gallery
{

/// Saves what a window shows, with its frame, as a PNG file. Throws std::runtime_error when that fails.
void SavePicture(HWND window, const std::wstring& path);

} // namespace ts::gallery
