// The entry point of a module that carries its own C++ runtime.

#include "platform/WindowsHeaders.h"

namespace __gnu_cxx
{

// Of the runtime: frees the memory that it keeps to raise exceptions when there is no other.
void __freeres();

} // namespace __gnu_cxx

BOOL WINAPI DllMain(HINSTANCE, DWORD reason, void* processEnds)
{
    // The runtime does not expect to be unloaded before the process ends, and would leave 72 KB behind.
    if (reason == DLL_PROCESS_DETACH && processEnds == nullptr)
    {
        __gnu_cxx::__freeres();
    }
    return TRUE;
}
