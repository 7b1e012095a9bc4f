#include "tests/dialogs/ListHarness.h"
#include "tests/support/HandleCount.h"
#include "tests/support/HeapKind.h"

#include <cstdlib>

namespace
{

using namespace ts::test;

class ListLifetimeTest : public ListTest
{
  protected:
    struct Counts
    {
        std::size_t windows;
        std::size_t drawing;
        std::size_t handles;

        bool operator==(const Counts&) const = default;
    };

    static Counts CountAll() { return {WindowCount(), GdiObjectCount(), HandleCount()}; }

    friend void PrintTo(const Counts& counts, std::ostream* out)
    {
        *out << counts.windows << " windows, " << counts.drawing << " drawing objects, " << counts.handles
             << " handles";
    }

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

    /// The counts must be the same to the last object, so a leak shows in any round. A round takes 10 ms:
    /// TS_TEST_ROUNDS=10000 is for those who have the time.
    static int RoundsFromEnvironment()
    {
        const char* text = std::getenv("TS_TEST_ROUNDS");
        return text == nullptr ? 100 : std::atoi(text);
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
    const auto goRound = [this](int rounds)
    {
        for (int round = 0; round < rounds; ++round)
        {
            ASSERT_NO_FATAL_FAILURE(OneRound());
        }
    };
    // The first rounds, and the first counting, take what is kept for the later ones.
    constexpr int kWarmUp = 5;
    ASSERT_NO_FATAL_FAILURE(goRound(kWarmUp));
    static_cast<void>(CountAll());
    const Counts before = CountAll();
    ASSERT_NO_FATAL_FAILURE(goRound(Rounds(RoundsFromEnvironment())));
    EXPECT_EQ(before, CountAll());
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
