#include "collection/SynchronizationSender.h"

#include "collection/SynchronizationMessage.h"

namespace ts
{
namespace
{

void SendToFirstWindow(const wchar_t* windowClass)
{
    const HWND window = FindWindowW(windowClass, nullptr);
    if (window != nullptr)
    {
        SendMessageW(window, kSynchronizationMessage, 0, 0);
    }
}

} // namespace

void SendSynchronizationMessage()
{
    SendToFirstWindow(kMainWindowClass);
    SendToFirstWindow(kServiceWindowClass);
}

} // namespace ts
