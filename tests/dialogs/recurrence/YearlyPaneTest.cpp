#include "dialogs/CcvMfcRecurrenceYearlyDialog.h"
#include "tests/dialogs/recurrence/PaneHarness.h"

#include <climits>

namespace
{

using namespace ts::test;
using enum EcvReminderYearlyOccurence;

using Pane = CcvMfcRecurrenceYearlyDialog;
using OpenedYearly = Opened<Pane, IDD_RECURRENCE_YEARLY>;

constexpr int kFebruary = 1;

class YearlyPaneTest : public PaneTest
{
  protected:
    static void SetDate(OpenedYearly& opened, int month, int day)
    {
        Select(opened.pane, IDC_YEARLY_DAY_MONTH, month);
        Enter(opened.pane, IDC_YEARLY_DAY, std::to_wstring(day).c_str());
    }
};

} // namespace

TEST_F(YearlyPaneTest, NewPane_SuggestsToday)
{
    const OpenedYearly opened([](Pane&) {});
    EXPECT_EQ(L"21", ShownText(opened.pane, IDC_YEARLY_DAY));
    EXPECT_EQ(10, ShownIndex(opened.pane, IDC_YEARLY_DAY_MONTH));
    EXPECT_EQ(10, ShownIndex(opened.pane, IDC_YEARLY_DAY_TYPE_MONTH));
    EXPECT_EQ(3, ShownIndex(opened.pane, IDC_YEARLY_ORDINAL));
    EXPECT_EQ(9, ShownIndex(opened.pane, IDC_YEARLY_DAY_TYPE));
    EXPECT_EQ(DayOfMonth, opened.pane.GetYearlyOccurenceType());
    EXPECT_EQ(PaneNow(), opened.pane.GetStartTime());
    EXPECT_STREQ("CcvMfcRecurrenceYearlyDialog", opened.pane.GetRuntimeClass()->m_lpszClassName);
}

TEST_F(YearlyPaneTest, StartWithoutALocalDate_SuggestsWhatIsLeft)
{
    m_clock.Set(CTime(LLONG_MAX));
    const OpenedYearly opened([](Pane&) {});
    EXPECT_EQ(L"0", ShownText(opened.pane, IDC_YEARLY_DAY));
    EXPECT_EQ(0, ShownIndex(opened.pane, IDC_YEARLY_DAY_MONTH));
    EXPECT_EQ(2, ShownIndex(opened.pane, IDC_YEARLY_DAY_TYPE));
}

TEST_F(YearlyPaneTest, ValuesOfEntries_AreUnknownUntilDataWasExchanged)
{
    OpenedYearly opened;
    opened.pane.SetYearlyReminderPattern1Month(EcvMonth::May);
    opened.pane.SetYearlyReminderPattern2Month(EcvMonth::August);
    opened.pane.SetYearlyReminderDayType(64);
    EXPECT_EQ(EcvMonth::January, opened.pane.GetYearlyReminderPattern1Month());
    EXPECT_EQ(EcvMonth::January, opened.pane.GetYearlyReminderPattern2Month());
    EXPECT_EQ(0, opened.pane.GetYearlyReminderDayType());
    opened.Show();
    EXPECT_EQ(4, ShownIndex(opened.pane, IDC_YEARLY_DAY_MONTH));
    EXPECT_EQ(7, ShownIndex(opened.pane, IDC_YEARLY_DAY_TYPE_MONTH));
    EXPECT_EQ(EcvMonth::May, opened.pane.GetYearlyReminderPattern1Month());
    EXPECT_EQ(EcvMonth::August, opened.pane.GetYearlyReminderPattern2Month());
    EXPECT_EQ(64, opened.pane.GetYearlyReminderDayType());
}

TEST_F(YearlyPaneTest, WhatIsNoMonth_SelectsJanuary)
{
    for (const int month : {0, 13, -1, INT_MAX})
    {
        OpenedYearly opened(
            [month](Pane& pane)
            {
                pane.SetYearlyReminderPattern1Month(static_cast<EcvMonth>(month));
                pane.SetYearlyReminderPattern2Month(static_cast<EcvMonth>(month));
            });
        EXPECT_EQ(0, ShownIndex(opened.pane, IDC_YEARLY_DAY_MONTH));
        EXPECT_EQ(0, ShownIndex(opened.pane, IDC_YEARLY_DAY_TYPE_MONTH));
        // An index beyond the entries would show the first too.
        opened.pane.SetYearlyReminderPattern2Month(EcvMonth::May);
        opened.pane.SetYearlyReminderPattern2Month(static_cast<EcvMonth>(month));
        opened.pane.UpdateData(FALSE);
        EXPECT_EQ(0, ShownIndex(opened.pane, IDC_YEARLY_DAY_TYPE_MONTH));
    }
}

TEST_F(YearlyPaneTest, Months_AreTwelveWithTheirNumbers)
{
    for (const wchar_t* const language : kAllLanguages)
    {
        SetLanguage(language);
        const OpenedYearly opened([](Pane&) {});
        for (const int combo : {IDC_YEARLY_DAY_MONTH, IDC_YEARLY_DAY_TYPE_MONTH})
        {
            EXPECT_EQ((std::vector<int>{1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12}),
                      EntryData(opened.pane, combo));
            EXPECT_EQ(ts::LoadText(IDS_AUGUST).GetString(), Entries(opened.pane, combo).at(7));
        }
        EXPECT_EQ(ts::LoadText(IDS_LAST).GetString(), Entries(opened.pane, IDC_YEARLY_ORDINAL).at(4));
    }
}

TEST_F(YearlyPaneTest, SetDayType_SelectsTheNextWeekdayInGermanAndFrench)
{
    for (const wchar_t* const language : kAllLanguages)
    {
        SetLanguage(language);
        OpenedYearly opened([](Pane& pane) { pane.SetYearlyReminderDayType(2); });
        const bool isEnglish = IsEnglish(language);
        EXPECT_EQ(ts::LoadText(isEnglish ? IDS_MONDAY : IDS_TUESDAY).GetString(),
                  ShownText(opened.pane, IDC_YEARLY_DAY_TYPE));
    }
}

TEST_F(YearlyPaneTest, Values_GoToTheControlsAndBack)
{
    for (const wchar_t* const language : kAllLanguages)
    {
        SetLanguage(language);
        OpenedYearly opened(
            [](Pane& pane)
            {
                pane.SetYearlyOccurenceType(OrdinalDayType);
                pane.SetYearlyRecurrentDay(4);
                pane.SetYearlyReminderDayIntegralType(EcvReminderDayIntegralType::Second);
                pane.SetYearlyReminderDayType(256);
            });
        EXPECT_TRUE(IsChecked(opened.pane, IDC_YEARLY_ON_DAY_TYPE));
        EXPECT_EQ(L"4", ShownText(opened.pane, IDC_YEARLY_DAY));
        EXPECT_EQ(1, ShownIndex(opened.pane, IDC_YEARLY_ORDINAL));
        EXPECT_EQ(1, ShownIndex(opened.pane, IDC_YEARLY_DAY_TYPE));
        Choose(opened.pane, IDC_YEARLY_ON_DAY);
        Select(opened.pane, IDC_YEARLY_ORDINAL, 4);
        Select(opened.pane, IDC_YEARLY_DAY_TYPE, 0);
        Select(opened.pane, IDC_YEARLY_DAY_TYPE_MONTH, 5);
        SetDate(opened, 6, 31);
        ExpectAccepted(opened.pane);
        EXPECT_EQ(DayOfMonth, opened.pane.GetYearlyOccurenceType());
        EXPECT_EQ(EcvMonth::July, opened.pane.GetYearlyReminderPattern1Month());
        EXPECT_EQ(31, opened.pane.GetYearlyRecurrentDay());
        EXPECT_EQ(EcvReminderDayIntegralType::Last, opened.pane.GetYearlyReminderDayIntegralType());
        EXPECT_EQ(128, opened.pane.GetYearlyReminderDayType());
        EXPECT_EQ(EcvMonth::June, opened.pane.GetYearlyReminderPattern2Month());
    }
}

TEST_F(YearlyPaneTest, OnDay_KnowsTheLengthOfEachMonth)
{
    constexpr int kDays[] = {31, 0, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
    for (const wchar_t* const language : kAllLanguages)
    {
        SetLanguage(language);
        OpenedYearly opened([](Pane&) {});
        for (int month = 0; month < 12; ++month)
        {
            SetDate(opened, month, 0);
            ExpectRefused(opened.pane, ts::LoadText(IDS_NUMBER_BELOW_ONE), IDC_YEARLY_DAY);
            if (month == kFebruary)
            {
                continue;
            }
            SetDate(opened, month, kDays[month]);
            ExpectAccepted(opened.pane);
            SetDate(opened, month, kDays[month] + 1);
            ExpectRefused(opened.pane, ts::FormatText(IDS_DAY_ABOVE_MAXIMUM, kDays[month]), IDC_YEARLY_DAY);
        }
    }
}

TEST_F(YearlyPaneTest, February_AsksAboutItsLastDayInEveryYear)
{
    for (const wchar_t* const language : kAllLanguages)
    {
        SetLanguage(language);
        OpenedYearly opened([](Pane&) {});
        for (const int year : {2026, 2028})
        {
            opened.outer.m_date.SetTime(CTime(year, 2, 1, 12, 0, 0));
            SetDate(opened, kFebruary, 28);
            ExpectAccepted(opened.pane);
            SetDate(opened, kFebruary, 29);
            ExpectAsked(opened.pane, ts::LoadText(IDS_LEAP_DAY), IDC_YEARLY_DAY);
            SetDate(opened, kFebruary, 30);
            ExpectRefused(opened.pane, ts::FormatText(IDS_DAY_ABOVE_MAXIMUM, 29), IDC_YEARLY_DAY);
        }
    }
}

TEST_F(YearlyPaneTest, OnDayType_AcceptsEverything)
{
    OpenedYearly opened([](Pane& pane) { pane.SetYearlyOccurenceType(OrdinalDayType); });
    for (const int day : {INT_MIN, 0, 29, 99})
    {
        SetDate(opened, kFebruary, day);
        ExpectAccepted(opened.pane);
    }
}

TEST_F(YearlyPaneTest, Rubbish_IsRefused)
{
    for (const wchar_t* const language : kAllLanguages)
    {
        SetLanguage(language);
        OpenedYearly opened([](Pane&) {});
        ExpectRubbishRefused(opened.pane, IDC_YEARLY_DAY);
        ExpectAccepted(opened.pane);
    }
}

TEST_F(YearlyPaneTest, DamagedPattern_ShowsTheFirstOfEach)
{
    OpenedYearly opened(
        [](Pane& pane)
        {
            pane.SetYearlyOccurenceType(static_cast<EcvReminderYearlyOccurence>(2));
            pane.SetYearlyReminderDayIntegralType(static_cast<EcvReminderDayIntegralType>(-1));
        });
    ExpectAccepted(opened.pane);
    EXPECT_EQ(DayOfMonth, opened.pane.GetYearlyOccurenceType());
    EXPECT_EQ(EcvReminderDayIntegralType::First, opened.pane.GetYearlyReminderDayIntegralType());
}
