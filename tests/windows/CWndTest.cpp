#include "platform/mfc/afxwin.h"
#include "tests/support/HeapKind.h"
#include "tests/support/ManyRounds.h"
#include "tests/support/WindowDriver.h"

#include <bit>
#include <commctrl.h>
#include <gtest/gtest.h>
#include <optional>
#include <stdexcept>
#include <string>
#include <thread>

namespace
{

using namespace ts::test;

constexpr UINT kFail = WM_APP + 1;
constexpr UINT kAdd = WM_APP + 2;
constexpr UINT kDeleteSelf = WM_APP + 3;

/// A window that writes down what it is told.
class Recorder : public CWnd
{
  public:
    BOOL Open(CWnd* parent = nullptr)
    {
        const DWORD style = parent == nullptr ? WS_OVERLAPPEDWINDOW : WS_CHILD;
        return CreateEx(0, L"STATIC", L"recorder", style | WS_VISIBLE, CRect(10, 20, 210, 120), parent, 0);
    }

    std::wstring m_log;
    std::optional<MSG> m_seen;
    bool m_failsInPaint = false;
    bool m_refusesCreation = false;

  protected:
    void PreSubclassWindow() override { m_log += L"attached "; }
    BOOL PreCreateWindow(CREATESTRUCTW&) override { return m_refusesCreation ? FALSE : TRUE; }
    void PostNcDestroy() override { m_log += L"gone "; }

    LRESULT OnAdd(WPARAM wParam, LPARAM lParam)
    {
        m_seen = *GetCurrentMessage();
        return static_cast<LRESULT>(wParam) + lParam;
    }
    LRESULT OnFail(WPARAM, LPARAM) { throw std::runtime_error("a handler that fails"); }
    LRESULT OnDeleteSelf(WPARAM, LPARAM)
    {
        DestroyWindow();
        throw std::runtime_error("fails without a window");
    }
    int OnCreate(CREATESTRUCTW* creation)
    {
        m_log += L"create " + std::to_wstring(creation->cx) + L" ";
        return CWnd::OnCreate(creation);
    }
    void OnDestroy()
    {
        m_log += L"destroy ";
        CWnd::OnDestroy();
    }
    void OnClose() { m_log += L"close "; }
    void OnPaint()
    {
        if (m_failsInPaint)
        {
            throw std::runtime_error("cannot paint");
        }
        const CPaintDC dc(m_hWnd);
        m_log += L"paint ";
    }
    BOOL OnEraseBkgnd(CDC* dc)
    {
        CRect all;
        GetClientRect(all);
        dc->FillSolidRect(all, RGB(1, 2, 3));
        return TRUE;
    }
    void OnSize(UINT, int width, int height)
    {
        m_log += L"size " + std::to_wstring(width) + L"x" + std::to_wstring(height) + L" ";
    }
    void OnTimer(UINT_PTR id) { m_log += L"timer " + std::to_wstring(id) + L" "; }
    void OnKeyDown(UINT key, UINT repeats, UINT flags)
    {
        m_log += L"key " + std::to_wstring(key) + L"/" + std::to_wstring(repeats) + L"/" +
                 std::to_wstring(flags) + L" ";
    }
    void OnSysKeyDown(UINT key, UINT, UINT) { m_log += L"syskey " + std::to_wstring(key) + L" "; }
    void OnChar(UINT character, UINT, UINT)
    {
        m_log += std::wstring(L"char ") + static_cast<wchar_t>(character) + L" ";
    }
    void OnLButtonDown(UINT flags, CPoint point) { Mouse(L"down", flags, point); }
    void OnLButtonUp(UINT flags, CPoint point) { Mouse(L"up", flags, point); }
    void OnLButtonDblClk(UINT flags, CPoint point) { Mouse(L"double", flags, point); }
    BOOL OnMouseWheel(UINT flags, short delta, CPoint point)
    {
        m_log += L"wheel " + std::to_wstring(delta) + L" ";
        Mouse(L"at", flags, point);
        return TRUE;
    }
    BOOL OnSetCursor(CWnd* window, UINT hitTest, UINT message)
    {
        m_log += window == this ? L"cursor own " : L"cursor other ";
        m_log += std::to_wstring(hitTest) + L"/" + std::to_wstring(message) + L" ";
        return TRUE;
    }
    void OnSetFocus(CWnd* former) { m_log += former == nullptr ? L"focus none " : L"focus other "; }
    void OnKillFocus(CWnd*) { m_log += L"unfocus "; }
    UINT OnGetDlgCode() { return DLGC_WANTARROWS; }
    void OnSysCommand(UINT command, LPARAM lParam)
    {
        m_log += L"system " + std::to_wstring(command) + L"/" + std::to_wstring(lParam) + L" ";
    }
    void OnSysColorChange() { m_log += L"colours "; }
    void OnSettingChange(UINT action, const wchar_t* section)
    {
        m_log += L"setting " + std::to_wstring(action) + L" " + section + L" ";
    }
    void OnRange(UINT id) { m_log += L"command " + std::to_wstring(id) + L" "; }
    void OnUpdateRange(CCmdUI* ui) { ui->Enable(ui->m_nID != 40002); }
    void OnControl() { m_log += L"control "; }
    void OnNotification(NMHDR* notification, LRESULT* result)
    {
        m_log += L"notify " + std::to_wstring(notification->idFrom) + L" ";
        *result = 77;
    }

    DECLARE_MESSAGE_MAP()

  private:
    void Mouse(const wchar_t* what, UINT flags, CPoint point)
    {
        m_log += std::wstring(what) + L" " + std::to_wstring(flags) + L"@" + std::to_wstring(point.x) + L"," +
                 std::to_wstring(point.y) + L" ";
    }
};

BEGIN_MESSAGE_MAP(Recorder, CWnd)
ON_MESSAGE(kAdd, OnAdd)
ON_MESSAGE(kFail, OnFail)
ON_MESSAGE(kDeleteSelf, OnDeleteSelf)
ON_WM_CREATE()
ON_WM_DESTROY()
ON_WM_CLOSE()
ON_WM_PAINT()
ON_WM_ERASEBKGND()
ON_WM_SIZE()
ON_WM_TIMER()
ON_WM_KEYDOWN()
ON_WM_SYSKEYDOWN()
ON_WM_CHAR()
ON_WM_LBUTTONDOWN()
ON_WM_LBUTTONUP()
ON_WM_LBUTTONDBLCLK()
ON_WM_MOUSEWHEEL()
ON_WM_SETCURSOR()
ON_WM_SETFOCUS()
ON_WM_KILLFOCUS()
ON_WM_GETDLGCODE()
ON_WM_SYSCOMMAND()
ON_WM_SYSCOLORCHANGE()
ON_WM_SETTINGCHANGE()
ON_COMMAND_RANGE(40001, 40003, OnRange)
ON_UPDATE_COMMAND_UI_RANGE(40001, 40003, OnUpdateRange)
ON_CONTROL(EN_CHANGE, 5, OnControl)
ON_NOTIFY(NM_CLICK, 6, OnNotification)
END_MESSAGE_MAP()

} // namespace

TEST(CWndTest, FirstMessages_ReachTheObject)
{
    Recorder window;
    ASSERT_NE(FALSE, window.Open());
    EXPECT_EQ(0U, window.m_log.find(L"attached create 200 ")) << CString(window.m_log.c_str()).GetString();
    EXPECT_EQ(&window, CWnd::FromHandlePermanent(window.m_hWnd));
    EXPECT_EQ(&window, CWnd::FromHandle(window.m_hWnd));
    EXPECT_NE(FALSE, window.IsWindowVisible());
}

TEST(CWndTest, Destroyed_LinkIsCutBeforeTheEndIsTold)
{
    Recorder window;
    ASSERT_NE(FALSE, window.Open());
    const HWND handle = window.m_hWnd;
    window.m_log.clear();
    EXPECT_NE(FALSE, window.DestroyWindow());
    EXPECT_NE(std::wstring::npos, window.m_log.find(L"destroy gone "));
    EXPECT_EQ(nullptr, window.m_hWnd);
    EXPECT_EQ(FALSE, IsWindow(handle));
    EXPECT_EQ(nullptr, CWnd::FromHandlePermanent(handle));
    EXPECT_EQ(FALSE, window.DestroyWindow());
}

TEST(CWndTest, ObjectEndsFirst_WindowGoesToo)
{
    HWND handle = nullptr;
    {
        Recorder window;
        ASSERT_NE(FALSE, window.Open());
        handle = window.m_hWnd;
    }
    EXPECT_EQ(FALSE, IsWindow(handle));
}

TEST(CWndTest, Refused_NoWindow)
{
    Recorder window;
    window.m_refusesCreation = true;
    EXPECT_EQ(FALSE, window.Open());
    EXPECT_EQ(nullptr, window.m_hWnd);
}

TEST(CWndTest, UnknownClass_NoWindowAndNobodyWaits)
{
    Recorder window;
    EXPECT_EQ(FALSE, window.CreateEx(0, L"No such class", L"", 0, CRect(), nullptr, 0));
    // The next window that the thread makes must not become this object's.
    const HWND other =
        CreateWindowExW(0, L"STATIC", L"", WS_POPUP, 0, 0, 1, 1, nullptr, nullptr, nullptr, nullptr);
    EXPECT_EQ(nullptr, CWnd::FromHandlePermanent(other));
    EXPECT_EQ(nullptr, window.m_hWnd);
    DestroyWindow(other);
}

TEST(CWndTest, SecondWindowForOneObject_Refused)
{
    Recorder window;
    ASSERT_NE(FALSE, window.Open());
    const HWND first = window.m_hWnd;
    EXPECT_EQ(FALSE, window.Open());
    EXPECT_EQ(first, window.m_hWnd);
}

TEST(CWndTest, MappedMessage_AnsweredByItsHandler)
{
    Recorder window;
    ASSERT_NE(FALSE, window.Open());
    EXPECT_EQ(42, ::SendMessageW(window.m_hWnd, kAdd, 40, 2));
    ASSERT_TRUE(window.m_seen.has_value());
    EXPECT_EQ(kAdd, window.m_seen->message);
    EXPECT_EQ(window.m_hWnd, window.m_seen->hwnd);
    EXPECT_EQ(0U, CWnd::GetCurrentMessage()->message) << "no message is being handled now";
}

TEST(CWndTest, HandlerThrows_DefaultAnswerAndLifeGoesOn)
{
    Recorder window;
    ASSERT_NE(FALSE, window.Open());
    EXPECT_EQ(0, ::SendMessageW(window.m_hWnd, kFail, 1, 2));
    EXPECT_EQ(3, ::SendMessageW(window.m_hWnd, kAdd, 1, 2));
}

TEST(CWndTest, PaintThrows_AreaIsValidAgain)
{
    Recorder window;
    ASSERT_NE(FALSE, window.Open());
    PumpMessages();
    window.m_failsInPaint = true;
    window.Invalidate();
    window.UpdateWindow();
    EXPECT_EQ(FALSE, GetUpdateRect(window.m_hWnd, nullptr, FALSE)) << "or the program would paint for ever";
}

TEST(CWndTest, HandlerThrowsAfterDestroyingTheWindow_NoHarm)
{
    Recorder window;
    ASSERT_NE(FALSE, window.Open());
    EXPECT_EQ(0, ::SendMessageW(window.m_hWnd, kDeleteSelf, 0, 0));
    EXPECT_EQ(nullptr, window.m_hWnd);
}

TEST(CWndTest, EachKindOfMessage_IsUnpackedForItsHandler)
{
    Recorder window;
    ASSERT_NE(FALSE, window.Open());
    PumpMessages();
    const wchar_t section[] = L"intl";
    const struct
    {
        UINT message;
        WPARAM wParam;
        LPARAM lParam;
        const wchar_t* logged;
        LRESULT result;
    } rows[] = {
        {WM_CLOSE, 0, 0, L"close ", 0},
        {WM_SIZE, SIZE_RESTORED, MAKELPARAM(33, 44), L"size 33x44 ", 0},
        {WM_TIMER, 1001, 0, L"timer 1001 ", 0},
        {WM_KEYDOWN, VK_DOWN, MAKELPARAM(2, 0x150), L"key 40/2/336 ", 0},
        {WM_SYSKEYDOWN, VK_DOWN, 1, L"syskey 40 ", 0},
        {WM_CHAR, L'x', 1, L"char x ", 0},
        {WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(7, -9), L"down 1@7,-9 ", 0},
        {WM_LBUTTONUP, 0, MAKELPARAM(-1, 5), L"up 0@-1,5 ", 0},
        {WM_LBUTTONDBLCLK, MK_LBUTTON, MAKELPARAM(1, 2), L"double 1@1,2 ", 0},
        {WM_MOUSEWHEEL, MAKEWPARAM(MK_SHIFT, static_cast<WORD>(-120)), MAKELPARAM(3, 4),
         L"wheel -120 at 4@3,4 ", TRUE},
        {WM_SETCURSOR, std::bit_cast<WPARAM>(window.m_hWnd), MAKELPARAM(HTCLIENT, WM_MOUSEMOVE),
         L"cursor own 1/512 ", TRUE},
        {WM_SETFOCUS, 0, 0, L"focus none ", 0},
        {WM_KILLFOCUS, 0, 0, L"unfocus ", 0},
        {WM_GETDLGCODE, 0, 0, L"", DLGC_WANTARROWS},
        {WM_SYSCOMMAND, SC_CLOSE, 9, L"system 61536/9 ", 0},
        {WM_SYSCOLORCHANGE, 0, 0, L"colours ", 0},
        {WM_SETTINGCHANGE, 3, std::bit_cast<LPARAM>(&section), L"setting 3 intl ", 0},
        {WM_COMMAND, 40001, 0, L"command 40001 ", 1},
        {WM_COMMAND, 40003, 0, L"command 40003 ", 1},
        {WM_COMMAND, 40002, 0, L"", 1}, // disabled: settled without its handler
    };
    for (const auto& row : rows)
    {
        SCOPED_TRACE(row.message);
        window.m_log.clear();
        EXPECT_EQ(row.result, ::SendMessageW(window.m_hWnd, row.message, row.wParam, row.lParam));
        EXPECT_EQ(std::wstring(row.logged), window.m_log);
    }
}

TEST(CWndTest, NotificationsOfControls_ReachTheirHandlers)
{
    Recorder window;
    Recorder control;
    ASSERT_NE(FALSE, window.Open());
    ASSERT_NE(FALSE, control.Open(&window));
    window.m_log.clear();
    const auto from = std::bit_cast<LPARAM>(control.m_hWnd);
    EXPECT_EQ(1, window.SendMessage(WM_COMMAND, MAKEWPARAM(5, EN_CHANGE), from));
    EXPECT_EQ(0, window.SendMessage(WM_COMMAND, MAKEWPARAM(5, EN_UPDATE), from)) << "nobody answers";
    const NMHDR notification = {control.m_hWnd, 6, static_cast<UINT>(NM_CLICK)};
    EXPECT_EQ(77, window.SendMessage(WM_NOTIFY, 6, std::bit_cast<LPARAM>(&notification)));
    EXPECT_EQ(L"control notify 6 ", window.m_log);
}

TEST(CWndTest, EraseBackground_HandlerGetsTheDeviceContext)
{
    Recorder window;
    ASSERT_NE(FALSE, window.Open());
    const CClientDC screen(window.m_hWnd);
    CMemDC memory(screen);
    CBitmap bitmap;
    ASSERT_NE(FALSE, bitmap.CreateCompatibleBitmap(screen.GetSafeHdc(), 4, 4));
    const ts::SelectedObject selected(memory, bitmap.GetSafeHandle());
    EXPECT_EQ(TRUE, window.SendMessage(WM_ERASEBKGND, std::bit_cast<WPARAM>(memory.GetSafeHdc())));
    EXPECT_EQ(RGB(1, 2, 3), memory.GetPixel(3, 3));
}

TEST(CWndTest, Subclassed_MessagesComAndUnsubclassedTheyGoBack)
{
    const HWND handle =
        CreateWindowExW(0, L"EDIT", L"text", WS_POPUP, 0, 0, 50, 20, nullptr, nullptr, nullptr, nullptr);
    const LONG_PTR own = GetWindowLongPtrW(handle, GWLP_WNDPROC);
    Recorder window;
    EXPECT_EQ(FALSE, window.SubclassWindow(nullptr));
    ASSERT_NE(FALSE, window.SubclassWindow(handle));
    EXPECT_EQ(L"attached ", window.m_log);
    EXPECT_EQ(5, ::SendMessageW(handle, kAdd, 2, 3));
    CString text;
    window.GetWindowText(text);
    EXPECT_EQ(L"text", std::wstring(text.GetString())) << "what is not handled goes to the edit control";
    Recorder second;
    EXPECT_EQ(FALSE, second.SubclassWindow(handle)) << "one object for a window";
    EXPECT_EQ(handle, window.UnsubclassWindow());
    EXPECT_EQ(own, GetWindowLongPtrW(handle, GWLP_WNDPROC));
    EXPECT_EQ(0, ::SendMessageW(handle, kAdd, 2, 3));
    EXPECT_NE(FALSE, DestroyWindow(handle));
    EXPECT_EQ(nullptr, window.m_hWnd);
}

TEST(CWndTest, Borrowed_SameObjectWhileTheWindowLivesAndHarmless)
{
    const HWND handle =
        CreateWindowExW(0, L"STATIC", L"borrowed", WS_POPUP, 0, 0, 1, 1, nullptr, nullptr, nullptr, nullptr);
    CWnd* const object = CWnd::FromHandle(handle);
    ASSERT_NE(nullptr, object);
    EXPECT_EQ(handle, object->GetSafeHwnd());
    EXPECT_EQ(nullptr, CWnd::FromHandlePermanent(handle));
    EXPECT_EQ(nullptr, CWnd::FromHandle(nullptr));
    // Many windows come and go; the map forgets them, but not the one that is still there.
    for (int round = 0; round < 500; ++round)
    {
        const HWND other =
            CreateWindowExW(0, L"STATIC", L"", WS_POPUP, 0, 0, 1, 1, nullptr, nullptr, nullptr, nullptr);
        ASSERT_EQ(other, CWnd::FromHandle(other)->m_hWnd);
        DestroyWindow(other);
    }
    EXPECT_EQ(object, CWnd::FromHandle(handle));
    EXPECT_NE(FALSE, IsWindow(handle));
    DestroyWindow(handle);
}

TEST(CWndTest, AnotherThread_KnowsNothingOfTheObject)
{
    Recorder window;
    ASSERT_NE(FALSE, window.Open());
    CWnd* permanent = &window;
    HWND seen = nullptr;
    std::thread(
        [&]
        {
            permanent = CWnd::FromHandlePermanent(window.m_hWnd);
            seen = CWnd::FromHandle(window.m_hWnd)->m_hWnd;
        })
        .join();
    EXPECT_EQ(nullptr, permanent);
    EXPECT_EQ(window.m_hWnd, seen);
}

TEST(CWndTest, StylesAndRectangles_AreThoseOfTheWindow)
{
    Recorder window;
    ASSERT_NE(FALSE, window.Open());
    EXPECT_NE(0U, window.GetStyle() & WS_VISIBLE);
    EXPECT_EQ(FALSE, window.ModifyStyle(0, WS_VISIBLE)) << "nothing to change";
    EXPECT_NE(FALSE, window.ModifyStyleEx(0, WS_EX_APPWINDOW));
    EXPECT_NE(0U, window.GetExStyle() & WS_EX_APPWINDOW);
    window.MoveWindow(CRect(30, 40, 330, 240));
    CRect place;
    window.GetWindowRect(place);
    EXPECT_EQ(CRect(30, 40, 330, 240), place);
    window.ScreenToClient(place);
    window.ClientToScreen(place);
    EXPECT_EQ(CRect(30, 40, 330, 240), place);
    CPoint corner(0, 0);
    window.ClientToScreen(&corner);
    window.ScreenToClient(&corner);
    EXPECT_EQ(CPoint(0, 0), corner);
    window.CenterWindow();
    window.GetWindowRect(place);
    CRect work;
    SystemParametersInfoW(SPI_GETWORKAREA, 0, &work, 0);
    EXPECT_EQ(work.CenterPoint(), place.CenterPoint());
    EXPECT_EQ(CSize(300, 200), place.Size());
}

TEST(CWndTest, TooLargeToCentre_TopLeftStaysInTheWorkArea)
{
    Recorder window;
    ASSERT_NE(FALSE, window.Open());
    CRect work;
    SystemParametersInfoW(SPI_GETWORKAREA, 0, &work, 0);
    window.SetWindowPos(nullptr, 0, 0, work.Width() + 50, work.Height() + 50, SWP_NOZORDER);
    window.CenterWindow();
    CRect place;
    window.GetWindowRect(place);
    EXPECT_EQ(work.TopLeft(), place.TopLeft());
}

TEST(CWndTest, Font_SetIsTheFontGot)
{
    Recorder window;
    ASSERT_NE(FALSE, window.Open());
    EXPECT_NE(nullptr, window.GetFont()) << "the system's font";
    LOGFONTW description{};
    description.lfHeight = -20;
    CFont font;
    ASSERT_NE(FALSE, font.CreateFontIndirect(&description));
    window.SetFont(&font);
    EXPECT_EQ(font.GetHandle(), window.GetFont());
}

TEST(CWndTest, ManyRounds_LeaveNothingBehind)
{
    const auto round = []
    {
        Recorder window;
        ASSERT_NE(FALSE, window.Open());
        const HWND edit =
            CreateWindowExW(0, L"EDIT", L"", WS_CHILD, 0, 0, 9, 9, window.m_hWnd, nullptr, nullptr, nullptr);
        CWnd subclassed;
        ASSERT_NE(FALSE, subclassed.SubclassWindow(edit));
    };
    ExpectRoundsLeaveNothing(Rounds(2000), round);
}
