#pragma once

#include "platform/WindowsHeaders.h"

namespace ts
{

/// Waits for the object. Meanwhile messages that other threads send to the calling thread's windows are
/// answered; posted ones stay. False when the time is up, or earlier when messages came.
bool WaitLettingMessagesThrough(HANDLE object, DWORD timeoutMilliseconds) noexcept;

} // namespace ts
