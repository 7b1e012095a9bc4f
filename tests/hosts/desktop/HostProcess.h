#pragma once

#include "TsServiceUtilities.h"
#include "platform/KernelHandle.h"

#include <functional>
#include <gtest/gtest.h>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace ts::test
{

/// A test of the program itself: works on the real registry of the Wine prefix, as the program does, with an
/// empty store at first.
class DesktopProgramTest : public testing::Test
{
  protected:
    DesktopProgramTest();
    ~DesktopProgramTest() override;

    /// Writes a reminder of a topic of that name; its key.
    static CString Add(const std::wstring& name, CTime due = CTime(2950, 3, 4, 9, 0, 0));
    /// The subjects of the stored reminders, in the order of the store.
    [[nodiscard]] static std::vector<std::wstring> StoredSubjects();
};

/// Looks again and again, with messages handled meanwhile. False when it still does not hold after a time
/// that is long even on a busy machine.
bool WaitUntil(const std::function<bool()>& condition);

/// The first visible dialog of a process with that title, or any when it is empty.
[[nodiscard]] HWND FindDialog(DWORD process, const std::wstring& title = L"");

// Keys as the keyboard makes them, for whatever window has the focus.
void PressKeys(std::initializer_list<WORD> keys);
void TypeKeys(const std::wstring& text);

[[nodiscard]] HWND MainWindowHandle();
/// The process of the main window, 0 without one.
[[nodiscard]] DWORD MainWindowProcess();

/// What is in the list of the main window, which belongs to another process.
[[nodiscard]] std::vector<std::wstring> ListedSubjects();
/// Empty when no row is selected.
[[nodiscard]] std::wstring SelectedSubject();
[[nodiscard]] HWND ChildOf(HWND window, int id);

/// One run of TessalyHost.exe.
class HostProcess
{
  public:
    explicit HostProcess(const std::wstring& arguments = L"");
    HostProcess(const HostProcess&) = delete;
    HostProcess& operator=(const HostProcess&) = delete;
    /// Closes its window if it has one: Wine goes on sending COM's clients to a process that was killed.
    ~HostProcess();

    [[nodiscard]] DWORD GetId() const noexcept { return m_id; }
    /// Whether the main window is this process's and visible, within the usual time.
    [[nodiscard]] bool ShowsWindow() const;
    [[nodiscard]] bool IsRunning() const;
    void Kill() const { TerminateProcess(m_process.get(), 77); }
    /// Waits for its end; STILL_ACTIVE when it goes on.
    [[nodiscard]] DWORD ExitCode() const;
    /// What it wrote until it ended.
    [[nodiscard]] std::string Output() const;

  private:
    KernelHandle m_reading;
    KernelHandle m_process;
    DWORD m_id = 0;
};

/// Runs a program beside the test, such as "reminders.exe", until it ends. Its exit code.
DWORD RunProgram(const std::wstring& program, const std::wstring& arguments);

} // namespace ts::test
