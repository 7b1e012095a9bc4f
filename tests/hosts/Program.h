#pragma once

#include "platform/KernelHandle.h"

#include <array>
#include <gtest/gtest.h>
#include <string>

/// With a backslash at its end. The program stands there, too.
inline std::wstring TestFolder()
{
    std::array<wchar_t, MAX_PATH> path{};
    const DWORD length = GetModuleFileNameW(nullptr, path.data(), static_cast<DWORD>(path.size()));
    const std::wstring test(path.data(), length);
    return test.substr(0, test.find_last_of(L'\\') + 1);
}

/// A process of a program, by default of the console's, with its output in a pipe.
class Program
{
  public:
    explicit Program(const std::wstring& arguments, const std::wstring& name = L"reminders.exe")
    {
        SECURITY_ATTRIBUTES inheritable = {sizeof inheritable, nullptr, TRUE};
        HANDLE reading = nullptr;
        HANDLE writing = nullptr;
        EXPECT_TRUE(CreatePipe(&reading, &writing, &inheritable, 0));
        m_reading.reset(reading);
        EXPECT_TRUE(SetHandleInformation(reading, HANDLE_FLAG_INHERIT, 0));
        const ts::KernelHandle writingEnd(writing);
        STARTUPINFOW startup{};
        startup.cb = sizeof startup;
        startup.dwFlags = STARTF_USESTDHANDLES;
        startup.hStdOutput = writing;
        startup.hStdError = writing;
        std::wstring commandLine = name + L" " + arguments;
        PROCESS_INFORMATION process{};
        EXPECT_TRUE(CreateProcessW((TestFolder() + name).c_str(), commandLine.data(), nullptr, nullptr, TRUE,
                                   0, nullptr, nullptr, &startup, &process));
        m_process.reset(process.hProcess);
        CloseHandle(process.hThread);
    }
    Program(const Program&) = delete;
    Program& operator=(const Program&) = delete;
    /// A process that did not end would keep the tests from ending.
    ~Program() { TerminateProcess(m_process.get(), 1); }

    [[nodiscard]] DWORD ProcessId() const { return GetProcessId(m_process.get()); }
    [[nodiscard]] bool IsRunning() const { return WaitForSingleObject(m_process.get(), 0) == WAIT_TIMEOUT; }
    void Kill() { TerminateProcess(m_process.get(), 1); }

    /// All that it writes until it ends.
    std::string ReadAll()
    {
        std::string text;
        std::array<char, 1024> part{};
        DWORD read = 0;
        while (ReadFile(m_reading.get(), part.data(), static_cast<DWORD>(part.size()), &read, nullptr) &&
               read > 0)
        {
            text.append(part.data(), read);
        }
        return text;
    }

    /// Waits for a line.
    std::string ReadLine()
    {
        std::string line;
        char character = 0;
        DWORD read = 0;
        while (ReadFile(m_reading.get(), &character, 1, &read, nullptr) && read == 1 && character != '\n')
        {
            line += character;
        }
        return line;
    }

    void CloseOutput() { m_reading.reset(); }

    DWORD ExitCode() const
    {
        constexpr DWORD kPatience = 50'000;
        DWORD code = STILL_ACTIVE;
        EXPECT_EQ(WAIT_OBJECT_0, WaitForSingleObject(m_process.get(), kPatience));
        GetExitCodeProcess(m_process.get(), &code);
        return code;
    }

  private:
    ts::KernelHandle m_reading;
    ts::KernelHandle m_process;
};
