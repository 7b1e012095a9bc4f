#pragma once

#include "TsServiceUtilities.h"
#include "platform/KernelHandle.h"

#include <optional>

namespace ts::service
{

/// A timer that fires at a point in time and not after a span: it follows the system's clock when that is
/// set, and what went by while the computer slept counts.
class WakeTimer
{
  public:
    /// Raises OperationError when the system refuses.
    WakeTimer();

    /// Fires at that time, at once when it is past, or never. What was set before is forgotten. Raises
    /// OperationError when the system refuses.
    void Set(std::optional<CTime> time);
    /// What was set last.
    [[nodiscard]] std::optional<CTime> GetTime() const noexcept { return m_time; }

    /// Signalled when the time has come, for one wait. Stays the timer's.
    [[nodiscard]] HANDLE GetHandle() const noexcept { return m_timer.get(); }

    /// The time as the system counts it, in 100 ns since 1601. Times that it cannot count become the
    /// nearest that it can.
    [[nodiscard]] static std::int64_t SystemTimeOf(CTime time) noexcept;

  private:
    KernelHandle m_timer;
    std::optional<CTime> m_time;
};

} // namespace ts::service
