#include "tests/support/WindowDriver.h"

#include "platform/mfc/CDialog.h"

#include <algorithm>
#include <bit>
#include <map>

namespace
{

using namespace ts::test;

constexpr DWORD kPatience = 5000;

void Dispatch(MSG& message)
{
    if (AfxPreTranslateMessage(&message) == FALSE)
    {
        TranslateMessage(&message);
        DispatchMessageW(&message);
    }
}

/// The timers of all that wait for a window.
std::map<UINT_PTR, WhenShown*>& Waiting()
{
    static std::map<UINT_PTR, WhenShown*> waiting;
    return waiting;
}

std::vector<HWND> TopLevelWindows()
{
    std::vector<HWND> windows;
    EnumThreadWindows(
        GetCurrentThreadId(),
        [](HWND window, LPARAM list) -> BOOL
        {
            std::bit_cast<std::vector<HWND>*>(list)->push_back(window);
            return TRUE;
        },
        std::bit_cast<LPARAM>(&windows));
    return windows;
}

std::size_t CountWithChildren(HWND window)
{
    std::size_t count = 1;
    EnumChildWindows(
        window,
        [](HWND, LPARAM counter) -> BOOL
        {
            ++*std::bit_cast<std::size_t*>(counter);
            return TRUE;
        },
        std::bit_cast<LPARAM>(&count));
    return count;
}

HWND FocusWindow()
{
    return GetFocus() != nullptr ? GetFocus() : GetActiveWindow();
}

} // namespace

void ts::test::PumpMessages()
{
    MSG message;
    while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE) != FALSE)
    {
        Dispatch(message);
    }
}

bool ts::test::PumpUntil(const std::function<bool()>& done)
{
    const DWORD start = GetTickCount();
    while (!done())
    {
        if (GetTickCount() - start > kPatience)
        {
            return false;
        }
        MsgWaitForMultipleObjects(0, nullptr, FALSE, 10, QS_ALLINPUT);
        PumpMessages();
    }
    return true;
}

void ts::test::PressKey(UINT virtualKey)
{
    PostMessageW(FocusWindow(), WM_KEYDOWN, virtualKey, 1);
    PumpMessages();
    if (FocusWindow() != nullptr)
    {
        PostMessageW(FocusWindow(), WM_KEYUP, virtualKey, LPARAM{1} << 30 | 1);
        PumpMessages();
    }
}

void ts::test::TypeText(const std::wstring& text)
{
    for (const wchar_t character : text)
    {
        PostMessageW(FocusWindow(), WM_CHAR, character, 1);
        PumpMessages();
    }
}

void ts::test::PressMnemonic(wchar_t letter)
{
    constexpr LPARAM kAltIsDown = LPARAM{1} << 29;
    PostMessageW(FocusWindow(), WM_SYSCHAR, letter, kAltIsDown | 1);
    PumpMessages();
}

void ts::test::KeyHeld::Set(unsigned char state) const
{
    BYTE keys[256]{};
    keys[m_key] = state;
    SetKeyboardState(keys);
}

void ts::test::Click(HWND window, int x, int y)
{
    PostMessageW(window, WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(x, y));
    PostMessageW(window, WM_LBUTTONUP, 0, MAKELPARAM(x, y));
    PumpMessages();
}

std::wstring ts::test::TextOf(HWND window)
{
    std::wstring text(static_cast<std::size_t>(SendMessageW(window, WM_GETTEXTLENGTH, 0, 0)) + 1, L'\0');
    const LRESULT length = SendMessageW(window, WM_GETTEXT, text.size(), std::bit_cast<LPARAM>(text.data()));
    text.resize(static_cast<std::size_t>(length));
    return text;
}

std::wstring ts::test::ClassOf(HWND window)
{
    wchar_t name[100] = L"";
    GetClassNameW(window, name, 100);
    return name;
}

std::vector<COLORREF> ts::test::PixelsOf(HWND window)
{
    UpdateWindow(window);
    PumpMessages();
    RECT client{};
    GetClientRect(window, &client);
    const HDC screen = GetDC(window);
    std::vector<COLORREF> pixels;
    for (int y = 0; y < client.bottom; ++y)
    {
        for (int x = 0; x < client.right; ++x)
        {
            pixels.push_back(GetPixel(screen, x, y));
        }
    }
    ReleaseDC(window, screen);
    return pixels;
}

SIZE ts::test::SizeOf(HICON icon)
{
    ICONINFO info{};
    GetIconInfo(icon, &info);
    BITMAP mask{};
    GetObjectW(info.hbmMask, sizeof mask, &mask);
    DeleteObject(info.hbmMask);
    // Without colours the mask holds two pictures, one above the other.
    const bool isColoured = info.hbmColor != nullptr;
    DeleteObject(info.hbmColor);
    return {mask.bmWidth, isColoured ? mask.bmHeight : mask.bmHeight / 2};
}

std::size_t ts::test::GdiObjectCount()
{
    std::size_t count = 0;
    for (std::uintptr_t value = 1; value <= 0xFFFF; ++value)
    {
        count += GetObjectType(std::bit_cast<HGDIOBJ>(value)) != 0 ? 1 : 0;
    }
    return count;
}

std::size_t ts::test::WindowCount()
{
    std::size_t count = 0;
    for (const HWND window : TopLevelWindows())
    {
        count += CountWithChildren(window);
    }
    return count;
}

ts::test::WhenShown::WhenShown(std::wstring windowClass, std::function<void(HWND)> act)
    : m_class(std::move(windowClass)), m_act(std::move(act)), m_known(TopLevelWindows()),
      m_timer(SetTimer(nullptr, 0, 10, OnTimer))
{
    Waiting()[m_timer] = this;
}

ts::test::WhenShown::~WhenShown()
{
    KillTimer(nullptr, m_timer);
    Waiting().erase(m_timer);
}

HWND ts::test::WhenShown::FindWindow() const
{
    for (const HWND window : TopLevelWindows())
    {
        if (IsWindowVisible(window) != FALSE && ClassOf(window) == m_class &&
            std::ranges::find(m_known, window) == m_known.end())
        {
            return window;
        }
    }
    return nullptr;
}

void CALLBACK ts::test::WhenShown::OnTimer(HWND, UINT, UINT_PTR id, DWORD) noexcept
{
    const auto found = Waiting().find(id);
    if (found == Waiting().end() || found->second->m_happened)
    {
        return;
    }
    WhenShown& waiting = *found->second;
    const HWND window = waiting.FindWindow();
    if (window != nullptr)
    {
        waiting.m_happened = true;
        KillTimer(nullptr, id);
        waiting.m_act(window);
    }
}

ts::test::MessageBoxAnswer::MessageBoxAnswer(int button)
    : m_whenShown(L"#32770",
                  [this, button](HWND box)
                  {
                      m_title = TextOf(box);
                      m_text = TextOf(GetDlgItem(box, 0xFFFF));
                      SendMessageW(box, WM_COMMAND, static_cast<WPARAM>(button), 0);
                  })
{
}
