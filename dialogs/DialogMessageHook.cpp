#include "dialogs/DialogMessageHook.h"

#include "platform/WindowsHook.h"
#include "platform/mfc/afxmt.h"

#include <bit>
#include <map>
#include <set>
#include <vector>

namespace
{

/// The panels of one thread, and its hook while there are any.
struct ThreadPanels
{
    std::set<HWND> panels;
    ts::WindowsHook hook;
};

struct Panels
{
    CCriticalSection lock;
    std::map<DWORD, ThreadPanels> byThread;
};

Panels& AllPanels()
{
    static Panels panels;
    return panels;
}

std::vector<HWND> PanelsOfThisThread()
{
    Panels& all = AllPanels();
    const CSingleLock lock(&all.lock, TRUE);
    const auto found = all.byThread.find(GetCurrentThreadId());
    return found == all.byThread.end()
               ? std::vector<HWND>()
               : std::vector<HWND>(found->second.panels.begin(), found->second.panels.end());
}

/// Whether a panel has handled the message. What it does may show dialogs, register and remove panels.
bool IsConsumed(MSG& message)
{
    for (const HWND panel : PanelsOfThisThread())
    {
        if (IsWindow(panel) != FALSE && IsDialogMessageW(panel, &message) != FALSE)
        {
            return true;
        }
    }
    return false;
}

LRESULT CALLBACK OnGetMessage(int code, WPARAM wParam, LPARAM lParam) noexcept
{
    auto* const message = std::bit_cast<MSG*>(lParam);
    try
    {
        if (code == HC_ACTION && (wParam & PM_REMOVE) != 0 && message->message >= WM_KEYFIRST &&
            message->message <= WM_KEYLAST && IsConsumed(*message))
        {
            *message = {nullptr, WM_NULL, 0, 0, message->time, message->pt};
        }
    }
    catch (...)
    {
        // Without memory the message goes its usual way.
    }
    return CallNextHookEx(nullptr, code, wParam, lParam);
}

} // namespace

HRESULT ts::DialogMessageRegistration::Register(HWND panel)
{
    if (panel == m_panel)
    {
        return S_OK;
    }
    Remove();
    Panels& all = AllPanels();
    const CSingleLock lock(&all.lock, TRUE);
    ThreadPanels& thread = all.byThread[GetCurrentThreadId()];
    if (!thread.hook)
    {
        thread.hook = HookThisThread(WH_GETMESSAGE, OnGetMessage);
    }
    if (!thread.hook)
    {
        all.byThread.erase(GetCurrentThreadId());
        return E_UNEXPECTED;
    }
    thread.panels.insert(panel);
    m_panel = panel;
    return S_OK;
}

void ts::DialogMessageRegistration::Remove() noexcept
{
    if (m_panel == nullptr)
    {
        return;
    }
    Panels& all = AllPanels();
    const CSingleLock lock(&all.lock, TRUE);
    for (auto thread = all.byThread.begin(); thread != all.byThread.end(); ++thread)
    {
        // A window belongs to one thread only.
        if (thread->second.panels.erase(m_panel) != 0)
        {
            if (thread->second.panels.empty())
            {
                all.byThread.erase(thread);
            }
            break;
        }
    }
    m_panel = nullptr;
}
