#pragma once

#include "platform/WindowsHeaders.h"

/// How the library speaks to the host processes.
namespace ts
{

/// Sent to the first window of each of the two classes after every change of the store, with wParam and
/// lParam 0. The library does not handle it: a host answers by loading its collection again.
inline constexpr UINT kSynchronizationMessage = WM_APP + 120;

/// Posted to the application's main window to open a reminder's topic: lParam is the reminder's index in the
/// collection, wParam 0.
inline constexpr UINT kOpenReminderMessage = WM_APP + 121;

/// The application's main window.
inline constexpr wchar_t kMainWindowClass[] = L"Tessaly25WndClass";
/// The window of the reminder service.
inline constexpr wchar_t kServiceWindowClass[] = L"Tessaly25ReminderServiceWndClass";

} // namespace ts
