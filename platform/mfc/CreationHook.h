#pragma once

#include "platform/WindowsHook.h"
#include "platform/mfc/CWnd.h"

namespace ts
{

/// While it lives, the next window that the thread creates belongs to an object from its first message on.
class CreationHook
{
  public:
    explicit CreationHook(CWnd& object);
    CreationHook(const CreationHook&) = delete;
    CreationHook& operator=(const CreationHook&) = delete;
    ~CreationHook();

    [[nodiscard]] bool IsInstalled() const noexcept { return m_hook != nullptr; }

  private:
    static LRESULT CALLBACK OnEvent(int code, WPARAM wParam, LPARAM lParam) noexcept;
    static void Link(CWnd& object, HWND window);

    CWnd* m_formerlyAwaiting;
    WindowsHook m_hook;
};

} // namespace ts
