#pragma once

#include "Alert.h"
#include "WakeTimer.h"
#include "hosts/common/DueWatch.h"
#include "hosts/common/ServiceWindow.h"

#include <memory>
#include <vector>

namespace ts::service
{

/// The title of the service's window, which is never shown.
inline constexpr wchar_t kWindowTitle[] = L"TessalyReminderService";

/// Shows the alert whenever a reminder becomes due, until it is asked to end. One in a process; everything
/// runs on the thread that made it.
///
/// A change of the store is followed within its message, where the alert's own changes may be under way: the
/// collection is loaded again and the alert refreshed, and nothing else. Looking for what has become due,
/// opening the alert and destroying it come later, in the outermost message loop.
class ReminderService
{
  public:
    /// Raises OperationError when the system refuses a window or a timer.
    ReminderService();
    ReminderService(const ReminderService&) = delete;
    ReminderService& operator=(const ReminderService&) = delete;
    /// Closes the alert without dismissing anything and gives Outlook a few seconds for what is queued.
    ~ReminderService();

    /// Works until it is asked to end.
    void Run();

    /// What Run does whenever something happened: handles the messages that wait, destroys an alert that was
    /// closed, and looks for reminders that have become due. False when it was asked to end.
    bool Work();
    /// As when the timer has fired.
    void WakeUp() noexcept { m_mustReload = true; }

    [[nodiscard]] const Alert& GetAlert() const noexcept { return *m_alert; }
    /// When it will look next by itself.
    [[nodiscard]] std::optional<CTime> GetWakeTime() const noexcept { return m_timer.GetTime(); }

  private:
    void Take(hosts::ServiceEvent event);
    void Reload();
    [[nodiscard]] std::vector<CcvReminderData> LoadedReminders() const;
    void HandleMessages();
    void Look();

    WakeTimer m_timer;
    hosts::DueWatch m_watch;
    bool m_mustReload = false;
    bool m_mustLook = true;
    bool m_mustBringToFront = false;
    bool m_ends = false;
    // The window first, so that no change is missed; both others are missing while it is made.
    std::unique_ptr<hosts::ServiceWindow> m_window;
    std::unique_ptr<CcvReminderDataCollectionManager> m_manager;
    std::unique_ptr<Alert> m_alert;
};

} // namespace ts::service
