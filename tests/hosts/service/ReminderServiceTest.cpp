#include "tests/hosts/service/ServiceTest.h"

#include "platform/WindowsHook.h"
#include "tests/support/ManyRounds.h"

namespace
{

using namespace ts::test;

TEST_F(ServiceTest, Start_SleepsUntilTheNextReminderTime)
{
    CcvReminderData early = DueAt(At(100));
    early.SetReminderTimeSpan(CTimeSpan(60));
    m_store.Add(early);
    m_store.Add(L"late", At(70));
    Start();
    EXPECT_FALSE(IsOpen());
    EXPECT_EQ(40, WakeTime());
}

TEST_F(ServiceTest, NothingAhead_SleepsForEver)
{
    Start();
    EXPECT_EQ(-1, WakeTime());
    EXPECT_FALSE(IsOpen());
}

TEST_F(ServiceTest, DueAtTheStart_IsShownAtOnce)
{
    m_store.Add(L"missed", At(-kSecondsPerDay));
    m_store.Add(L"ahead", At(50));
    Start();
    EXPECT_TRUE(IsOpen());
    EXPECT_EQ(Texts{L"missed"}, Subjects());
    EXPECT_EQ(50, WakeTime());
}

TEST_F(ServiceTest, DueTime_OpensTheAlertInItsSecond)
{
    m_store.Add(L"a", At(100));
    Start();
    WakeAt(At(99));
    EXPECT_FALSE(IsOpen());
    EXPECT_EQ(100, WakeTime());
    WakeNext();
    EXPECT_EQ(Texts{L"a"}, Subjects());
    EXPECT_EQ(-1, WakeTime());
}

TEST_F(ServiceTest, WhatBecomesDueMeanwhile_JoinsTheOpenAlert)
{
    m_store.Add(L"a", At(0));
    m_store.Add(L"b", At(60));
    Start();
    const HWND first = Dialog();
    WakeNext();
    EXPECT_EQ(first, Dialog());
    EXPECT_EQ((Texts{L"a", L"b"}), Subjects());
}

TEST_F(ServiceTest, Escape_DismissesAndClosesAndDestroys)
{
    const int once = m_store.Add(L"once", At(0));
    const int daily = AddRecurring(L"daily", At(0));
    Start();
    const HWND alert = Dialog();
    Press(VK_ESCAPE);
    EXPECT_FALSE(IsOpen());
    EXPECT_FALSE(IsWindow(alert));
    EXPECT_TRUE(m_store.Load(once)->IsDimissed());
    EXPECT_EQ(At(kSecondsPerDay), NextDue(daily));
    EXPECT_EQ(kSecondsPerDay, WakeTime());
}

TEST_F(ServiceTest, ClosedAlert_IsDestroyedWithWhatItHolds)
{
    std::size_t before = 0;
    // What the first alert of a process leaves for the next ones does not count.
    for (int service = 0; service < 2; ++service)
    {
        m_service.reset();
        m_clock.Set(At(0));
        const int once = m_store.Add(L"a", At(100));
        Start();
        before = GdiObjectCount();
        WakeNext();
        EXPECT_LT(before, GdiObjectCount());
        Press(VK_ESCAPE);
        m_store.Remove(once);
    }
    EXPECT_EQ(before, GdiObjectCount());
}

TEST_F(ServiceTest, Keys_WalkAndPressButtons)
{
    const int daily = AddRecurring(L"daily", At(0));
    Start();
    SetFocus(Item(IDC_REMINDERS));
    Press(VK_TAB);
    EXPECT_EQ(IDC_OPEN_REMINDER, FocusedItem());
    Press(VK_TAB);
    EXPECT_EQ(IDC_END_REMINDER, FocusedItem());
    Press(VK_SPACE);
    PostMessageW(GetFocus(), WM_KEYUP, VK_SPACE, LPARAM{1} << 30 | 1);
    Work();
    EXPECT_EQ(At(kSecondsPerDay), NextDue(daily));
    EXPECT_FALSE(IsOpen());
}

TEST_F(ServiceTest, Enter_Snoozes)
{
    const int once = m_store.Add(L"once", At(0));
    Start();
    SetFocus(Item(IDC_REMINDERS));
    Press(VK_RETURN);
    EXPECT_TRUE(m_store.Load(once)->IsSnoozed());
    EXPECT_FALSE(IsOpen());
    EXPECT_EQ(300, WakeTime());
    WakeNext();
    EXPECT_EQ(Texts{L"once"}, Subjects());
}

TEST_F(ServiceTest, Mnemonic_PressesItsButton)
{
    const int once = m_store.Add(L"once", At(0));
    Start();
    const std::wstring caption = ItemText(IDC_END_REMINDER);
    const std::size_t mark = caption.find(L'&');
    ASSERT_NE(std::wstring::npos, mark);
    PostMessageW(GetFocus(), WM_SYSCHAR, caption.at(mark + 1), LPARAM{1} << 29 | 1);
    Work();
    EXPECT_FALSE(m_store.Load(once));
    EXPECT_FALSE(IsOpen());
}

TEST_F(ServiceTest, OkWithoutDismissing_ComesBackOnlyWithSomethingNew)
{
    m_store.Add(L"a", At(0));
    m_store.Add(L"b", At(60));
    Start();
    Command(IDOK);
    Work();
    EXPECT_FALSE(IsOpen());
    WakeAt(At(30));
    EXPECT_FALSE(IsOpen());
    WakeAt(At(60));
    EXPECT_EQ((Texts{L"a", L"b"}), Subjects());
}

TEST_F(ServiceTest, SecondStart_ShowsWhatIsDueAgain)
{
    m_store.Add(L"a", At(0));
    Start();
    Command(IDOK);
    Work();
    ASSERT_FALSE(IsOpen());
    Post(ts::hosts::kShowDueMessage);
    EXPECT_EQ(Texts{L"a"}, Subjects());
    const HWND alert = Dialog();
    ShowWindow(alert, SW_MINIMIZE);
    Post(ts::hosts::kShowDueMessage);
    EXPECT_EQ(alert, Dialog());
    EXPECT_FALSE(IsIconic(alert));
}

TEST_F(ServiceTest, ChangeByAnother_IsFollowedWithinItsMessage)
{
    const int first = m_store.Add(L"a", At(0));
    Start();
    m_store.Add(L"b", At(0));
    SendMessageW(ServiceWindow(), ts::kSynchronizationMessage, 0, 0);
    EXPECT_EQ((Texts{L"a", L"b"}), Subjects());
    m_store.Remove(first);
    SendMessageW(ServiceWindow(), ts::kSynchronizationMessage, 0, 0);
    EXPECT_EQ(Texts{L"b"}, Subjects());
}

TEST_F(ServiceTest, NothingLeftAfterAChange_ClosesTheAlert)
{
    const int first = m_store.Add(L"a", At(0));
    Start();
    m_store.Remove(first);
    Post(ts::kSynchronizationMessage);
    Work();
    EXPECT_FALSE(IsOpen());
}

TEST_F(ServiceTest, ReminderThatComesWhileTheAlertCloses_IsShownInTheNext)
{
    m_store.Add(L"a", At(0));
    Start();
    const HWND alert = Dialog();
    PostMessageW(alert, WM_SYSCOMMAND, SC_CLOSE, 0);
    // As the answer of another process to the dismissal would: inside the close.
    ApplicationWindow application(ts::kMainWindowClass);
    int late = -1;
    application.onSynchronize = [&]
    {
        if (late < 0)
        {
            late = m_store.Add(L"late", At(-1));
        }
    };
    Work();
    ASSERT_GE(late, 0);
    EXPECT_FALSE(m_store.Load(late)->IsDimissed());
    ASSERT_TRUE(IsOpen());
    const Texts subjects = Subjects();
    EXPECT_NE(subjects.end(), std::ranges::find(subjects, L"late"));
}

TEST_F(ServiceTest, AddedSooner_ShortensTheSleep)
{
    m_store.Add(L"a", At(100));
    Start();
    m_store.Add(L"b", At(50));
    EXPECT_EQ(100, WakeTime());
    Post(ts::kSynchronizationMessage);
    EXPECT_EQ(50, WakeTime());
}

struct WakingMessage
{
    const char* title;
    UINT message;
    WPARAM wParam;
    bool wakes;
};

constexpr WakingMessage kMessages[] = {
    {"clock", WM_TIMECHANGE, 0, true},
    {"setting", WM_SETTINGCHANGE, 0, true},
    {"automatic resume", WM_POWERBROADCAST, PBT_APMRESUMEAUTOMATIC, true},
    {"resume by the user", WM_POWERBROADCAST, PBT_APMRESUMESUSPEND, true},
    {"critical resume", WM_POWERBROADCAST, PBT_APMRESUMECRITICAL, true},
    {"synchronisation", ts::kSynchronizationMessage, 0, true},
    {"going to sleep", WM_POWERBROADCAST, PBT_APMSUSPEND, false},
    {"session stays", WM_ENDSESSION, FALSE, false},
};

TEST_F(ServiceTest, Messages_MakeItLookAgain)
{
    for (const WakingMessage& row : kMessages)
    {
        m_clock.Set(At(0));
        Start();
        // Nobody tells of this one.
        const int silent = m_store.Add(L"silent", At(100));
        SendMessageW(ServiceWindow(), row.message, row.wParam, 0);
        Work();
        EXPECT_EQ(row.wakes ? 100 : -1, WakeTime()) << row.title;
        m_clock.Set(At(200));
        SendMessageW(ServiceWindow(), row.message, row.wParam, 0);
        Work();
        EXPECT_EQ(row.wakes, IsOpen()) << row.title;
        m_service.reset();
        m_store.Remove(silent);
    }
}

TEST_F(ServiceTest, ClockSetBack_ClosesTheAlertUntilItIsDueAgain)
{
    m_store.Add(L"a", At(100));
    Start();
    WakeNext();
    ASSERT_TRUE(IsOpen());
    m_clock.Set(At(0));
    Post(WM_TIMECHANGE);
    Work();
    EXPECT_FALSE(IsOpen());
    EXPECT_EQ(100, WakeTime());
    WakeNext();
    EXPECT_EQ(Texts{L"a"}, Subjects());
}

TEST_F(ServiceTest, DamagedReminders_HideNoOther)
{
    m_store.Add(Damaged(Noon()));
    RawKey(std::wstring(ts::kRemindersPath) + L"\\{empty-0}");
    m_store.Add(L"a", At(100));
    Start();
    EXPECT_FALSE(IsOpen());
    EXPECT_EQ(100, WakeTime());
    WakeNext();
    EXPECT_EQ(Texts{L"a"}, Subjects());
}

TEST_F(ServiceTest, FarTimes_AreWaitedFor)
{
    constexpr std::int64_t kLimit = std::numeric_limits<std::int64_t>::max();
    m_store.Add(L"far", CTime(kLimit));
    Start();
    EXPECT_EQ(CTime(kLimit), m_service->GetWakeTime());
    EXPECT_FALSE(IsOpen());
}

LRESULT CALLBACK RefuseDialogs(int code, WPARAM wParam, LPARAM lParam) noexcept
{
    if (code == HCBT_CREATEWND && ClassOf(std::bit_cast<HWND>(wParam)) == L"#32770")
    {
        return 1;
    }
    return CallNextHookEx(nullptr, code, wParam, lParam);
}

TEST_F(ServiceTest, AlertThatCannotBeShown_IsTriedAgain)
{
    m_store.Add(L"a", At(0));
    {
        const ts::WindowsHook refusal = ts::HookThisThread(WH_CBT, RefuseDialogs);
        Start();
        EXPECT_FALSE(IsOpen());
        EXPECT_EQ(60, WakeTime());
        const int sooner = m_store.Add(L"sooner", At(20));
        Post(ts::kSynchronizationMessage);
        EXPECT_EQ(20, WakeTime());
        m_store.Remove(sooner);
        WakeAt(At(10));
        EXPECT_EQ(70, WakeTime());
    }
    WakeNext();
    EXPECT_EQ(Texts{L"a"}, Subjects());
    EXPECT_EQ(-1, WakeTime());
}

std::function<void()>* g_onDialog = nullptr;

LRESULT CALLBACK TellOfDialog(int code, WPARAM wParam, LPARAM lParam) noexcept
{
    if (code == HCBT_CREATEWND && ClassOf(std::bit_cast<HWND>(wParam)) == L"#32770")
    {
        (*std::exchange(g_onDialog, nullptr))();
    }
    return CallNextHookEx(nullptr, code, wParam, lParam);
}

TEST_F(ServiceTest, ChangeWhileTheAlertOpens_IsFollowed)
{
    m_store.Add(L"a", At(0));
    std::function<void()> change = [this]
    {
        m_store.Add(L"b", At(0));
        m_store.Add(L"c", At(50));
        SendMessageW(ServiceWindow(), ts::kSynchronizationMessage, 0, 0);
    };
    g_onDialog = &change;
    const ts::WindowsHook hook = ts::HookThisThread(WH_CBT, TellOfDialog);
    Start();
    EXPECT_EQ(nullptr, g_onDialog);
    EXPECT_EQ((Texts{L"a", L"b"}), Subjects());
    EXPECT_EQ(50, WakeTime());
}

TEST_F(ServiceTest, Close_EndsItAndDismissesNothing)
{
    const int once = m_store.Add(L"a", At(0));
    Start();
    const HWND alert = Dialog();
    PostMessageW(ServiceWindow(), WM_CLOSE, 0, 0);
    EXPECT_FALSE(m_service->Work());
    m_service.reset();
    EXPECT_FALSE(IsWindow(alert));
    EXPECT_EQ(nullptr, ServiceWindow());
    EXPECT_FALSE(m_store.Load(once)->IsDimissed());
}

TEST_F(ServiceTest, EndOfTheSession_EndsIt)
{
    Start();
    EXPECT_EQ(TRUE, SendMessageW(ServiceWindow(), WM_QUERYENDSESSION, 0, 0));
    EXPECT_TRUE(m_service->Work());
    SendMessageW(ServiceWindow(), WM_ENDSESSION, TRUE, 0);
    EXPECT_FALSE(m_service->Work());
}

TEST_F(ServiceTest, Run_WaitsAndEndsWithTheClose)
{
    m_store.Add(L"a", At(100));
    m_service = std::make_unique<ts::service::ReminderService>();
    // The clock stands long after the time that the timer waits for, so it fires at once, again and again,
    // until the test's clock follows.
    struct State
    {
        ServiceTest* test;
        int rounds;
    };
    static State* state = nullptr;
    State mine{this, 0};
    state = &mine;
    m_clock.Set(At(100));
    const UINT_PTR timer = ::SetTimer(nullptr, 0, 100,
                                      [](HWND, UINT, UINT_PTR, DWORD)
                                      {
                                          ++state->rounds;
                                          PostMessageW(ServiceWindow(), WM_CLOSE, 0, 0);
                                      });
    m_service->Run();
    KillTimer(nullptr, timer);
    EXPECT_GE(mine.rounds, 1);
    EXPECT_EQ(Texts{L"a"}, Subjects());
}

TEST_F(ServiceTest, HundredsOfRounds_LeaveNothing)
{
    AddRecurring(L"daily", At(0));
    Start();
    const auto round = [&]
    {
        ASSERT_TRUE(IsOpen());
        Press(VK_ESCAPE);
        ASSERT_FALSE(IsOpen());
        WakeNext();
    };
    ExpectRoundsLeaveNothing(100, round);
}

} // namespace
