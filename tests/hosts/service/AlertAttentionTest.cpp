// How the alert makes itself seen where something else has the user's attention.

#include "tests/hosts/service/ServiceTest.h"
#include "tests/platform/ImportPatch.h"

extern "C"
{
    extern decltype(&FlashWindowEx) __imp_FlashWindowEx;
}

namespace
{

using namespace ts::test;

std::vector<FLASHWINFO> g_flashes;

BOOL WINAPI NoteFlash(FLASHWINFO* flash)
{
    g_flashes.push_back(*flash);
    return FALSE;
}

class AlertAttentionTest : public ServiceTest
{
  protected:
    AlertAttentionTest()
    {
        m_store.Add(L"first", At(0));
        m_store.Add(L"second", At(100));
        Start();
        PumpMessages();
        g_flashes.clear();
    }

    ImportPatch<decltype(&FlashWindowEx)> m_flash{&__imp_FlashWindowEx, NoteFlash};
};

} // namespace

TEST_F(AlertAttentionTest, SomethingDueBehindAnotherWindow_FlashesInTheTaskBar)
{
    const ApplicationWindow other(L"AlertAttentionTestOther");
    ShowWindow(other.Get(), SW_SHOW);
    SetForegroundWindow(other.Get());
    WakeAt(At(100));
    EXPECT_EQ(other.Get(), GetForegroundWindow()) << "who works there is not disturbed";
    ASSERT_EQ(1U, g_flashes.size());
    EXPECT_EQ(Dialog(), g_flashes.front().hwnd);
    EXPECT_EQ(DWORD{FLASHW_TRAY | FLASHW_TIMERNOFG}, g_flashes.front().dwFlags);
}

TEST_F(AlertAttentionTest, SomethingDueInTheForeground_DoesNotFlash)
{
    ASSERT_EQ(Dialog(), GetForegroundWindow());
    WakeAt(At(100));
    EXPECT_EQ(2, List().GetItemCount());
    EXPECT_TRUE(g_flashes.empty());
}

TEST_F(AlertAttentionTest, SecondStartWhileTheAlertAsksSomething_ShowsTheQuestion)
{
    const HWND question = CreateWindowExW(0, L"STATIC", L"question", WS_POPUP | WS_CAPTION | WS_VISIBLE, 0, 0,
                                          90, 60, Dialog(), nullptr, nullptr, nullptr);
    SetActiveWindow(question);
    const ApplicationWindow other(L"AlertAttentionTestOther");
    ShowWindow(other.Get(), SW_SHOW);
    SetForegroundWindow(other.Get());
    Post(ts::hosts::kShowDueMessage);
    EXPECT_EQ(question, GetForegroundWindow());
    DestroyWindow(question);
}

TEST_F(AlertAttentionTest, AlertWithNothingToShow_EndsAtOnce)
{
    m_service.reset();
    CcvReminderDataCollectionManager none(false);
    m_store.Remove(0);
    m_store.Remove(1);
    none.UpdateReminderCollection();
    ts::service::Alert alert(none);
    EXPECT_TRUE(alert.Show());
    PumpMessages();
    EXPECT_FALSE(alert.IsOpen());
}
