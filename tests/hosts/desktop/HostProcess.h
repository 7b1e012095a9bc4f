#pragma once

#include "tests/hosts/OtherWindows.h"
#include "tests/hosts/Program.h"
#include "tests/hosts/WaitUntil.h"

#include <string>
#include <vector>

[[nodiscard]] HWND MainWindowHandle();
/// The process of the main window, 0 without one.
[[nodiscard]] DWORD MainWindowProcess();

/// What is in the list of the main window.
[[nodiscard]] std::vector<std::wstring> ListedSubjects();
/// Empty when no row is selected.
[[nodiscard]] std::wstring SelectedSubject();

/// One run of TessalyHost.exe.
class HostProcess : public Program
{
  public:
    explicit HostProcess(const std::wstring& arguments = L"");
    HostProcess(const HostProcess&) = delete;
    HostProcess& operator=(const HostProcess&) = delete;
    /// Closes its window if it has one: Wine goes on sending COM's clients to a process that was killed.
    ~HostProcess();

    /// Whether the main window is this process's and visible, within the usual time.
    [[nodiscard]] bool ShowsWindow() const;
};
