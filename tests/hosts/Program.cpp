#include "tests/hosts/Program.h"

#include "tests/hosts/WaitUntil.h"

#include <array>

std::wstring TestFolder()
{
    std::array<wchar_t, MAX_PATH> path{};
    const DWORD length = GetModuleFileNameW(nullptr, path.data(), static_cast<DWORD>(path.size()));
    const std::wstring test(path.data(), length);
    return test.substr(0, test.find_last_of(L'\\') + 1);
}

Program::Program(const std::wstring& arguments, const std::wstring& name)
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
    EXPECT_TRUE(CreateProcessW((TestFolder() + name).c_str(), commandLine.data(), nullptr, nullptr, TRUE, 0,
                               nullptr, nullptr, &startup, &process));
    m_process.reset(process.hProcess);
    m_id = process.dwProcessId;
    CloseHandle(process.hThread);
}

std::string Program::ReadAll() const
{
    std::string text;
    std::array<char, 1024> part{};
    DWORD read = 0;
    while (ReadFile(m_reading.get(), part.data(), static_cast<DWORD>(part.size()), &read, nullptr) != FALSE &&
           read > 0)
    {
        text.append(part.data(), read);
    }
    return text;
}

std::string Program::ReadLine() const
{
    std::string line;
    char character = 0;
    DWORD read = 0;
    while (ReadFile(m_reading.get(), &character, 1, &read, nullptr) != FALSE && read == 1 &&
           character != '\n')
    {
        line += character;
    }
    return line;
}

DWORD Program::ExitCode() const
{
    DWORD code = STILL_ACTIVE;
    EXPECT_TRUE(WaitUntil([this] { return !IsRunning(); }));
    GetExitCodeProcess(m_process.get(), &code);
    return code;
}

std::string RunReminders(const std::wstring& arguments)
{
    const Program program(arguments);
    std::string text = program.ReadAll();
    EXPECT_EQ(0u, program.ExitCode()) << std::string(arguments.begin(), arguments.end()) << "\n" << text;
    return text.substr(0, text.find_last_not_of('\n') + 1);
}
