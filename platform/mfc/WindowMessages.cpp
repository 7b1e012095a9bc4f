#include "platform/mfc/CWnd.h"
#include "platform/mfc/WindowMaps.h"
#include "platform/mfc/afxdd_.h"

#include <bit>
#include <utility>

// The way of a message through its window's object.

namespace
{

/// Remembers which message is being handled, for as long as that takes.
class CurrentMessage
{
  public:
    CurrentMessage(ts::WindowMaps& maps, const MSG& message) noexcept
        : m_maps(maps), m_former(std::exchange(maps.m_current, message))
    {
    }
    CurrentMessage(const CurrentMessage&) = delete;
    CurrentMessage& operator=(const CurrentMessage&) = delete;
    ~CurrentMessage() { m_maps.m_current = m_former; }

  private:
    ts::WindowMaps& m_maps;
    MSG m_former;
};

/// Keeps the handlers of a dialog's controls quiet while data is exchanged with them.
class FlagScope
{
  public:
    explicit FlagScope(bool& flag) noexcept : m_flag(flag), m_former(std::exchange(flag, true)) {}
    FlagScope(const FlagScope&) = delete;
    FlagScope& operator=(const FlagScope&) = delete;
    ~FlagScope() { m_flag = m_former; }

  private:
    bool& m_flag;
    bool m_former;
};

} // namespace

LRESULT CALLBACK AfxWndProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam) noexcept
{
    CWnd* object = CWnd::FromHandlePermanent(window);
    if (object == nullptr)
    {
        return ::DefWindowProcW(window, message, wParam, lParam);
    }
    LRESULT result = 0;
    {
        const CurrentMessage current(*ts::WindowMaps::TryOfThisThread(),
                                     {window, message, wParam, lParam, 0, {}});
        try
        {
            result = object->WindowProc(message, wParam, lParam);
        }
        catch (...)
        {
            // The handler may have destroyed the object before it failed.
            object = CWnd::FromHandlePermanent(window);
            result = object == nullptr ? 0 : object->CallFormerProcedure(message, wParam, lParam);
        }
    }
    if (message == WM_NCDESTROY)
    {
        CWnd::EndLink(window);
    }
    return result;
}

void CWnd::EndLink(HWND window)
{
    CWnd* const object = FromHandlePermanent(window);
    if (object != nullptr)
    {
        object->UnsubclassWindow();
        object->PostNcDestroy();
    }
}

void CWnd::PostNcDestroy()
{
}

const MSG* CWnd::GetCurrentMessage() noexcept
{
    static constexpr MSG kNone{};
    const ts::WindowMaps* const maps = ts::WindowMaps::TryOfThisThread();
    return maps == nullptr ? &kNone : &maps->m_current;
}

LRESULT CWnd::Default()
{
    const MSG current = *GetCurrentMessage();
    return DefWindowProc(current.message, current.wParam, current.lParam);
}

LRESULT CWnd::CallFormerProcedure(UINT message, WPARAM wParam, LPARAM lParam) noexcept
{
    return m_formerProcedure == nullptr ? ::DefWindowProcW(m_hWnd, message, wParam, lParam)
                                        : CallWindowProcW(m_formerProcedure, m_hWnd, message, wParam, lParam);
}

LRESULT CWnd::DefWindowProc(UINT message, WPARAM wParam, LPARAM lParam)
{
    return CallFormerProcedure(message, wParam, lParam);
}

LRESULT CWnd::WindowProc(UINT message, WPARAM wParam, LPARAM lParam)
{
    LRESULT result = 0;
    return OnWndMsg(message, wParam, lParam, &result) != FALSE ? result
                                                               : DefWindowProc(message, wParam, lParam);
}

BOOL CWnd::OnWndMsg(UINT message, WPARAM wParam, LPARAM lParam, LRESULT* result)
{
    switch (message)
    {
    case WM_COMMAND:
        *result = 1;
        return OnCommand(wParam, lParam);
    case WM_NOTIFY:
        return lParam != 0 && OnNotify(wParam, lParam, result) != FALSE;
    case WM_DRAWITEM:
        return OnDrawItem(wParam, lParam, result);
    default:
        break;
    }
    AFX_CALL call;
    call.wParam = wParam;
    call.lParam = lParam;
    const BOOL handled = CallHandler(message, 0, 0, call);
    *result = call.result;
    return handled;
}

bool CWnd::IsCommandEnabled(UINT id)
{
    CCmdUI state(id);
    AFX_CALL call;
    call.id = id;
    call.commandUi = &state;
    OnCmdMsg(WM_COMMAND, CN_UPDATE_COMMAND_UI, id, call);
    return state.IsEnabled();
}

BOOL CWnd::OnCommand(WPARAM wParam, LPARAM lParam)
{
    const UINT id = LOWORD(wParam);
    UINT code = HIWORD(wParam);
    auto* const control = std::bit_cast<HWND>(lParam);
    if (control == nullptr)
    {
        // A menu may have been opened before the command became disabled.
        if (!IsCommandEnabled(id))
        {
            return TRUE;
        }
        code = CN_COMMAND;
    }
    else
    {
        LRESULT result = 0;
        if (m_exchangesData || ReflectMessage(control, WM_COMMAND, wParam, lParam, &result) != FALSE)
        {
            return TRUE;
        }
    }
    AFX_CALL call;
    call.wParam = wParam;
    call.lParam = lParam;
    call.id = id;
    return OnCmdMsg(WM_COMMAND, code, id, call);
}

BOOL CWnd::OnNotify(WPARAM wParam, LPARAM lParam, LRESULT* result)
{
    const auto* const notification = std::bit_cast<const NMHDR*>(lParam);
    if (m_exchangesData || ReflectMessage(notification->hwndFrom, WM_NOTIFY, wParam, lParam, result) != FALSE)
    {
        return TRUE;
    }
    AFX_CALL call;
    call.wParam = wParam;
    call.lParam = lParam;
    call.id = static_cast<UINT>(notification->idFrom);
    const BOOL handled = OnCmdMsg(WM_NOTIFY, notification->code, call.id, call);
    *result = call.result;
    return handled;
}

BOOL CWnd::OnDrawItem(WPARAM wParam, LPARAM lParam, LRESULT* result)
{
    const auto* const item = std::bit_cast<const DRAWITEMSTRUCT*>(lParam);
    return item != nullptr && item->CtlType != ODT_MENU &&
           ReflectMessage(item->hwndItem, WM_DRAWITEM, wParam, lParam, result) != FALSE;
}

BOOL CWnd::ReflectMessage(HWND child, UINT message, WPARAM wParam, LPARAM lParam, LRESULT* result)
{
    CWnd* const object = FromHandlePermanent(child);
    return object != nullptr && object->OnChildNotify(message, wParam, lParam, result) != FALSE;
}

BOOL CWnd::OnChildNotify(UINT message, WPARAM wParam, LPARAM lParam, LRESULT* result)
{
    const auto* const notification = std::bit_cast<const NMHDR*>(lParam);
    AFX_CALL call;
    call.wParam = wParam;
    call.lParam = lParam;
    UINT code = 0;
    switch (message)
    {
    case WM_COMMAND:
        code = HIWORD(wParam);
        break;
    case WM_NOTIFY:
        code = notification->code;
        break;
    default:
        return FALSE;
    }
    const BOOL handled = OnCmdMsg(WM_REFLECT_BASE + message, code, 0, call);
    *result = call.result;
    return handled;
}

void CWnd::DoDataExchange(CDataExchange*)
{
}

BOOL CWnd::UpdateData(BOOL saveAndValidate)
{
    CDataExchange exchange(this, saveAndValidate);
    const FlagScope quiet(m_exchangesData);
    try
    {
        DoDataExchange(&exchange);
        return TRUE;
    }
    catch (const CUserException&)
    {
        return FALSE;
    }
}

BOOL CWnd::PreTranslateMessage(MSG*)
{
    return FALSE;
}

BOOL CWnd::WalkPreTranslateTree(HWND stop, MSG* message)
{
    for (HWND window = message->hwnd; window != nullptr; window = ::GetParent(window))
    {
        CWnd* const object = FromHandlePermanent(window);
        if (object != nullptr && object->PreTranslateMessage(message) != FALSE)
        {
            return TRUE;
        }
        if (window == stop)
        {
            break;
        }
    }
    return FALSE;
}

BEGIN_MESSAGE_MAP(CWnd, CCmdTarget)
END_MESSAGE_MAP()

int CWnd::OnCreate(CREATESTRUCTW*)
{
    return static_cast<int>(Default());
}

void CWnd::OnDestroy()
{
    Default();
}

void CWnd::OnClose()
{
    Default();
}

void CWnd::OnPaint()
{
    Default();
}

BOOL CWnd::OnEraseBkgnd(CDC*)
{
    return Default() != 0;
}

void CWnd::OnSize(UINT, int, int)
{
    Default();
}

void CWnd::OnTimer(UINT_PTR)
{
    Default();
}

void CWnd::OnKeyDown(UINT, UINT, UINT)
{
    Default();
}

void CWnd::OnSysKeyDown(UINT, UINT, UINT)
{
    Default();
}

void CWnd::OnChar(UINT, UINT, UINT)
{
    Default();
}

void CWnd::OnLButtonDown(UINT, CPoint)
{
    Default();
}

void CWnd::OnLButtonUp(UINT, CPoint)
{
    Default();
}

void CWnd::OnLButtonDblClk(UINT, CPoint)
{
    Default();
}

BOOL CWnd::OnMouseWheel(UINT, short, CPoint)
{
    return Default() != 0;
}

BOOL CWnd::OnSetCursor(CWnd*, UINT, UINT)
{
    return Default() != 0;
}

void CWnd::OnSetFocus(CWnd*)
{
    Default();
}

void CWnd::OnKillFocus(CWnd*)
{
    Default();
}

UINT CWnd::OnGetDlgCode()
{
    return static_cast<UINT>(Default());
}

void CWnd::OnSysCommand(UINT, LPARAM)
{
    Default();
}

void CWnd::OnSysColorChange()
{
    Default();
}

void CWnd::OnSettingChange(UINT, const wchar_t*)
{
    Default();
}
