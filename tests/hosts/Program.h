#pragma once

#include "platform/KernelHandle.h"

#include <gtest/gtest.h>
#include <string>

/// With a backslash at its end. The program stands there, too.
std::wstring TestFolder();

/// A process of a program, by default of the console's, with its output in a pipe.
class Program
{
  public:
    /// The exit code of a process that was killed.
    static constexpr DWORD kKilled = 77;

    explicit Program(const std::wstring& arguments, const std::wstring& name = L"reminders.exe");
    Program(const Program&) = delete;
    Program& operator=(const Program&) = delete;
    /// A process that did not end would keep the tests from ending.
    ~Program() { Kill(); }

    [[nodiscard]] DWORD ProcessId() const noexcept { return m_id; }
    [[nodiscard]] bool IsRunning() const { return WaitForSingleObject(m_process.get(), 0) == WAIT_TIMEOUT; }
    void Kill() const { TerminateProcess(m_process.get(), kKilled); }

    /// All that it writes until it ends.
    std::string ReadAll() const;
    /// Waits for a line.
    std::string ReadLine() const;
    void CloseOutput() { m_reading.reset(); }

    /// Waits for its end, answering messages that it may send to windows of this thread; STILL_ACTIVE when it
    /// goes on.
    [[nodiscard]] DWORD ExitCode() const;

  private:
    ts::KernelHandle m_reading;
    ts::KernelHandle m_process;
    DWORD m_id = 0;
};

/// Runs the console's program and gives what it wrote, without the line feed at its end; it must succeed.
std::string RunReminders(const std::wstring& arguments);
