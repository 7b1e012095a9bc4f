#include "tests/collection/HostWindow.h"

#include <bit>
#include <stdexcept>
#include <string>

namespace ts::test
{
namespace
{

constexpr UINT kMessage = WM_APP + 120;

void RegisterOnce(const wchar_t* windowClass, WNDPROC procedure)
{
    WNDCLASSW description{};
    description.lpfnWndProc = procedure;
    description.hInstance = GetModuleHandleW(nullptr);
    description.lpszClassName = windowClass;
    if (RegisterClassW(&description) == 0 && GetLastError() != ERROR_CLASS_ALREADY_EXISTS)
    {
        throw std::runtime_error("no window class: " + std::to_string(GetLastError()));
    }
}

} // namespace

HostWindow::HostWindow(const wchar_t* windowClass, std::function<void()> onMessage)
    : m_onMessage(std::move(onMessage))
{
    RegisterOnce(windowClass, &Procedure);
    m_window = CreateWindowExW(0, windowClass, L"host", WS_POPUP, 0, 0, 10, 10, nullptr, nullptr,
                               GetModuleHandleW(nullptr), nullptr);
    if (m_window == nullptr)
    {
        throw std::runtime_error("no window: " + std::to_string(GetLastError()));
    }
    SetWindowLongPtrW(m_window, GWLP_USERDATA, std::bit_cast<LONG_PTR>(this));
}

HostWindow::~HostWindow()
{
    SetWindowLongPtrW(m_window, GWLP_USERDATA, 0);
    DestroyWindow(m_window);
}

LRESULT CALLBACK HostWindow::Procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) noexcept
{
    auto* const self = std::bit_cast<HostWindow*>(GetWindowLongPtrW(window, GWLP_USERDATA));
    if (self != nullptr && message >= WM_APP && message < 0xC000)
    {
        self->Answer(message, wParam, lParam);
        return 0;
    }
    return DefWindowProcW(window, message, wParam, lParam);
}

void HostWindow::Answer(UINT message, WPARAM wParam, LPARAM lParam)
{
    // A message of the own thread counts as neither sent nor posted.
    const DWORD way = InSendMessageEx(nullptr);
    const bool ownThread = way == ISMEX_NOSEND;
    if (message != kMessage || wParam != 0 || lParam != 0 || !(ownThread || (way & ISMEX_SEND) != 0))
    {
        ++m_strange;
        return;
    }
    ++m_count;
    if (m_onMessage)
    {
        m_onMessage();
    }
}

OtherHost::OtherHost(const wchar_t* windowClass, std::function<void()> onMessage)
    : m_thread([this, windowClass, onMessage = std::move(onMessage)] { Run(windowClass, onMessage); })
{
    m_ready.get_future().get();
}

OtherHost::~OtherHost()
{
    PostThreadMessageW(m_threadId, WM_QUIT, 0, 0);
    m_thread.join();
}

void OtherHost::Run(const wchar_t* windowClass, const std::function<void()>& onMessage)
{
    HostWindow window(windowClass, onMessage);
    m_window = &window;
    m_threadId = GetCurrentThreadId();
    m_ready.set_value();
    MSG message;
    while (GetMessageW(&message, nullptr, 0, 0) > 0)
    {
        DispatchMessageW(&message);
    }
}

int HostWindowCount()
{
    int count = 0;
    for (const wchar_t* windowClass : {kMainClass, kServiceClass})
    {
        for (HWND window = nullptr;
             (window = FindWindowExW(nullptr, window, windowClass, nullptr)) != nullptr;)
        {
            ++count;
        }
    }
    return count;
}

} // namespace ts::test
