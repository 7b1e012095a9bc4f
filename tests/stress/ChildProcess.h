#pragma once

#include "platform/KernelHandle.h"

#include <string>

namespace ts::test
{

/// A run of the program stress_child, which stands beside the test. Inherits all handles that may be
/// inherited. Terminated, if it still runs, when the object dies.
class ChildProcess
{
  public:
    /// Throws std::runtime_error when it cannot be started.
    explicit ChildProcess(const std::wstring& arguments);
    ChildProcess(const ChildProcess&) = delete;
    ChildProcess& operator=(const ChildProcess&) = delete;
    ~ChildProcess();

    [[nodiscard]] HANDLE Get() const noexcept { return m_process.get(); }
    /// Waits for its end; false when the time is up.
    [[nodiscard]] bool Wait(DWORD timeoutMilliseconds) const noexcept;
    /// Ends it wherever it is, and waits until it is gone.
    void Kill() const noexcept;
    /// STILL_ACTIVE while it runs.
    [[nodiscard]] DWORD ExitCode() const noexcept;

  private:
    KernelHandle m_process;
};

} // namespace ts::test
