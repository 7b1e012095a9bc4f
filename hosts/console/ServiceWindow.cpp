#include "ServiceWindow.h"

#include "Errors.h"
#include "TsServiceUtilities.h"

#include <ctime>
#include <string>
#include <utility>

namespace ts::console
{
namespace
{

[[noreturn]] void ThrowNoWindow(DWORD error)
{
    throw OperationError("cannot make a window to hear of changes: Windows error " + std::to_string(error));
}

} // namespace

ServiceWindow::ServiceWindow() : m_behindAnother(FindWindowW(kServiceWindowClass, nullptr) != nullptr)
{
    WNDCLASSEXW windowClass{};
    windowClass.cbSize = sizeof windowClass;
    windowClass.lpfnWndProc = Procedure;
    windowClass.hInstance = GetModuleHandleW(nullptr);
    windowClass.lpszClassName = kServiceWindowClass;
    if (RegisterClassExW(&windowClass) == 0)
    {
        ThrowNoWindow(GetLastError());
    }
    m_window = CreateWindowExW(WS_EX_TOOLWINDOW, kServiceWindowClass, L"reminders watch", WS_POPUP, 0, 0, 0,
                               0, nullptr, nullptr, windowClass.hInstance, this);
    if (m_window == nullptr)
    {
        const DWORD error = GetLastError();
        UnregisterClassW(kServiceWindowClass, windowClass.hInstance);
        ThrowNoWindow(error);
    }
    if (m_behindAnother)
    {
        // A new window stands before the others, and would keep the messages from the one that needs them.
        SetWindowPos(m_window, HWND_BOTTOM, 0, 0, 0, 0, SWP_NOACTIVATE | SWP_NOMOVE | SWP_NOSIZE);
    }
}

ServiceWindow::~ServiceWindow()
{
    DestroyWindow(m_window);
    UnregisterClassW(kServiceWindowClass, GetModuleHandleW(nullptr));
}

bool ServiceWindow::Wait(HANDLE event, DWORD timeoutMilliseconds)
{
    if (MsgWaitForMultipleObjects(1, &event, FALSE, timeoutMilliseconds, QS_ALLINPUT) == WAIT_OBJECT_0)
    {
        return false;
    }
    MSG message{};
    while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE))
    {
        m_closed = m_closed || message.message == WM_QUIT;
        DispatchMessageW(&message);
    }
    return !m_closed;
}

int ServiceWindow::TakeChanges() noexcept
{
    return std::exchange(m_changes, 0);
}

LRESULT CALLBACK ServiceWindow::Procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) noexcept
{
    if (message == WM_NCCREATE)
    {
        const auto* const creation = std::bit_cast<const CREATESTRUCTW*>(lParam);
        SetWindowLongPtrW(window, GWLP_USERDATA, std::bit_cast<LONG_PTR>(creation->lpCreateParams));
    }
    else if (message == WM_NCDESTROY)
    {
        SetWindowLongPtrW(window, GWLP_USERDATA, 0);
    }
    auto* const self = std::bit_cast<ServiceWindow*>(GetWindowLongPtrW(window, GWLP_USERDATA));
    if (self != nullptr && self->Take(message, wParam))
    {
        return 0;
    }
    return DefWindowProcW(window, message, wParam, lParam);
}

bool ServiceWindow::Take(UINT message, WPARAM wParam) noexcept
{
    switch (message)
    {
    case kSynchronizationMessage:
        // The sender waits, so whoever owns the window works on it later.
        ++m_changes;
        return true;
    case WM_TIMECHANGE:
        // The zone may be another one now. The message itself ends the wait for the next due time.
        _tzset();
        return true;
    case WM_CLOSE:
        m_closed = true;
        return true;
    case WM_ENDSESSION:
        m_closed = m_closed || wParam != FALSE;
        return true;
    default:
        return false;
    }
}

} // namespace ts::console
