#include "platform/ts/CcvTimedBackgroundWaiter.h"

#include <algorithm>

namespace
{

/// Lets messages through that other threads sent, and paints.
void ServeWindows()
{
    MSG message;
    while (PeekMessageW(&message, nullptr, WM_PAINT, WM_PAINT, PM_REMOVE) != FALSE)
    {
        DispatchMessageW(&message);
    }
}

void WaitAtMost(ULONGLONG milliseconds)
{
    const ULONGLONG end = GetTickCount64() + milliseconds;
    for (ULONGLONG now = GetTickCount64(); now < end; now = GetTickCount64())
    {
        const auto rest = static_cast<DWORD>(end - now);
        if (MsgWaitForMultipleObjects(0, nullptr, FALSE, rest, QS_SENDMESSAGE | QS_PAINT) == WAIT_TIMEOUT)
        {
            return;
        }
        ServeWindows();
    }
}

} // namespace

bool CcvTimedBackgroundWaiter::Wait(const std::function<bool()>& done) const
{
    const ULONGLONG end = GetTickCount64() + m_timeout;
    for (;;)
    {
        if (IsWindow(m_window) == FALSE)
        {
            return false;
        }
        if (done && done())
        {
            return true;
        }
        const ULONGLONG now = GetTickCount64();
        if (now >= end)
        {
            return false;
        }
        WaitAtMost(std::min<ULONGLONG>(m_interval, end - now));
    }
}
