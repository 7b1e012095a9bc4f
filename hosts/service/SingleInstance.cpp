#include "SingleInstance.h"

#include "ReminderService.h"
#include "hosts/common/Errors.h"

#include <string>

namespace ts::service
{
namespace
{

// In the session's own namespace: another session of the user has screen and windows of its own.
constexpr wchar_t kMutexName[] = L"Local\\TessalyReminderService";

} // namespace

SingleInstance::SingleInstance() : m_mutex(CreateMutexW(nullptr, FALSE, kMutexName))
{
    if (m_mutex == nullptr)
    {
        throw hosts::OperationError("cannot find out whether the reminder service runs already: Windows "
                                    "error " +
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

bool SingleInstance::Acquire(DWORD timeoutMilliseconds)
{
    const DWORD result = WaitForSingleObject(m_mutex.get(), timeoutMilliseconds);
    // A former owner that was killed has abandoned it.
    m_isOwner = result == WAIT_OBJECT_0 || result == WAIT_ABANDONED;
    return m_isOwner;
}

HWND FindRunningService() noexcept
{
    return FindWindowW(kServiceWindowClass, kWindowTitle);
}

void AskToShow(HWND service) noexcept
{
    DWORD process = 0;
    GetWindowThreadProcessId(service, &process);
    // The user has just started this process, so it may give away the foreground.
    AllowSetForegroundWindow(process);
    PostMessageW(service, hosts::kShowDueMessage, 0, 0);
}

bool StopService(HWND service, DWORD timeoutMilliseconds)
{
    DWORD process = 0;
    GetWindowThreadProcessId(service, &process);
    const KernelHandle running(OpenProcess(SYNCHRONIZE, FALSE, process));
    if (running == nullptr)
    {
        // Either it has just ended, or it belongs to somebody else.
        return IsWindow(service) == FALSE;
    }
    PostMessageW(service, WM_CLOSE, 0, 0);
    return WaitForSingleObject(running.get(), timeoutMilliseconds) == WAIT_OBJECT_0;
}

} // namespace ts::service
