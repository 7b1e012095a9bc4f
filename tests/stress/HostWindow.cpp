#include "tests/stress/HostWindow.h"

#include "collection/MessageWait.h"
#include "collection/SynchronizationMessage.h"

#include <bit>
#include <utility>

namespace ts::test
{

HostWindow::HostWindow(const wchar_t* windowClass, std::function<void()> onSynchronization)
    : m_class(windowClass), m_onSynchronization(std::move(onSynchronization))
{
    WNDCLASSW description{};
    description.lpfnWndProc = Answer;
    description.hInstance = GetModuleHandleW(nullptr);
    description.lpszClassName = m_class;
    RegisterClassW(&description);
    m_window = CreateWindowW(m_class, L"", WS_OVERLAPPEDWINDOW, 0, 0, 100, 100, nullptr, nullptr,
                             description.hInstance, nullptr);
    if (m_window != nullptr)
    {
        SetWindowLongPtrW(m_window, GWLP_USERDATA, std::bit_cast<LONG_PTR>(this));
    }
}

HostWindow::~HostWindow()
{
    if (m_window != nullptr)
    {
        DestroyWindow(m_window);
    }
    UnregisterClassW(m_class, GetModuleHandleW(nullptr));
}

LRESULT HostWindow::Answer(HWND window, UINT message, WPARAM wParam, LPARAM lParam) noexcept
{
    auto* const host = std::bit_cast<HostWindow*>(GetWindowLongPtrW(window, GWLP_USERDATA));
    if (message != kSynchronizationMessage || host == nullptr)
    {
        return DefWindowProcW(window, message, wParam, lParam);
    }
    host->m_onSynchronization();
    return 0;
}

void AnswerMessages(DWORD milliseconds)
{
    // The handle of this thread is never signalled while it runs.
    const ULONGLONG end = GetTickCount64() + milliseconds;
    for (ULONGLONG now = GetTickCount64(); now < end; now = GetTickCount64())
    {
        WaitLettingMessagesThrough(GetCurrentThread(), static_cast<DWORD>(end - now));
    }
}

} // namespace ts::test
