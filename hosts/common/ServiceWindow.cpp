#include "hosts/common/ServiceWindow.h"

#include "TsServiceUtilities.h"
#include "hosts/common/Errors.h"

#include <bit>
#include <ctime>
#include <optional>
#include <string>

namespace ts::hosts
{
namespace
{

[[noreturn]] void ThrowNoWindow(DWORD error)
{
    throw OperationError("cannot make a window to hear of changes: Windows error " + std::to_string(error));
}

bool IsResume(WPARAM powerEvent) noexcept
{
    return powerEvent == PBT_APMRESUMEAUTOMATIC || powerEvent == PBT_APMRESUMESUSPEND ||
           powerEvent == PBT_APMRESUMECRITICAL;
}

std::optional<ServiceEvent> EventOf(UINT message, WPARAM wParam) noexcept
{
    switch (message)
    {
    case kSynchronizationMessage:
        return ServiceEvent::StoreChanged;
    case WM_TIMECHANGE:
    case WM_SETTINGCHANGE: // Of the time zone among others.
        return ServiceEvent::TimeChanged;
    case WM_POWERBROADCAST:
        return IsResume(wParam) ? std::optional(ServiceEvent::TimeChanged) : std::nullopt;
    case kShowDueMessage:
        return ServiceEvent::ShowRequested;
    case WM_CLOSE:
        return ServiceEvent::CloseRequested;
    case WM_ENDSESSION:
        return wParam != FALSE ? std::optional(ServiceEvent::SessionEnds) : std::nullopt;
    default:
        return std::nullopt;
    }
}

} // namespace

ServiceWindow::ServiceWindow(const wchar_t* title, Handler handler) : m_handler(std::move(handler))
{
    WNDCLASSEXW windowClass{};
    windowClass.cbSize = sizeof windowClass;
    windowClass.lpfnWndProc = Procedure;
    windowClass.hInstance = GetModuleHandleW(nullptr);
    windowClass.lpszClassName = kServiceWindowClass;
    if (RegisterClassExW(&windowClass) == 0)
    {
        ThrowNoWindow(GetLastError());
    }
    m_window = CreateWindowExW(WS_EX_TOOLWINDOW, kServiceWindowClass, title, WS_POPUP, 0, 0, 0, 0, nullptr,
                               nullptr, windowClass.hInstance, this);
    if (m_window == nullptr)
    {
        const DWORD error = GetLastError();
        UnregisterClassW(kServiceWindowClass, windowClass.hInstance);
        ThrowNoWindow(error);
    }
}

ServiceWindow::~ServiceWindow()
{
    DestroyWindow(m_window);
    UnregisterClassW(kServiceWindowClass, GetModuleHandleW(nullptr));
}

void ServiceWindow::PlaceLast() noexcept
{
    SetWindowPos(m_window, HWND_BOTTOM, 0, 0, 0, 0, SWP_NOACTIVATE | SWP_NOMOVE | SWP_NOSIZE);
}

LRESULT CALLBACK ServiceWindow::Procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) noexcept
{
    if (message == WM_NCCREATE)
    {
        const auto* const creation = std::bit_cast<const CREATESTRUCTW*>(lParam);
        SetWindowLongPtrW(window, GWLP_USERDATA, std::bit_cast<LONG_PTR>(creation->lpCreateParams));
    }
    else if (message == WM_NCDESTROY)
    {
        SetWindowLongPtrW(window, GWLP_USERDATA, 0);
    }
    auto* const self = std::bit_cast<ServiceWindow*>(GetWindowLongPtrW(window, GWLP_USERDATA));
    try
    {
        if (self != nullptr && self->Take(message, wParam))
        {
            return message == WM_POWERBROADCAST ? TRUE : 0;
        }
    }
    catch (...)
    {
        // Not into the system, which may have called us from another process.
        return 0;
    }
    return DefWindowProcW(window, message, wParam, lParam);
}

bool ServiceWindow::Take(UINT message, WPARAM wParam)
{
    const std::optional<ServiceEvent> event = EventOf(message, wParam);
    if (event == ServiceEvent::TimeChanged)
    {
        // The runtime keeps the zone that it found first.
        _tzset();
    }
    if (event)
    {
        m_handler(*event);
    }
    return event.has_value();
}

} // namespace ts::hosts
