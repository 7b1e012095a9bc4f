#pragma once

#include "platform/mfc/CWnd.h"

#include <functional>

/// Waits a limited time for something outside while the thread's windows stay painted and answer messages
/// that are sent to them. Keys and clicks stay in the queue until the wait is over.
class CcvTimedBackgroundWaiter
{
  public:
    /// For as long as `window` exists, up to `timeout` milliseconds; `interval` is how often to look.
    CcvTimedBackgroundWaiter(const CWnd* window, DWORD timeout, DWORD interval) noexcept
        : m_window(window->m_hWnd), m_timeout(timeout), m_interval(interval)
    {
    }

    /// True as soon as `done` says so, false when the time is over or the window is gone. Without `done` it
    /// waits the whole time.
    bool Wait(const std::function<bool()>& done = {}) const;

  private:
    HWND m_window;
    DWORD m_timeout;
    DWORD m_interval;
};
