#pragma once

#include "platform/mfc/CCmdTarget.h"
#include "platform/mfc/afxstr.h"

class CDataExchange;
class CFont;

namespace ts
{
class WindowMaps;
class CreationHook;
} // namespace ts

/// The procedure of every window that an object is attached to.
LRESULT CALLBACK AfxWndProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam) noexcept;

/// A window, or rather the object that stands for one. An object that created its window or was attached to
/// it receives the window's messages; it is known to the window's own thread only. The window may go before
/// the object does, m_hWnd is null then; an object that goes first destroys its window.
///
/// An exception that a handler lets out is stopped: the message gets the answer that it has without handlers.
class TS_API CWnd : public CCmdTarget
{
    DECLARE_DYNAMIC(CWnd)

  public:
    CWnd() noexcept;
    CWnd(const CWnd&) = delete;
    CWnd& operator=(const CWnd&) = delete;
    ~CWnd() override;

    /// The object of a window: the one attached to it, else one that only stands for it and is valid as long
    /// as the window exists, on the calling thread. Null for null.
    [[nodiscard]] static CWnd* FromHandle(HWND window);
    /// The object that is attached to the window on the calling thread, or null.
    [[nodiscard]] static CWnd* FromHandlePermanent(HWND window) noexcept;

    [[nodiscard]] HWND GetSafeHwnd() const noexcept;

    // Links object and window. Each object has one window at most and each window one object.
    BOOL Attach(HWND window);
    HWND Detach() noexcept;
    /// Attaches, and receives the window's messages before its own procedure does.
    BOOL SubclassWindow(HWND window);
    BOOL SubclassDlgItem(UINT id, const CWnd* dialog);
    /// Undoes SubclassWindow; the window lives on.
    HWND UnsubclassWindow();

    /// Called when the window exists and is attached, before its first message.
    virtual void PreSubclassWindow();
    virtual BOOL PreCreateWindow(CREATESTRUCTW& creation);
    /// A child window.
    virtual BOOL Create(const wchar_t* className, const wchar_t* windowName, DWORD style, const RECT& rect,
                        CWnd* parent, UINT id);
    virtual BOOL CreateEx(DWORD extendedStyle, const wchar_t* className, const wchar_t* windowName,
                          DWORD style, const RECT& rect, CWnd* parent, UINT id);
    virtual BOOL DestroyWindow();

    /// Exchanges the values of controls and members; false when a value was refused.
    BOOL UpdateData(BOOL saveAndValidate = TRUE);
    /// Asks this window, then those around it up to `stop`, whether they have a use for a message of the
    /// queue before it is dispatched.
    static BOOL WalkPreTranslateTree(HWND stop, MSG* message);
    virtual BOOL PreTranslateMessage(MSG* message);

    LRESULT SendMessage(UINT message, WPARAM wParam = 0, LPARAM lParam = 0) const
    {
        return ::SendMessageW(m_hWnd, message, wParam, lParam);
    }
    BOOL PostMessage(UINT message, WPARAM wParam = 0, LPARAM lParam = 0) const
    {
        return ::PostMessageW(m_hWnd, message, wParam, lParam);
    }
    /// The message that this thread's innermost window procedure works on; all 0 outside of one.
    [[nodiscard]] static const MSG* GetCurrentMessage() noexcept;

    [[nodiscard]] CWnd* GetParent() const { return FromHandle(::GetParent(m_hWnd)); }
    /// The child of that number, or null.
    [[nodiscard]] CWnd* GetDlgItem(int id) const { return FromHandle(::GetDlgItem(m_hWnd, id)); }
    [[nodiscard]] int GetDlgCtrlID() const { return ::GetDlgCtrlID(m_hWnd); }
    [[nodiscard]] DWORD GetStyle() const;
    [[nodiscard]] DWORD GetExStyle() const;
    /// True when a bit changed. With `positionFlags` the window is told to calculate its frame again.
    BOOL ModifyStyle(DWORD remove, DWORD add, UINT positionFlags = 0);
    BOOL ModifyStyleEx(DWORD remove, DWORD add, UINT positionFlags = 0);

    void GetWindowText(CString& text) const;
    void SetWindowText(const wchar_t* text) { ::SetWindowTextW(m_hWnd, text); }
    /// The window's font, which stays somebody else's; the system font when it has none.
    [[nodiscard]] HFONT GetFont() const;
    /// The font must live as long as the window uses it. Null is the system's font.
    void SetFont(const CFont* font, BOOL redraw = TRUE);
    HICON SetIcon(HICON icon, BOOL big);

    void GetWindowRect(RECT* rect) const { ::GetWindowRect(m_hWnd, rect); }
    void GetClientRect(RECT* rect) const { ::GetClientRect(m_hWnd, rect); }
    void ScreenToClient(RECT* rect) const;
    void ScreenToClient(POINT* point) const { ::ScreenToClient(m_hWnd, point); }
    void ClientToScreen(RECT* rect) const;
    void ClientToScreen(POINT* point) const { ::ClientToScreen(m_hWnd, point); }
    void MoveWindow(const RECT& rect, BOOL repaint = TRUE);
    BOOL SetWindowPos(HWND after, int x, int y, int width, int height, UINT flags)
    {
        return ::SetWindowPos(m_hWnd, after, x, y, width, height, flags);
    }
    /// Centres the window over its owner, or on its monitor without one; the work area is never left.
    void CenterWindow();
    BOOL ShowWindow(int command) { return ::ShowWindow(m_hWnd, command); }
    [[nodiscard]] BOOL IsWindowVisible() const { return ::IsWindowVisible(m_hWnd); }
    [[nodiscard]] BOOL IsIconic() const { return ::IsIconic(m_hWnd); }
    BOOL EnableWindow(BOOL enable = TRUE) { return ::EnableWindow(m_hWnd, enable); }
    [[nodiscard]] BOOL IsWindowEnabled() const { return ::IsWindowEnabled(m_hWnd); }
    /// The window that had the focus before.
    CWnd* SetFocus() { return FromHandle(::SetFocus(m_hWnd)); }
    [[nodiscard]] static CWnd* GetFocus() { return FromHandle(::GetFocus()); }
    BOOL SetForegroundWindow() { return ::SetForegroundWindow(m_hWnd); }

    void Invalidate(BOOL erase = TRUE) { InvalidateRect(nullptr, erase); }
    void InvalidateRect(const RECT* rect, BOOL erase = TRUE) { ::InvalidateRect(m_hWnd, rect, erase); }
    void UpdateWindow() { ::UpdateWindow(m_hWnd); }
    void SetRedraw(BOOL redraw = TRUE) { SendMessage(WM_SETREDRAW, static_cast<WPARAM>(redraw)); }
    BOOL LockWindowUpdate() { return ::LockWindowUpdate(m_hWnd); }
    static void UnlockWindowUpdate() { ::LockWindowUpdate(nullptr); }
    [[nodiscard]] int GetScrollPos(int bar) const { return ::GetScrollPos(m_hWnd, bar); }

    UINT_PTR SetTimer(UINT_PTR id, UINT milliseconds)
    {
        return ::SetTimer(m_hWnd, id, milliseconds, nullptr);
    }
    BOOL KillTimer(UINT_PTR id) { return ::KillTimer(m_hWnd, id); }

    void CheckDlgButton(int id, UINT check) { ::CheckDlgButton(m_hWnd, id, check); }
    [[nodiscard]] UINT IsDlgButtonChecked(int id) const { return ::IsDlgButtonChecked(m_hWnd, id); }
    void SetDlgItemText(int id, const wchar_t* text) { ::SetDlgItemTextW(m_hWnd, id, text); }
    void GetDlgItemText(int id, CString& text) const;

    HWND m_hWnd = nullptr;

  protected:
    /// The answer that the message being handled has without this object.
    LRESULT Default();

    virtual BOOL OnCommand(WPARAM wParam, LPARAM lParam);
    virtual BOOL OnNotify(WPARAM wParam, LPARAM lParam, LRESULT* result);
    virtual void DoDataExchange(CDataExchange* exchange);
    virtual LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam);
    /// False when there is no handler.
    virtual BOOL OnWndMsg(UINT message, WPARAM wParam, LPARAM lParam, LRESULT* result);
    virtual LRESULT DefWindowProc(UINT message, WPARAM wParam, LPARAM lParam);
    /// Called when the window is gone, after its last message; may delete the object.
    virtual void PostNcDestroy();
    /// A message that this control sent to its parent and that the parent hands back first. True when
    /// that settles it.
    virtual BOOL OnChildNotify(UINT message, WPARAM wParam, LPARAM lParam, LRESULT* result);

    // What the entries of message maps call. Each of these passes the message on.
    int OnCreate(CREATESTRUCTW* creation);
    void OnDestroy();
    void OnClose();
    void OnPaint();
    BOOL OnEraseBkgnd(CDC* dc);
    void OnSize(UINT type, int width, int height);
    void OnTimer(UINT_PTR id);
    void OnKeyDown(UINT key, UINT repeats, UINT flags);
    void OnSysKeyDown(UINT key, UINT repeats, UINT flags);
    void OnChar(UINT character, UINT repeats, UINT flags);
    void OnLButtonDown(UINT flags, CPoint point);
    void OnLButtonUp(UINT flags, CPoint point);
    void OnLButtonDblClk(UINT flags, CPoint point);
    BOOL OnMouseWheel(UINT flags, short delta, CPoint point);
    BOOL OnSetCursor(CWnd* window, UINT hitTest, UINT message);
    void OnSetFocus(CWnd* former);
    void OnKillFocus(CWnd* next);
    UINT OnGetDlgCode();
    void OnSysCommand(UINT command, LPARAM lParam);
    void OnSysColorChange();
    void OnSettingChange(UINT action, const wchar_t* section);

    [[nodiscard]] static const AFX_MSGMAP* GetThisMessageMap();
    [[nodiscard]] const AFX_MSGMAP* GetMessageMap() const override;

  private:
    friend class ts::WindowMaps;
    friend class ts::CreationHook;
    friend LRESULT CALLBACK AfxWndProc(HWND, UINT, WPARAM, LPARAM) noexcept;

    /// The window's procedure without this object. Never throws.
    LRESULT CallFormerProcedure(UINT message, WPARAM wParam, LPARAM lParam) noexcept;
    void ReceiveMessages() noexcept;
    static void EndLink(HWND window);
    static BOOL ReflectMessage(HWND child, UINT message, WPARAM wParam, LPARAM lParam, LRESULT* result);
    BOOL OnDrawItem(WPARAM wParam, LPARAM lParam, LRESULT* result);
    [[nodiscard]] bool IsCommandEnabled(UINT id);

    WNDPROC m_formerProcedure = nullptr;
    bool m_borrowed = false;
    bool m_exchangesData = false;
};

/// Shows a message over the thread's active window, with that window's title. The button that ended it.
TS_API int AfxMessageBox(const wchar_t* text, UINT type = MB_OK);
/// The text comes from the resource module.
TS_API int AfxMessageBox(UINT textId, UINT type = MB_OK);
