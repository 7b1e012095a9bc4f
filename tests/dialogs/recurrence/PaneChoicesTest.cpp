// The choices in the panes, made by keys alone.

#include "dialogs/CcvMfcRecurrenceDailyDialog.h"
#include "dialogs/CcvMfcRecurrenceMonthlyDialog.h"
#include "dialogs/CcvMfcRecurrenceWeeklyDialog.h"
#include "dialogs/CcvMfcRecurrenceYearlyDialog.h"
#include "tests/dialogs/recurrence/PaneHarness.h"

namespace
{

using namespace ts::test;

using Daily = Opened<CcvMfcRecurrenceDailyDialog, IDD_RECURRENCE_DAILY>;
using Weekly = Opened<CcvMfcRecurrenceWeeklyDialog, IDD_RECURRENCE_WEEKLY>;
using Monthly = Opened<CcvMfcRecurrenceMonthlyDialog, IDD_RECURRENCE_MONTHLY>;
using Yearly = Opened<CcvMfcRecurrenceYearlyDialog, IDD_RECURRENCE_YEARLY>;

class PaneChoicesTest : public PaneTest
{
  protected:
    static void FocusOn(const CWnd& pane, int id) { ::SetFocus(::GetDlgItem(pane.m_hWnd, id)); }

    /// Goes from one of two radio buttons to the other and back with each of the arrows.
    static void ExpectRadioArrows(const CWnd& pane, int first, int second)
    {
        FocusOn(pane, first);
        int chosen = first;
        for (const UINT key : {VK_DOWN, VK_DOWN, VK_RIGHT, VK_RIGHT, VK_UP, VK_UP, VK_LEFT, VK_LEFT})
        {
            PressKey(key);
            chosen = first + second - chosen;
            EXPECT_EQ(chosen, OuterDialog::Focus()) << key;
            EXPECT_TRUE(IsChecked(pane, chosen)) << key;
            EXPECT_FALSE(IsChecked(pane, first + second - chosen)) << key;
        }
    }

    static void ExpectComboKeys(const CWnd& pane, int id)
    {
        struct Case
        {
            UINT key;
            int index;
        };
        const HWND combo = ::GetDlgItem(pane.m_hWnd, id);
        const int last = static_cast<int>(Entries(pane, id).size()) - 1;
        Select(pane, id, 0);
        FocusOn(pane, id);
        for (const Case& each : {Case{VK_DOWN, 1}, Case{VK_DOWN, 2}, Case{VK_UP, 1}, Case{VK_END, last},
                                 Case{VK_DOWN, last}, Case{VK_HOME, 0}, Case{VK_UP, 0}})
        {
            PressKey(each.key);
            EXPECT_EQ(each.index, ShownIndex(pane, id)) << id << ", key " << each.key;
            EXPECT_EQ(id, OuterDialog::Focus()) << id << ", key " << each.key;
        }
        PressKey(VK_F4);
        EXPECT_NE(FALSE, ::SendMessageW(combo, CB_GETDROPPEDSTATE, 0, 0)) << id;
    }
};

} // namespace

TEST_F(PaneChoicesTest, Arrows_GoRoundTheRadioButtonsOfEachPane)
{
    for (const wchar_t* const language : kAllLanguages)
    {
        SetLanguage(language);
        const Daily daily([](auto&) {});
        ExpectRadioArrows(daily.pane, IDC_DAILY_EVERY_N_DAYS, IDC_DAILY_EVERY_WEEKDAY);
        const Monthly monthly([](auto&) {});
        ExpectRadioArrows(monthly.pane, IDC_MONTHLY_ON_DAY, IDC_MONTHLY_ON_DAY_TYPE);
        const Yearly yearly([](auto&) {});
        ExpectRadioArrows(yearly.pane, IDC_YEARLY_ON_DAY, IDC_YEARLY_ON_DAY_TYPE);
    }
}

TEST_F(PaneChoicesTest, Space_TicksAndUnticksEachDay)
{
    for (const wchar_t* const language : kAllLanguages)
    {
        SetLanguage(language);
        const Weekly weekly([](auto&) {});
        for (int day = IDC_WEEKLY_SUNDAY; day <= IDC_WEEKLY_SATURDAY; ++day)
        {
            FocusOn(weekly.pane, day);
            const bool before = IsChecked(weekly.pane, day);
            PressKey(VK_SPACE);
            EXPECT_EQ(!before, IsChecked(weekly.pane, day)) << day;
            PressKey(VK_SPACE);
            EXPECT_EQ(before, IsChecked(weekly.pane, day)) << day;
        }
    }
}

TEST_F(PaneChoicesTest, KeysInTheComboBoxes_ChooseAndOpen)
{
    for (const wchar_t* const language : kAllLanguages)
    {
        SetLanguage(language);
        const Monthly monthly([](auto&) {});
        for (const int id : {IDC_MONTHLY_ORDINAL, IDC_MONTHLY_DAY_TYPE})
        {
            ExpectComboKeys(monthly.pane, id);
        }
        const Yearly yearly([](auto&) {});
        for (const int id :
             {IDC_YEARLY_DAY_MONTH, IDC_YEARLY_ORDINAL, IDC_YEARLY_DAY_TYPE, IDC_YEARLY_DAY_TYPE_MONTH})
        {
            ExpectComboKeys(yearly.pane, id);
        }
    }
}

TEST_F(PaneChoicesTest, EnterAndEscapeInAnOpenList_CloseTheListOnly)
{
    const Yearly yearly([](auto&) {});
    const HWND combo = ::GetDlgItem(yearly.pane.m_hWnd, IDC_YEARLY_DAY_MONTH);
    for (const UINT key : {VK_RETURN, VK_ESCAPE})
    {
        ::SetFocus(combo);
        PressKey(VK_F4);
        ASSERT_NE(FALSE, ::SendMessageW(combo, CB_GETDROPPEDSTATE, 0, 0));
        PressKey(key);
        EXPECT_EQ(FALSE, ::SendMessageW(combo, CB_GETDROPPEDSTATE, 0, 0)) << key;
        EXPECT_EQ(0, yearly.outer.m_oks) << key;
        EXPECT_EQ(0, yearly.outer.m_cancels) << key;
    }
    PressKey(VK_ESCAPE);
    EXPECT_EQ(1, yearly.outer.m_cancels) << "once the list is closed";
}

TEST_F(PaneChoicesTest, NumbersTypedAfterTab_ReplaceWhatIsThere)
{
    Monthly monthly([](auto&) {});
    PressMnemonic(L'd');
    PressKey(VK_TAB);
    TypeText(L"7");
    PressKey(VK_TAB);
    TypeText(L"3");
    EXPECT_EQ(L"7", ShownText(monthly.pane, IDC_MONTHLY_DAY));
    EXPECT_EQ(L"3", ShownText(monthly.pane, IDC_MONTHLY_DAY_MONTHS));
    PressKey(VK_RETURN);
    EXPECT_EQ(1, monthly.outer.m_accepted);
    EXPECT_EQ(7, monthly.pane.GetMonthlyRecurrentDayOfMonth());
}
