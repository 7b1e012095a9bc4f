#include "dialogs/CcvMfcAddReminderDialogInternal.h"
#include "resources/AddReminderControls.h"
#include "resources/RecurrenceControls.h"
#include "tests/dialogs/add/AddDialogHarness.h"
#include "tests/reminders/recurrence/Patterns.h"
#include "tests/reminders/storage/RecordFields.h"
#include "tests/support/TextOutput.h"

#include <algorithm>
#include <bit>
#include <set>

namespace ts::test
{
namespace
{

using enum EcvReminderDayIntegralType;
using enum EcvReminderDayType;

constexpr int kPanes[] = {IDC_ADD_DAILY, IDC_ADD_WEEKLY, IDC_ADD_MONTHLY, IDC_ADD_YEARLY};

/// The control that has the focus; for the edit control of a combo box, the combo box.
HWND FocusedControl()
{
    const HWND parent = GetParent(GetFocus());
    return ClassOf(parent) == L"ComboBox" ? parent : GetFocus();
}

/// A control that Tab stops at, told from those of other panes by the pane's first control.
std::vector<HWND> TabStops(const ShownDialog& shown)
{
    std::vector<HWND> stops;
    SetFocus(shown.Item(IDC_ADD_SUBJECT));
    do
    {
        stops.push_back(FocusedControl());
        PressKey(VK_TAB);
    } while (FocusedControl() != shown.Item(IDC_ADD_SUBJECT) && stops.size() < 40);
    return stops;
}

CcvReminderData RecordOfKind(int button)
{
    switch (button)
    {
    case IDC_ADD_DAILY:
        return SampleOf(EveryNDays(2));
    case IDC_ADD_WEEKLY:
        return SampleOf(Weekly(2, 2));
    case IDC_ADD_MONTHLY:
        return SampleOf(MonthlyOnDay(2, 5));
    default:
        return SampleOf(YearlyOnDay(4, 5));
    }
}

std::vector<int> PaneStops(int button)
{
    switch (button)
    {
    case IDC_ADD_DAILY:
        return {IDC_DAILY_EVERY_N_DAYS, IDC_DAILY_NUMBER};
    case IDC_ADD_WEEKLY:
        return {IDC_WEEKLY_NUMBER,    IDC_WEEKLY_SUNDAY,   IDC_WEEKLY_MONDAY, IDC_WEEKLY_TUESDAY,
                IDC_WEEKLY_WEDNESDAY, IDC_WEEKLY_THURSDAY, IDC_WEEKLY_FRIDAY, IDC_WEEKLY_SATURDAY};
    case IDC_ADD_MONTHLY:
        return {IDC_MONTHLY_ON_DAY,  IDC_MONTHLY_DAY,      IDC_MONTHLY_DAY_MONTHS,
                IDC_MONTHLY_ORDINAL, IDC_MONTHLY_DAY_TYPE, IDC_MONTHLY_DAY_TYPE_MONTHS};
    default:
        return {};
    }
}

/// Tab goes through the fields, the chosen kind, its pane and the buttons.
void ExpectStops(const ShownDialog& shown, int kindButton)
{
    const std::vector<HWND> stops = TabStops(shown);
    std::vector<HWND> inPane;
    std::vector<int> ids;
    for (const HWND stop : stops)
    {
        if (GetParent(stop) == shown.Pane())
        {
            inPane.push_back(stop);
            ids.push_back(GetDlgCtrlID(stop));
        }
    }
    EXPECT_FALSE(inPane.empty());
    EXPECT_TRUE(PaneStops(kindButton).empty() || PaneStops(kindButton) == ids);
    std::vector<HWND> expected;
    for (const int id : {IDC_ADD_SUBJECT, IDC_ADD_DATE, IDC_ADD_TIME, IDC_ADD_LEAD_TIME, kindButton})
    {
        expected.push_back(shown.Item(id));
    }
    expected.insert(expected.end(), inPane.begin(), inPane.end());
    for (const int id : {IDC_ADD_TOGGLE_RECURRENCE, IDOK, IDCANCEL})
    {
        expected.push_back(shown.Item(id));
    }
    EXPECT_EQ(expected, stops);
}

/// The letters that jump to a control, of the dialog and the pane that is shown.
void CollectMnemonics(HWND window, std::vector<wchar_t>& letters)
{
    for (HWND child = GetWindow(window, GW_CHILD); child != nullptr; child = GetWindow(child, GW_HWNDNEXT))
    {
        if (IsWindowVisible(child) == FALSE)
        {
            continue;
        }
        const std::wstring text = ClassOf(child) == L"Edit" ? L"" : TextOf(child);
        const std::size_t mark = text.find(L'&');
        if (mark != std::wstring::npos && mark + 1 < text.size())
        {
            letters.push_back(static_cast<wchar_t>(std::towlower(text[mark + 1])));
        }
        CollectMnemonics(child, letters);
    }
}

class AddDialogKeysTest : public AddDialogTest
{
};

INSTANTIATE_TEST_SUITE_P(Languages, AddDialogKeysTest, testing::Values(L"en", L"de", L"fr"),
                         [](const auto& language)
                         { return std::string(language.param, language.param + 2); });

/// Counts what would end it, and stays.
class EndlessDialog : public CcvMfcAddReminderDialogInternal
{
  public:
    using CcvMfcAddReminderDialogInternal::CcvMfcAddReminderDialogInternal;
    int m_oks = 0;
    int m_cancels = 0;

  protected:
    void OnOK() override { ++m_oks; }
    void OnCancel() override { ++m_cancels; }
};

void ExpectEscapeIsCancel(const EndlessDialog& dialog, const std::vector<HWND>& stops)
{
    int times = 0;
    for (const HWND stop : stops)
    {
        SetFocus(stop);
        PressKey(VK_ESCAPE);
        EXPECT_EQ(++times, dialog.m_cancels) << GetDlgCtrlID(stop);
    }
    EXPECT_EQ(0, dialog.m_oks);
}

/// Enter on one of the other buttons is that button.
void ExpectEnterIsOk(const EndlessDialog& dialog, const std::vector<HWND>& stops)
{
    int times = 0;
    for (const HWND stop : stops)
    {
        const bool isOther = stop == GetDlgItem(dialog.m_hWnd, IDC_ADD_TOGGLE_RECURRENCE) ||
                             stop == GetDlgItem(dialog.m_hWnd, IDCANCEL);
        if (!isOther)
        {
            SetFocus(stop);
            PressKey(VK_RETURN);
            EXPECT_EQ(++times, dialog.m_oks) << GetDlgCtrlID(stop);
        }
    }
}

/// What does not depend on the language.
class AddDialogEveryStopTest : public AddDialogTest
{
};

INSTANTIATE_TEST_SUITE_P(English, AddDialogEveryStopTest, testing::Values(L"en"));

} // namespace

TEST_P(AddDialogKeysTest, Tab_GoesThroughDialogAndPaneByTheirOrder)
{
    CcvMfcAddReminderDialog dialog;
    EXPECT_EQ(IDCANCEL, RunModal(dialog,
                                 [](const ShownDialog& shown)
                                 {
                                     for (const int button : kPanes)
                                     {
                                         SCOPED_TRACE(button);
                                         shown.ChooseKind(button);
                                         ExpectStops(shown, button);
                                     }
                                     shown.Cancel();
                                 }));
}

TEST_P(AddDialogKeysTest, SectionClosed_TabPassesItBy)
{
    CcvMfcAddReminderDialog dialog;
    EXPECT_EQ(IDCANCEL,
              RunModal(dialog,
                       [](const ShownDialog& shown)
                       {
                           std::vector<HWND> expected;
                           for (const int id : {IDC_ADD_SUBJECT, IDC_ADD_DATE, IDC_ADD_TIME,
                                                IDC_ADD_LEAD_TIME, IDC_ADD_TOGGLE_RECURRENCE, IDOK, IDCANCEL})
                           {
                               expected.push_back(shown.Item(id));
                           }
                           EXPECT_EQ(expected, TabStops(shown));
                           shown.Cancel();
                       }));
}

TEST_P(AddDialogKeysTest, FocusAtFirst_IsOnTheSubject)
{
    CcvMfcAddReminderDialog dialog;
    EXPECT_EQ(IDCANCEL, RunModal(dialog,
                                 [](const ShownDialog& shown)
                                 {
                                     EXPECT_EQ(shown.Item(IDC_ADD_SUBJECT), GetFocus());
                                     shown.Cancel();
                                 }));
}

TEST_P(AddDialogEveryStopTest, EnterAndEscape_AreOkAndCancelFromEverywhere)
{
    for (const int button : kPanes)
    {
        SCOPED_TRACE(button);
        const CcvReminderData record = RecordOfKind(button);
        EndlessDialog endless(nullptr);
        endless.UpdateReminderData(record);
        CcvMfcAddReminderDialog dialog;
        const std::unique_ptr<CcvMfcDialogBaseInternal> former(dialog.GetInternalDialog());
        dialog.SetInternalDialog(&endless);
        RunModal(dialog,
                 [&](const ShownDialog& shown)
                 {
                     const std::vector<HWND> stops = TabStops(shown);
                     EXPECT_GT(stops.size(), 8U);
                     ExpectEscapeIsCancel(endless, stops);
                     ExpectEnterIsOk(endless, stops);
                     endless.EndDialog(IDOK);
                 });
        dialog.SetInternalDialog(nullptr);
    }
}

TEST_P(AddDialogEveryStopTest, EscapeWhileSubjectsAreSuggested_ClosesTheirListAndThenTheDialog)
{
    EndlessDialog endless(nullptr);
    CcvMfcAddReminderDialog dialog;
    const std::unique_ptr<CcvMfcDialogBaseInternal> former(dialog.GetInternalDialog());
    dialog.SetInternalDialog(&endless);
    RunModal(dialog,
             [&](const ShownDialog& shown)
             {
                 shown.TypeSubject(L"c");
                 PressKey(VK_ESCAPE);
                 EXPECT_EQ(0, endless.m_cancels);
                 EXPECT_EQ(L"c", shown.Text(IDC_ADD_SUBJECT));
                 PressKey(VK_ESCAPE);
                 EXPECT_EQ(1, endless.m_cancels);
                 endless.EndDialog(IDOK);
             });
    dialog.SetInternalDialog(nullptr);
}

TEST_P(AddDialogEveryStopTest, EnterAndEscapeInAPane_EndTheDialog)
{
    for (const int button : kPanes)
    {
        const CcvReminderData record = RecordOfKind(button);
        for (const auto& [key, result] : {std::pair{VK_RETURN, IDOK}, std::pair{VK_ESCAPE, IDCANCEL}})
        {
            CcvMfcAddReminderDialog dialog;
            dialog.UpdateReminderData(&record);
            const INT_PTR ended = RunModal(dialog,
                                           [pressed = key](const ShownDialog& shown)
                                           {
                                               SetFocus(GetNextDlgTabItem(shown.Pane(), nullptr, FALSE));
                                               EXPECT_EQ(shown.Pane(), GetParent(GetFocus()));
                                               PressKey(static_cast<UINT>(pressed));
                                           });
            EXPECT_EQ(result, ended) << button;
        }
    }
}

TEST_P(AddDialogKeysTest, EnterInAPaneThatRefuses_StaysThereAndWorksAgain)
{
    const CcvReminderData record = RecordOfKind(IDC_ADD_DAILY);
    CcvMfcAddReminderDialog dialog;
    dialog.UpdateReminderData(&record);
    EXPECT_EQ(IDOK, RunModal(dialog,
                             [](const ShownDialog& shown)
                             {
                                 const HWND edit = shown.PaneItem(IDC_DAILY_NUMBER);
                                 ShownDialog::TypeOver(edit, L"0");
                                 {
                                     const MessageBoxAnswer box(IDOK);
                                     PressKey(VK_RETURN);
                                     EXPECT_TRUE(box.WasShown());
                                 }
                                 EXPECT_EQ(edit, GetFocus());
                                 TypeText(L"4");
                                 PressKey(VK_TAB);
                                 EXPECT_EQ(shown.Item(IDC_ADD_TOGGLE_RECURRENCE), GetFocus());
                                 SetFocus(edit);
                                 PressKey(VK_RETURN);
                             }));
    EXPECT_EQ(4, dialog.GetReminderData()->GetDailyRecurrenceNumber());
}

TEST_P(AddDialogKeysTest, ArrowKeys_ChooseTheKindAndItsPane)
{
    const CcvReminderData record = RecordOfKind(IDC_ADD_DAILY);
    CcvMfcAddReminderDialog dialog;
    dialog.UpdateReminderData(&record);
    EXPECT_EQ(IDCANCEL, RunModal(dialog,
                                 [](const ShownDialog& shown)
                                 {
                                     SetFocus(shown.Item(IDC_ADD_DAILY));
                                     std::set<HWND> panes{shown.Pane()};
                                     for (const int id : {IDC_ADD_WEEKLY, IDC_ADD_MONTHLY, IDC_ADD_YEARLY})
                                     {
                                         PressKey(VK_DOWN);
                                         EXPECT_EQ(id, shown.ChosenKind());
                                         EXPECT_EQ(shown.Item(id), GetFocus());
                                         panes.insert(shown.Pane());
                                     }
                                     EXPECT_EQ(4U, panes.size());
                                     shown.Cancel();
                                 }));
}

TEST_P(AddDialogKeysTest, FocusInASectionThatCloses_GoesToItsButton)
{
    const CcvReminderData record = RecordOfKind(IDC_ADD_DAILY);
    CcvMfcAddReminderDialog dialog;
    dialog.UpdateReminderData(&record);
    EXPECT_EQ(IDCANCEL,
              RunModal(dialog,
                       [](const ShownDialog& shown)
                       {
                           SetFocus(shown.PaneItem(IDC_DAILY_NUMBER));
                           SendMessageW(shown.Window(), WM_COMMAND,
                                        MAKEWPARAM(IDC_ADD_TOGGLE_RECURRENCE, BN_CLICKED),
                                        std::bit_cast<LPARAM>(shown.Item(IDC_ADD_TOGGLE_RECURRENCE)));
                           EXPECT_FALSE(shown.IsSectionShown());
                           EXPECT_EQ(shown.Item(IDC_ADD_TOGGLE_RECURRENCE), GetFocus());
                           shown.Cancel();
                       }));
}

TEST_P(AddDialogKeysTest, Mnemonics_AreUniqueInDialogAndPane)
{
    CcvMfcAddReminderDialog dialog;
    EXPECT_EQ(IDCANCEL,
              RunModal(dialog,
                       [](const ShownDialog& shown)
                       {
                           for (const int button : kPanes)
                           {
                               shown.ChooseKind(button);
                               std::vector<wchar_t> letters;
                               CollectMnemonics(shown.Window(), letters);
                               const std::set<wchar_t> different(letters.begin(), letters.end());
                               EXPECT_EQ(different.size(), letters.size())
                                   << button << ' '
                                   << testing::PrintToString(std::wstring(letters.begin(), letters.end()));
                               // Four fields, four kinds and the section's button, and the pane's.
                               EXPECT_GT(letters.size(), 9U);
                           }
                           shown.Cancel();
                       }));
}

} // namespace ts::test
