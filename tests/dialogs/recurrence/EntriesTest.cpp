// What the entries of the panes' combo boxes say: their values go by their places.

#include "dialogs/CcvMfcRecurrenceMonthlyDialog.h"
#include "dialogs/CcvMfcRecurrenceYearlyDialog.h"
#include "tests/dialogs/recurrence/PaneHarness.h"

namespace
{

using namespace ts::test;

using Texts = std::vector<std::wstring>;
using EntriesTest = PaneTest;

/// The texts of these numbers in the present language.
Texts TextsOf(std::initializer_list<unsigned> ids)
{
    Texts texts;
    for (const unsigned id : ids)
    {
        texts.emplace_back(ts::LoadText(id).GetString());
    }
    return texts;
}

Texts Ordinals()
{
    return TextsOf({IDS_FIRST, IDS_SECOND, IDS_THIRD, IDS_FOURTH, IDS_LAST});
}

/// The week begins with Sunday in English only.
Texts DayTypes(std::wstring_view language)
{
    Texts texts = TextsOf({IDS_DAY, IDS_WEEKDAY, IDS_WEEKEND_DAY, IDS_MONDAY, IDS_TUESDAY, IDS_WEDNESDAY,
                           IDS_THURSDAY, IDS_FRIDAY, IDS_SATURDAY});
    texts.insert(IsEnglish(language) ? texts.begin() + 3 : texts.end(), ts::LoadText(IDS_SUNDAY).GetString());
    return texts;
}

} // namespace

TEST_F(EntriesTest, MonthlyPane_OffersOrdinalsAndDayTypesInTheirOrder)
{
    for (const wchar_t* const language : kAllLanguages)
    {
        SetLanguage(language);
        const Opened<CcvMfcRecurrenceMonthlyDialog, IDD_RECURRENCE_MONTHLY> opened([](auto&) {});
        EXPECT_EQ(Ordinals(), Entries(opened.pane, IDC_MONTHLY_ORDINAL));
        EXPECT_EQ(DayTypes(language), Entries(opened.pane, IDC_MONTHLY_DAY_TYPE));
    }
}

TEST_F(EntriesTest, YearlyPane_OffersMonthsOrdinalsAndDayTypesInTheirOrder)
{
    for (const wchar_t* const language : kAllLanguages)
    {
        SetLanguage(language);
        const Texts months =
            TextsOf({IDS_JANUARY, IDS_FEBRUARY, IDS_MARCH, IDS_APRIL, IDS_MAY, IDS_JUNE, IDS_JULY, IDS_AUGUST,
                     IDS_SEPTEMBER, IDS_OCTOBER, IDS_NOVEMBER, IDS_DECEMBER});
        const Opened<CcvMfcRecurrenceYearlyDialog, IDD_RECURRENCE_YEARLY> opened([](auto&) {});
        EXPECT_EQ(Ordinals(), Entries(opened.pane, IDC_YEARLY_ORDINAL));
        EXPECT_EQ(DayTypes(language), Entries(opened.pane, IDC_YEARLY_DAY_TYPE));
        EXPECT_EQ(months, Entries(opened.pane, IDC_YEARLY_DAY_MONTH));
        EXPECT_EQ(months, Entries(opened.pane, IDC_YEARLY_DAY_TYPE_MONTH));
    }
}
