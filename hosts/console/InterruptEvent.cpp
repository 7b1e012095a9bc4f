#include "InterruptEvent.h"

#include "Errors.h"

#include <mutex>

namespace ts::console
{
namespace
{

// The system calls the handler on a thread of its own, without anything to tell which event is meant.
std::mutex g_mutex;
HANDLE g_event = nullptr;

BOOL WINAPI SignalInterrupt(DWORD kind) noexcept
{
    if (kind != CTRL_C_EVENT && kind != CTRL_BREAK_EVENT)
    {
        return FALSE;
    }
    const std::lock_guard guard(g_mutex);
    return g_event != nullptr && SetEvent(g_event);
}

void SetTarget(HANDLE event)
{
    const std::lock_guard guard(g_mutex);
    g_event = event;
}

} // namespace

InterruptEvent::InterruptEvent() : m_event(CreateEventW(nullptr, TRUE, FALSE, nullptr))
{
    if (m_event == nullptr || !SetConsoleCtrlHandler(SignalInterrupt, TRUE))
    {
        throw OperationError("cannot wait for Ctrl+C: Windows error " + std::to_string(GetLastError()));
    }
    SetTarget(m_event.get());
}

InterruptEvent::~InterruptEvent()
{
    SetTarget(nullptr);
    SetConsoleCtrlHandler(SignalInterrupt, FALSE);
}

} // namespace ts::console
