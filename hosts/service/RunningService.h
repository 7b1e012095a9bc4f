#pragma once

#include "platform/WindowsHeaders.h"

namespace ts::service
{

/// The window of the service that runs in this session; null when there is none. Another program may listen
/// with a window of the same class.
[[nodiscard]] HWND FindRunningService() noexcept;

/// Asks the service to end and waits for that. False when it still runs when the time is up.
[[nodiscard]] bool StopService(HWND service, DWORD timeoutMilliseconds);

} // namespace ts::service
