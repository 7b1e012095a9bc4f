#include "platform/ts/CcvSplitMenuButton.h"

#include "platform/ControlsTheme.h"
#include "platform/mfc/CMenu.h"

#include <bit>
#include <commctrl.h>

IMPLEMENT_DYNAMIC(CcvSplitMenuButton, CButton)

BEGIN_MESSAGE_MAP(CcvSplitMenuButton, CButton)
ON_NOTIFY_REFLECT(BCN_DROPDOWN, OnDropDown)
ON_WM_KEYDOWN()
ON_WM_GETDLGCODE()
END_MESSAGE_MAP()

BOOL CcvSplitMenuButton::Create(const wchar_t* caption, DWORD style, const RECT& rect, CWnd* parent, UINT id)
{
    // Without the controls that know split buttons it is a push button, whose menu the Down key still opens.
    const ts::ControlsThemeScope theme;
    const DWORD split = theme.IsActive() ? BS_SPLITBUTTON : 0;
    return CButton::Create(caption, style | split, rect, parent, id);
}

void CcvSplitMenuButton::AddMenuItem(UINT id, const CString& text, UINT flags)
{
    m_items.push_back({id, text, flags});
}

void CcvSplitMenuButton::OnDropDown(NMHDR*, LRESULT*)
{
    ShowMenu();
}

void CcvSplitMenuButton::OnKeyDown(UINT key, UINT repeats, UINT flags)
{
    if (key == VK_DOWN)
    {
        ShowMenu();
    }
    else
    {
        CButton::OnKeyDown(key, repeats, flags);
    }
}

UINT CcvSplitMenuButton::OnGetDlgCode()
{
    const UINT code = CButton::OnGetDlgCode();
    // The dialog would take the Down key for a step to the next control.
    const auto* const message = std::bit_cast<const MSG*>(GetCurrentMessage()->lParam);
    const bool isDown = message != nullptr && message->message == WM_KEYDOWN && message->wParam == VK_DOWN;
    return isDown ? code | DLGC_WANTMESSAGE : code;
}

UINT CcvSplitMenuButton::Choose() const
{
    CMenu menu;
    menu.CreatePopupMenu();
    for (const Item& item : m_items)
    {
        CCmdUI state(item.id);
        AFX_CALL call;
        call.id = item.id;
        call.commandUi = &state;
        GetParent()->OnCmdMsg(WM_COMMAND, CN_UPDATE_COMMAND_UI, item.id, call);
        menu.AppendMenu(item.flags | (state.IsEnabled() ? MF_ENABLED : MF_GRAYED), item.id, item.text);
    }
    TPMPARAMS around{};
    around.cbSize = sizeof around;
    GetWindowRect(&around.rcExclude);
    constexpr UINT kFlags = TPM_RETURNCMD | TPM_NONOTIFY | TPM_VERTICAL;
    const BOOL chosen = TrackPopupMenuEx(menu.GetSafeHmenu(), kFlags, around.rcExclude.left,
                                         around.rcExclude.bottom, m_hWnd, &around);
    return static_cast<UINT>(chosen);
}

void CcvSplitMenuButton::ShowMenu()
{
    const HWND button = m_hWnd;
    const HWND parent = ::GetParent(button);
    SendMessage(BCM_SETDROPDOWNSTATE, TRUE);
    const UINT chosen = Choose();
    // While the menu was open the dialog may have been closed, and this object destroyed.
    if (IsWindow(button) != FALSE)
    {
        ::SendMessageW(button, BCM_SETDROPDOWNSTATE, FALSE, 0);
        if (chosen != 0)
        {
            ::SendMessageW(parent, WM_COMMAND, MAKEWPARAM(chosen, 0), 0);
        }
    }
}
