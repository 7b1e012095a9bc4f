#pragma once

namespace ts
{

/// Sends the synchronisation message, to the main window first, and waits until each has answered. The
/// sender's own window is not left out.
void SendSynchronizationMessage();

} // namespace ts
