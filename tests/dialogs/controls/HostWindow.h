#pragma once

#include "platform/mfc/afxwin.h"

#include <array>

namespace ts::test
{

/// A visible dialog-like window that controls can be put into and that stands for their dialog.
class HostWindow : public CWnd
{
  public:
    explicit HostWindow(DWORD style = WS_OVERLAPPEDWINDOW | WS_VISIBLE)
    {
        CreateEx(WS_EX_CONTROLPARENT, L"#32770", L"Host", style, CRect(20, 20, 420, 320), nullptr, 0);
    }

    /// A plain control of the system's.
    HWND Add(const wchar_t* windowClass, const wchar_t* text, DWORD style, const RECT& rect, int id,
             DWORD extendedStyle = 0)
    {
        const HWND control = CreateWindowExW(extendedStyle, windowClass, text, WS_CHILD | WS_VISIBLE | style,
                                             rect.left, rect.top, rect.right - rect.left,
                                             rect.bottom - rect.top, m_hWnd, nullptr, nullptr, nullptr);
        SetWindowLongPtrW(control, GWLP_ID, id);
        return control;
    }

    /// How many notifications of that code got through from controls.
    [[nodiscard]] int Notifications(UINT code) const
    {
        return code < m_notifications.size() ? m_notifications[code] : 0;
    }

  protected:
    BOOL OnCommand(WPARAM wParam, LPARAM lParam) override
    {
        const BOOL handled = CWnd::OnCommand(wParam, lParam);
        if (handled == FALSE && lParam != 0 && HIWORD(wParam) < m_notifications.size())
        {
            ++m_notifications[HIWORD(wParam)];
        }
        return handled;
    }

  private:
    std::array<int, 0x1000> m_notifications{};
};

} // namespace ts::test
