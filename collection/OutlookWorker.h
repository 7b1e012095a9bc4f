#pragma once

#include "collection/OutlookCommandQueue.h"
#include "platform/mfc/afxwin.h"

/// The thread that executes queued Outlook commands. It sleeps by suspending itself.
namespace ts
{

/// Executes the commands of a queue (`queue` is an OutlookCommandQueue*) until the queue stops running; then
/// ends with 1. After each command it writes the Outlook identifiers back to the store and tells the host
/// windows. An exception, which no failure of Outlook is, ends it with 0. For a thread of AfxBeginThread.
UINT OutlookWorkerThreadProc(void* queue) noexcept;

/// To be called after each change of the queue: resumes the worker until it is awake. A worker that has ended
/// stays so.
void WakeOutlookWorker(const OutlookCommandQueue& queue, CWinThread& worker) noexcept;

[[nodiscard]] bool HasEnded(const CWinThread& thread) noexcept;

} // namespace ts
