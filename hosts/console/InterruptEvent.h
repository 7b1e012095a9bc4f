#pragma once

#include "platform/KernelHandle.h"

namespace ts::console
{

/// While it lives, Ctrl+C and Ctrl+Break do not end the process but signal an event. One at a time.
class InterruptEvent
{
  public:
    /// Raises OperationError when the system refuses.
    InterruptEvent();
    InterruptEvent(const InterruptEvent&) = delete;
    InterruptEvent& operator=(const InterruptEvent&) = delete;
    ~InterruptEvent();

    [[nodiscard]] HANDLE Get() const noexcept { return m_event.get(); }

  private:
    KernelHandle m_event;
};

} // namespace ts::console
