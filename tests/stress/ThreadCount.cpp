#include "tests/stress/ThreadCount.h"

#include "platform/KernelHandle.h"

#include <tlhelp32.h>

std::size_t ts::test::ThreadCount()
{
    const KernelHandle snapshot(CreateToolhelp32Snapshot(TH32CS_SNAPTHREAD, 0));
    std::size_t count = 0;
    THREADENTRY32 entry{};
    entry.dwSize = sizeof entry;
    for (BOOL found = Thread32First(snapshot.get(), &entry); found;
         found = Thread32Next(snapshot.get(), &entry))
    {
        count += entry.th32OwnerProcessID == GetCurrentProcessId() ? 1 : 0;
    }
    return count;
}
