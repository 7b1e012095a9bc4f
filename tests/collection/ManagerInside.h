#pragma once

#include "collection/CcvReminderDataCollectionManager.h"
#include "collection/OutlookWorker.h"

#include <cstddef>
#include <vector>

namespace ts::test
{

// What the manager and its queue keep to themselves, for tests that look at what the worker is handed.

[[nodiscard]] OutlookCommandQueue* QueueOf(const CcvReminderDataCollectionManager& manager);
[[nodiscard]] CWinThread* WorkerOf(const CcvReminderDataCollectionManager& manager);
[[nodiscard]] int IndexOf(const CcvReminderDataCollectionManager& manager, const CcvReminderData& record);
/// Where the manager keeps its queue, its worker and its reminders, in bytes from its beginning.
[[nodiscard]] std::vector<std::size_t> MemberOffsets();
/// The lock that readers of the queue's running flag wait for.
[[nodiscard]] CCriticalSection& LockOf(const OutlookCommandQueue& queue);

/// While it lives, the manager's worker stays asleep whatever wakes it (up to a hundred times), so that what
/// is queued can be looked at.
class HeldWorker
{
  public:
    explicit HeldWorker(const CcvReminderDataCollectionManager& manager);
    HeldWorker(const HeldWorker&) = delete;
    HeldWorker& operator=(const HeldWorker&) = delete;
    ~HeldWorker();

    /// Takes the oldest command out of the queue; null when it is empty.
    [[nodiscard]] std::unique_ptr<QueuedOutlookCommand> Take() { return m_queue->TakeHead(); }

  private:
    OutlookCommandQueue* m_queue;
    CWinThread* m_worker;
};

} // namespace ts::test
