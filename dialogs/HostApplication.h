#pragma once

#include "platform/WindowsHeaders.h"
#include "platform/mfc/CWnd.h"

#include <memory>

/// The application in whose documents the reminders' topics are.
namespace ts
{

/// Starts the application through COM.
inline constexpr wchar_t kApplicationProgId[] = L"Tessaly.Application.25";
/// Its automation interface, derived from IDispatch, with the property "Visible".
inline constexpr IID kApplicationInterface = {
    0x37C44481, 0x6D32, 0x48F8, {0x90, 0x53, 0x2D, 0xBB, 0x42, 0x4C, 0xEA, 0x41}};

/// Finds the application, or starts it and waits for a moment. Holds an application that it started until it
/// ends itself, so that the application has time to get its first order. Messages are handled meanwhile:
/// what the caller knew of the collection and the list before may be out of date.
class HostApplication
{
  public:
    /// `waiting` shows that it waits.
    explicit HostApplication(CWnd& waiting);
    HostApplication(const HostApplication&) = delete;
    HostApplication& operator=(const HostApplication&) = delete;
    ~HostApplication();

    /// Null when the application cannot be had.
    [[nodiscard]] HWND GetMainWindow() const noexcept { return m_mainWindow; }
    /// Brings the main window to the front, restored if it is minimised.
    void Show() const;
    void PostOpenReminder(int collectionIndex) const;

  private:
    class Started;

    std::unique_ptr<Started> m_started;
    HWND m_mainWindow = nullptr;
};

} // namespace ts
