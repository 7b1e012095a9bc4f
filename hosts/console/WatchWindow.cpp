#include "WatchWindow.h"

#include "TsServiceUtilities.h"

#include <utility>

namespace ts::console
{

WatchWindow::WatchWindow()
    : m_behindAnother(FindWindowW(kServiceWindowClass, nullptr) != nullptr),
      m_window(L"reminders watch", [this](hosts::ServiceEvent event) { Take(event); })
{
    if (m_behindAnother)
    {
        m_window.PlaceLast();
    }
}

bool WatchWindow::Wait(HANDLE event, DWORD timeoutMilliseconds)
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

int WatchWindow::TakeChanges() noexcept
{
    return std::exchange(m_changes, 0);
}

void WatchWindow::Take(hosts::ServiceEvent event) noexcept
{
    using enum hosts::ServiceEvent;
    switch (event)
    {
    case StoreChanged:
        // The sender waits, so whoever owns the window works on it later.
        ++m_changes;
        break;
    case CloseRequested:
    case SessionEnds:
        m_closed = true;
        break;
    default:
        // Each message ends the wait for the next due time.
        break;
    }
}

} // namespace ts::console
