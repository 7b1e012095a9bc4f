#include "module/LanguageText.h"
#include "platform/mfc/CDialog.h"
#include "platform/mfc/atltypes.h"
#include "resources/AddReminderControls.h"
#include "resources/StringIds.h"
#include "tests/dialogs/add/AddDialogHarness.h"
#include "tests/reminders/recurrence/Patterns.h"
#include "tests/support/Allocations.h"
#include "tests/support/HeapKind.h"
#include "tests/support/ManyRounds.h"
#include "tests/support/TextOutput.h"

#include <algorithm>
#include <bit>
#include <commctrl.h>

namespace ts::test
{
namespace
{

constexpr int kKinds[] = {IDC_ADD_DAILY, IDC_ADD_WEEKLY, IDC_ADD_MONTHLY, IDC_ADD_YEARLY};

struct Placed
{
    HWND window;
    CRect place;
};

CRect ScreenPlace(HWND window)
{
    CRect place;
    GetWindowRect(window, place);
    return place;
}

bool Overlap(const CRect& a, const CRect& b)
{
    return a.left < b.right && b.left < a.right && a.top < b.bottom && b.top < a.bottom;
}

/// All controls that are shown, those of panes instead of the panes.
void CollectControls(HWND parent, std::vector<Placed>& controls)
{
    for (HWND child = GetWindow(parent, GW_CHILD); child != nullptr; child = GetWindow(child, GW_HWNDNEXT))
    {
        if (IsWindowVisible(child) == FALSE)
        {
            continue;
        }
        if (ClassOf(child) == L"#32770")
        {
            CollectControls(child, controls);
        }
        else
        {
            controls.push_back({child, ScreenPlace(child)});
        }
    }
}

CRect ClientPlace(HWND window)
{
    CRect client;
    GetClientRect(window, client);
    MapWindowPoints(window, HWND_DESKTOP, std::bit_cast<POINT*>(&client), 2);
    return client;
}

/// The width that a label or a button with a text needs, without what a button draws before it.
int TextWidth(HWND control)
{
    const HDC dc = GetDC(control);
    const HGDIOBJ former = SelectObject(dc, std::bit_cast<HFONT>(SendMessageW(control, WM_GETFONT, 0, 0)));
    CRect box;
    DrawTextW(dc, TextOf(control).c_str(), -1, box, DT_CALCRECT | DT_SINGLELINE);
    SelectObject(dc, former);
    ReleaseDC(control, dc);
    return box.Width();
}

void ExpectTidy(const ShownDialog& shown)
{
    std::vector<Placed> controls;
    CollectControls(shown.Window(), controls);
    const CRect client = ClientPlace(shown.Window());
    for (std::size_t index = 0; index < controls.size(); ++index)
    {
        const CRect& place = controls[index].place;
        const int id = GetDlgCtrlID(controls[index].window);
        EXPECT_GE(place.left, client.left) << id;
        EXPECT_LE(place.right, client.right) << id;
        EXPECT_GE(place.top, client.top) << id;
        EXPECT_LE(place.bottom, client.bottom) << id;
        for (std::size_t other = index + 1; other < controls.size(); ++other)
        {
            EXPECT_FALSE(Overlap(place, controls[other].place))
                << id << " and " << GetDlgCtrlID(controls[other].window);
        }
        const std::wstring kind = ClassOf(controls[index].window);
        if (kind == L"Static" || kind == L"Button")
        {
            EXPECT_LE(TextWidth(controls[index].window), place.Width())
                << testing::PrintToString(TextOf(controls[index].window));
        }
    }
}

/// The margin of dialogs in pixels, from top to bottom.
int Margin(HWND dialog)
{
    CRect margin(0, 0, 7, 7);
    MapDialogRect(dialog, margin);
    return margin.Height();
}

/// How often a window draws itself or its background, and with which size it does.
class DrawCount
{
  public:
    explicit DrawCount(HWND window) : m_window(window)
    {
        SetWindowSubclass(window, Procedure, 1, std::bit_cast<DWORD_PTR>(this));
    }
    DrawCount(const DrawCount&) = delete;
    DrawCount& operator=(const DrawCount&) = delete;
    ~DrawCount() { RemoveWindowSubclass(m_window, Procedure, 1); }
    [[nodiscard]] int Count() const { return m_count; }

  private:
    static LRESULT CALLBACK Procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam, UINT_PTR,
                                      DWORD_PTR self) noexcept
    {
        if (message == WM_PAINT)
        {
            ++std::bit_cast<DrawCount*>(self)->m_count;
        }
        return DefSubclassProc(window, message, wParam, lParam);
    }

    HWND m_window;
    int m_count = 0;
};

class AddDialogLayoutTest : public AddDialogTest
{
};

INSTANTIATE_TEST_SUITE_P(Languages, AddDialogLayoutTest, testing::Values(L"en", L"de", L"fr"),
                         [](const auto& language)
                         { return std::string(language.param, language.param + 2); });

/// What does not depend on the language.
class AddDialogResourcesTest : public AddDialogTest
{
};

INSTANTIATE_TEST_SUITE_P(English, AddDialogResourcesTest, testing::Values(L"en"));

} // namespace

TEST_P(AddDialogLayoutTest, EachState_NothingOverlapsIsCutOffOrClipped)
{
    CcvMfcAddReminderDialog dialog;
    EXPECT_EQ(IDCANCEL, RunModal(dialog,
                                 [](const ShownDialog& shown)
                                 {
                                     ExpectTidy(shown);
                                     for (const int kind : kKinds)
                                     {
                                         SCOPED_TRACE(kind);
                                         shown.ChooseKind(kind);
                                         ASSERT_NE(nullptr, shown.Pane());
                                         ExpectTidy(shown);
                                     }
                                     shown.Cancel();
                                 }));
}

TEST_P(AddDialogLayoutTest, SectionOpensAndCloses_ButtonsMoveOneMarginBelowAndBack)
{
    CcvMfcAddReminderDialog dialog;
    EXPECT_EQ(
        IDCANCEL,
        RunModal(dialog,
                 [](const ShownDialog& shown)
                 {
                     const CRect closed = ScreenPlace(shown.Window());
                     const int margin = Margin(shown.Window());
                     const HWND toggle = shown.Item(IDC_ADD_TOGGLE_RECURRENCE);
                     const auto placeOf = [&](int id) { return ScreenPlace(shown.Item(id)); };
                     EXPECT_EQ(std::wstring(LoadText(IDS_ADD_RECURRENCE).GetString()), TextOf(toggle));
                     EXPECT_EQ(placeOf(IDC_ADD_LEAD_TIME).bottom + margin, placeOf(IDC_ADD_BUTTONS_LINE).top);

                     ShownDialog::ClickOn(toggle);
                     EXPECT_EQ(std::wstring(LoadText(IDS_REMOVE_RECURRENCE).GetString()), TextOf(toggle));
                     for (const int id : {IDC_ADD_SECTION_LINE, IDC_ADD_DAILY, IDC_ADD_WEEKLY,
                                          IDC_ADD_MONTHLY, IDC_ADD_YEARLY, IDC_ADD_PANE_LINE})
                     {
                         EXPECT_TRUE(IsWindowVisible(shown.Item(id))) << id;
                     }
                     EXPECT_EQ(placeOf(IDC_ADD_PANE_LINE).bottom + margin, placeOf(IDC_ADD_BUTTONS_LINE).top);
                     EXPECT_LE(ScreenPlace(shown.Pane()).bottom, placeOf(IDC_ADD_PANE_LINE).bottom);
                     for (const int id : {IDC_ADD_TOGGLE_RECURRENCE, IDOK, IDCANCEL})
                     {
                         EXPECT_EQ(placeOf(IDC_ADD_BUTTONS_LINE).bottom + margin, placeOf(id).top);
                         EXPECT_EQ(placeOf(id).bottom + margin, ClientPlace(shown.Window()).bottom);
                     }

                     ShownDialog::ClickOn(toggle);
                     EXPECT_EQ(closed, ScreenPlace(shown.Window()));
                     for (const int id : {IDC_ADD_SECTION_LINE, IDC_ADD_DAILY, IDC_ADD_WEEKLY,
                                          IDC_ADD_MONTHLY, IDC_ADD_YEARLY, IDC_ADD_PANE_LINE})
                     {
                         EXPECT_FALSE(IsWindowVisible(shown.Item(id))) << id;
                     }
                     shown.Cancel();
                 }));
}

TEST_P(AddDialogLayoutTest, SectionOpensAtTheLowerEdge_DialogMovesUp)
{
    CcvMfcAddReminderDialog dialog;
    EXPECT_EQ(IDCANCEL, RunModal(dialog,
                                 [](const ShownDialog& shown)
                                 {
                                     CRect area;
                                     SystemParametersInfoW(SPI_GETWORKAREA, 0, area, 0);
                                     const CRect closed = ScreenPlace(shown.Window());
                                     const int top = area.bottom - closed.Height();
                                     SetWindowPos(shown.Window(), nullptr, closed.left, top, 0, 0,
                                                  SWP_NOSIZE | SWP_NOZORDER);
                                     ShownDialog::ClickOn(shown.Item(IDC_ADD_TOGGLE_RECURRENCE));
                                     const CRect open = ScreenPlace(shown.Window());
                                     EXPECT_GT(open.Height(), closed.Height());
                                     EXPECT_EQ(area.bottom, open.bottom);
                                     EXPECT_EQ(closed.left, open.left);
                                     shown.Cancel();
                                 }));
}

TEST_P(AddDialogLayoutTest, Shown_IsCentredAsItIsWithTheSectionOpen)
{
    std::vector<CRect> places;
    for (const bool recurs : {true, false})
    {
        CcvMfcAddReminderDialog dialog;
        const CcvReminderData record =
            SampleOf(recurs ? Weekly(1, 2) : RecordOfType(EcvReminderRecurrenceType::None));
        dialog.UpdateReminderData(&record);
        EXPECT_EQ(IDCANCEL, RunModal(dialog,
                                     [&](const ShownDialog& shown)
                                     {
                                         places.push_back(ScreenPlace(shown.Window()));
                                         shown.Cancel();
                                     }));
    }
    CRect area;
    SystemParametersInfoW(SPI_GETWORKAREA, 0, area, 0);
    const CRect& open = places.at(0);
    const CRect& closed = places.at(1);
    EXPECT_NEAR(area.CenterPoint().x, open.CenterPoint().x, 1);
    EXPECT_NEAR(area.CenterPoint().y, open.CenterPoint().y, 2);
    EXPECT_EQ(open.TopLeft(), closed.TopLeft()) << "there is room for the section";
    EXPECT_LT(closed.Height(), open.Height());
}

TEST_P(AddDialogLayoutTest, SectionOpens_WhatStaysIsNotDrawnAgain)
{
    CcvMfcAddReminderDialog dialog;
    EXPECT_EQ(IDCANCEL, RunModal(dialog,
                                 [](const ShownDialog& shown)
                                 {
                                     PumpMessages();
                                     const DrawCount date(shown.Item(IDC_ADD_DATE));
                                     const DrawCount time(shown.Item(IDC_ADD_TIME));
                                     const DrawCount section(shown.Item(IDC_ADD_MONTHLY));
                                     const DrawCount ok(shown.Item(IDOK));
                                     ShownDialog::ClickOn(shown.Item(IDC_ADD_TOGGLE_RECURRENCE));
                                     EXPECT_EQ(0, date.Count());
                                     EXPECT_EQ(0, time.Count());
                                     EXPECT_EQ(1, section.Count());
                                     EXPECT_LE(ok.Count(), 2);
                                     shown.Cancel();
                                 }));
}

TEST_P(AddDialogLayoutTest, PaneWithoutChange_KeepsTheDialogsSize)
{
    const CcvReminderData record = SampleOf(Weekly(1, 2));
    CcvMfcAddReminderDialog dialog;
    dialog.UpdateReminderData(&record);
    EXPECT_EQ(IDCANCEL, RunModal(dialog,
                                 [](const ShownDialog& shown)
                                 {
                                     const CRect before = ScreenPlace(shown.Window());
                                     for (const int kind : kKinds)
                                     {
                                         shown.ChooseKind(kind);
                                         EXPECT_EQ(before, ScreenPlace(shown.Window())) << kind;
                                     }
                                     shown.Cancel();
                                 }));
}

namespace
{

/// Opens and closes the dialog without a record and with one that recurs, each time in another way.
class OpenAndClose
{
  public:
    void operator()()
    {
        Show(nullptr);
        Show(&m_patterns[m_next++ % std::size(m_patterns)]);
    }

  private:
    static void Show(const CcvReminderData* record)
    {
        CcvMfcAddReminderDialog dialog;
        if (record != nullptr)
        {
            dialog.UpdateReminderData(record);
        }
        ASSERT_NE(FALSE, dialog.Create(IDD_ADD_REMINDER, nullptr));
        PumpMessages();
    }

    CcvReminderData m_patterns[4] = {SampleOf(EveryNDays(2)), SampleOf(Weekly(1, 2)),
                                     SampleOf(MonthlyOnDay(1, 15)), SampleOf(YearlyOnDay(3, 15))};
    std::size_t m_next = 0;
};

} // namespace

TEST_P(AddDialogResourcesTest, ManyRounds_LeaveNothingBehind)
{
    ExpectRoundsLeaveNothing(Rounds(10), OpenAndClose());
}

TEST_P(AddDialogResourcesTest, Rounds_FreeAllThatTheyAllocate)
{
    OpenAndClose round;
    for (int warmUp = 0; warmUp < 4; ++warmUp)
    {
        round();
    }
    const std::size_t live = LiveAllocationCount();
    for (int count = 0; count < 4; ++count)
    {
        round();
    }
    EXPECT_EQ(live, LiveAllocationCount());
}

} // namespace ts::test
