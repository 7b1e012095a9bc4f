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

/// A pattern and how a user enters it into an open dialog.
struct Row
{
    const char* title;
    CcvReminderData pattern;
    std::function<void(const ShownDialog&)> enter;
};

using enum EcvReminderDayIntegralType;

// Positions in the combo box of day types: day, weekday and weekend day come first in each language.
constexpr int kDayEntry = 0;
constexpr int kWeekendDayEntry = 2;
constexpr int kFourthEntry = 3;
constexpr int kLastEntry = 4;

void EnterDaily(const ShownDialog& dialog, const wchar_t* days)
{
    dialog.ChooseKind(IDC_ADD_DAILY);
    ShownDialog::ClickOn(dialog.PaneItem(IDC_DAILY_EVERY_N_DAYS));
    ShownDialog::TypeOver(dialog.PaneItem(IDC_DAILY_NUMBER), days);
}

void EnterWeekdays(const ShownDialog& dialog)
{
    dialog.ChooseKind(IDC_ADD_DAILY);
    ShownDialog::ClickOn(dialog.PaneItem(IDC_DAILY_EVERY_WEEKDAY));
}

void EnterWeekly(const ShownDialog& dialog, const wchar_t* weeks, std::initializer_list<int> days)
{
    dialog.ChooseKind(IDC_ADD_WEEKLY);
    ShownDialog::TypeOver(dialog.PaneItem(IDC_WEEKLY_NUMBER), weeks);
    // The pane suggests today, a Saturday.
    ShownDialog::ClickOn(dialog.PaneItem(IDC_WEEKLY_SATURDAY));
    for (const int day : days)
    {
        ShownDialog::ClickOn(dialog.PaneItem(day));
    }
}

void EnterMonthlyDay(const ShownDialog& dialog, const wchar_t* day, const wchar_t* months)
{
    dialog.ChooseKind(IDC_ADD_MONTHLY);
    ShownDialog::ClickOn(dialog.PaneItem(IDC_MONTHLY_ON_DAY));
    ShownDialog::TypeOver(dialog.PaneItem(IDC_MONTHLY_DAY), day);
    ShownDialog::TypeOver(dialog.PaneItem(IDC_MONTHLY_DAY_MONTHS), months);
}

void EnterMonthlyDayType(const ShownDialog& dialog, int ordinal, int dayType, const wchar_t* months)
{
    dialog.ChooseKind(IDC_ADD_MONTHLY);
    ShownDialog::ClickOn(dialog.PaneItem(IDC_MONTHLY_ON_DAY_TYPE));
    ShownDialog::Choose(dialog.PaneItem(IDC_MONTHLY_ORDINAL), ordinal);
    ShownDialog::Choose(dialog.PaneItem(IDC_MONTHLY_DAY_TYPE), dayType);
    ShownDialog::TypeOver(dialog.PaneItem(IDC_MONTHLY_DAY_TYPE_MONTHS), months);
}

void EnterYearlyDay(const ShownDialog& dialog, int month, const wchar_t* day)
{
    dialog.ChooseKind(IDC_ADD_YEARLY);
    ShownDialog::ClickOn(dialog.PaneItem(IDC_YEARLY_ON_DAY));
    ShownDialog::Choose(dialog.PaneItem(IDC_YEARLY_DAY_MONTH), month - 1);
    ShownDialog::TypeOver(dialog.PaneItem(IDC_YEARLY_DAY), day);
}

void EnterYearlyDayType(const ShownDialog& dialog, int ordinal, int dayType, int month)
{
    dialog.ChooseKind(IDC_ADD_YEARLY);
    ShownDialog::ClickOn(dialog.PaneItem(IDC_YEARLY_ON_DAY_TYPE));
    ShownDialog::Choose(dialog.PaneItem(IDC_YEARLY_ORDINAL), ordinal);
    ShownDialog::Choose(dialog.PaneItem(IDC_YEARLY_DAY_TYPE), dayType);
    ShownDialog::Choose(dialog.PaneItem(IDC_YEARLY_DAY_TYPE_MONTH), month - 1);
}

std::vector<Row> Rows()
{
    using D = const ShownDialog&;
    using enum EcvReminderDayType;
    return {
        {"once", RecordOfType(EcvReminderRecurrenceType::None), [](D) {}},
        {"every 3 days", EveryNDays(3), [](D d) { EnterDaily(d, L"3"); }},
        {"weekdays", EveryWeekday(), EnterWeekdays},
        {"every 2 weeks", Weekly(2, 2 | 16),
         [](D d) {
             EnterWeekly(d, L"2", {IDC_WEEKLY_MONDAY, IDC_WEEKLY_THURSDAY});
         }},
        {"every week on six days", Weekly(1, 63),
         [](D d)
         {
             EnterWeekly(d, L"1",
                         {IDC_WEEKLY_SUNDAY, IDC_WEEKLY_MONDAY, IDC_WEEKLY_TUESDAY, IDC_WEEKLY_WEDNESDAY,
                          IDC_WEEKLY_THURSDAY, IDC_WEEKLY_FRIDAY});
         }},
        {"day of the month", MonthlyOnDay(2, 15), [](D d) { EnterMonthlyDay(d, L"15", L"2"); }},
        {"last weekend day of the month", MonthlyOn(3, Last, WeekendDay),
         [](D d) { EnterMonthlyDayType(d, kLastEntry, kWeekendDayEntry, L"3"); }},
        {"date of the year", YearlyOnDay(10, 31), [](D d) { EnterYearlyDay(d, 10, L"31"); }},
        {"fourth day of a month", YearlyOn(12, Fourth, Day),
         [](D d) { EnterYearlyDayType(d, kFourthEntry, kDayEntry, 12); }},
    };
}

/// What the unused fields of a pane hold is stored with the pattern; here only the pattern is compared.
void TakeUnusedOptions(CcvReminderData& expected, const CcvReminderData& entered)
{
    std::array<std::int32_t, 6> options = OptionsOf(expected);
    const std::array<std::int32_t, 6> stored = OptionsOf(entered);
    const bool byDate = options[0] == 0;
    std::vector<std::size_t> unused;
    switch (expected.GetRecurrenceType())
    {
    case EcvReminderRecurrenceType::Daily:
        unused = byDate ? std::vector<std::size_t>{} : std::vector<std::size_t>{1};
        break;
    case EcvReminderRecurrenceType::Monthly:
    case EcvReminderRecurrenceType::Yearly:
        unused = byDate ? std::vector<std::size_t>{3, 4, 5} : std::vector<std::size_t>{1, 2};
        break;
    default:
        break;
    }
    for (const std::size_t slot : unused)
    {
        options.at(slot) = stored.at(slot);
    }
    SetOptions(expected, options);
}

class AddDialogCreateTest : public AddDialogTest
{
};

INSTANTIATE_TEST_SUITE_P(Languages, AddDialogCreateTest, testing::Values(L"en", L"de", L"fr"),
                         [](const auto& language)
                         { return std::string(language.param, language.param + 2); });

} // namespace

TEST_P(AddDialogCreateTest, EachKindEntered_GivesTheEnginesRecord)
{
    for (const Row& row : Rows())
    {
        SCOPED_TRACE(row.title);
        CcvMfcAddReminderDialog dialog;
        CcvReminderData blank{CString()};
        blank.SetDocumentPath(L"C:\\maps\\plan.map");
        blank.SetObjectTitle(L"Topic");
        blank.SetInitialDueDate(Noon());
        dialog.UpdateReminderData(&blank);
        ASSERT_EQ(IDOK, RunModal(dialog,
                                 [&](const ShownDialog& shown)
                                 {
                                     shown.TypeSubject(L"Call M\u00FCller & ask");
                                     shown.SetDate(2027, 1, 20);
                                     shown.SetTime(14, 30);
                                     shown.TypeLeadTime(L"2 d");
                                     row.enter(shown);
                                     shown.Ok();
                                 }));
        CcvReminderData expected = blank;
        expected.SetSubject(L"Call M\u00FCller & ask");
        expected.SetReminderTimeSpan(IsEnglish() ? 2 * 86400 : 120);
        expected.SetRecurrenceType(row.pattern.GetRecurrenceType());
        SetOptions(expected, OptionsOf(row.pattern));
        SetDue(expected, CTime(2027, 1, 20, 14, 30, 0));
        const CcvReminderData& entered = *dialog.GetReminderData();
        TakeUnusedOptions(expected, entered);
        EXPECT_EQ(FieldsOf(expected), FieldsOf(entered));
    }
}

TEST_P(AddDialogCreateTest, NoRecordGiven_SuggestsTheNextQuarterAndMakesOne)
{
    CcvMfcAddReminderDialog dialog;
    m_clock.Set(CTime(2026, 11, 21, 12, 7, 30));
    ASSERT_EQ(IDOK, RunModal(dialog,
                             [&](const ShownDialog& shown)
                             {
                                 EXPECT_EQ(L"", shown.Text(IDC_ADD_SUBJECT));
                                 EXPECT_FALSE(shown.IsSectionShown());
                                 EXPECT_EQ(IDC_ADD_WEEKLY, shown.ChosenKind());
                                 shown.TypeSubject(L"Call");
                                 shown.Ok();
                             }));
    CcvReminderData expected{CString()};
    expected.SetSubject(L"Call");
    // The clock stood at noon when the dialog was made.
    SetDue(expected, Noon());
    EXPECT_EQ(FieldsOf(expected), FieldsOf(*dialog.GetReminderData()));
}

TEST_P(AddDialogCreateTest, LateInTheEvening_SuggestsMidnight)
{
    m_clock.Set(CTime(2026, 11, 21, 23, 50, 0));
    CcvMfcAddReminderDialog dialog;
    EXPECT_EQ(CTime(2026, 11, 22, 0, 0, 0), dialog.GetReminderData()->GetInitialDueDate());
}

TEST_P(AddDialogCreateTest, SectionClosedAgain_NoRecurrence)
{
    CcvMfcAddReminderDialog dialog;
    const CcvReminderData before = SampleOf(Weekly(2, 2));
    dialog.UpdateReminderData(&before);
    ASSERT_EQ(IDOK, RunModal(dialog,
                             [&](const ShownDialog& shown)
                             {
                                 EnterMonthlyDay(shown, L"0", L"0");
                                 ShownDialog::ClickOn(shown.Item(IDC_ADD_TOGGLE_RECURRENCE));
                                 EXPECT_FALSE(shown.IsSectionShown());
                                 EXPECT_EQ(nullptr, shown.Pane());
                                 shown.Ok();
                             }));
    CcvReminderData expected = before;
    expected.SetRecurrenceType(EcvReminderRecurrenceType::None);
    expected.ResetRecurrenceOptions();
    SetDue(expected, before.GetInitialDueDate());
    EXPECT_EQ(FieldsOf(expected), FieldsOf(*dialog.GetReminderData()));
}

TEST_P(AddDialogCreateTest, FirstOccurrencesInThePast_NextIsTheUpcomingOne)
{
    CcvMfcAddReminderDialog dialog;
    ASSERT_EQ(IDOK, RunModal(dialog,
                             [&](const ShownDialog& shown)
                             {
                                 shown.SetDate(2026, 1, 1);
                                 shown.SetTime(9, 0);
                                 EnterDaily(shown, L"7");
                                 shown.Ok();
                             }));
    const CcvReminderData& record = *dialog.GetReminderData();
    EXPECT_EQ(CTime(2026, 1, 1, 9, 0, 0), record.GetInitialDueDate());
    CcvReminderData expected = EveryNDays(7);
    SetDue(expected, CTime(2026, 1, 1, 9, 0, 0));
    EXPECT_EQ(expected.GetNextDueDate(), record.GetNextDueDate());
    EXPECT_GT(record.GetNextDueDate(), Noon() - CTimeSpan(86400));
}

} // namespace ts::test
