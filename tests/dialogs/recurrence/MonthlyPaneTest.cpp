#include "dialogs/CcvMfcRecurrenceMonthlyDialog.h"
#include "tests/dialogs/recurrence/PaneHarness.h"

#include <climits>

namespace
{

using namespace ts::test;
using enum EcvReminderMonthlyOccurence;

using Pane = CcvMfcRecurrenceMonthlyDialog;
using OpenedMonthly = Opened<Pane, IDD_RECURRENCE_MONTHLY>;

class MonthlyPaneTest : public PaneTest
{
  protected:
    /// The entry of the day types that a pane has selected when it was made on that day of November 2026.
    static int SuggestedDayType(const wchar_t* language, int day)
    {
        SetLanguage(language);
        const FixedClock clock(CTime(2026, 11, day, 12, 0, 0));
        const OpenedMonthly opened([](Pane&) {});
        return ShownIndex(opened.pane, IDC_MONTHLY_DAY_TYPE);
    }
};

} // namespace

TEST_F(MonthlyPaneTest, NewPane_SuggestsToday)
{
    const Pane pane;
    EXPECT_EQ(DayOfMonth, pane.GetMonthlyOccurenceType());
    EXPECT_EQ(21, pane.GetMonthlyRecurrentDayOfMonth());
    EXPECT_EQ(1, pane.GetMonthlyReminderPattern1Month());
    EXPECT_EQ(1, pane.GetMonthlyReminderPattern2Month());
    EXPECT_EQ(EcvReminderDayIntegralType::Fourth, pane.GetMonthlyReminderDayIntegralType());
    EXPECT_EQ(0, pane.GetMonthlyReminderDayType());
    EXPECT_EQ(PaneNow(), pane.GetStartTime());
    EXPECT_STREQ("CcvMfcRecurrenceMonthlyDialog", pane.GetRuntimeClass()->m_lpszClassName);
}

TEST_F(MonthlyPaneTest, Ordinal_IsTheDayDividedBySeven)
{
    for (int day = 1; day <= 31; ++day)
    {
        m_clock.Set(CTime(2026, 12, day, 12, 0, 0));
        EXPECT_EQ(day / 7, static_cast<int>(Pane().GetMonthlyReminderDayIntegralType())) << day;
    }
}

TEST_F(MonthlyPaneTest, StartWithoutALocalDate_SuggestsWhatIsLeft)
{
    m_clock.Set(CTime(LLONG_MAX));
    for (const wchar_t* const language : kAllLanguages)
    {
        SetLanguage(language);
        OpenedMonthly opened([](Pane&) {});
        EXPECT_EQ(L"0", ShownText(opened.pane, IDC_MONTHLY_DAY));
        EXPECT_EQ(0, ShownIndex(opened.pane, IDC_MONTHLY_ORDINAL));
        const bool isEnglish = IsEnglish(language);
        EXPECT_EQ(isEnglish ? 2 : 1, ShownIndex(opened.pane, IDC_MONTHLY_DAY_TYPE));
    }
}

TEST_F(MonthlyPaneTest, SuggestedDayType_IsTodaysWeekdayButASundayInGermanAndFrench)
{
    // November 22 is a Sunday. The weekdays begin behind three other entries.
    for (int day = 0; day < 7; ++day)
    {
        EXPECT_EQ(day + 3, SuggestedDayType(L"en", 22 + day));
        EXPECT_EQ(day + 2, SuggestedDayType(L"de", 22 + day));
        EXPECT_EQ(day + 2, SuggestedDayType(L"fr", 22 + day));
    }
}

TEST_F(MonthlyPaneTest, Entries_AreInTheOrderOfTheLanguage)
{
    using Data = std::vector<int>;
    for (const wchar_t* const language : kAllLanguages)
    {
        SetLanguage(language);
        const OpenedMonthly opened([](Pane&) {});
        EXPECT_EQ(5u, Entries(opened.pane, IDC_MONTHLY_ORDINAL).size());
        const bool isEnglish = IsEnglish(language);
        EXPECT_EQ(isEnglish ? (Data{128, 256, 512, 1, 2, 4, 8, 16, 32, 64})
                            : (Data{128, 256, 512, 2, 4, 8, 16, 32, 64, 1}),
                  EntryData(opened.pane, IDC_MONTHLY_DAY_TYPE));
        const std::vector<std::wstring> texts = Entries(opened.pane, IDC_MONTHLY_DAY_TYPE);
        ASSERT_EQ(10u, texts.size());
        EXPECT_EQ(ts::LoadText(isEnglish ? IDS_SATURDAY : IDS_SUNDAY).GetString(), texts.back());
        EXPECT_EQ(ts::LoadText(isEnglish ? IDS_SUNDAY : IDS_MONDAY).GetString(), texts.at(3));
    }
}

TEST_F(MonthlyPaneTest, SetDayType_UsesTheEnglishPositions)
{
    struct Row
    {
        long set;
        long germanResult;
    };
    for (const Row& row : {Row{128, 128}, Row{256, 256}, Row{512, 512}, Row{2, 4}, Row{4, 8}, Row{8, 16},
                           Row{16, 32}, Row{32, 64}, Row{64, 1}, Row{1, 2}, Row{3, 128}, Row{0, 128}})
    {
        for (const wchar_t* const language : kAllLanguages)
        {
            SetLanguage(language);
            OpenedMonthly opened([&row](Pane& pane) { pane.SetMonthlyReminderDayType(row.set); });
            ExpectAccepted(opened.pane);
            const bool isKnown = row.set != 0 && row.set != 3;
            const long english = isKnown ? row.set : 128;
            EXPECT_EQ(IsEnglish(language) ? english : row.germanResult,
                      opened.pane.GetMonthlyReminderDayType())
                << row.set;
        }
    }
}

TEST_F(MonthlyPaneTest, DayType_IsUnknownUntilDataWasExchanged)
{
    Pane pane;
    pane.SetMonthlyReminderDayType(64);
    EXPECT_EQ(0, pane.GetMonthlyReminderDayType());
}

TEST_F(MonthlyPaneTest, Values_GoToTheControlsAndBack)
{
    for (const wchar_t* const language : kAllLanguages)
    {
        SetLanguage(language);
        OpenedMonthly opened(
            [](Pane& pane)
            {
                pane.SetMonthlyOccurenceType(OrdinalDayType);
                pane.SetMonthlyRecurrentDayOfMonth(5);
                pane.SetMonthlyReminderPattern1Month(6);
                pane.SetMonthlyReminderPattern2Month(7);
                pane.SetMonthlyReminderDayIntegralType(EcvReminderDayIntegralType::Last);
                pane.SetMonthlyReminderDayType(512);
            });
        EXPECT_TRUE(IsChecked(opened.pane, IDC_MONTHLY_ON_DAY_TYPE));
        EXPECT_EQ(L"5", ShownText(opened.pane, IDC_MONTHLY_DAY));
        EXPECT_EQ(L"6", ShownText(opened.pane, IDC_MONTHLY_DAY_MONTHS));
        EXPECT_EQ(L"7", ShownText(opened.pane, IDC_MONTHLY_DAY_TYPE_MONTHS));
        EXPECT_EQ(4, ShownIndex(opened.pane, IDC_MONTHLY_ORDINAL));
        EXPECT_EQ(2, ShownIndex(opened.pane, IDC_MONTHLY_DAY_TYPE));
        Choose(opened.pane, IDC_MONTHLY_ON_DAY);
        Enter(opened.pane, IDC_MONTHLY_DAY, L"28");
        Enter(opened.pane, IDC_MONTHLY_DAY_MONTHS, L"2");
        Enter(opened.pane, IDC_MONTHLY_DAY_TYPE_MONTHS, L"-3");
        Select(opened.pane, IDC_MONTHLY_ORDINAL, 2);
        Select(opened.pane, IDC_MONTHLY_DAY_TYPE, 1);
        ExpectAccepted(opened.pane);
        EXPECT_EQ(DayOfMonth, opened.pane.GetMonthlyOccurenceType());
        EXPECT_EQ(28, opened.pane.GetMonthlyRecurrentDayOfMonth());
        EXPECT_EQ(2, opened.pane.GetMonthlyReminderPattern1Month());
        EXPECT_EQ(-3, opened.pane.GetMonthlyReminderPattern2Month());
        EXPECT_EQ(EcvReminderDayIntegralType::Third, opened.pane.GetMonthlyReminderDayIntegralType());
        EXPECT_EQ(256, opened.pane.GetMonthlyReminderDayType());
    }
}

TEST_F(MonthlyPaneTest, OnDay_IsCheckedInOrder)
{
    for (const wchar_t* const language : kAllLanguages)
    {
        SetLanguage(language);
        OpenedMonthly opened([](Pane&) {});
        Enter(opened.pane, IDC_MONTHLY_DAY, L"0");
        Enter(opened.pane, IDC_MONTHLY_DAY_MONTHS, L"0");
        ExpectRefused(opened.pane, ts::LoadText(IDS_NUMBER_BELOW_ONE), IDC_MONTHLY_DAY);
        Enter(opened.pane, IDC_MONTHLY_DAY, L"32");
        ExpectRefused(opened.pane, ts::LoadText(IDS_NUMBER_BELOW_ONE), IDC_MONTHLY_DAY_MONTHS);
        Enter(opened.pane, IDC_MONTHLY_DAY_MONTHS, L"1");
        for (const wchar_t* const day : {L"32", L"2147483647"})
        {
            Enter(opened.pane, IDC_MONTHLY_DAY, day);
            ExpectRefused(opened.pane, ts::FormatText(IDS_DAY_ABOVE_MAXIMUM, 31), IDC_MONTHLY_DAY);
        }
        for (const int day : {29, 30, 31})
        {
            Enter(opened.pane, IDC_MONTHLY_DAY, std::to_wstring(day).c_str());
            ExpectAsked(opened.pane, ts::FormatText(IDS_DAY_NOT_IN_EVERY_MONTH, day), IDC_MONTHLY_DAY);
            EXPECT_EQ(day, opened.pane.GetMonthlyRecurrentDayOfMonth());
        }
        Enter(opened.pane, IDC_MONTHLY_DAY, L"1");
        ExpectAccepted(opened.pane);
    }
}

TEST_F(MonthlyPaneTest, OnDayType_LooksAtItsOwnMonthsOnly)
{
    for (const wchar_t* const language : kAllLanguages)
    {
        SetLanguage(language);
        OpenedMonthly opened([](Pane& pane) { pane.SetMonthlyOccurenceType(OrdinalDayType); });
        Enter(opened.pane, IDC_MONTHLY_DAY, L"99");
        Enter(opened.pane, IDC_MONTHLY_DAY_MONTHS, L"-1");
        Enter(opened.pane, IDC_MONTHLY_DAY_TYPE_MONTHS, L"0");
        ExpectRefused(opened.pane, ts::LoadText(IDS_NUMBER_BELOW_ONE), IDC_MONTHLY_DAY_TYPE_MONTHS);
        Enter(opened.pane, IDC_MONTHLY_DAY_TYPE_MONTHS, L"1");
        ExpectAccepted(opened.pane);
    }
}

TEST_F(MonthlyPaneTest, Rubbish_IsRefusedInEveryField)
{
    for (const wchar_t* const language : kAllLanguages)
    {
        SetLanguage(language);
        OpenedMonthly opened([](Pane&) {});
        for (const int edit : {IDC_MONTHLY_DAY, IDC_MONTHLY_DAY_MONTHS, IDC_MONTHLY_DAY_TYPE_MONTHS})
        {
            ExpectRubbishRefused(opened.pane, edit);
        }
        ExpectAccepted(opened.pane);
    }
}

TEST_F(MonthlyPaneTest, DamagedPattern_ShowsTheFirstOfEach)
{
    OpenedMonthly opened(
        [](Pane& pane)
        {
            pane.SetMonthlyOccurenceType(static_cast<EcvReminderMonthlyOccurence>(-5));
            pane.SetMonthlyReminderDayIntegralType(static_cast<EcvReminderDayIntegralType>(9));
        });
    EXPECT_TRUE(IsChecked(opened.pane, IDC_MONTHLY_ON_DAY));
    EXPECT_EQ(0, ShownIndex(opened.pane, IDC_MONTHLY_ORDINAL));
    ExpectAccepted(opened.pane);
    EXPECT_EQ(DayOfMonth, opened.pane.GetMonthlyOccurenceType());
    EXPECT_EQ(EcvReminderDayIntegralType::First, opened.pane.GetMonthlyReminderDayIntegralType());
}
