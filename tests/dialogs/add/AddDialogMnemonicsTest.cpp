// Every letter that is underlined in the add-reminder dialog does what it promises, and the keys of each
// control are its own.

#include "resources/AddReminderControls.h"
#include "resources/RecurrenceControls.h"
#include "tests/dialogs/add/AddDialogHarness.h"
#include "tests/support/TextOutput.h"

#include <algorithm>
#include <map>

namespace ts::test
{
namespace
{

using Letters = std::map<wchar_t, int>;

constexpr int kFields[] = {IDC_ADD_SUBJECT, IDC_ADD_DATE, IDC_ADD_TIME, IDC_ADD_LEAD_TIME};
constexpr int kKinds[] = {IDC_ADD_DAILY, IDC_ADD_WEEKLY, IDC_ADD_MONTHLY, IDC_ADD_YEARLY};

/// The letters of one language, in the order of the controls: those of the fields, of the kinds and of the
/// section's button, and of each kind's pane.
struct Alphabet
{
    const wchar_t* fields;
    const wchar_t* kinds;
    wchar_t toggle;
    const wchar_t* panes[4];
};

const Alphabet& AlphabetOf(std::wstring_view language)
{
    static const std::map<std::wstring_view, Alphabet> alphabets = {
        {L"en", {L"sati", L"lwmy", L'r', {L"ve", L"vnoedhfu", L"dhov", L"nhf"}}},
        {L"de", {L"blun", L"tcmj", L'w', {L"er", L"esoihrfa", L"aies", L"asi"}}},
        {L"fr", {L"odhr", L"qbma", L'p', {L"uv", L"unlicjvs", L"leus", L"len"}}},
    };
    return alphabets.at(language);
}

/// Where the letters of each pane lead, in the same order.
const std::vector<int>& PaneControls(int kind)
{
    static const std::vector<int> controls[] = {
        {IDC_DAILY_EVERY_N_DAYS, IDC_DAILY_EVERY_WEEKDAY},
        {IDC_WEEKLY_NUMBER, IDC_WEEKLY_SUNDAY, IDC_WEEKLY_MONDAY, IDC_WEEKLY_TUESDAY, IDC_WEEKLY_WEDNESDAY,
         IDC_WEEKLY_THURSDAY, IDC_WEEKLY_FRIDAY, IDC_WEEKLY_SATURDAY},
        {IDC_MONTHLY_ON_DAY, IDC_MONTHLY_ON_DAY_TYPE, IDC_MONTHLY_DAY_MONTHS, IDC_MONTHLY_DAY_TYPE_MONTHS},
        {IDC_YEARLY_ON_DAY, IDC_YEARLY_ON_DAY_TYPE, IDC_YEARLY_DAY_TYPE_MONTH}};
    return controls[kind];
}

std::vector<HWND> TabStops(HWND dialog)
{
    std::vector<HWND> stops;
    const HWND first = GetNextDlgTabItem(dialog, nullptr, FALSE);
    HWND stop = first;
    do
    {
        stops.push_back(stop);
        stop = GetNextDlgTabItem(dialog, stop, FALSE);
    } while (stop != first && stops.size() < 40);
    return stops;
}

class AddDialogMnemonicsTest : public AddDialogTest
{
  protected:
    static const Alphabet& Own() { return AlphabetOf(GetParam()); }
};

INSTANTIATE_TEST_SUITE_P(Languages, AddDialogMnemonicsTest, testing::Values(L"en", L"de", L"fr"),
                         [](const auto& language)
                         { return std::string(language.param, language.param + 2); });

} // namespace

TEST_P(AddDialogMnemonicsTest, LettersOfTheFields_LeadThereFromEveryStop)
{
    CcvMfcAddReminderDialog dialog;
    RunModal(dialog,
             [](const ShownDialog& shown)
             {
                 shown.ChooseKind(IDC_ADD_WEEKLY);
                 for (const HWND stop : TabStops(shown.Window()))
                 {
                     for (std::size_t field = 0; field < std::size(kFields); ++field)
                     {
                         SetFocus(stop);
                         PressMnemonic(Own().fields[field]);
                         EXPECT_TRUE(ShownDialog::HasFocus(shown.Item(kFields[field])))
                             << "letter " << field << " from " << GetDlgCtrlID(stop);
                     }
                 }
                 shown.Cancel();
             });
}

TEST_P(AddDialogMnemonicsTest, LettersOfTheKinds_ChooseThemFromEveryField)
{
    CcvMfcAddReminderDialog dialog;
    RunModal(dialog,
             [](const ShownDialog& shown)
             {
                 shown.ChooseKind(IDC_ADD_YEARLY);
                 for (const int field : kFields)
                 {
                     for (std::size_t kind = 0; kind < std::size(kKinds); ++kind)
                     {
                         SetFocus(shown.Item(field));
                         const HWND former = shown.Pane();
                         PressMnemonic(Own().kinds[kind]);
                         EXPECT_EQ(kKinds[kind], shown.ChosenKind()) << "from " << field;
                         EXPECT_EQ(shown.Item(kKinds[kind]), GetFocus()) << "from " << field;
                         EXPECT_NE(former, shown.Pane()) << "from " << field;
                     }
                 }
                 shown.Cancel();
             });
}

TEST_P(AddDialogMnemonicsTest, LettersOfAClosedSection_DoNothing)
{
    CcvMfcAddReminderDialog dialog;
    RunModal(dialog,
             [](const ShownDialog& shown)
             {
                 SetFocus(shown.Item(IDC_ADD_SUBJECT));
                 for (const wchar_t letter : std::wstring(Own().kinds) + Own().panes[1])
                 {
                     PressMnemonic(letter);
                     EXPECT_FALSE(shown.IsSectionShown());
                     EXPECT_EQ(IDC_ADD_WEEKLY, shown.ChosenKind());
                     EXPECT_EQ(shown.Item(IDC_ADD_SUBJECT), GetFocus());
                 }
                 shown.Cancel();
             });
}

TEST_P(AddDialogMnemonicsTest, LetterOfTheSection_OpensAndClosesIt)
{
    CcvMfcAddReminderDialog dialog;
    RunModal(dialog,
             [](const ShownDialog& shown)
             {
                 for (const bool open : {true, false, true})
                 {
                     PressMnemonic(Own().toggle);
                     EXPECT_EQ(open, shown.IsSectionShown());
                     EXPECT_EQ(open, shown.Pane() != nullptr);
                 }
                 SetFocus(GetNextDlgTabItem(shown.Pane(), nullptr, FALSE));
                 PressMnemonic(Own().toggle);
                 EXPECT_FALSE(shown.IsSectionShown());
                 EXPECT_EQ(shown.Item(IDC_ADD_TOGGLE_RECURRENCE), GetFocus());
                 shown.Cancel();
             });
}

TEST_P(AddDialogMnemonicsTest, LettersOfThePanes_LeadThereFromFieldsAndPane)
{
    for (int kind = 0; kind < 4; ++kind)
    {
        CcvMfcAddReminderDialog dialog;
        RunModal(dialog,
                 [kind](const ShownDialog& shown)
                 {
                     shown.ChooseKind(kKinds[kind]);
                     const std::vector<int>& controls = PaneControls(kind);
                     for (const HWND from : {shown.Item(IDC_ADD_SUBJECT), shown.Item(IDC_ADD_LEAD_TIME),
                                             shown.Item(kKinds[kind]), shown.PaneItem(controls.front()),
                                             shown.PaneItem(controls.back())})
                     {
                         for (std::size_t index = 0; index < controls.size(); ++index)
                         {
                             SetFocus(from);
                             PressMnemonic(Own().panes[kind][index]);
                             EXPECT_EQ(shown.PaneItem(controls[index]), GetFocus())
                                 << "kind " << kind << ", letter " << index << ", from "
                                 << GetDlgCtrlID(from);
                         }
                     }
                     shown.Cancel();
                 });
    }
}

TEST_P(AddDialogMnemonicsTest, LettersOfTheDays_TickAndUntickThem)
{
    CcvMfcAddReminderDialog dialog;
    RunModal(dialog,
             [](const ShownDialog& shown)
             {
                 shown.ChooseKind(IDC_ADD_WEEKLY);
                 SetFocus(shown.Item(IDC_ADD_SUBJECT));
                 for (int day = 0; day < 7; ++day)
                 {
                     const int id = IDC_WEEKLY_SUNDAY + day;
                     const UINT former = IsDlgButtonChecked(shown.Pane(), id);
                     PressMnemonic(Own().panes[1][day + 1]);
                     EXPECT_NE(former, IsDlgButtonChecked(shown.Pane(), id)) << day;
                     PressMnemonic(Own().panes[1][day + 1]);
                     EXPECT_EQ(former, IsDlgButtonChecked(shown.Pane(), id)) << day;
                 }
                 shown.Cancel();
             });
}

TEST_P(AddDialogMnemonicsTest, ShiftTab_GoesTheWayOfTabBack)
{
    for (const int kind : kKinds)
    {
        CcvMfcAddReminderDialog dialog;
        RunModal(dialog,
                 [kind](const ShownDialog& shown)
                 {
                     shown.ChooseKind(kind);
                     std::vector<HWND> stops = TabStops(shown.Window());
                     EXPECT_GT(stops.size(), 9U);
                     SetFocus(stops.front());
                     const KeyHeld shift(VK_SHIFT);
                     for (auto stop = stops.rbegin(); stop != stops.rend(); ++stop)
                     {
                         PressKey(VK_TAB);
                         EXPECT_TRUE(ShownDialog::HasFocus(*stop))
                             << GetDlgCtrlID(*stop) << " instead of " << GetDlgCtrlID(GetFocus());
                     }
                     shown.Cancel();
                 });
    }
}

TEST_P(AddDialogMnemonicsTest, Space_PressesTheButtonThatHasTheFocus)
{
    CcvMfcAddReminderDialog dialog;
    EXPECT_EQ(IDCANCEL, RunModal(dialog,
                                 [](const ShownDialog& shown)
                                 {
                                     SetFocus(shown.Item(IDC_ADD_TOGGLE_RECURRENCE));
                                     PressKey(VK_SPACE);
                                     EXPECT_TRUE(shown.IsSectionShown());
                                     EXPECT_EQ(shown.Item(IDC_ADD_TOGGLE_RECURRENCE), GetFocus());
                                     PressKey(VK_SPACE);
                                     EXPECT_FALSE(shown.IsSectionShown());
                                     SetFocus(shown.Item(IDCANCEL));
                                     PressKey(VK_SPACE);
                                 }));
    EXPECT_EQ(IDOK, RunModal(dialog,
                             [](const ShownDialog& shown)
                             {
                                 SetFocus(shown.Item(IDOK));
                                 PressKey(VK_SPACE);
                             }));
}

TEST_P(AddDialogMnemonicsTest, Enter_IsTheButtonThatHasTheFocusAndElseOk)
{
    struct Case
    {
        int focus;
        INT_PTR result;
    };
    for (const Case& each : {Case{IDC_ADD_SUBJECT, IDOK}, Case{IDC_ADD_DATE, IDOK}, Case{IDC_ADD_TIME, IDOK},
                             Case{IDC_ADD_LEAD_TIME, IDOK}, Case{IDOK, IDOK}, Case{IDCANCEL, IDCANCEL}})
    {
        CcvMfcAddReminderDialog dialog;
        EXPECT_EQ(each.result,
                  RunModal(dialog,
                           [&each](const ShownDialog& shown)
                           {
                               EXPECT_EQ(IDOK, LOWORD(SendMessageW(shown.Window(), DM_GETDEFID, 0, 0)));
                               SetFocus(GetNextDlgTabItem(shown.Window(), shown.Item(each.focus), TRUE));
                               PressKey(VK_TAB);
                               EXPECT_TRUE(ShownDialog::HasFocus(shown.Item(each.focus)));
                               PressKey(VK_RETURN);
                           }))
            << each.focus;
    }
    CcvMfcAddReminderDialog dialog;
    EXPECT_EQ(IDCANCEL, RunModal(dialog,
                                 [](const ShownDialog& shown)
                                 {
                                     SetFocus(shown.Item(IDC_ADD_LEAD_TIME));
                                     PressKey(VK_TAB);
                                     PressKey(VK_RETURN);
                                     EXPECT_TRUE(shown.IsSectionShown()) << "Enter on the section's button";
                                     shown.Cancel();
                                 }));
}

TEST_P(AddDialogMnemonicsTest, ArrowsInTheRadioButtons_GoRoundBothWays)
{
    CcvMfcAddReminderDialog dialog;
    RunModal(dialog,
             [](const ShownDialog& shown)
             {
                 shown.ChooseKind(IDC_ADD_DAILY);
                 SetFocus(shown.Item(IDC_ADD_DAILY));
                 for (const UINT key : {VK_DOWN, VK_RIGHT})
                 {
                     for (const int id : {IDC_ADD_WEEKLY, IDC_ADD_MONTHLY, IDC_ADD_YEARLY, IDC_ADD_DAILY})
                     {
                         PressKey(key);
                         EXPECT_EQ(id, shown.ChosenKind()) << key;
                         EXPECT_EQ(shown.Item(id), GetFocus()) << key;
                     }
                 }
                 for (const UINT key : {VK_UP, VK_LEFT})
                 {
                     for (const int id : {IDC_ADD_YEARLY, IDC_ADD_MONTHLY, IDC_ADD_WEEKLY, IDC_ADD_DAILY})
                     {
                         PressKey(key);
                         EXPECT_EQ(id, shown.ChosenKind()) << key;
                         EXPECT_EQ(shown.Item(id), GetFocus()) << key;
                     }
                 }
                 shown.Cancel();
             });
}

TEST_P(AddDialogMnemonicsTest, ArrowsInTheFields_ChangeWhatTheyShow)
{
    CcvMfcAddReminderDialog dialog;
    RunModal(dialog,
             [](const ShownDialog& shown)
             {
                 shown.SetTime(10, 50);
                 PressMnemonic(Own().fields[2]);
                 PressKey(VK_UP);
                 EXPECT_EQ(11, shown.Time().GetHour());
                 EXPECT_EQ(0, shown.Time().GetMinute());
                 PressKey(VK_DOWN);
                 EXPECT_EQ(10, shown.Time().GetHour());
                 EXPECT_EQ(45, shown.Time().GetMinute());

                 const HWND leadTime = shown.Item(IDC_ADD_LEAD_TIME);
                 SendMessageW(leadTime, CB_SETCURSEL, 2, 0);
                 PressMnemonic(Own().fields[3]);
                 PressKey(VK_DOWN);
                 EXPECT_EQ(3, SendMessageW(leadTime, CB_GETCURSEL, 0, 0));
                 PressKey(VK_UP);
                 EXPECT_EQ(2, SendMessageW(leadTime, CB_GETCURSEL, 0, 0));

                 shown.SetDate(2027, 5, 17);
                 PressMnemonic(Own().fields[1]);
                 // Some systems' pickers choose no part of the date until they are told to.
                 PressKey(VK_RIGHT);
                 PressKey(VK_UP);
                 const SYSTEMTIME date = shown.Date();
                 EXPECT_EQ(1, (date.wDay == 18) + (date.wMonth == 6) + (date.wYear == 2028));
                 shown.Cancel();
             });
}

} // namespace ts::test
