#pragma once

#include "platform/WindowsHeaders.h"

#include <cstddef>
#include <functional>
#include <memory>
#include <string>
#include <type_traits>
#include <vector>

/// Uses windows as a user would, from the thread that owns them.
namespace ts::test
{

/// Handles what is in the thread's queue, as a program's loop does.
void PumpMessages();
/// The same until `done` says so; false after five seconds.
bool PumpUntil(const std::function<bool()>& done);

/// Posts a key, pressed and released, to the window that has the focus, and handles it.
void PressKey(UINT virtualKey);
/// Posts the characters of `text` to the window that has the focus, and handles them.
void TypeText(const std::wstring& text);
/// A letter with the Alt key, for the window that has the focus.
void PressMnemonic(wchar_t letter);

/// A key such as VK_SHIFT is held down while it lives.
class KeyHeld
{
  public:
    explicit KeyHeld(int virtualKey) : m_key(virtualKey) { Set(0x80); }
    KeyHeld(const KeyHeld&) = delete;
    KeyHeld& operator=(const KeyHeld&) = delete;
    ~KeyHeld() { Set(0); }

  private:
    void Set(unsigned char state) const;

    int m_key;
};

/// Presses and releases the left button at a point of the window's client area.
void Click(HWND window, int x, int y);

[[nodiscard]] std::wstring TextOf(HWND window);
[[nodiscard]] std::wstring ClassOf(HWND window);

/// The pixels of a window's client area as they are on the screen, row by row.
[[nodiscard]] std::vector<COLORREF> PixelsOf(HWND window);
[[nodiscard]] SIZE SizeOf(HICON icon);

/// Objects that draw, in this process. Wine's own count is always 0.
[[nodiscard]] std::size_t GdiObjectCount();
/// Windows of this thread, children included.
[[nodiscard]] std::size_t WindowCount();

/// Does something while a modal dialog, message box or menu runs: once the first `class` window of this
/// thread is shown. "#32770" is a dialog or message box, "#32768" a menu.
class WhenShown
{
  public:
    WhenShown(std::wstring windowClass, std::function<void(HWND)> act);
    WhenShown(const WhenShown&) = delete;
    WhenShown& operator=(const WhenShown&) = delete;
    ~WhenShown();

    /// Whether it was done.
    [[nodiscard]] bool Happened() const noexcept { return m_happened; }

  private:
    static void CALLBACK OnTimer(HWND, UINT, UINT_PTR id, DWORD) noexcept;
    [[nodiscard]] HWND FindWindow() const;

    std::wstring m_class;
    std::function<void(HWND)> m_act;
    // Windows that were there before do not count.
    std::vector<HWND> m_known;
    UINT_PTR m_timer;
    bool m_happened = false;
};

/// Answers the next message box with a button such as IDOK.
class MessageBoxAnswer
{
  public:
    explicit MessageBoxAnswer(int button);

    [[nodiscard]] bool WasShown() const noexcept { return m_whenShown.Happened(); }
    [[nodiscard]] const std::wstring& Text() const noexcept { return m_text; }
    [[nodiscard]] const std::wstring& Title() const noexcept { return m_title; }

  private:
    std::wstring m_text;
    std::wstring m_title;
    WhenShown m_whenShown;
};

} // namespace ts::test
