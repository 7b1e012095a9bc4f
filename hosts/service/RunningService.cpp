#include "RunningService.h"

#include "ReminderService.h"
#include "platform/KernelHandle.h"

namespace ts::service
{

HWND FindRunningService() noexcept
{
    return FindWindowW(kServiceWindowClass, kWindowTitle);
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
