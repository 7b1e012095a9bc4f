#include "platform/mfc/CreationHook.h"

#include "platform/mfc/WindowMaps.h"

#include <bit>

ts::CreationHook::CreationHook(CWnd& object)
    : m_formerlyAwaiting(std::exchange(WindowMaps::OfThisThread().m_awaiting, &object)),
      m_hook(HookThisThread(WH_CBT, OnEvent))
{
}

ts::CreationHook::~CreationHook()
{
    if (WindowMaps* const maps = WindowMaps::TryOfThisThread())
    {
        maps->m_awaiting = m_formerlyAwaiting;
    }
}

LRESULT CALLBACK ts::CreationHook::OnEvent(int code, WPARAM wParam, LPARAM lParam) noexcept
{
    WindowMaps* const maps = WindowMaps::TryOfThisThread();
    auto* const window = std::bit_cast<HWND>(wParam);
    // An input method may create a window of its own before ours.
    if (code == HCBT_CREATEWND && maps != nullptr && maps->m_awaiting != nullptr &&
        (GetClassLongPtrW(window, GCL_STYLE) & CS_IME) == 0)
    {
        try
        {
            Link(*std::exchange(maps->m_awaiting, nullptr), window);
        }
        catch (...)
        {
            return 1; // no window without its object
        }
    }
    return CallNextHookEx(nullptr, code, wParam, lParam);
}

void ts::CreationHook::Link(CWnd& object, HWND window)
{
    if (object.Attach(window) != FALSE)
    {
        object.PreSubclassWindow();
        object.ReceiveMessages();
    }
}
