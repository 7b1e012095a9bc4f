// What a thread remembers of its windows and messages.

#include "platform/mfc/CDialog.h"
#include "platform/mfc/WindowMaps.h"
#include "tests/platform/ImportPatch.h"
#include "tests/support/WindowDriver.h"
#include "tests/windows/ControlsDialog.h"

#include <bit>
#include <functional>
#include <gtest/gtest.h>
#include <memory>
#include <stdexcept>

extern "C"
{
    extern decltype(&CreateWindowExW) __imp_CreateWindowExW;
}

namespace
{

using namespace ts::test;

constexpr UINT kOuter = WM_APP + 1;
constexpr UINT kInner = WM_APP + 2;

/// A window with what it does at some of its messages.
class ActingWindow : public CWnd
{
  public:
    BOOL Open() { return CreateEx(0, L"STATIC", L"", WS_POPUP, CRect(0, 0, 9, 9), nullptr, 0); }

    std::function<void()> m_atOuter;
    std::function<void()> m_atEnd;
    bool m_refusesToStart = false;

  protected:
    LRESULT OnOuter(WPARAM, LPARAM)
    {
        m_atOuter();
        return 0;
    }
    int OnCreate(CREATESTRUCTW*) { return m_refusesToStart ? -1 : 0; }
    void PostNcDestroy() override
    {
        if (m_atEnd)
        {
            m_atEnd();
        }
    }
    DECLARE_MESSAGE_MAP()
};

BEGIN_MESSAGE_MAP(ActingWindow, CWnd)
ON_MESSAGE(kOuter, OnOuter)
ON_WM_CREATE()
END_MESSAGE_MAP()

/// A control that answers a notification that it sent itself.
class AnsweringControl : public CWnd
{
  protected:
    void OnClick(NMHDR*, LRESULT* result) { *result = 77; }
    DECLARE_MESSAGE_MAP()
};

BEGIN_MESSAGE_MAP(AnsweringControl, CWnd)
ON_NOTIFY_REFLECT(NM_CLICK, OnClick)
END_MESSAGE_MAP()

/// A window that goes with its object when it is told, and fails then.
class LeavingWindow : public CWnd
{
  public:
    static HWND Open()
    {
        auto window = std::make_unique<LeavingWindow>();
        EXPECT_NE(FALSE, window->CreateEx(0, L"STATIC", L"", WS_POPUP, CRect(0, 0, 9, 9), nullptr, 0));
        const HWND handle = window->m_hWnd;
        window->m_self = std::move(window);
        return handle;
    }

  protected:
    LRESULT OnOuter(WPARAM, LPARAM)
    {
        const std::unique_ptr<LeavingWindow> self = std::move(m_self);
        self->DestroyWindow();
        throw std::runtime_error("fails without an object");
    }
    DECLARE_MESSAGE_MAP()

  private:
    std::unique_ptr<LeavingWindow> m_self;
};

BEGIN_MESSAGE_MAP(LeavingWindow, CWnd)
ON_MESSAGE(kOuter, OnOuter)
END_MESSAGE_MAP()

HWND MakePlainWindow(const wchar_t* windowClass = L"STATIC")
{
    return CreateWindowExW(0, windowClass, L"", WS_POPUP, 0, 0, 1, 1, nullptr, nullptr, nullptr, nullptr);
}

constexpr wchar_t kInputMethodClass[] = L"MessageStateTestInputMethod";
HWND g_inputMethod = nullptr;
const auto g_createWindow = __imp_CreateWindowExW;

/// As where an input method makes a window of its own first.
HWND WINAPI CreateAfterInputMethod(DWORD extendedStyle, const wchar_t* windowClass, const wchar_t* name,
                                   DWORD style, int x, int y, int width, int height, HWND parent, HMENU menu,
                                   HINSTANCE module, void* parameter)
{
    g_inputMethod =
        g_createWindow(0, kInputMethodClass, L"", WS_POPUP, 0, 0, 1, 1, nullptr, nullptr, nullptr, nullptr);
    return g_createWindow(extendedStyle, windowClass, name, style, x, y, width, height, parent, menu, module,
                          parameter);
}

// The explicit instantiation of a template may name private members.
template <typename Tag, typename Tag::Member member>
struct Opener
{
    friend typename Tag::Member Open(Tag) { return member; }
};

struct BorrowedTag
{
    using Member = std::map<HWND, std::unique_ptr<CWnd>> ts::WindowMaps::*;
    friend Member Open(BorrowedTag);
};

template struct Opener<BorrowedTag, &ts::WindowMaps::m_temporary>;

} // namespace

TEST(CurrentMessageTest, MessageInsideAnother_IsForgottenAtItsEnd)
{
    ActingWindow window;
    ASSERT_NE(FALSE, window.Open());
    UINT before = 0;
    UINT after = 0;
    window.m_atOuter = [&]
    {
        before = CWnd::GetCurrentMessage()->message;
        window.SendMessage(kInner);
        after = CWnd::GetCurrentMessage()->message;
    };
    window.SendMessage(kOuter);
    EXPECT_EQ(kOuter, before);
    EXPECT_EQ(kOuter, after);
}

TEST(CurrentMessageTest, NotificationOfNothing_IsNobodys)
{
    ActingWindow window;
    ASSERT_NE(FALSE, window.Open());
    EXPECT_EQ(0, window.SendMessage(WM_NOTIFY, 6, 0)) << "any program can send it";
    EXPECT_EQ(0, window.SendMessage(WM_DRAWITEM, 6, 0));
}

TEST(CurrentMessageTest, AnswerOfTheControlItself_IsTheNotifications)
{
    ActingWindow window;
    ASSERT_NE(FALSE, window.Open());
    AnsweringControl control;
    ASSERT_NE(FALSE, control.CreateEx(0, L"STATIC", L"", WS_CHILD, CRect(0, 0, 5, 5), &window, 6));
    const NMHDR notification = {control.m_hWnd, 6, static_cast<UINT>(NM_CLICK)};
    EXPECT_EQ(77, window.SendMessage(WM_NOTIFY, 6, std::bit_cast<LPARAM>(&notification)));
}

TEST(CurrentMessageTest, HandlerThatFailsWithoutItsObject_DoesNoHarm)
{
    const HWND window = LeavingWindow::Open();
    EXPECT_EQ(0, ::SendMessageW(window, kOuter, 0, 0));
    EXPECT_EQ(FALSE, IsWindow(window));
}

TEST(WindowMapsTest, Lookup_KeepsTheLastError)
{
    const HWND window = MakePlainWindow();
    static_cast<void>(CWnd::FromHandle(window));
    SetLastError(4711);
    static_cast<void>(CWnd::FromHandlePermanent(window));
    EXPECT_EQ(4711U, GetLastError());
    DestroyWindow(window);
}

TEST(WindowMapsTest, ManyBorrowedWindowsThatGo_AreForgotten)
{
    ts::WindowMaps maps;
    constexpr int kWindows = 1000;
    for (int count = 0; count < kWindows; ++count)
    {
        const HWND window = MakePlainWindow();
        static_cast<void>(maps.Temporary(window));
        DestroyWindow(window);
    }
    EXPECT_GT(200U, (maps.*Open(BorrowedTag())).size());
}

TEST(CreationTest, WindowOfAnInputMethodBeforeOurs_IsNotTakenForIt)
{
    WNDCLASSW description{};
    description.style = CS_IME;
    description.lpfnWndProc = ::DefWindowProcW;
    description.lpszClassName = kInputMethodClass;
    RegisterClassW(&description);
    ActingWindow window;
    {
        const ImportPatch<decltype(&CreateWindowExW)> patch(&__imp_CreateWindowExW, CreateAfterInputMethod);
        ASSERT_NE(FALSE, window.Open());
    }
    EXPECT_NE(g_inputMethod, window.m_hWnd);
    EXPECT_EQ(L"Static", ClassOf(window.m_hWnd));
    EXPECT_EQ(nullptr, CWnd::FromHandlePermanent(g_inputMethod));
    DestroyWindow(g_inputMethod);
}

TEST(CreationTest, WindowMadeWhileOursFails_IsNotTakenForIt)
{
    ActingWindow window;
    window.m_refusesToStart = true;
    HWND other = nullptr;
    window.m_atEnd = [&] { other = MakePlainWindow(); };
    EXPECT_EQ(FALSE, window.Open());
    ASSERT_NE(nullptr, other);
    EXPECT_EQ(nullptr, CWnd::FromHandlePermanent(other));
    EXPECT_EQ(nullptr, window.m_hWnd);
    DestroyWindow(other);
}

TEST(ModalOwnerTest, ParentThatIsAChild_StandsForItsTopLevelWindow)
{
    ActingWindow top;
    ASSERT_NE(FALSE, top.Open());
    CWnd child;
    ASSERT_NE(FALSE, child.CreateEx(0, L"STATIC", L"", WS_CHILD | WS_VISIBLE, CRect(0, 0, 5, 5), &top, 1));
    top.ShowWindow(SW_SHOW);
    ControlsDialog dialog(&child, IDD_PLAIN);
    dialog.m_exchanges = false;
    bool topIsEnabled = true;
    bool childIsEnabled = false;
    dialog.m_onInit = [&](ControlsDialog& shown)
    {
        topIsEnabled = top.IsWindowEnabled() != FALSE;
        childIsEnabled = child.IsWindowEnabled() != FALSE;
        shown.EndDialog(7);
    };
    EXPECT_EQ(7, dialog.DoModal());
    EXPECT_FALSE(topIsEnabled);
    EXPECT_TRUE(childIsEnabled);
    EXPECT_NE(FALSE, top.IsWindowEnabled());
}
