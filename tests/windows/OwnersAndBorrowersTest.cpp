// What a modal dialog does for its owner, where a window is placed, and windows that somebody else made.

#include "platform/mfc/CDialog.h"
#include "platform/mfc/WindowMaps.h"
#include "tests/platform/ImportPatch.h"
#include "tests/support/WindowDriver.h"

#include <atomic>
#include <bit>
#include <chrono>
#include <gtest/gtest.h>
#include <memory>
#include <thread>

extern "C"
{
    extern decltype(&SetWindowLongPtrW) __imp_SetWindowLongPtrW;
}

namespace
{

using namespace ts::test;
using namespace std::chrono_literals;

constexpr UINT kEnd = WM_APP + 1;

/// A dialog of one style without any control: nothing in it has a timer or a caret that would keep its loop
/// awake.
class BareDialog : public CDialog
{
  public:
    explicit BareDialog(DWORD style, CWnd* parent = nullptr)
        : m_template(GlobalAlloc(GMEM_FIXED | GMEM_ZEROINIT, sizeof(DLGTEMPLATE) + 3 * sizeof(WORD)))
    {
        auto* const description = static_cast<DLGTEMPLATE*>(m_template.get());
        description->style = style;
        description->cx = 100;
        description->cy = 50;
        InitModalIndirect(m_template.get(), parent);
    }

    /// For other threads; null until the window is there.
    [[nodiscard]] HWND GetWindow() const noexcept { return m_window; }

    BOOL OnInitDialog() override
    {
        m_window = m_hWnd;
        return CDialog::OnInitDialog();
    }

  protected:
    LRESULT OnEnd(WPARAM wParam, LPARAM)
    {
        EndDialog(static_cast<INT_PTR>(wParam));
        return 0;
    }
    DECLARE_MESSAGE_MAP()

  private:
    struct Free
    {
        void operator()(void* memory) const noexcept { GlobalFree(memory); }
    };
    std::unique_ptr<void, Free> m_template;
    std::atomic<HWND> m_window = nullptr;
};

BEGIN_MESSAGE_MAP(BareDialog, CDialog)
ON_MESSAGE(kEnd, OnEnd)
END_MESSAGE_MAP()

class Frame : public CWnd
{
  public:
    explicit Frame(const CRect& place = CRect(30, 40, 230, 140), CWnd* owner = nullptr)
    {
        EXPECT_NE(FALSE,
                  CreateEx(0, L"STATIC", L"frame", WS_POPUP | WS_CAPTION | WS_MINIMIZEBOX, place, owner, 0));
    }
};

HWND MakePlainWindow()
{
    return CreateWindowExW(0, L"STATIC", L"", WS_POPUP, 0, 0, 9, 9, nullptr, nullptr, nullptr, nullptr);
}

int g_changes = 0;

LONG_PTR WINAPI NoteChange(HWND, int, LONG_PTR)
{
    ++g_changes;
    return 0;
}

CRect WorkArea()
{
    CRect area;
    SystemParametersInfoW(SPI_GETWORKAREA, 0, &area, 0);
    return area;
}

} // namespace

TEST(ModalDialogTest, EndedByASentMessage_LoopDoesNotWaitForAnother)
{
    BareDialog dialog(WS_POPUP | WS_CAPTION);
    std::atomic<bool> isOver = false;
    std::atomic<bool> wasHelped = false;
    std::thread sender(
        [&, desktop = GetThreadDesktop(GetCurrentThreadId())]
        {
            SetThreadDesktop(desktop);
            while (IsWindowVisible(dialog.GetWindow()) == FALSE)
            {
                std::this_thread::sleep_for(1ms);
            }
            // The loop handles what comes with the window first. Were it not done, the test would see less.
            std::this_thread::sleep_for(300ms);
            ::SendMessageW(dialog.GetWindow(), kEnd, 7, 0);
            for (int wait = 0; wait < 300 && !isOver; ++wait)
            {
                std::this_thread::sleep_for(10ms);
            }
            if (!isOver)
            {
                wasHelped = true;
                ::PostMessageW(dialog.GetWindow(), WM_NULL, 0, 0);
            }
        });
    EXPECT_EQ(7, dialog.DoModal());
    isOver = true;
    sender.join();
    EXPECT_FALSE(wasHelped);
}

TEST(ModalDialogTest, End_ActivatesItsOwnerAndNotWhatLiesBetween)
{
    Frame owner;
    Frame between;
    owner.ShowWindow(SW_SHOW);
    between.ShowWindow(SW_SHOWNOACTIVATE);
    SetActiveWindow(owner.m_hWnd);
    // The system knows of an owner only where a popup goes.
    BareDialog dialog(WS_CAPTION | WS_SYSMENU, &owner);
    const WhenShown close(L"#32770",
                          [&](HWND window)
                          {
                              ::SetWindowPos(between.m_hWnd, window, 0, 0, 0, 0,
                                             SWP_NOMOVE | SWP_NOSIZE | SWP_NOACTIVATE);
                              EXPECT_EQ(window, GetActiveWindow());
                              ::PostMessageW(window, WM_COMMAND, IDCANCEL, 0);
                          });
    EXPECT_EQ(IDCANCEL, dialog.DoModal());
    EXPECT_EQ(owner.m_hWnd, GetActiveWindow());
}

TEST(CenterWindowTest, OwnerThatIsSeen_IsTheMiddle)
{
    const CRect place(100, 80, 500, 380);
    Frame owner(place);
    owner.ShowWindow(SW_SHOW);
    Frame window(CRect(0, 0, 120, 60), &owner);
    window.CenterWindow();
    CRect centred;
    window.GetWindowRect(centred);
    EXPECT_EQ(place.CenterPoint(), centred.CenterPoint());
}

TEST(CenterWindowTest, OwnerThatIsNotSeen_LeavesTheScreen)
{
    for (const int state : {SW_HIDE, SW_MINIMIZE})
    {
        Frame owner(CRect(0, 0, 200, 100));
        owner.ShowWindow(SW_SHOW);
        owner.ShowWindow(state);
        Frame window(CRect(0, 0, 120, 60), &owner);
        window.CenterWindow();
        CRect centred;
        window.GetWindowRect(centred);
        EXPECT_EQ(WorkArea().CenterPoint(), centred.CenterPoint()) << state;
    }
}

TEST(BorrowedWindowTest, MapsOfAThreadGo_WindowsThatItBorrowedStay)
{
    const HWND window = MakePlainWindow();
    {
        ts::WindowMaps maps;
        EXPECT_EQ(window, maps.Temporary(window)->m_hWnd);
    }
    EXPECT_NE(FALSE, IsWindow(window));
    DestroyWindow(window);
}

TEST(BorrowedWindowTest, AttachedWhereAnotherObjectLeft_ProcedureStays)
{
    const HWND window = MakePlainWindow();
    const LONG_PTR own = GetWindowLongPtrW(window, GWLP_WNDPROC);
    CWnd first;
    ASSERT_NE(FALSE, first.SubclassWindow(window));
    EXPECT_EQ(window, first.Detach());
    CWnd second;
    ASSERT_NE(FALSE, second.Attach(window));
    {
        // Not every system lets it show that it was told of no procedure.
        const ImportPatch<decltype(&SetWindowLongPtrW)> patch(&__imp_SetWindowLongPtrW, NoteChange);
        EXPECT_EQ(window, second.UnsubclassWindow());
    }
    EXPECT_EQ(0, g_changes) << "it knows of no other procedure";
    SetWindowLongPtrW(window, GWLP_WNDPROC, own);
    DestroyWindow(window);
}

TEST(BorrowedWindowTest, AttachedOnly_IsLetGoWhenItIsDestroyed)
{
    CWnd object;
    ASSERT_NE(FALSE, object.Attach(MakePlainWindow()));
    EXPECT_NE(FALSE, object.DestroyWindow());
    EXPECT_EQ(nullptr, object.m_hWnd);
}

TEST(BorrowedWindowTest, SomebodyElsesProcedureOverOurs_StaysInPlace)
{
    const HWND window = MakePlainWindow();
    CWnd object;
    ASSERT_NE(FALSE, object.SubclassWindow(window));
    const auto theirs = std::bit_cast<LONG_PTR>(&::DefWindowProcW);
    SetWindowLongPtrW(window, GWLP_WNDPROC, theirs);
    const LONG_PTR set = GetWindowLongPtrW(window, GWLP_WNDPROC);
    EXPECT_EQ(window, object.UnsubclassWindow());
    EXPECT_EQ(set, GetWindowLongPtrW(window, GWLP_WNDPROC));
    DestroyWindow(window);
}

TEST(CenterWindowTest, OwnerAtTheEdge_WindowStaysOnTheScreen)
{
    const CRect area = WorkArea();
    Frame owner(CRect(area.right - 60, area.bottom - 40, area.right, area.bottom));
    owner.ShowWindow(SW_SHOW);
    Frame window(CRect(0, 0, 300, 200), &owner);
    window.CenterWindow();
    CRect place;
    window.GetWindowRect(place);
    EXPECT_EQ(area.BottomRight(), place.BottomRight());
}

TEST(ModalDialogTest, DialogThatIsOpen_IsNotOpenedAgain)
{
    BareDialog dialog(WS_POPUP | WS_CAPTION);
    DLGTEMPLATE plain{};
    plain.style = WS_POPUP;
    // The template's texts are empty, and lie behind it.
    struct
    {
        DLGTEMPLATE head{};
        WORD texts[3]{};
    } description;
    description.head = plain;
    ASSERT_NE(FALSE, dialog.CreateIndirect(&description.head));
    const HWND window = dialog.m_hWnd;
    const std::size_t windows = WindowCount();
    EXPECT_EQ(FALSE, dialog.CreateIndirect(&description.head));
    EXPECT_EQ(-1, dialog.DoModal());
    EXPECT_EQ(window, dialog.m_hWnd);
    EXPECT_EQ(windows, WindowCount());
}

TEST(ModifyStyleTest, NewFrame_IsAskedForWhereItIsWanted)
{
    /// Notes how its place and frame are changed.
    class NotedFrame : public Frame
    {
      public:
        UINT m_flags = 0;

      protected:
        LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override
        {
            if (message == WM_WINDOWPOSCHANGING)
            {
                m_flags |= std::bit_cast<const WINDOWPOS*>(lParam)->flags;
            }
            return Frame::WindowProc(message, wParam, lParam);
        }
    };
    NotedFrame frame;
    EXPECT_NE(FALSE, frame.ModifyStyle(0, WS_THICKFRAME, SWP_FRAMECHANGED));
    EXPECT_NE(0U, frame.m_flags & SWP_FRAMECHANGED);
}
