#include "platform/ControlsTheme.h"
#include "platform/mfc/afxwin.h"
#include "platform/ts/CcvAutoCompleteEditCtrl.h"
#include "platform/ts/CcvGdiUtilities.h"
#include "platform/ts/CcvSoundUtilities.h"
#include "platform/ts/CcvSplitMenuButton.h"
#include "platform/ts/CcvTimedBackgroundWaiter.h"
#include "platform/ts/SuggestionList.h"
#include "tests/platform/ImportPatch.h"
#include "tests/support/HeapKind.h"
#include "tests/support/ManyRounds.h"
#include "tests/support/TextOutput.h"
#include "tests/support/WindowDriver.h"

#include <atomic>
#include <bit>
#include <commctrl.h>
#include <gtest/gtest.h>
#include <memory>
#include <mmsystem.h>
#include <thread>

extern "C"
{
    extern decltype(&CreateFontIndirectW) __imp_CreateFontIndirectW;
}

namespace
{

using namespace ts::test;

constexpr UINT kMain = 40001;
constexpr UINT kVariant = 40003;
constexpr UINT kDisabled = 40004;

/// The window around a control; writes down the commands.
class Frame : public CWnd
{
  public:
    Frame()
    {
        EXPECT_NE(FALSE,
                  CreateEx(0, L"#32770", L"frame", WS_POPUP | WS_VISIBLE, CRect(0, 0, 300, 200), nullptr, 0));
        SetActiveWindow(m_hWnd);
    }
    std::vector<UINT> m_commands;

  protected:
    void OnCommandInRange(UINT id) { m_commands.push_back(id); }
    void OnMain() { m_commands.push_back(kMain); }
    void OnUpdate(CCmdUI* ui) { ui->Enable(ui->m_nID != kDisabled); }
    DECLARE_MESSAGE_MAP()
};

BEGIN_MESSAGE_MAP(Frame, CWnd)
ON_COMMAND_RANGE(kVariant, kDisabled, OnCommandInRange)
ON_BN_CLICKED(kMain, OnMain)
ON_UPDATE_COMMAND_UI_RANGE(kMain, kDisabled, OnUpdate)
END_MESSAGE_MAP()

class SplitButtonTest : public testing::Test
{
  protected:
    void SetUp() override
    {
        constexpr DWORD kStyle = WS_CHILD | WS_TABSTOP | BS_DEFPUSHBUTTON;
        ASSERT_NE(FALSE, m_button.Create(L"Snooze", kStyle, CRect(10, 10, 110, 40), &m_frame, kMain));
        m_button.ShowWindow(SW_SHOW);
        m_button.AddMenuItem(kMain, L"5 minutes", 0);
        m_button.AddMenuItem(kVariant, L"15 minutes", 0);
        m_button.AddMenuItem(kDisabled, L"20 minutes", 0);
        PumpMessages();
    }

    Frame m_frame;
    CcvSplitMenuButton m_button;
};

} // namespace

TEST_F(SplitButtonTest, HostWithoutManifest_ButtonIsASplitButtonAllTheSame)
{
    BUTTON_SPLITINFO info{};
    info.mask = BCSIF_STYLE;
    EXPECT_NE(0, m_button.SendMessage(BCM_GETSPLITINFO, 0, std::bit_cast<LPARAM>(&info)));
    EXPECT_EQ(DWORD{BS_DEFSPLITBUTTON}, m_button.GetStyle() & BS_TYPEMASK);
}

TEST_F(SplitButtonTest, MainPart_SendsItsOwnCommand)
{
    Click(m_button.m_hWnd, 20, 15);
    EXPECT_EQ(std::vector{kMain}, m_frame.m_commands);
}

TEST_F(SplitButtonTest, DownKeyThenChoice_SendsTheChoice)
{
    SetFocus(m_button.m_hWnd);
    const WhenShown choose(L"#32768",
                           [&](HWND menu)
                           {
                               const auto handle =
                                   std::bit_cast<HMENU>(SendMessageW(menu, MN_GETHMENU, 0, 0));
                               EXPECT_EQ(3, GetMenuItemCount(handle));
                               EXPECT_EQ(0U, GetMenuState(handle, kVariant, MF_BYCOMMAND) & MF_GRAYED);
                               EXPECT_NE(0U, GetMenuState(handle, kDisabled, MF_BYCOMMAND) & MF_GRAYED);
                               for (const UINT key : {VK_DOWN, VK_DOWN, VK_RETURN})
                               {
                                   PostMessageW(m_button.m_hWnd, WM_KEYDOWN, key, 1);
                               }
                           });
    m_button.SendMessage(WM_KEYDOWN, VK_DOWN, 1);
    EXPECT_TRUE(choose.Happened());
    EXPECT_EQ(std::vector{kVariant}, m_frame.m_commands);
}

TEST_F(SplitButtonTest, Arrow_OpensTheMenuAndEscapeChoosesNothing)
{
    const WhenShown leave(L"#32768", [&](HWND) { PostMessageW(m_button.m_hWnd, WM_KEYDOWN, VK_ESCAPE, 1); });
    Click(m_button.m_hWnd, 96, 15);
    EXPECT_TRUE(leave.Happened());
    EXPECT_TRUE(m_frame.m_commands.empty());
}

TEST_F(SplitButtonTest, WindowGoesWhileTheMenuIsOpen_NoHarm)
{
    const WhenShown destroy(L"#32768", [&](HWND) { m_frame.DestroyWindow(); });
    m_button.SendMessage(WM_KEYDOWN, VK_DOWN, 1);
    EXPECT_TRUE(destroy.Happened());
    EXPECT_EQ(nullptr, m_button.m_hWnd);
}

TEST_F(SplitButtonTest, DownKeyInADialog_IsTheButtonsOwn)
{
    MSG down{};
    down.message = WM_KEYDOWN;
    down.wParam = VK_DOWN;
    const auto code = [&]
    { return m_button.SendMessage(WM_GETDLGCODE, down.wParam, std::bit_cast<LPARAM>(&down)); };
    EXPECT_NE(0, code() & DLGC_WANTMESSAGE);
    down.wParam = VK_RIGHT;
    EXPECT_EQ(0, code() & DLGC_WANTMESSAGE);
    EXPECT_EQ(0, m_button.SendMessage(WM_GETDLGCODE) & DLGC_WANTMESSAGE);
}

TEST(ControlsThemeTest, Nested_EachEndsForItself)
{
    HANDLE outside = nullptr;
    GetCurrentActCtx(&outside);
    {
        const ts::ControlsThemeScope outer;
        EXPECT_TRUE(outer.IsActive());
        const ts::ControlsThemeScope inner;
        EXPECT_TRUE(inner.IsActive());
    }
    HANDLE afterwards = nullptr;
    GetCurrentActCtx(&afterwards);
    EXPECT_EQ(outside, afterwards);
    ReleaseActCtx(outside);
    ReleaseActCtx(afterwards);
}

TEST(SuggestionListTest, Enumerated_GivesCopiesInOrder)
{
    const auto texts = std::make_shared<const std::vector<CString>>(std::vector<CString>{L"a", L"", L"ccc"});
    auto* const created = new ts::SuggestionList(texts);
    ts::SuggestionList& each = *created;
    LPOLESTR got[4] = {};
    ULONG count = 0;
    EXPECT_EQ(S_OK, each.Next(1, got, &count));
    EXPECT_EQ(S_FALSE, each.Next(3, got + 1, &count));
    EXPECT_EQ(2U, count);
    EXPECT_EQ(std::wstring(L"a"), got[0]);
    EXPECT_EQ(std::wstring(L""), got[1]);
    EXPECT_EQ(std::wstring(L"ccc"), got[2]);
    for (LPOLESTR text : got)
    {
        CoTaskMemFree(text);
    }
    EXPECT_EQ(S_OK, each.Reset());
    EXPECT_EQ(S_OK, each.Skip(2));
    IEnumString* copy = nullptr;
    ASSERT_EQ(S_OK, each.Clone(&copy));
    EXPECT_EQ(S_FALSE, copy->Skip(2)) << "one is left";
    EXPECT_EQ(S_FALSE, copy->Skip(1)) << "none is left";
    EXPECT_EQ(0U, copy->Release());
    EXPECT_EQ(0U, each.Release());
}

TEST(AutoCompleteEditTest, Typed_SuggestionsThatFitAreOffered)
{
    const Frame frame;
    CcvAutoCompleteEditCtrl edit;
    ASSERT_NE(FALSE, edit.Create(WS_CHILD | WS_VISIBLE | ES_AUTOHSCROLL, CRect(10, 10, 150, 30),
                                 CWnd::FromHandle(frame.m_hWnd), 1));
    ASSERT_NE(FALSE, edit.SetSuggestions({L"Call back", L"Check progress", L"Meeting"}));
    SetFocus(edit.m_hWnd);
    TypeText(L"c");
    EXPECT_EQ(L"c", TextOf(edit.m_hWnd)) << "nothing is typed for the user";
    std::vector<std::wstring> offered;
    for (int choice = 0; choice < 2; ++choice)
    {
        edit.SendMessage(WM_KEYDOWN, VK_DOWN, 1);
        offered.push_back(TextOf(edit.m_hWnd));
    }
    EXPECT_EQ((std::vector<std::wstring>{L"Call back", L"Check progress"}), offered);
}

TEST(MakersControlsTest, ManyRounds_LeaveNothingBehind)
{
    Frame frame;
    const auto round = [&]
    {
        CcvAutoCompleteEditCtrl edit;
        ASSERT_NE(FALSE, edit.Create(WS_CHILD | WS_VISIBLE, CRect(10, 10, 150, 30), &frame, 1));
        ASSERT_NE(FALSE, edit.SetSuggestions({L"one", L"two"}));
        CcvSplitMenuButton button;
        ASSERT_NE(FALSE, button.Create(L"Snooze", WS_CHILD | WS_VISIBLE, CRect(10, 40, 110, 60), &frame, 2));
    };
    ExpectRoundsLeaveNothing(Rounds(2000), round);
}

TEST(GdiUtilitiesTest, DescribedFont_IsMadeWithItsWeight)
{
    LOGFONTW description{};
    GetObjectW(GetStockObject(DEFAULT_GUI_FONT), sizeof description, &description);
    description.lfWeight = 700;
    CFont font;
    ASSERT_NE(FALSE, CcvGdiUtilities::CreateSafeFont(font, description));
    LOGFONTW made{};
    ASSERT_NE(FALSE, font.GetLogFont(&made));
    EXPECT_EQ(700, made.lfWeight);
    EXPECT_EQ(std::wstring(description.lfFaceName), made.lfFaceName);
}

TEST(GdiUtilitiesTest, FontThatCannotBeMade_BecomesTheOneOfDialogs)
{
    static int s_refusals = 0;
    static const auto s_create = __imp_CreateFontIndirectW;
    const ImportPatch<decltype(&CreateFontIndirectW)> patch(
        &__imp_CreateFontIndirectW,
        [](const LOGFONTW* description) -> HFONT
        { return s_refusals-- > 0 ? nullptr : s_create(description); });
    LOGFONTW usual{};
    ASSERT_NE(0, GetObjectW(GetStockObject(DEFAULT_GUI_FONT), sizeof usual, &usual));
    LOGFONTW wanted = usual;
    wanted.lfWeight = 900;
    CFont font;
    s_refusals = 1;
    ASSERT_NE(FALSE, CcvGdiUtilities::CreateSafeFont(font, wanted));
    LOGFONTW made{};
    ASSERT_NE(FALSE, font.GetLogFont(&made));
    EXPECT_EQ(usual.lfWeight, made.lfWeight);
    EXPECT_EQ(std::wstring(usual.lfFaceName), made.lfFaceName);
    CFont none;
    s_refusals = 2;
    EXPECT_EQ(FALSE, CcvGdiUtilities::CreateSafeFont(none, wanted));
}

TEST(SoundUtilitiesTest, NoSuchSound_IsQuietAndSaysSo)
{
    EXPECT_EQ(FALSE, CcvSoundUtilities::PlaySoundHelper(L"C:\\no such sound.wav", nullptr,
                                                        SND_FILENAME | SND_NODEFAULT));
    EXPECT_NE(nullptr, GetModuleHandleW(L"winmm.dll")) << "the system was asked";
}

TEST(TimedWaiterTest, Done_EndsTheWaitAtOnce)
{
    const Frame frame;
    int looks = 0;
    const ULONGLONG start = GetTickCount64();
    EXPECT_TRUE(CcvTimedBackgroundWaiter(&frame, 20'000, 10).Wait([&] { return ++looks == 3; }));
    EXPECT_EQ(3, looks);
    EXPECT_GT(10'000U, GetTickCount64() - start);
}

TEST(TimedWaiterTest, NeverDone_EndsWithTheTime)
{
    const Frame frame;
    const ULONGLONG start = GetTickCount64();
    EXPECT_FALSE(CcvTimedBackgroundWaiter(&frame, 100, 30).Wait());
    EXPECT_LE(80U, GetTickCount64() - start);
}

TEST(TimedWaiterTest, WhileWaiting_SentMessagesAreAnsweredAndKeysStayInTheQueue)
{
    Frame frame;
    frame.PostMessage(WM_KEYDOWN, 'A', 1);
    LRESULT answer = 0;
    std::atomic<bool> answered = false;
    std::thread sender(
        [&]
        {
            answer = SendMessageW(frame.m_hWnd, WM_GETTEXTLENGTH, 0, 0);
            answered = true;
        });
    EXPECT_TRUE(CcvTimedBackgroundWaiter(&frame, 5000, 10).Wait([&] { return answered.load(); }));
    sender.join();
    EXPECT_EQ(5, answer);
    MSG key{};
    EXPECT_NE(FALSE, PeekMessageW(&key, frame.m_hWnd, WM_KEYDOWN, WM_KEYDOWN, PM_REMOVE));
}

TEST(TimedWaiterTest, WindowGone_EndsTheWait)
{
    Frame frame;
    const ULONGLONG start = GetTickCount64();
    EXPECT_FALSE(CcvTimedBackgroundWaiter(&frame, 20'000, 10)
                     .Wait(
                         [&]
                         {
                             frame.DestroyWindow();
                             return false;
                         }));
    EXPECT_GT(10'000U, GetTickCount64() - start);
}

TEST(TimedWaiterTest, WhileWaiting_WindowsArePainted)
{
    /// Notes when it was asked to paint.
    class PaintedFrame : public Frame
    {
      public:
        bool m_painted = false;

      protected:
        LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override
        {
            m_painted = m_painted || message == WM_PAINT;
            return Frame::WindowProc(message, wParam, lParam);
        }
    };
    PaintedFrame frame;
    PumpMessages();
    frame.m_painted = false;
    InvalidateRect(frame.m_hWnd, nullptr, TRUE);
    EXPECT_TRUE(CcvTimedBackgroundWaiter(&frame, 5000, 10).Wait([&] { return frame.m_painted; }));
}
