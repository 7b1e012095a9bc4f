#pragma once

#include "platform/mfc/CWnd.h"

#include <cstddef>
#include <map>
#include <memory>

namespace ts
{

/// What a thread knows of its windows. Goes with its thread.
class WindowMaps
{
  public:
    /// Made at the first call. May throw std::bad_alloc.
    [[nodiscard]] static WindowMaps& OfThisThread();
    /// Null when the thread has none.
    [[nodiscard]] static WindowMaps* TryOfThisThread() noexcept;

    [[nodiscard]] CWnd* FindPermanent(HWND window) const noexcept;
    void AddPermanent(HWND window, CWnd& object) { m_permanent[window] = &object; }
    void RemovePermanent(HWND window) noexcept { m_permanent.erase(window); }

    /// An object that stands for a window that nobody else has an object for. It stays until the window is
    /// gone.
    [[nodiscard]] CWnd* Temporary(HWND window);

    /// The object that gets the next window that the thread creates.
    CWnd* m_awaiting = nullptr;
    /// The message that the innermost window procedure works on.
    MSG m_current{};

  private:
    void ForgetClosedWindows();

    static constexpr std::size_t kSmallestLimit = 64;

    std::map<HWND, CWnd*> m_permanent;
    std::map<HWND, std::unique_ptr<CWnd>> m_temporary;
    std::size_t m_limit = kSmallestLimit;
};

} // namespace ts
