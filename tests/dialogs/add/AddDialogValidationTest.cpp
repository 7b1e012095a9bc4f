#include "module/LanguageText.h"
#include "platform/mfc/CWnd.h"
#include "platform/mfc/afxdisp.h"
#include "resources/AddReminderControls.h"
#include "resources/RecurrenceControls.h"
#include "resources/StringIds.h"
#include "tests/dialogs/add/AddDialogHarness.h"
#include "tests/reminders/recurrence/Patterns.h"
#include "tests/reminders/storage/RecordFields.h"
#include "tests/support/TextOutput.h"

#include <bit>
#include <commctrl.h>
#include <optional>
#include <span>

namespace ts::test
{
namespace
{

/// What a user enters into an open dialog that it refuses.
struct Row
{
    const char* title;
    std::function<void(const ShownDialog&)> enter;
    std::wstring message;
    int focus; ///< a control of the pane
    int answer = IDOK;
};

/// What is entered over one and the same pattern.
struct Group
{
    CcvReminderData pattern;
    std::vector<Row> rows;
};

std::wstring Message(unsigned id)
{
    return LoadText(id).GetString();
}

std::wstring Message(unsigned id, int number)
{
    return FormatText(id, number).GetString();
}

Row NumberRow(const char* title, int edit, const wchar_t* text, const std::wstring& message,
              int answer = IDOK)
{
    return {title, [=](const ShownDialog& shown) { ShownDialog::TypeOver(shown.PaneItem(edit), text); },
            message, edit, answer};
}

std::vector<Group> RefusedPatterns()
{
    using enum EcvReminderDayIntegralType;
    using enum EcvReminderDayType;
    const std::wstring belowOne = Message(IDS_NUMBER_BELOW_ONE);
    const std::wstring noNumber = Message(IDS_NOT_A_WHOLE_NUMBER);
    return {
        {EveryNDays(1),
         {NumberRow("0 days", IDC_DAILY_NUMBER, L"0", belowOne),
          NumberRow("negative days", IDC_DAILY_NUMBER, L"-1", belowOne),
          NumberRow("letters", IDC_DAILY_NUMBER, L"abc", noNumber),
          NumberRow("days beyond 32 bits", IDC_DAILY_NUMBER, L"4294967297", noNumber),
          NumberRow("no days", IDC_DAILY_NUMBER, L"", noNumber)}},
        {Weekly(1, 2),
         {NumberRow("0 weeks", IDC_WEEKLY_NUMBER, L"0", belowOne),
          {"no day of the week",
           [](const ShownDialog& shown) { ShownDialog::ClickOn(shown.PaneItem(IDC_WEEKLY_MONDAY)); },
           Message(IDS_NO_DAY_OF_WEEK), IDC_WEEKLY_SATURDAY}}},
        {MonthlyOnDay(1, 5),
         {NumberRow("0 months", IDC_MONTHLY_DAY_MONTHS, L"0", belowOne),
          NumberRow("day 0", IDC_MONTHLY_DAY, L"0", belowOne),
          NumberRow("day 32", IDC_MONTHLY_DAY, L"32", Message(IDS_DAY_ABOVE_MAXIMUM, 31)),
          NumberRow("day 31, not meant", IDC_MONTHLY_DAY, L"31", Message(IDS_DAY_NOT_IN_EVERY_MONTH, 31),
                    IDCANCEL)}},
        {MonthlyOn(1, First, Weekday),
         {NumberRow("0 months of a day type", IDC_MONTHLY_DAY_TYPE_MONTHS, L"0", belowOne)}},
        {YearlyOnDay(4, 5),
         {NumberRow("April 31", IDC_YEARLY_DAY, L"31", Message(IDS_DAY_ABOVE_MAXIMUM, 30)),
          NumberRow("day 0 of a year", IDC_YEARLY_DAY, L"0", belowOne)}},
        {YearlyOnDay(2, 5),
         {NumberRow("February 30", IDC_YEARLY_DAY, L"30", Message(IDS_DAY_ABOVE_MAXIMUM, 29)),
          NumberRow("February 29, not meant", IDC_YEARLY_DAY, L"29", Message(IDS_LEAP_DAY), IDCANCEL)}},
    };
}

class AddDialogValidationTest : public AddDialogTest
{
};

INSTANTIATE_TEST_SUITE_P(Languages, AddDialogValidationTest, testing::Values(L"en", L"de", L"fr"),
                         [](const auto& language)
                         { return std::string(language.param, language.param + 2); });

} // namespace

TEST_P(AddDialogValidationTest, RefusedPattern_OneMessageFocusAndNothingChanged)
{
    for (const Group& group : RefusedPatterns())
    {
        const CcvReminderData record = SampleOf(group.pattern);
        CcvMfcAddReminderDialog dialog;
        const auto refuse = [&](const ShownDialog& shown)
        {
            // That each message is there in each language is the panes' own test.
            const std::size_t count = IsEnglish() ? group.rows.size() : 1;
            for (const Row& row : std::span(group.rows).first(count))
            {
                SCOPED_TRACE(row.title);
                dialog.UpdateReminderData(&record);
                row.enter(shown);
                EXPECT_EQ(row.message, shown.OkWithMessage(row.answer));
                EXPECT_TRUE(IsWindowVisible(shown.Window()));
                EXPECT_TRUE(ShownDialog::HasFocus(shown.PaneItem(row.focus)));
            }
            shown.Cancel();
        };
        EXPECT_EQ(IDCANCEL, RunModal(dialog, refuse));
        EXPECT_EQ(FieldsOf(SampleOf(group.pattern)), FieldsOf(record));
    }
}

TEST_P(AddDialogValidationTest, QuestionAnsweredWithOk_IsAskedOnce)
{
    const CcvReminderData record = SampleOf(MonthlyOnDay(1, 5));
    CcvMfcAddReminderDialog dialog;
    dialog.UpdateReminderData(&record);
    ASSERT_EQ(IDOK, RunModal(dialog,
                             [&](const ShownDialog& shown)
                             {
                                 ShownDialog::TypeOver(shown.PaneItem(IDC_MONTHLY_DAY), L"31");
                                 // A second question would find nobody to answer it.
                                 EXPECT_EQ(Message(IDS_DAY_NOT_IN_EVERY_MONTH, 31),
                                           shown.OkWithMessage(IDOK));
                             }));
    EXPECT_EQ(31, dialog.GetReminderData()->GetMonthlyRecurrentDayOfMonth());
}

TEST_P(AddDialogValidationTest, PaneThatIsNotChosen_IsNotAsked)
{
    const CcvReminderData record = SampleOf(EveryNDays(1));
    CcvMfcAddReminderDialog dialog;
    dialog.UpdateReminderData(&record);
    ASSERT_EQ(IDOK, RunModal(dialog,
                             [](const ShownDialog& shown)
                             {
                                 ShownDialog::TypeOver(shown.PaneItem(IDC_DAILY_NUMBER), L"rubbish");
                                 shown.ChooseKind(IDC_ADD_WEEKLY);
                                 shown.Ok();
                             }));
    EXPECT_EQ(EcvReminderRecurrenceType::Weekly, dialog.GetReminderData()->GetRecurrenceType());
}

TEST_P(AddDialogValidationTest, RefusedLeadTime_BecomesZeroMinutesWithTheFocus)
{
    const std::wstring zero = L"0 " + Message(IDS_LEAD_MINUTE);
    for (const std::wstring& text :
         {std::wstring(L"abc"), std::wstring(), L"99999999999 " + Message(IDS_LEAD_WEEKS),
          L"-99999999999 " + Message(IDS_LEAD_WEEKS), std::wstring(L"2147483648")})
    {
        const CcvReminderData record = SampleOf(RecordOfType(EcvReminderRecurrenceType::None));
        CcvMfcAddReminderDialog dialog;
        dialog.UpdateReminderData(&record);
        EXPECT_EQ(IDCANCEL, RunModal(dialog,
                                     [&](const ShownDialog& shown)
                                     {
                                         shown.TypeLeadTime(text);
                                         shown.Ok();
                                         EXPECT_TRUE(IsWindowVisible(shown.Window()));
                                         EXPECT_EQ(zero, shown.Text(IDC_ADD_LEAD_TIME));
                                         EXPECT_TRUE(ShownDialog::HasFocus(shown.Item(IDC_ADD_LEAD_TIME)));
                                         shown.Cancel();
                                     }));
        EXPECT_EQ(FieldsOf(record), FieldsOf(*dialog.GetReminderData()));
    }
}

TEST_P(AddDialogValidationTest, LeadTimeEntered_IsShownInItsLargestUnit)
{
    CcvMfcAddReminderDialog dialog;
    ASSERT_EQ(IDOK, RunModal(dialog,
                             [](const ShownDialog& shown)
                             {
                                 shown.TypeLeadTime(L"60");
                                 SendMessageW(shown.Item(IDC_ADD_SUBJECT), EM_LIMITTEXT, 0, 0);
                                 shown.Ok();
                                 EXPECT_EQ(L"1 " + Message(IDS_LEAD_HOUR), shown.Text(IDC_ADD_LEAD_TIME));
                             }));
    EXPECT_EQ(CTimeSpan(3600), dialog.GetReminderData()->GetReminderTimeSpan());
}

TEST_P(AddDialogValidationTest, EveryOfferedLeadTime_CanBeChosenAndIsStored)
{
    constexpr std::int64_t kHour = 3600;
    constexpr std::int64_t kDay = 24 * kHour;
    const std::int64_t offered[] = {0,     300,       600,       900,       1800,      2700,
                                    kHour, 2 * kHour, 3 * kHour, 4 * kHour, 8 * kHour, 12 * kHour,
                                    kDay,  2 * kDay,  3 * kDay,  4 * kDay,  7 * kDay,  14 * kDay};
    CcvMfcAddReminderDialog dialog;
    const auto chooseEach = [&](const ShownDialog& shown)
    {
        const HWND combo = shown.Item(IDC_ADD_LEAD_TIME);
        EXPECT_EQ(static_cast<LRESULT>(std::size(offered)), SendMessageW(combo, CB_GETCOUNT, 0, 0));
        WPARAM index = 0;
        for (const std::int64_t seconds : offered)
        {
            SendMessageW(combo, CB_SETCURSEL, index, 0);
            // What OK does, without the end of the dialog.
            EXPECT_NE(FALSE, CWnd::FromHandlePermanent(shown.Window())->UpdateData(TRUE));
            EXPECT_EQ(CTimeSpan(seconds), dialog.GetReminderData()->GetReminderTimeSpan()) << index;
            ++index;
        }
        shown.Ok();
    };
    ASSERT_EQ(IDOK, RunModal(dialog, chooseEach));
    EXPECT_EQ(CTimeSpan(14 * kDay), dialog.GetReminderData()->GetReminderTimeSpan());
}

TEST_P(AddDialogValidationTest, EmptySubject_IsAccepted)
{
    const CcvReminderData record = SampleOf(RecordOfType(EcvReminderRecurrenceType::None));
    CcvMfcAddReminderDialog dialog;
    dialog.UpdateReminderData(&record);
    ASSERT_EQ(IDOK, RunModal(dialog,
                             [](const ShownDialog& shown)
                             {
                                 shown.TypeSubject(L"");
                                 shown.Ok();
                             }));
    EXPECT_EQ(CString(), dialog.GetReminderData()->GetSubject());
}

TEST_P(AddDialogValidationTest, PastedLineBreaks_NeverReachTheRecord)
{
    CcvMfcAddReminderDialog dialog;
    ASSERT_EQ(IDOK,
              RunModal(dialog,
                       [](const ShownDialog& shown)
                       {
                           shown.TypeSubject(L"x");
                           SendMessageW(shown.Item(IDC_ADD_SUBJECT), EM_REPLACESEL, FALSE,
                                        std::bit_cast<LPARAM>(static_cast<const wchar_t*>(L"a\r\nb\nc")));
                           SendMessageW(GetWindow(shown.Item(IDC_ADD_LEAD_TIME), GW_CHILD), EM_SETSEL, 0, -1);
                           SendMessageW(GetWindow(shown.Item(IDC_ADD_LEAD_TIME), GW_CHILD), EM_REPLACESEL,
                                        FALSE, std::bit_cast<LPARAM>(static_cast<const wchar_t*>(L"7\r\n")));
                           shown.Ok();
                       }));
    const CString subject = dialog.GetReminderData()->GetSubject();
    EXPECT_EQ(std::wstring::npos, std::wstring(subject.GetString()).find_first_of(L"\r\n"))
        << testing::PrintToString(subject);
    EXPECT_EQ(L'x', subject[0]);
    EXPECT_EQ(CTimeSpan(420), dialog.GetReminderData()->GetReminderTimeSpan());
}

/// The record due at that time, nothing when it cannot be due then.
std::optional<CcvReminderData> DueAt(CcvReminderData record, CTime time)
{
    try
    {
        SetDue(record, time);
        return record;
    }
    catch (const COleException&)
    {
        return std::nullopt;
    }
}

TEST_P(AddDialogValidationTest, DatesAtBothEnds_AreTakenOrRefusedOnTheDate)
{
    struct Row
    {
        int year;
        int month;
        int day;
        int hour;
        CcvReminderData pattern;
    };
    const CcvReminderData once = RecordOfType(EcvReminderRecurrenceType::None);
    for (const Row& row :
         {Row{1970, 1, 2, 0, once}, Row{1970, 1, 1, 12, once}, Row{1970, 1, 1, 0, once},
          Row{3000, 12, 30, 23, once}, Row{3000, 12, 31, 12, once}, Row{3000, 12, 31, 23, once},
          Row{3000, 12, 30, 9, Weekly(1, 2)}, Row{3000, 12, 31, 0, YearlyOnDay(1, 1)}})
    {
        SCOPED_TRACE(testing::Message() << row.year << ' ' << row.hour);
        CcvReminderData record = SampleOf(row.pattern);
        const auto expected = DueAt(record, CTime(row.year, row.month, row.day, row.hour, 30, 0));
        CcvMfcAddReminderDialog dialog;
        dialog.UpdateReminderData(&record);
        const INT_PTR result = RunModal(dialog,
                                        [&](const ShownDialog& shown)
                                        {
                                            shown.SetDate(row.year, row.month, row.day);
                                            shown.SetTime(row.hour, 30);
                                            shown.Ok();
                                            if (!expected)
                                            {
                                                EXPECT_TRUE(ShownDialog::HasFocus(shown.Item(IDC_ADD_DATE)));
                                                shown.Cancel();
                                            }
                                        });
        EXPECT_EQ(expected ? IDOK : IDCANCEL, result);
        if (expected && result == IDOK)
        {
            const CcvReminderData& entered = *dialog.GetReminderData();
            EXPECT_EQ(expected->GetInitialDueDate(), entered.GetInitialDueDate());
            EXPECT_EQ(expected->GetNextDueDate(), entered.GetNextDueDate());
        }
    }
}

TEST_P(AddDialogValidationTest, DateOutsideTheCalendar_CannotBePicked)
{
    CcvMfcAddReminderDialog dialog;
    EXPECT_EQ(IDCANCEL, RunModal(dialog,
                                 [](const ShownDialog& shown)
                                 {
                                     SYSTEMTIME range[2]{};
                                     EXPECT_EQ(GDTR_MIN | GDTR_MAX,
                                               SendMessageW(shown.Item(IDC_ADD_DATE), DTM_GETRANGE, 0,
                                                            std::bit_cast<LPARAM>(&range)));
                                     EXPECT_LE(range[0].wYear, 1970);
                                     EXPECT_EQ(3000, range[1].wYear);
                                     EXPECT_EQ(12, range[1].wMonth);
                                     EXPECT_EQ(31, range[1].wDay);
                                     shown.Cancel();
                                 }));
}

} // namespace ts::test
