#pragma once

#include "hosts/common/ServiceWindow.h"

namespace ts::console
{

/// Hears of changes of the reminders, unless a reminder service runs.
class WatchWindow
{
  public:
    /// Raises OperationError when the system refuses.
    WatchWindow();

    /// Whether there was a service's window before, which is told instead of this one.
    [[nodiscard]] bool IsBehindAnother() const noexcept { return m_behindAnother; }

    /// Waits for a message, for `event`, or until the time is up, and lets what came into the window. False
    /// when the event is signalled or the window was asked to close.
    [[nodiscard]] bool Wait(HANDLE event, DWORD timeoutMilliseconds);

    /// How often the library told of a change since the last call.
    [[nodiscard]] int TakeChanges() noexcept;

  private:
    void Take(hosts::ServiceEvent event) noexcept;

    bool m_behindAnother;
    int m_changes = 0;
    bool m_closed = false;
    hosts::ServiceWindow m_window;
};

} // namespace ts::console
