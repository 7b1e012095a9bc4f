#pragma once

#include "platform/Export.h"
#include "platform/WindowsHeaders.h"

#include <memory>
#include <type_traits>

class CString;

/// Owns a menu.
class CMenu
{
  public:
    BOOL CreatePopupMenu() noexcept;
    BOOL AppendMenu(UINT flags, UINT id, const CString& text) noexcept;
    BOOL EnableMenuItem(UINT id, bool enabled) noexcept;
    [[nodiscard]] HMENU GetSafeHmenu() const noexcept { return m_hMenu.get(); }

  private:
    struct Destroyer
    {
        void operator()(HMENU menu) const noexcept { DestroyMenu(menu); }
    };

    std::unique_ptr<std::remove_pointer_t<HMENU>, Destroyer> m_hMenu;
};
