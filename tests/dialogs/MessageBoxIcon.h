#pragma once

#include "platform/WindowsHeaders.h"

#include <bit>

namespace ts::test
{

/// The icon that a message box shows; null when it shows none.
[[nodiscard]] inline HICON IconOfMessageBox(HWND box)
{
    for (HWND child = GetWindow(box, GW_CHILD); child != nullptr; child = GetWindow(child, GW_HWNDNEXT))
    {
        const LRESULT icon = SendMessageW(child, STM_GETICON, 0, 0);
        if (IsWindowVisible(child) != FALSE && icon != 0)
        {
            return std::bit_cast<HICON>(icon);
        }
    }
    return nullptr;
}

/// That of warnings and of questions with an effect.
[[nodiscard]] inline HICON ExclamationIcon()
{
    return LoadIconW(nullptr, IDI_EXCLAMATION);
}

} // namespace ts::test
