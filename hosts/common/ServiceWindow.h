#pragma once

#include "platform/WindowsHeaders.h"

#include <functional>

namespace ts::hosts
{

/// What the window of the reminder service hears.
enum class ServiceEvent
{
    StoreChanged,   ///< the library tells of a change; the sender, who may be this thread itself, waits
    TimeChanged,    ///< another clock or time zone, or the computer was asleep
    ShowRequested,  ///< the user has started the service a second time
    CloseRequested, ///< somebody asks it to end
    SessionEnds     ///< the process may end as soon as the event is handled
};

/// Asks the window to show what is due.
inline constexpr UINT kShowDueMessage = WM_USER;

/// A window, never shown, to which the library tells changes of the reminders. Belongs to the thread that
/// made it. One at a time in a process.
class ServiceWindow
{
  public:
    /// Called for each event, within its message. What it raises is stopped there.
    using Handler = std::function<void(ServiceEvent)>;

    /// Raises OperationError when the system refuses.
    ServiceWindow(const wchar_t* title, Handler handler);
    ServiceWindow(const ServiceWindow&) = delete;
    ServiceWindow& operator=(const ServiceWindow&) = delete;
    ~ServiceWindow();

    [[nodiscard]] HWND Get() const noexcept { return m_window; }

    /// Leaves the messages to other windows of the class. A new one stands before them, and only the first
    /// one is told.
    void PlaceLast() noexcept;

  private:
    static LRESULT CALLBACK Procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) noexcept;
    /// Whether the message is one of them.
    bool Take(UINT message, WPARAM wParam);

    Handler m_handler;
    HWND m_window = nullptr;
};

} // namespace ts::hosts
