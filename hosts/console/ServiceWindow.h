#pragma once

#include "platform/WindowsHeaders.h"

namespace ts::console
{

/// A window, never shown, to which the library tells changes of the reminders. Belongs to the thread that
/// made it. One at a time in a process.
class ServiceWindow
{
  public:
    /// Raises OperationError when the system refuses.
    ServiceWindow();
    ServiceWindow(const ServiceWindow&) = delete;
    ServiceWindow& operator=(const ServiceWindow&) = delete;
    ~ServiceWindow();

    /// Whether there was such a window before. Only the first one is told; this one stays behind the others.
    [[nodiscard]] bool IsBehindAnother() const noexcept { return m_behindAnother; }

    /// Waits for a message, for `event`, or until the time is up, and lets what came into the window. False
    /// when the event is signalled or the window was asked to close.
    [[nodiscard]] bool Wait(HANDLE event, DWORD timeoutMilliseconds);

    /// How often the library told of a change since the last call.
    [[nodiscard]] int TakeChanges() noexcept;

  private:
    static LRESULT CALLBACK Procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) noexcept;
    /// Whether the message is answered.
    bool Take(UINT message, WPARAM wParam) noexcept;

    HWND m_window = nullptr;
    bool m_behindAnother;
    int m_changes = 0;
    bool m_closed = false;
};

} // namespace ts::console
