#include "platform/mfc/CWinApp.h"

#include "platform/ThreadSlot.h"

// Placed by the linker at the module's start.
extern "C" IMAGE_DOS_HEADER __ImageBase;

namespace
{

const ts::ThreadSlot g_resourceModule;

} // namespace

CWinApp::~CWinApp() = default;

HINSTANCE AfxGetInstanceHandle() noexcept
{
    return static_cast<HINSTANCE>(static_cast<void*>(&__ImageBase));
}

HINSTANCE AfxGetResourceHandle() noexcept
{
    auto* const module = static_cast<HINSTANCE>(g_resourceModule.Get());
    return module != nullptr ? module : AfxGetInstanceHandle();
}

void AfxSetResourceHandle(HINSTANCE module) noexcept
{
    g_resourceModule.Set(module == AfxGetInstanceHandle() ? nullptr : module);
}

HINSTANCE AfxFindResourceHandle(const wchar_t* name, const wchar_t* type) noexcept
{
    const HINSTANCE resources = AfxGetResourceHandle();
    if (FindResourceW(resources, name, type) == nullptr &&
        FindResourceW(AfxGetInstanceHandle(), name, type) != nullptr)
    {
        return AfxGetInstanceHandle();
    }
    return resources;
}
