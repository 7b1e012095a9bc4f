#include "collection/MessageWait.h"

bool ts::WaitLettingMessagesThrough(HANDLE object, DWORD timeoutMilliseconds) noexcept
{
    if (MsgWaitForMultipleObjects(1, &object, FALSE, timeoutMilliseconds, QS_SENDMESSAGE) == WAIT_OBJECT_0)
    {
        return true;
    }
    MSG posted;
    PeekMessageW(&posted, nullptr, 0, 0, PM_NOREMOVE | PM_QS_SENDMESSAGE);
    return false;
}
