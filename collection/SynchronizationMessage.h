#pragma once

#include "platform/WindowsHeaders.h"

/// How the host processes hear of each other's changes.
namespace ts
{

/// Sent to the first window of each of the two classes after every change of the store, with wParam and
/// lParam 0. The library does not handle it: a host answers by loading its collection again.
inline constexpr UINT kSynchronizationMessage = WM_APP + 120;

/// The application's main window.
inline constexpr wchar_t kMainWindowClass[] = L"Tessaly25WndClass";
/// The window of the reminder service.
inline constexpr wchar_t kServiceWindowClass[] = L"Tessaly25ReminderServiceWndClass";

} // namespace ts
