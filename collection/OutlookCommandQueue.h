#pragma once

#include "platform/KernelHandle.h"
#include "platform/mfc/afxmt.h"
#include "platform/mfc/afxtempl.h"
#include "reminders/CcvReminderData.h"

#include <atomic>
#include <memory>

/// What the collection manager hands to its Outlook worker.
namespace ts
{

enum class OutlookCommandKind : std::uint32_t
{
    Add = 0,
    Modify = 1,
    Remove = 2,
    Dismiss = 3
};

/// One entry of the queue, with a record of its own.
struct QueuedOutlookCommand
{
    std::unique_ptr<CcvReminderData> record;
    OutlookCommandKind kind = OutlookCommandKind::Add;
    CTime previousDueDate; ///< of a Dismiss: the due time from before; else 0
};

/// Commands, first in, first out, and what the host's thread and the worker tell each other about them. Any
/// member may be called on either thread at any time.
class OutlookCommandQueue
{
  public:
    /// Raises the system's error when there is no lock to be had.
    OutlookCommandQueue();
    OutlookCommandQueue(const OutlookCommandQueue&) = delete;
    OutlookCommandQueue& operator=(const OutlookCommandQueue&) = delete;
    /// Frees the commands that are left, unexecuted.
    ~OutlookCommandQueue();

    /// False at first.
    void SetRunning(bool running);
    [[nodiscard]] bool IsRunning();

    void Append(std::unique_ptr<QueuedOutlookCommand> command);
    /// The oldest command; null when there is none or the queue is not running: what was not taken when it
    /// stopped never is.
    [[nodiscard]] std::unique_ptr<QueuedOutlookCommand> TakeHead();

    /// The worker is about to suspend itself. False when it must not, because there is something to do.
    [[nodiscard]] bool BeginSleep();
    /// The worker is awake, or has ended.
    void EndSleep() noexcept;
    [[nodiscard]] bool IsWorkerAsleep() const noexcept { return m_asleep; }

    /// A command that was taken is done with.
    void ReportDone() noexcept;
    /// How many commands are not.
    [[nodiscard]] int GetUnfinishedCount() const noexcept { return m_unfinished; }
    /// Signalled, for one wait, by ReportDone. Belongs to the queue.
    [[nodiscard]] HANDLE GetDoneEvent() const noexcept { return m_done.get(); }

  private:
    std::unique_ptr<CCriticalSection> m_lock;
    std::atomic<bool> m_running = false;
    CList<QueuedOutlookCommand*> m_commands;
    CCriticalSection m_memory; ///< held while the list is touched and while the flag changes
    std::atomic<bool> m_asleep = false;
    std::atomic<int> m_unfinished = 0;
    KernelHandle m_done;
};

} // namespace ts
