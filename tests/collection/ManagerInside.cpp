#include "tests/collection/ManagerInside.h"

#include <bit>

namespace ts::test
{
namespace
{

using Manager = CcvReminderDataCollectionManager;

// The explicit instantiation of a template may name private members: the way that the language leaves open.
template <typename Tag, typename Tag::Member member>
struct Opener
{
    friend typename Tag::Member Open(Tag) { return member; }
};

struct QueueTag
{
    using Member = std::unique_ptr<OutlookCommandQueue> Manager::*;
    friend Member Open(QueueTag);
};

struct WorkerTag
{
    using Member = std::unique_ptr<CWinThread> Manager::*;
    friend Member Open(WorkerTag);
};

struct IndexTag
{
    using Member = int (Manager::*)(const CcvReminderData*) const;
    friend Member Open(IndexTag);
};

struct RemindersTag
{
    using Member = CAtlArray<CcvReminderData*> Manager::*;
    friend Member Open(RemindersTag);
};

struct LockTag
{
    using Member = std::unique_ptr<CCriticalSection> OutlookCommandQueue::*;
    friend Member Open(LockTag);
};

template struct Opener<LockTag, &OutlookCommandQueue::m_lock>;
template struct Opener<QueueTag, &Manager::m_outlookQueue>;
template struct Opener<WorkerTag, &Manager::m_workerThread>;
template struct Opener<RemindersTag, &Manager::m_reminders>;
template struct Opener<IndexTag, &Manager::GetReminderIndex>;

} // namespace

OutlookCommandQueue* QueueOf(const Manager& manager)
{
    return (manager.*Open(QueueTag())).get();
}

CWinThread* WorkerOf(const Manager& manager)
{
    return (manager.*Open(WorkerTag())).get();
}

int IndexOf(const Manager& manager, const CcvReminderData& record)
{
    return (manager.*Open(IndexTag()))(&record);
}

std::vector<std::size_t> MemberOffsets()
{
    // A pointer to a data member is its offset.
    return {std::bit_cast<std::size_t>(Open(QueueTag())), std::bit_cast<std::size_t>(Open(WorkerTag())),
            std::bit_cast<std::size_t>(Open(RemindersTag()))};
}

CCriticalSection& LockOf(const OutlookCommandQueue& queue)
{
    return *(queue.*Open(LockTag()));
}

HeldWorker::HeldWorker(const Manager& manager) : m_queue(QueueOf(manager)), m_worker(WorkerOf(manager))
{
    // Only a worker that has suspended itself holds no lock.
    while (m_worker->SuspendThread() == 0)
    {
        m_worker->ResumeThread();
        Sleep(1);
    }
    constexpr int kTimes = 100;
    for (int time = 0; time < kTimes; ++time)
    {
        m_worker->SuspendThread();
    }
}

HeldWorker::~HeldWorker()
{
    while (m_worker->ResumeThread() > 1)
    {
    }
}

} // namespace ts::test
