#pragma once

#include "platform/WindowsHeaders.h"

namespace ts
{

/// While it lives, windows that the calling thread creates use version 6 of the common controls, with the
/// user's theme, whatever the host's own manifest says. Scopes nest and end in the reverse order. A module
/// without the manifest (resource 2) leaves everything as it is.
class ControlsThemeScope
{
  public:
    ControlsThemeScope() noexcept;
    ControlsThemeScope(const ControlsThemeScope&) = delete;
    ControlsThemeScope& operator=(const ControlsThemeScope&) = delete;
    ~ControlsThemeScope();

    /// Whether the controls of version 6 are there: split buttons exist only then.
    [[nodiscard]] bool IsActive() const noexcept { return m_cookie != 0; }

  private:
    ULONG_PTR m_cookie = 0;
};

} // namespace ts
