#pragma once

#include "platform/Export.h"
#include "platform/WindowsHeaders.h"

class CWnd;

/// What the maker's windows have in common.
class TS_API CBCGPGlobalUtils
{
  public:
    static constexpr int kSmallIcon = 0;
    static constexpr int kLargeIcon = 1;

    /// One of the system's own icons, such as IDI_EXCLAMATION, as large as they are on the window's desktop.
    /// It stays the system's; null when there is none.
    [[nodiscard]] HICON GetCommonIcon(const CWnd& window, const wchar_t* name, int size) const noexcept;
};

inline constexpr CBCGPGlobalUtils globalUtils;
