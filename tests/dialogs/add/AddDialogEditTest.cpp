#include "dialogs/LeadTimeText.h"
#include "resources/AddReminderControls.h"
#include "resources/RecurrenceControls.h"
#include "tests/dialogs/add/AddDialogHarness.h"
#include "tests/reminders/recurrence/Patterns.h"
#include "tests/reminders/storage/RecordFields.h"
#include "tests/support/TextOutput.h"

namespace ts::test
{
namespace
{

using enum EcvReminderDayIntegralType;
using enum EcvReminderDayType;

/// What a control shows: the text of an edit control, the index of a combo box, the state of a button.
struct Shown
{
    int id;
    std::wstring value;
};

std::wstring ValueOf(HWND control)
{
    if (ClassOf(control) == L"Edit")
    {
        return TextOf(control);
    }
    const UINT question = ClassOf(control) == L"ComboBox" ? CB_GETCURSEL : BM_GETCHECK;
    return std::to_wstring(SendMessageW(control, question, 0, 0));
}

struct Row
{
    const char* title;
    CcvReminderData pattern;
    int kindButton;
    std::vector<Shown> pane;
};

std::vector<Row> Rows()
{
    return {
        {"daily",
         EveryNDays(12),
         IDC_ADD_DAILY,
         {{IDC_DAILY_EVERY_N_DAYS, L"1"}, {IDC_DAILY_EVERY_WEEKDAY, L"0"}, {IDC_DAILY_NUMBER, L"12"}}},
        {"weekdays",
         EveryWeekday(),
         IDC_ADD_DAILY,
         {{IDC_DAILY_EVERY_N_DAYS, L"0"}, {IDC_DAILY_EVERY_WEEKDAY, L"1"}, {IDC_DAILY_NUMBER, L"0"}}},
        {"weekly",
         Weekly(3, 1 | 8 | 32),
         IDC_ADD_WEEKLY,
         {{IDC_WEEKLY_NUMBER, L"3"},
          {IDC_WEEKLY_SUNDAY, L"1"},
          {IDC_WEEKLY_MONDAY, L"0"},
          {IDC_WEEKLY_TUESDAY, L"0"},
          {IDC_WEEKLY_WEDNESDAY, L"1"},
          {IDC_WEEKLY_THURSDAY, L"0"},
          {IDC_WEEKLY_FRIDAY, L"1"},
          {IDC_WEEKLY_SATURDAY, L"0"}}},
        {"day of the month",
         MonthlyOnDay(6, 17),
         IDC_ADD_MONTHLY,
         {{IDC_MONTHLY_ON_DAY, L"1"},
          {IDC_MONTHLY_ON_DAY_TYPE, L"0"},
          {IDC_MONTHLY_DAY, L"17"},
          {IDC_MONTHLY_DAY_MONTHS, L"6"},
          {IDC_MONTHLY_DAY_TYPE_MONTHS, L"0"}}},
        {"last weekend day",
         MonthlyOn(2, Last, WeekendDay),
         IDC_ADD_MONTHLY,
         {{IDC_MONTHLY_ON_DAY, L"0"},
          {IDC_MONTHLY_ON_DAY_TYPE, L"1"},
          {IDC_MONTHLY_ORDINAL, L"4"},
          {IDC_MONTHLY_DAY_TYPE, L"2"},
          {IDC_MONTHLY_DAY_TYPE_MONTHS, L"2"}}},
        {"date of the year",
         YearlyOnDay(7, 4),
         IDC_ADD_YEARLY,
         {{IDC_YEARLY_ON_DAY, L"1"},
          {IDC_YEARLY_ON_DAY_TYPE, L"0"},
          {IDC_YEARLY_DAY, L"4"},
          {IDC_YEARLY_DAY_MONTH, L"6"}}},
        {"second weekday of a month",
         YearlyOn(9, Second, Weekday),
         IDC_ADD_YEARLY,
         {{IDC_YEARLY_ON_DAY, L"0"},
          {IDC_YEARLY_ON_DAY_TYPE, L"1"},
          {IDC_YEARLY_ORDINAL, L"1"},
          {IDC_YEARLY_DAY_TYPE, L"1"},
          {IDC_YEARLY_DAY_TYPE_MONTH, L"8"}}},
    };
}

void ExpectFields(const ShownDialog& shown, const CcvReminderData& record)
{
    EXPECT_EQ(record.GetSubject(), CString(shown.Text(IDC_ADD_SUBJECT).c_str()));
    EXPECT_EQ(ShowLeadTime(record.GetReminderTimeSpan()), CString(shown.Text(IDC_ADD_LEAD_TIME).c_str()));
    const CTime due = record.GetInitialDueDate();
    EXPECT_EQ(due.GetYear(), shown.Date().wYear);
    EXPECT_EQ(due.GetMonth(), shown.Date().wMonth);
    EXPECT_EQ(due.GetDay(), shown.Date().wDay);
    EXPECT_EQ(due, shown.Time());
}

/// The record as the dialog gives it back when nothing was changed: the panes fill what a pattern by date
/// leaves open.
CcvReminderData Unchanged(const CcvReminderData& record)
{
    CcvReminderData expected = record;
    if (OptionsOf(record)[0] == 0 && record.GetRecurrenceType() == EcvReminderRecurrenceType::Monthly)
    {
        expected.SetMonthlyReminderDayType(static_cast<long>(Day));
    }
    if (record.GetRecurrenceType() == EcvReminderRecurrenceType::Yearly)
    {
        if (OptionsOf(record)[0] == 0)
        {
            expected.SetYearlyReminderDayType(static_cast<long>(Day));
            expected.SetYearlyReminderPattern2Month(EcvMonth::January);
        }
        else
        {
            expected.SetYearlyReminderPattern1Month(EcvMonth::January);
        }
    }
    return expected;
}

class AddDialogEditTest : public AddDialogTest
{
};

INSTANTIATE_TEST_SUITE_P(Languages, AddDialogEditTest, testing::Values(L"en", L"de", L"fr"),
                         [](const auto& language)
                         { return std::string(language.param, language.param + 2); });

} // namespace

TEST_P(AddDialogEditTest, EachKind_FillsEveryControlAndOkKeepsIt)
{
    for (const Row& row : Rows())
    {
        SCOPED_TRACE(row.title);
        const CcvReminderData record = SampleOf(row.pattern);
        const RecordFields before = FieldsOf(record);
        CcvMfcAddReminderDialog dialog;
        dialog.UpdateReminderData(&record);
        ASSERT_EQ(IDOK, RunModal(dialog,
                                 [&](const ShownDialog& shown)
                                 {
                                     ExpectFields(shown, record);
                                     EXPECT_TRUE(shown.IsSectionShown());
                                     EXPECT_EQ(row.kindButton, shown.ChosenKind());
                                     for (const Shown& control : row.pane)
                                     {
                                         EXPECT_EQ(control.value, ValueOf(shown.PaneItem(control.id)))
                                             << control.id;
                                     }
                                     shown.Ok();
                                 }));
        EXPECT_EQ(FieldsOf(Unchanged(record)), FieldsOf(*dialog.GetReminderData()));
        EXPECT_EQ(before, FieldsOf(record)) << "the record given is never changed";
    }
}

TEST_P(AddDialogEditTest, OneOffReminder_SectionClosed)
{
    const CcvReminderData record = SampleOf(RecordOfType(EcvReminderRecurrenceType::None));
    CcvMfcAddReminderDialog dialog;
    dialog.UpdateReminderData(&record);
    ASSERT_EQ(IDOK, RunModal(dialog,
                             [&](const ShownDialog& shown)
                             {
                                 ExpectFields(shown, record);
                                 EXPECT_FALSE(shown.IsSectionShown());
                                 EXPECT_EQ(nullptr, shown.Pane());
                                 shown.Ok();
                             }));
    EXPECT_EQ(FieldsOf(record), FieldsOf(*dialog.GetReminderData()));
}

TEST_P(AddDialogEditTest, WeekdayOfAMonth_IsTheNextEntryWhereTheWeekEndsWithSunday)
{
    // The positions of the weekdays are those of a week that begins with Sunday, in every language.
    const CcvReminderData record = SampleOf(MonthlyOn(1, First, Monday));
    CcvMfcAddReminderDialog dialog;
    dialog.UpdateReminderData(&record);
    ASSERT_EQ(IDOK, RunModal(dialog, [](const ShownDialog& shown) { shown.Ok(); }));
    const auto expected = static_cast<long>(IsEnglish() ? Monday : Tuesday);
    EXPECT_EQ(expected, dialog.GetReminderData()->GetMonthlyReminderDayType());
}

TEST_P(AddDialogEditTest, Cancelled_ChangesNothing)
{
    const CcvReminderData record = SampleOf(Weekly(2, 2));
    CcvMfcAddReminderDialog dialog;
    dialog.UpdateReminderData(&record);
    EXPECT_EQ(IDCANCEL, RunModal(dialog,
                                 [&](const ShownDialog& shown)
                                 {
                                     shown.TypeSubject(L"Other");
                                     shown.TypeLeadTime(L"5");
                                     shown.SetDate(2030, 5, 6);
                                     shown.SetTime(1, 15);
                                     shown.ChooseKind(IDC_ADD_DAILY);
                                     shown.Cancel();
                                 }));
    EXPECT_EQ(FieldsOf(record), FieldsOf(*dialog.GetReminderData()));
}

TEST_P(AddDialogEditTest, OtherRecordGiven_ReplacesAllOfTheFormer)
{
    const CcvReminderData weekly = SampleOf(Weekly(2, 2));
    CcvReminderData once = SampleOf(RecordOfType(EcvReminderRecurrenceType::None));
    once.SetSubject(L"Once");
    CcvMfcAddReminderDialog dialog;
    dialog.UpdateReminderData(&weekly);
    dialog.UpdateReminderData(&once);
    EXPECT_EQ(FieldsOf(once), FieldsOf(*dialog.GetReminderData()));
}

TEST_P(AddDialogEditTest, RecordGivenWhileTheWindowIsThere_IsShownAtOnce)
{
    const CcvReminderData once = SampleOf(RecordOfType(EcvReminderRecurrenceType::None));
    const CcvReminderData monthly = SampleOf(MonthlyOnDay(6, 17));
    CcvMfcAddReminderDialog dialog;
    dialog.UpdateReminderData(&once);
    ASSERT_EQ(IDOK, RunModal(dialog,
                             [&](const ShownDialog& shown)
                             {
                                 dialog.UpdateReminderData(&monthly);
                                 ExpectFields(shown, monthly);
                                 ASSERT_TRUE(shown.IsSectionShown());
                                 EXPECT_EQ(IDC_ADD_MONTHLY, shown.ChosenKind());
                                 EXPECT_EQ(L"17", TextOf(shown.PaneItem(IDC_MONTHLY_DAY)));
                                 shown.Ok();
                             }));
    EXPECT_EQ(FieldsOf(Unchanged(monthly)), FieldsOf(*dialog.GetReminderData()));
}

TEST_P(AddDialogEditTest, ShownAgain_KeepsWhatWasEntered)
{
    const CcvReminderData record = SampleOf(EveryNDays(12));
    CcvMfcAddReminderDialog dialog;
    dialog.UpdateReminderData(&record);
    ASSERT_EQ(IDOK, RunModal(dialog,
                             [](const ShownDialog& shown)
                             {
                                 shown.TypeSubject(L"Changed");
                                 shown.Ok();
                             }));
    ASSERT_EQ(IDOK, RunModal(dialog,
                             [](const ShownDialog& shown)
                             {
                                 EXPECT_EQ(L"Changed", shown.Text(IDC_ADD_SUBJECT));
                                 EXPECT_EQ(L"12", TextOf(shown.PaneItem(IDC_DAILY_NUMBER)));
                                 shown.Ok();
                             }));
    EXPECT_EQ(CString(L"Changed"), dialog.GetReminderData()->GetSubject());
}

TEST_P(AddDialogEditTest, Caption_ReplacesTheTitle)
{
    CcvMfcAddReminderDialog dialog;
    dialog.SetDialogCaption(L"Edit it");
    EXPECT_EQ(IDCANCEL, RunModal(dialog,
                                 [&](const ShownDialog& shown)
                                 {
                                     EXPECT_EQ(L"Edit it", TextOf(shown.Window()));
                                     dialog.SetDialogCaption(L"At once");
                                     EXPECT_EQ(L"At once", TextOf(shown.Window()));
                                     shown.Cancel();
                                 }));
    CcvMfcAddReminderDialog without;
    EXPECT_EQ(IDCANCEL, RunModal(without,
                                 [&](const ShownDialog& shown)
                                 {
                                     EXPECT_NE(L"", TextOf(shown.Window()));
                                     shown.Cancel();
                                 }));
}

TEST_P(AddDialogEditTest, DamagedRecord_IsShownAndCanBeMended)
{
    CcvReminderData record = SampleOf(Weekly(-5, 0));
    record.SetInitialDueDate(INT64_MAX);
    record.SetNextDueDate(INT64_MAX);
    record.SetReminderTimeSpan(INT64_MIN);
    CcvMfcAddReminderDialog dialog;
    dialog.UpdateReminderData(&record);
    ASSERT_EQ(IDOK, RunModal(dialog,
                             [](const ShownDialog& shown)
                             {
                                 ShownDialog::TypeOver(shown.PaneItem(IDC_WEEKLY_NUMBER), L"1");
                                 ShownDialog::ClickOn(shown.PaneItem(IDC_WEEKLY_MONDAY));
                                 shown.SetDate(2027, 2, 1);
                                 shown.SetTime(9, 0);
                                 shown.Ok();
                             }));
    CcvReminderData expected = SampleOf(Weekly(1, 2));
    expected.SetReminderTimeSpan(0);
    SetDue(expected, CTime(2027, 2, 1, 9, 0, 0));
    EXPECT_EQ(FieldsOf(expected), FieldsOf(*dialog.GetReminderData()));
}

} // namespace ts::test
