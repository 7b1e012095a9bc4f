#include "tests/stress/ChildProcess.h"

#include <stdexcept>

namespace ts::test
{
namespace
{

constexpr UINT kKilled = 77;

std::wstring PathOfChild()
{
    std::wstring path(MAX_PATH, L'\0');
    path.resize(GetModuleFileNameW(nullptr, path.data(), MAX_PATH));
    path.resize(path.rfind(L'\\') + 1);
    return path + L"stress_child.exe";
}

} // namespace

ChildProcess::ChildProcess(const std::wstring& arguments)
{
    std::wstring commandLine = L"\"" + PathOfChild() + L"\" " + arguments;
    STARTUPINFOW startup{};
    startup.cb = sizeof startup;
    PROCESS_INFORMATION started{};
    if (!CreateProcessW(nullptr, commandLine.data(), nullptr, nullptr, TRUE, 0, nullptr, nullptr, &startup,
                        &started))
    {
        throw std::runtime_error("stress_child cannot be started");
    }
    const KernelHandle thread(started.hThread);
    m_process.reset(started.hProcess);
}

ChildProcess::~ChildProcess()
{
    Kill();
}

bool ChildProcess::Wait(DWORD timeoutMilliseconds) const noexcept
{
    return WaitForSingleObject(m_process.get(), timeoutMilliseconds) == WAIT_OBJECT_0;
}

void ChildProcess::Kill() const noexcept
{
    TerminateProcess(m_process.get(), kKilled);
    WaitForSingleObject(m_process.get(), INFINITE);
}

DWORD ChildProcess::ExitCode() const noexcept
{
    DWORD code = 0;
    GetExitCodeProcess(m_process.get(), &code);
    return code;
}

} // namespace ts::test
