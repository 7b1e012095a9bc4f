#include "hosts/common/SingleInstance.h"

#include "hosts/common/Errors.h"

#include <string>

namespace ts::hosts
{

// In the session's own namespace: another session of the user has screen and windows of its own.
SingleInstance::SingleInstance(const wchar_t* name)
    : m_mutex(CreateMutexW(nullptr, FALSE, (std::wstring(L"Local\\") + name).c_str()))
{
    if (m_mutex == nullptr)
    {
        throw OperationError("cannot find out whether the program runs already: Windows error " +
                             std::to_string(GetLastError()));
    }
}

SingleInstance::~SingleInstance()
{
    if (m_isOwner)
    {
        ReleaseMutex(m_mutex.get());
    }
}

bool SingleInstance::Acquire()
{
    constexpr DWORD kMoment = 50;
    const DWORD result = WaitForSingleObject(m_mutex.get(), kMoment);
    // A former owner that was killed has abandoned it.
    m_isOwner = result == WAIT_OBJECT_0 || result == WAIT_ABANDONED;
    return m_isOwner;
}

void SingleInstance::RequireOwner() const
{
    if (!m_isOwner)
    {
        throw OperationError("the program runs already and does not answer");
    }
}

void HandOver(HWND other, UINT message) noexcept
{
    DWORD process = 0;
    GetWindowThreadProcessId(other, &process);
    AllowSetForegroundWindow(process);
    PostMessageW(other, message, 0, 0);
}

} // namespace ts::hosts
