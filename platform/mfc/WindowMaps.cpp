#include "platform/mfc/WindowMaps.h"

#include <algorithm>

namespace
{

/// A pointer for each thread that the system hands back for deletion when the thread ends or the module is
/// unloaded.
class MapsSlot
{
  public:
    MapsSlot() noexcept : m_index(FlsAlloc(Delete)) {}
    MapsSlot(const MapsSlot&) = delete;
    MapsSlot& operator=(const MapsSlot&) = delete;
    ~MapsSlot() { FlsFree(m_index); }

    [[nodiscard]] ts::WindowMaps* Get() const noexcept
    {
        const DWORD error = GetLastError();
        auto* const maps = static_cast<ts::WindowMaps*>(FlsGetValue(m_index));
        SetLastError(error);
        return maps;
    }
    void Set(std::unique_ptr<ts::WindowMaps> maps) const noexcept
    {
        if (FlsSetValue(m_index, maps.get()) != FALSE)
        {
            [[maybe_unused]] const ts::WindowMaps* const kept = maps.release();
        }
    }

  private:
    static void NTAPI Delete(void* maps) noexcept
    {
        const std::unique_ptr<ts::WindowMaps> ended(static_cast<ts::WindowMaps*>(maps));
    }

    DWORD m_index;
};

const MapsSlot g_mapsOfThread;

} // namespace

ts::WindowMaps* ts::WindowMaps::TryOfThisThread() noexcept
{
    return g_mapsOfThread.Get();
}

ts::WindowMaps& ts::WindowMaps::OfThisThread()
{
    if (TryOfThisThread() == nullptr)
    {
        g_mapsOfThread.Set(std::make_unique<WindowMaps>());
    }
    WindowMaps* const maps = TryOfThisThread();
    if (maps == nullptr)
    {
        AfxThrowMemoryException();
    }
    return *maps;
}

CWnd* ts::WindowMaps::FindPermanent(HWND window) const noexcept
{
    const auto found = m_permanent.find(window);
    return found == m_permanent.end() ? nullptr : found->second;
}

CWnd* ts::WindowMaps::Temporary(HWND window)
{
    const auto known = m_temporary.find(window);
    if (known != m_temporary.end())
    {
        return known->second.get();
    }
    if (m_temporary.size() >= m_limit)
    {
        ForgetClosedWindows();
    }
    auto object = std::make_unique<CWnd>();
    object->m_hWnd = window;
    object->m_borrowed = true;
    return m_temporary.emplace(window, std::move(object)).first->second.get();
}

void ts::WindowMaps::ForgetClosedWindows()
{
    std::erase_if(m_temporary, [](const auto& entry) { return IsWindow(entry.first) == FALSE; });
    m_limit = std::max(kSmallestLimit, 2 * m_temporary.size());
}
