#include "WakeTimer.h"

#include "hosts/common/Errors.h"

#include <algorithm>
#include <limits>
#include <string>

namespace ts::service
{
namespace
{

[[noreturn]] void ThrowNoTimer(DWORD error)
{
    throw hosts::OperationError("cannot wait for the next reminder: Windows error " + std::to_string(error));
}

} // namespace

WakeTimer::WakeTimer() : m_timer(CreateWaitableTimerW(nullptr, FALSE, nullptr))
{
    if (m_timer == nullptr)
    {
        ThrowNoTimer(GetLastError());
    }
}

std::int64_t WakeTimer::SystemTimeOf(CTime time) noexcept
{
    constexpr std::int64_t kTicksPerSecond = 10'000'000;
    constexpr std::int64_t kSecondsFrom1601To1970 = 11'644'473'600;
    constexpr std::int64_t kLastSecond = std::numeric_limits<std::int64_t>::max() / kTicksPerSecond;
    // 0 and below would be a span from now.
    const std::int64_t seconds = CTimeSpan::Add(time.GetTime(), kSecondsFrom1601To1970);
    return std::clamp<std::int64_t>(seconds, 1, kLastSecond) * kTicksPerSecond;
}

void WakeTimer::Set(std::optional<CTime> time)
{
    m_time = time;
    // Not what has fired meanwhile either.
    CancelWaitableTimer(m_timer.get());
    WaitForSingleObject(m_timer.get(), 0);
    if (time)
    {
        LARGE_INTEGER due{};
        due.QuadPart = SystemTimeOf(*time);
        if (SetWaitableTimer(m_timer.get(), &due, 0, nullptr, nullptr, FALSE) == FALSE)
        {
            ThrowNoTimer(GetLastError());
        }
    }
}

} // namespace ts::service
