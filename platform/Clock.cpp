#include "platform/Clock.h"

#include <atomic>
#include <ctime>

namespace ts
{
namespace
{

std::int64_t SystemNow() noexcept
{
    return _time64(nullptr);
}

std::atomic<ClockFunction> g_clock = SystemNow;

} // namespace

std::int64_t Now() noexcept
{
    return g_clock.load(std::memory_order_relaxed)();
}

void ReplaceClock(ClockFunction clock) noexcept
{
    g_clock.store(clock == nullptr ? SystemNow : clock, std::memory_order_relaxed);
}

} // namespace ts
