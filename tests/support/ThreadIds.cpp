#include "tests/support/ThreadIds.h"

#include "platform/KernelHandle.h"

#include <tlhelp32.h>

std::vector<DWORD> ts::test::ThreadIds()
{
    std::vector<DWORD> ids;
    const KernelHandle snapshot(CreateToolhelp32Snapshot(TH32CS_SNAPTHREAD, 0));
    THREADENTRY32 entry{};
    entry.dwSize = sizeof entry;
    for (BOOL found = Thread32First(snapshot.get(), &entry); found != FALSE;
         found = Thread32Next(snapshot.get(), &entry))
    {
        if (entry.th32OwnerProcessID == GetCurrentProcessId())
        {
            ids.push_back(entry.th32ThreadID);
        }
    }
    return ids;
}
