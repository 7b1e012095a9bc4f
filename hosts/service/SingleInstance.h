#pragma once

#include "platform/KernelHandle.h"

/// One service in a user's session.
namespace ts::service
{

/// The right to be the service. It goes with its owner, also when that one is killed.
class SingleInstance
{
  public:
    /// Raises OperationError when the system refuses.
    SingleInstance();
    SingleInstance(const SingleInstance&) = delete;
    SingleInstance& operator=(const SingleInstance&) = delete;
    ~SingleInstance();

    /// Waits for it. False when the time is up and another process still has it.
    [[nodiscard]] bool Acquire(DWORD timeoutMilliseconds);

  private:
    KernelHandle m_mutex;
    bool m_isOwner = false;
};

/// The window of the service that runs in this session; null when there is none. Another program may listen
/// with a window of the same class.
[[nodiscard]] HWND FindRunningService() noexcept;

/// Asks the service to show what is due, in front.
void AskToShow(HWND service) noexcept;

/// Asks the service to end and waits for that. False when it still runs when the time is up.
[[nodiscard]] bool StopService(HWND service, DWORD timeoutMilliseconds);

} // namespace ts::service
