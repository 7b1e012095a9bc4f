#include "platform/mfc/CWnd.h"

#include "platform/ControlsTheme.h"
#include "platform/mfc/CGdiObject.h"
#include "platform/mfc/CWinApp.h"
#include "platform/mfc/CreationHook.h"
#include "platform/mfc/WindowMaps.h"

#include <algorithm>
#include <bit>
#include <vector>

// The link between window and object, the creation of windows, and what asks or changes a window.

IMPLEMENT_DYNAMIC(CWnd, CCmdTarget)

CWnd::CWnd() noexcept = default;

CWnd::~CWnd()
{
    if (m_hWnd != nullptr && !m_borrowed)
    {
        CWnd::DestroyWindow();
    }
}

CWnd* CWnd::FromHandle(HWND window)
{
    if (window == nullptr)
    {
        return nullptr;
    }
    ts::WindowMaps& maps = ts::WindowMaps::OfThisThread();
    CWnd* const permanent = maps.FindPermanent(window);
    return permanent != nullptr ? permanent : maps.Temporary(window);
}

CWnd* CWnd::FromHandlePermanent(HWND window) noexcept
{
    const ts::WindowMaps* const maps = ts::WindowMaps::TryOfThisThread();
    return maps == nullptr ? nullptr : maps->FindPermanent(window);
}

CWnd* ts::message::WindowOf(WPARAM handle)
{
    return CWnd::FromHandle(std::bit_cast<HWND>(handle));
}

HWND CWnd::GetSafeHwnd() const noexcept
{
    return m_hWnd;
}

BOOL CWnd::Attach(HWND window)
{
    if (window == nullptr || m_hWnd != nullptr || FromHandlePermanent(window) != nullptr)
    {
        return FALSE;
    }
    ts::WindowMaps::OfThisThread().AddPermanent(window, *this);
    m_hWnd = window;
    return TRUE;
}

HWND CWnd::Detach() noexcept
{
    ts::WindowMaps* const maps = ts::WindowMaps::TryOfThisThread();
    if (maps != nullptr && m_hWnd != nullptr)
    {
        maps->RemovePermanent(m_hWnd);
    }
    m_formerProcedure = nullptr;
    return std::exchange(m_hWnd, nullptr);
}

void CWnd::ReceiveMessages() noexcept
{
    const LONG_PTR former = SetWindowLongPtrW(m_hWnd, GWLP_WNDPROC, std::bit_cast<LONG_PTR>(&AfxWndProc));
    m_formerProcedure = std::bit_cast<WNDPROC>(former);
}

BOOL CWnd::SubclassWindow(HWND window)
{
    if (Attach(window) == FALSE)
    {
        return FALSE;
    }
    PreSubclassWindow();
    ReceiveMessages();
    return TRUE;
}

BOOL CWnd::SubclassDlgItem(UINT id, const CWnd* dialog)
{
    return SubclassWindow(::GetDlgItem(dialog->m_hWnd, static_cast<int>(id)));
}

HWND CWnd::UnsubclassWindow()
{
    // Whoever came after us stays in place.
    if (m_formerProcedure != nullptr &&
        GetWindowLongPtrW(m_hWnd, GWLP_WNDPROC) == std::bit_cast<LONG_PTR>(&AfxWndProc))
    {
        SetWindowLongPtrW(m_hWnd, GWLP_WNDPROC, std::bit_cast<LONG_PTR>(m_formerProcedure));
    }
    return Detach();
}

void CWnd::PreSubclassWindow()
{
}

BOOL CWnd::PreCreateWindow(CREATESTRUCTW&)
{
    return TRUE;
}

BOOL CWnd::Create(const wchar_t* className, const wchar_t* windowName, DWORD style, const RECT& rect,
                  CWnd* parent, UINT id)
{
    return CreateEx(0, className, windowName, style | WS_CHILD, rect, parent, id);
}

BOOL CWnd::CreateEx(DWORD extendedStyle, const wchar_t* className, const wchar_t* windowName, DWORD style,
                    const RECT& rect, CWnd* parent, UINT id)
{
    CREATESTRUCTW creation{};
    creation.dwExStyle = extendedStyle;
    creation.lpszClass = className;
    creation.lpszName = windowName;
    creation.style = static_cast<LONG>(style);
    creation.x = rect.left;
    creation.y = rect.top;
    creation.cx = rect.right - rect.left;
    creation.cy = rect.bottom - rect.top;
    creation.hwndParent = parent == nullptr ? nullptr : parent->m_hWnd;
    creation.hMenu = std::bit_cast<HMENU>(UINT_PTR{id});
    creation.hInstance = AfxGetInstanceHandle();
    if (m_hWnd != nullptr || PreCreateWindow(creation) == FALSE)
    {
        return FALSE;
    }
    const ts::ControlsThemeScope theme;
    const ts::CreationHook hook(*this);
    return hook.IsInstalled() &&
           CreateWindowExW(creation.dwExStyle, creation.lpszClass, creation.lpszName,
                           static_cast<DWORD>(creation.style), creation.x, creation.y, creation.cx,
                           creation.cy, creation.hwndParent, creation.hMenu, creation.hInstance,
                           creation.lpCreateParams) != nullptr;
}

BOOL CWnd::DestroyWindow()
{
    if (m_hWnd == nullptr)
    {
        return FALSE;
    }
    const HWND window = m_hWnd;
    const BOOL destroyed = ::DestroyWindow(window);
    // A window that was attached only says nothing of its end. The object may be gone by now: ask the map.
    CWnd* const left = FromHandlePermanent(window);
    if (left != nullptr && IsWindow(window) == FALSE)
    {
        left->Detach();
    }
    return destroyed;
}

DWORD CWnd::GetStyle() const
{
    return static_cast<DWORD>(GetWindowLongPtrW(m_hWnd, GWL_STYLE));
}

DWORD CWnd::GetExStyle() const
{
    return static_cast<DWORD>(GetWindowLongPtrW(m_hWnd, GWL_EXSTYLE));
}

namespace
{

BOOL ModifyBits(HWND window, int index, DWORD remove, DWORD add, UINT positionFlags)
{
    const auto bits = static_cast<DWORD>(GetWindowLongPtrW(window, index));
    const DWORD changed = (bits & ~remove) | add;
    if (bits == changed)
    {
        return FALSE;
    }
    SetWindowLongPtrW(window, index, static_cast<LONG_PTR>(changed));
    if (positionFlags != 0)
    {
        constexpr UINT kNothingElse = SWP_NOSIZE | SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE;
        SetWindowPos(window, nullptr, 0, 0, 0, 0, kNothingElse | positionFlags);
    }
    return TRUE;
}

CString TextOf(HWND window)
{
    // Asked of the window itself, also where it belongs to another process.
    const auto length = static_cast<std::size_t>(::SendMessageW(window, WM_GETTEXTLENGTH, 0, 0));
    std::vector<wchar_t> text(length + 1);
    const LRESULT copied =
        ::SendMessageW(window, WM_GETTEXT, text.size(), std::bit_cast<LPARAM>(text.data()));
    return {text.data(), static_cast<int>(copied)};
}

/// `start` moved so that `size` from there lies within [low, high), if it can.
int Within(int start, int size, int low, int high)
{
    return std::max(low, std::min(start, high - size));
}

} // namespace

BOOL CWnd::ModifyStyle(DWORD remove, DWORD add, UINT positionFlags)
{
    return ModifyBits(m_hWnd, GWL_STYLE, remove, add, positionFlags);
}

BOOL CWnd::ModifyStyleEx(DWORD remove, DWORD add, UINT positionFlags)
{
    return ModifyBits(m_hWnd, GWL_EXSTYLE, remove, add, positionFlags);
}

void CWnd::GetWindowText(CString& text) const
{
    text = TextOf(m_hWnd);
}

void CWnd::GetDlgItemText(int id, CString& text) const
{
    text = TextOf(::GetDlgItem(m_hWnd, id));
}

HFONT CWnd::GetFont() const
{
    auto* const font = std::bit_cast<HFONT>(SendMessage(WM_GETFONT));
    return font != nullptr ? font : static_cast<HFONT>(GetStockObject(SYSTEM_FONT));
}

void CWnd::SetFont(const CFont* font, BOOL redraw)
{
    const HFONT handle = font == nullptr ? nullptr : font->GetHandle();
    SendMessage(WM_SETFONT, std::bit_cast<WPARAM>(handle), redraw);
}

HICON CWnd::SetIcon(HICON icon, BOOL big)
{
    const WPARAM size = big != FALSE ? ICON_BIG : ICON_SMALL;
    return std::bit_cast<HICON>(SendMessage(WM_SETICON, size, std::bit_cast<LPARAM>(icon)));
}

void CWnd::ScreenToClient(RECT* rect) const
{
    // Both corners in one call, which also knows of mirrored windows.
    MapWindowPoints(HWND_DESKTOP, m_hWnd, std::bit_cast<POINT*>(rect), 2);
}

void CWnd::ClientToScreen(RECT* rect) const
{
    MapWindowPoints(m_hWnd, HWND_DESKTOP, std::bit_cast<POINT*>(rect), 2);
}

void CWnd::MoveWindow(const RECT& rect, BOOL repaint)
{
    ::MoveWindow(m_hWnd, rect.left, rect.top, rect.right - rect.left, rect.bottom - rect.top, repaint);
}

void CWnd::CenterWindow()
{
    HWND owner = GetWindow(m_hWnd, GW_OWNER);
    if (owner != nullptr && (::IsWindowVisible(owner) == FALSE || ::IsIconic(owner) != FALSE))
    {
        owner = nullptr;
    }
    MONITORINFO monitor{};
    monitor.cbSize = sizeof monitor;
    GetMonitorInfoW(MonitorFromWindow(owner != nullptr ? owner : m_hWnd, MONITOR_DEFAULTTONEAREST), &monitor);
    const CRect area = monitor.rcWork;
    CRect around = area;
    if (owner != nullptr)
    {
        ::GetWindowRect(owner, around);
    }
    CRect own;
    GetWindowRect(own);
    const CPoint centre = around.CenterPoint();
    const int x = Within(centre.x - own.Width() / 2, own.Width(), area.left, area.right);
    const int y = Within(centre.y - own.Height() / 2, own.Height(), area.top, area.bottom);
    SetWindowPos(nullptr, x, y, 0, 0, SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE);
}
