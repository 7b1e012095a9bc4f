#include "tests/dialogs/ListHarness.h"
#include "tests/support/HeapKind.h"
#include "tests/support/ManyRounds.h"

namespace
{

using namespace ts::test;

class ListLifetimeTest : public ListTest
{
  protected:
    /// A list with its rows, drawn once with both fonts, and gone again.
    void OneRound()
    {
        CcvMfcRemindersListControl list(m_manager.get());
        constexpr DWORD kStyle = WS_CHILD | WS_VISIBLE | LVS_REPORT | LVS_OWNERDRAWFIXED | LVS_SINGLESEL;
        const HWND window = CreateWindowExW(0, WC_LISTVIEWW, L"", kStyle, 0, 0, 300, 60, m_parent.m_hWnd,
                                            nullptr, GetModuleHandleW(nullptr), nullptr);
        ASSERT_TRUE(list.SubclassWindow(window));
        list.InitializeColumns(kAllColumns);
        list.Refresh();
        list.UpdateWindow();
        ASSERT_EQ(2, list.GetItemCount());
    }

    void AddTwo()
    {
        CcvReminderData daily = EveryNDays(1);
        daily.SetNextDueDate(Noon() + CTimeSpan(kSecondsPerHour));
        daily.SetReminderTimeSpan(2 * kSecondsPerHour);
        m_store.Add(daily);
        m_store.Add(L"once", Noon());
        m_manager = std::make_unique<CcvReminderDataCollectionManager>(false);
    }
};

TEST_F(ListLifetimeTest, ManyRounds_LeaveNothingBehind)
{
    AddTwo();
    ExpectRoundsLeaveNothing(Rounds(2000), [this] { OneRound(); });
}

TEST_F(ListLifetimeTest, WindowThatGoesFirst_LeavesAnObjectThatCanBeUsedAgain)
{
    m_store.Add(L"once", Noon());
    Show();
    List().DestroyWindow();
    EXPECT_EQ(nullptr, List().m_hWnd);
    const HWND window =
        CreateWindowExW(0, WC_LISTVIEWW, L"", WS_CHILD | LVS_REPORT | LVS_OWNERDRAWFIXED, 0, 0, 518, 60,
                        m_parent.m_hWnd, nullptr, GetModuleHandleW(nullptr), nullptr);
    ASSERT_TRUE(List().SubclassWindow(window));
    List().InitializeColumns(kAllColumns);
    List().Refresh();
    EXPECT_EQ((Texts{L"once"}), Subjects());
    EXPECT_EQ(18, List().GetColumnWidth(0));
}

} // namespace
