// How the alert makes itself seen where something else has the user's attention.

#include "tests/hosts/service/ServiceTest.h"
#include "tests/support/NotedFlashes.h"

namespace
{

using namespace ts::test;

class AlertAttentionTest : public ServiceTest
{
  protected:
    AlertAttentionTest()
    {
        m_store.Add(L"first", At(0));
        m_store.Add(L"second", At(100));
        Start();
        PumpMessages();
        NotedFlashes::Take();
    }

    NotedFlashes m_flashes;
};

} // namespace

TEST_F(AlertAttentionTest, SomethingDueBehindAnotherWindow_FlashesInTheTaskBar)
{
    const ApplicationWindow other(L"AlertAttentionTestOther");
    ShowWindow(other.Get(), SW_SHOW);
    SetForegroundWindow(other.Get());
    WakeAt(At(100));
    EXPECT_EQ(other.Get(), GetForegroundWindow()) << "who works there is not disturbed";
    const std::vector<FLASHWINFO> flashes = NotedFlashes::Take();
    ASSERT_EQ(1U, flashes.size());
    EXPECT_EQ(Dialog(), flashes.front().hwnd);
    EXPECT_EQ(DWORD{FLASHW_TRAY | FLASHW_TIMERNOFG}, flashes.front().dwFlags);
}

TEST_F(AlertAttentionTest, SomethingDueInTheForeground_DoesNotFlash)
{
    ASSERT_EQ(Dialog(), GetForegroundWindow());
    WakeAt(At(100));
    EXPECT_EQ(2, List().GetItemCount());
    EXPECT_TRUE(NotedFlashes::Take().empty());
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
