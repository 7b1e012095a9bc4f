#pragma once

#include "platform/WindowsHeaders.h"

#include <atomic>
#include <functional>
#include <future>
#include <thread>

namespace ts::test
{

// The classes of the two windows, written out.
inline constexpr wchar_t kMainClass[] = L"Tessaly25WndClass";
inline constexpr wchar_t kServiceClass[] = L"Tessaly25ReminderServiceWndClass";

/// A top-level window of the calling thread, which counts the synchronisation messages that it is sent.
class HostWindow
{
  public:
    /// `onMessage` runs inside each of the messages, after it was counted.
    explicit HostWindow(const wchar_t* windowClass, std::function<void()> onMessage = {});
    HostWindow(const HostWindow&) = delete;
    HostWindow& operator=(const HostWindow&) = delete;
    ~HostWindow();

    [[nodiscard]] HWND Get() const noexcept { return m_window; }
    [[nodiscard]] int Count() const noexcept { return m_count; }
    /// Application messages that were not sent as the synchronisation message is: with another number, with
    /// parameters, or posted.
    [[nodiscard]] int StrangeCount() const noexcept { return m_strange; }

  private:
    static LRESULT CALLBACK Procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) noexcept;
    void Answer(UINT message, WPARAM wParam, LPARAM lParam);

    std::function<void()> m_onMessage;
    std::atomic<int> m_count{0};
    std::atomic<int> m_strange{0};
    HWND m_window = nullptr;
};

/// The window of another host: lives on a thread of its own, which answers messages all the time.
class OtherHost
{
  public:
    explicit OtherHost(const wchar_t* windowClass, std::function<void()> onMessage = {});
    OtherHost(const OtherHost&) = delete;
    OtherHost& operator=(const OtherHost&) = delete;
    ~OtherHost();

    [[nodiscard]] const HostWindow& Window() const noexcept { return *m_window; }
    [[nodiscard]] int Count() const noexcept { return m_window->Count(); }

  private:
    void Run(const wchar_t* windowClass, const std::function<void()>& onMessage);

    std::promise<void> m_ready;
    HostWindow* m_window = nullptr;
    DWORD m_threadId = 0;
    std::thread m_thread;
};

/// How many top-level windows of both classes there are.
[[nodiscard]] int HostWindowCount();

} // namespace ts::test
