#include "collection/OutlookCommandQueue.h"

#include "platform/mfc/atlexcept.h"

// Two locks: m_lock belongs to the readers of the running flag, who wait for it. Every other member only
// names it, unlocked, so that nobody who appends or takes ever waits for a reader. m_memory is held for the
// few instructions that touch the list, and keeps it whole.

namespace ts
{

OutlookCommandQueue::OutlookCommandQueue()
    : m_lock(std::make_unique<CCriticalSection>()), m_done(CreateEventW(nullptr, FALSE, FALSE, nullptr))
{
    if (m_done == nullptr)
    {
        AtlThrow(HRESULT_FROM_WIN32(GetLastError()));
    }
}

OutlookCommandQueue::~OutlookCommandQueue()
{
    m_lock.reset();
    while (!m_commands.IsEmpty())
    {
        const std::unique_ptr<QueuedOutlookCommand> discarded(m_commands.RemoveHead());
    }
}

void OutlookCommandQueue::SetRunning(bool running)
{
    const CSingleLock guard(m_lock.get(), FALSE);
    const CSingleLock memory(&m_memory, TRUE);
    m_running = running;
}

bool OutlookCommandQueue::IsRunning()
{
    CSingleLock guard(m_lock.get(), FALSE);
    guard.Lock();
    return m_running;
}

void OutlookCommandQueue::Append(std::unique_ptr<QueuedOutlookCommand> command)
{
    const CSingleLock guard(m_lock.get(), FALSE);
    const CSingleLock memory(&m_memory, TRUE);
    m_commands.AddTail(command.get());
    static_cast<void>(command.release());
    ++m_unfinished;
}

std::unique_ptr<QueuedOutlookCommand> OutlookCommandQueue::TakeHead()
{
    const CSingleLock guard(m_lock.get(), FALSE);
    const CSingleLock memory(&m_memory, TRUE);
    if (!m_running || m_commands.IsEmpty())
    {
        return nullptr;
    }
    return std::unique_ptr<QueuedOutlookCommand>(m_commands.RemoveHead());
}

bool OutlookCommandQueue::BeginSleep()
{
    m_asleep = true;
    const CSingleLock memory(&m_memory, TRUE);
    // Whoever appends after this look finds the worker asleep, and wakes it.
    if (m_running && m_commands.IsEmpty())
    {
        return true;
    }
    m_asleep = false;
    return false;
}

void OutlookCommandQueue::EndSleep() noexcept
{
    m_asleep = false;
}

void OutlookCommandQueue::ReportDone() noexcept
{
    --m_unfinished;
    SetEvent(m_done.get());
}

} // namespace ts
