#pragma once

#include "platform/Clock.h"
#include "platform/mfc/atltime.h"

namespace ts::test
{

/// Makes it one and the same time for the library while it lives.
class FixedClock
{
  public:
    explicit FixedClock(CTime now) { Set(now); }
    FixedClock(const FixedClock&) = delete;
    FixedClock& operator=(const FixedClock&) = delete;
    ~FixedClock() { ReplaceClock(nullptr); }

    void Set(CTime now)
    {
        s_now = now.GetTime();
        ReplaceClock([]() noexcept { return s_now; });
    }

  private:
    inline static std::int64_t s_now = 0;
};

} // namespace ts::test
