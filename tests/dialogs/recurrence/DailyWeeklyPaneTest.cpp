#include "dialogs/CcvMfcRecurrenceDailyDialog.h"
#include "dialogs/CcvMfcRecurrenceWeeklyDialog.h"
#include "tests/dialogs/recurrence/PaneHarness.h"

#include <array>
#include <climits>

namespace
{

using namespace ts::test;
using enum EcvReminderDailyOccurence;

using Daily = CcvMfcRecurrenceDailyDialog;
using Weekly = CcvMfcRecurrenceWeeklyDialog;
using OpenedDaily = Opened<Daily, IDD_RECURRENCE_DAILY>;
using OpenedWeekly = Opened<Weekly, IDD_RECURRENCE_WEEKLY>;
using Days = std::array<bool, 7>;

Days DaysOf(const Weekly& pane)
{
    return {pane.GetIsRecurrentOnSunday(),    pane.GetIsRecurrentOnMonday(),   pane.GetIsRecurrentOnTuesday(),
            pane.GetIsRecurrentOnWednesday(), pane.GetIsRecurrentOnThursday(), pane.GetIsRecurrentOnFriday(),
            pane.GetIsRecurrentOnSaturday()};
}

void SetDays(Weekly& pane, const Days& days)
{
    pane.SetIsRecurrentOnSunday(days[0]);
    pane.SetIsRecurrentOnMonday(days[1]);
    pane.SetIsRecurrentOnTuesday(days[2]);
    pane.SetIsRecurrentOnWednesday(days[3]);
    pane.SetIsRecurrentOnThursday(days[4]);
    pane.SetIsRecurrentOnFriday(days[5]);
    pane.SetIsRecurrentOnSaturday(days[6]);
}

class DailyPaneTest : public PaneTest
{
};

class WeeklyPaneTest : public PaneTest
{
};

} // namespace

// --- Daily ---

TEST_F(DailyPaneTest, NewPane_IsEveryDay)
{
    const Daily pane;
    EXPECT_EQ(EveryNDays, pane.GetDailyOccurenceType());
    EXPECT_EQ(1, pane.GetDailyNumber());
    EXPECT_STREQ("CcvMfcRecurrenceDailyDialog", pane.GetRuntimeClass()->m_lpszClassName);
}

TEST_F(DailyPaneTest, Values_GoToTheControlsAndBack)
{
    for (const wchar_t* const language : kAllLanguages)
    {
        SetLanguage(language);
        OpenedDaily opened(
            [](Daily& pane)
            {
                pane.SetDailyOccurenceType(EveryWeekday);
                pane.SetDailyNumber(INT_MAX);
            });
        EXPECT_TRUE(IsChecked(opened.pane, IDC_DAILY_EVERY_WEEKDAY));
        EXPECT_FALSE(IsChecked(opened.pane, IDC_DAILY_EVERY_N_DAYS));
        EXPECT_EQ(L"2147483647", ShownText(opened.pane, IDC_DAILY_NUMBER));
        Choose(opened.pane, IDC_DAILY_EVERY_N_DAYS);
        Enter(opened.pane, IDC_DAILY_NUMBER, L" 14 ");
        EXPECT_EQ(EveryWeekday, opened.pane.GetDailyOccurenceType());
        ExpectAccepted(opened.pane);
        EXPECT_EQ(EveryNDays, opened.pane.GetDailyOccurenceType());
        EXPECT_EQ(14, opened.pane.GetDailyNumber());
    }
}

TEST_F(DailyPaneTest, LessThanOneDay_IsRefusedUnlessItIsEveryWeekday)
{
    for (const wchar_t* const language : kAllLanguages)
    {
        SetLanguage(language);
        OpenedDaily opened([](Daily&) {});
        for (const wchar_t* const number : {L"0", L"-1", L"-2147483648"})
        {
            Enter(opened.pane, IDC_DAILY_NUMBER, number);
            Choose(opened.pane, IDC_DAILY_EVERY_N_DAYS);
            ExpectRefused(opened.pane, ts::LoadText(IDS_NUMBER_BELOW_ONE), IDC_DAILY_NUMBER);
            Choose(opened.pane, IDC_DAILY_EVERY_WEEKDAY);
            ExpectAccepted(opened.pane);
        }
    }
}

TEST_F(DailyPaneTest, Rubbish_IsRefused)
{
    for (const wchar_t* const language : kAllLanguages)
    {
        SetLanguage(language);
        OpenedDaily opened([](Daily&) {});
        ExpectRubbishRefused(opened.pane, IDC_DAILY_NUMBER);
        ExpectAccepted(opened.pane);
    }
}

TEST_F(DailyPaneTest, UnknownOccurrence_ShowsTheFirst)
{
    OpenedDaily opened([](Daily& pane)
                       { pane.SetDailyOccurenceType(static_cast<EcvReminderDailyOccurence>(77)); });
    EXPECT_TRUE(IsChecked(opened.pane, IDC_DAILY_EVERY_N_DAYS));
    ExpectAccepted(opened.pane);
    EXPECT_EQ(EveryNDays, opened.pane.GetDailyOccurenceType());
}

// --- Weekly ---

TEST_F(WeeklyPaneTest, NewPane_HasTodaysWeekday)
{
    for (int day = 0; day < 7; ++day)
    {
        // November 22 is a Sunday.
        m_clock.Set(CTime(2026, 11, 22 + day, 23, 59, 59));
        Days expected{};
        expected.at(static_cast<std::size_t>(day)) = true;
        const Weekly pane;
        EXPECT_EQ(expected, DaysOf(pane));
        EXPECT_EQ(1, pane.GetWeeklyNumber());
        EXPECT_EQ(CTime::GetCurrentTime(), pane.GetStartTime());
    }
}

TEST_F(WeeklyPaneTest, StartWithoutALocalDate_HasNoWeekday)
{
    m_clock.Set(CTime(LLONG_MAX));
    EXPECT_EQ(Days{}, DaysOf(Weekly()));
}

TEST_F(WeeklyPaneTest, StartTime_IsOnlyKept)
{
    Weekly pane;
    const CTime sunday(2026, 11, 22, 9, 0, 0);
    pane.SetStartTime(sunday);
    EXPECT_EQ(sunday, pane.GetStartTime());
    EXPECT_EQ((Days{false, false, false, false, false, false, true}), DaysOf(pane));
    pane.Initialize();
    EXPECT_EQ((Days{true, false, false, false, false, false, true}), DaysOf(pane));
}

TEST_F(WeeklyPaneTest, EachDay_GoesToItsControlAndBack)
{
    for (const wchar_t* const language : kAllLanguages)
    {
        SetLanguage(language);
        for (std::size_t day = 0; day < 7; ++day)
        {
            Days one{};
            one.at(day) = true;
            OpenedWeekly opened(
                [&](Weekly& pane)
                {
                    SetDays(pane, one);
                    pane.SetWeeklyNumber(3);
                });
            Days others{};
            for (std::size_t other = 0; other < 7; ++other)
            {
                const int control = IDC_WEEKLY_SUNDAY + static_cast<int>(other);
                EXPECT_EQ(one.at(other), IsChecked(opened.pane, control)) << control;
                Choose(opened.pane, control);
                others.at(other) = !one.at(other);
            }
            EXPECT_EQ(L"3", ShownText(opened.pane, IDC_WEEKLY_NUMBER));
            Enter(opened.pane, IDC_WEEKLY_NUMBER, L"52");
            ExpectAccepted(opened.pane);
            EXPECT_EQ(others, DaysOf(opened.pane));
            EXPECT_EQ(52, opened.pane.GetWeeklyNumber());
        }
    }
}

TEST_F(WeeklyPaneTest, LessThanOneWeekAndNoDay_AreRefusedInThisOrder)
{
    for (const wchar_t* const language : kAllLanguages)
    {
        SetLanguage(language);
        OpenedWeekly opened([](Weekly& pane) { SetDays(pane, {}); });
        Enter(opened.pane, IDC_WEEKLY_NUMBER, L"0");
        ExpectRefused(opened.pane, ts::LoadText(IDS_NUMBER_BELOW_ONE), IDC_WEEKLY_NUMBER);
        Enter(opened.pane, IDC_WEEKLY_NUMBER, L"2");
        ExpectRefused(opened.pane, ts::LoadText(IDS_NO_DAY_OF_WEEK), IDC_WEEKLY_SATURDAY);
        Choose(opened.pane, IDC_WEEKLY_WEDNESDAY);
        ExpectAccepted(opened.pane);
    }
}

TEST_F(WeeklyPaneTest, Rubbish_IsRefused)
{
    for (const wchar_t* const language : kAllLanguages)
    {
        SetLanguage(language);
        OpenedWeekly opened([](Weekly&) {});
        ExpectRubbishRefused(opened.pane, IDC_WEEKLY_NUMBER);
        ExpectAccepted(opened.pane);
    }
}
