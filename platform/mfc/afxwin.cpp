#include "platform/mfc/afxwin.h"

// Placed by the linker at the module's start.
extern "C" IMAGE_DOS_HEADER __ImageBase;

namespace
{

/// One pointer for each thread, free of what a thread_local leaves behind when its module is unloaded.
class ThreadSlot
{
  public:
    ThreadSlot() noexcept : m_index(TlsAlloc()) {}
    ThreadSlot(const ThreadSlot&) = delete;
    ThreadSlot& operator=(const ThreadSlot&) = delete;
    ~ThreadSlot() { TlsFree(m_index); }

    [[nodiscard]] void* Get() const noexcept
    {
        // A successful read sets the last error to "none"; whoever asks for a resource did not ask for that.
        const DWORD error = GetLastError();
        void* value = TlsGetValue(m_index);
        SetLastError(error);
        return value;
    }
    void Set(void* value) noexcept { TlsSetValue(m_index, value); }

  private:
    DWORD m_index;
};

ThreadSlot g_resourceModule;

} // namespace

CWinApp::~CWinApp() = default;

HINSTANCE AfxGetInstanceHandle() noexcept
{
    return static_cast<HINSTANCE>(static_cast<void*>(&__ImageBase));
}

HINSTANCE AfxGetResourceHandle() noexcept
{
    const auto module = static_cast<HINSTANCE>(g_resourceModule.Get());
    return module != nullptr ? module : AfxGetInstanceHandle();
}

void AfxSetResourceHandle(HINSTANCE module) noexcept
{
    g_resourceModule.Set(module == AfxGetInstanceHandle() ? nullptr : module);
}
