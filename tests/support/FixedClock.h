#pragma once

#include "platform/Clock.h"
#include "platform/mfc/atltime.h"

#include <atomic>

namespace ts::test
{

/// Makes the library's clock stand still while it lives. One at a time.
class FixedClock
{
  public:
    explicit FixedClock(CTime now) noexcept
    {
        Set(now);
        ReplaceClock(Answer);
    }
    FixedClock(const FixedClock&) = delete;
    FixedClock& operator=(const FixedClock&) = delete;
    ~FixedClock() { ReplaceClock(nullptr); }

    void Set(CTime now) noexcept { s_now = now.GetTime(); }

  private:
    static std::int64_t Answer() noexcept { return s_now; }

    static inline std::atomic<std::int64_t> s_now{0};
};

} // namespace ts::test
