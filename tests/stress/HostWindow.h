#pragma once

#include "platform/WindowsHeaders.h"

#include <functional>

namespace ts::test
{

/// A hidden top-level window of one of the host classes, on the calling thread. Answers the synchronisation
/// message with a function, which may not throw. One window per class and process at a time.
class HostWindow
{
  public:
    HostWindow(const wchar_t* windowClass, std::function<void()> onSynchronization);
    HostWindow(const HostWindow&) = delete;
    HostWindow& operator=(const HostWindow&) = delete;
    ~HostWindow();

    [[nodiscard]] HWND Get() const noexcept { return m_window; }

  private:
    static LRESULT CALLBACK Answer(HWND window, UINT message, WPARAM wParam, LPARAM lParam) noexcept;

    const wchar_t* m_class;
    std::function<void()> m_onSynchronization;
    HWND m_window = nullptr;
};

/// Answers what others send to this thread's windows, for that long.
void AnswerMessages(DWORD milliseconds);

} // namespace ts::test
