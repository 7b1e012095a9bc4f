#include "platform/mfc/CMenu.h"

#include "platform/mfc/afxstr.h"

BOOL CMenu::CreatePopupMenu() noexcept
{
    m_hMenu.reset(::CreatePopupMenu());
    return m_hMenu != nullptr;
}

BOOL CMenu::AppendMenu(UINT flags, UINT id, const CString& text) noexcept
{
    return ::AppendMenuW(m_hMenu.get(), flags, id, text);
}

BOOL CMenu::EnableMenuItem(UINT id, bool enabled) noexcept
{
    const UINT state = enabled ? MF_ENABLED : MF_GRAYED;
    return ::EnableMenuItem(m_hMenu.get(), id, MF_BYCOMMAND | state) != -1;
}
