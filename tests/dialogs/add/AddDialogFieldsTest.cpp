// The fields of the add-reminder dialog form lines.

#include "platform/mfc/atltypes.h"
#include "resources/AddReminderControls.h"
#include "tests/dialogs/add/AddDialogHarness.h"
#include "tests/support/TextOutput.h"

#include <bit>

namespace ts::test
{
namespace
{

constexpr int kKinds[] = {IDC_ADD_DAILY, IDC_ADD_WEEKLY, IDC_ADD_MONTHLY, IDC_ADD_YEARLY};

class AddDialogFieldsTest : public AddDialogTest
{
};

INSTANTIATE_TEST_SUITE_P(Languages, AddDialogFieldsTest, testing::Values(L"en", L"de", L"fr"),
                         [](const auto& language)
                         { return std::string(language.param, language.param + 2); });

/// The heights of the edit controls, combo boxes and date pickers of a window.
void CollectHeights(HWND parent, std::vector<int>& heights)
{
    for (HWND child = GetWindow(parent, GW_CHILD); child != nullptr; child = GetWindow(child, GW_HWNDNEXT))
    {
        const std::wstring kind = ClassOf(child);
        if (kind == L"Edit" || kind == L"ComboBox" || kind == L"SysDateTimePick32")
        {
            CRect place;
            GetWindowRect(child, place);
            heights.push_back(place.Height());
        }
    }
}

} // namespace

TEST_P(AddDialogFieldsTest, ArrowsOfTheTime_StayWhenTheFocusComesAndTheTimeChanges)
{
    CcvMfcAddReminderDialog dialog;
    RunModal(dialog,
             [](const ShownDialog& shown)
             {
                 UpdateWindow(shown.Window());
                 const HWND spin = GetWindow(shown.Item(IDC_ADD_TIME), GW_CHILD);
                 const std::vector<COLORREF> arrows = PixelsOf(spin);
                 EXPECT_NE(std::vector<COLORREF>(arrows.size(), arrows.front()), arrows);
                 for (const UINT key : {VK_TAB, VK_TAB, VK_UP, VK_LEFT, VK_DOWN, VK_TAB})
                 {
                     PressKey(key);
                     EXPECT_EQ(arrows, PixelsOf(spin)) << key;
                 }
                 shown.Cancel();
             });
}

TEST_P(AddDialogFieldsTest, LeadTimeThatIsLeft_ShowsNoSelection)
{
    CcvMfcAddReminderDialog dialog;
    RunModal(dialog,
             [](const ShownDialog& shown)
             {
                 const HWND combo = shown.Item(IDC_ADD_LEAD_TIME);
                 const auto selected = [combo]
                 {
                     const LRESULT selection = SendMessageW(combo, CB_GETEDITSEL, 0, 0);
                     return HIWORD(selection) - LOWORD(selection);
                 };
                 for (int round = 0; round < 2; ++round)
                 {
                     SetFocus(shown.Item(IDC_ADD_TIME));
                     PressKey(VK_TAB);
                     EXPECT_TRUE(ShownDialog::HasFocus(combo));
                     EXPECT_EQ(std::ssize(shown.Text(IDC_ADD_LEAD_TIME)), selected()) << "to be typed over";
                     PressKey(VK_TAB);
                     EXPECT_EQ(0, selected());
                 }
                 shown.Cancel();
             });
}

TEST_P(AddDialogFieldsTest, FieldsOfDialogAndPanes_AreAllOfOneHeight)
{
    CcvMfcAddReminderDialog dialog;
    RunModal(dialog,
             [](const ShownDialog& shown)
             {
                 std::vector<int> heights;
                 CollectHeights(shown.Window(), heights);
                 for (const int kind : kKinds)
                 {
                     shown.ChooseKind(kind);
                     CollectHeights(shown.Pane(), heights);
                 }
                 CRect field(0, 0, 0, 14);
                 MapDialogRect(shown.Window(), field);
                 // Four in the dialog; one in two of the panes and five in the others.
                 EXPECT_EQ(std::vector<int>(4 + 1 + 1 + 5 + 5, field.Height()), heights);
                 shown.Cancel();
             });
}

TEST_P(AddDialogFieldsTest, ComboBoxes_StillOpenToTheirFullList)
{
    CcvMfcAddReminderDialog dialog;
    RunModal(dialog,
             [](const ShownDialog& shown)
             {
                 const HWND combo = shown.Item(IDC_ADD_LEAD_TIME);
                 CRect dropped;
                 SendMessageW(combo, CB_GETDROPPEDCONTROLRECT, 0, std::bit_cast<LPARAM>(&dropped));
                 const auto line = static_cast<int>(SendMessageW(combo, CB_GETITEMHEIGHT, 0, 0));
                 EXPECT_GT(dropped.Height(), 8 * line);
                 shown.Cancel();
             });
}

} // namespace ts::test
