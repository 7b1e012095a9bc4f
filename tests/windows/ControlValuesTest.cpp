// What controls, menus and data exchanges make of single values.

#include "platform/mfc/CMenu.h"
#include "platform/ts/CBCGPGlobalUtils.h"
#include "platform/ts/CcvSplitMenuButton.h"
#include "tests/support/WindowDriver.h"
#include "tests/windows/ControlsDialog.h"

#include <algorithm>
#include <bit>
#include <gtest/gtest.h>
#include <limits>

namespace
{

using namespace ts::test;

const CTime kDay(2026, 11, 21, 13, 14, 15);

class OpenDialog : public ControlsDialog
{
  public:
    OpenDialog()
    {
        m_date = kDay;
        EXPECT_NE(FALSE, Create(IDD_CONTROLS));
        ShowWindow(SW_SHOW);
    }
    [[nodiscard]] HWND Control(int id) const { return ::GetDlgItem(m_hWnd, id); }
};

/// Writes down the messages that it gets.
class NotedButton : public CButton
{
  public:
    std::vector<UINT> m_messages;

  protected:
    LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override
    {
        m_messages.push_back(message);
        return CButton::WindowProc(message, wParam, lParam);
    }
};

} // namespace

// --- Data exchange ---

TEST(ExchangedValueTest, NumberAtEachLimit_IsTaken)
{
    OpenDialog dialog;
    for (const int limit : {std::numeric_limits<int>::min(), std::numeric_limits<int>::max()})
    {
        const MessageBoxAnswer refusal(IDOK);
        dialog.SetDlgItemText(IDC_NUMBER, std::to_wstring(limit).c_str());
        EXPECT_NE(FALSE, dialog.UpdateData());
        EXPECT_FALSE(refusal.WasShown());
        EXPECT_EQ(limit, dialog.m_number);
    }
}

TEST(ExchangedValueTest, UnknownStateOfACheckBox_IsShownAsChecked)
{
    OpenDialog dialog;
    ::SendMessageW(dialog.Control(IDC_CHECK), BM_SETSTYLE, BS_AUTO3STATE, FALSE);
    for (const auto& [state, shown] : {std::pair(BST_UNCHECKED, BST_UNCHECKED),
                                       {BST_CHECKED, BST_CHECKED},
                                       {BST_INDETERMINATE, BST_INDETERMINATE},
                                       {5, BST_CHECKED},
                                       {-1, BST_CHECKED}})
    {
        dialog.m_check = state;
        EXPECT_NE(FALSE, dialog.UpdateData(FALSE));
        EXPECT_EQ(static_cast<UINT>(shown), dialog.IsDlgButtonChecked(IDC_CHECK)) << state;
    }
}

TEST(ExchangedValueTest, ButtonsOfTheNextGroup_DoNotCount)
{
    OpenDialog dialog;
    // Behind the combo box, which begins a group.
    const HWND stranger = CreateWindowExW(0, L"BUTTON", L"", WS_CHILD | BS_AUTORADIOBUTTON, 0, 0, 9, 9,
                                          dialog.m_hWnd, nullptr, nullptr, nullptr);
    ::SendMessageW(stranger, BM_SETCHECK, BST_CHECKED, 0);
    EXPECT_NE(FALSE, dialog.UpdateData());
    EXPECT_EQ(1, dialog.m_radio);
    dialog.m_radio = 0;
    EXPECT_NE(FALSE, dialog.UpdateData(FALSE));
    EXPECT_EQ(BST_CHECKED, ::SendMessageW(stranger, BM_GETCHECK, 0, 0)) << "left alone";
}

TEST(ExchangedValueTest, RefusedText_IsSelectedWhateverWasBefore)
{
    OpenDialog dialog;
    dialog.m_validate = [](CDataExchange& exchange)
    {
        exchange.PrepareEditCtrl(IDC_TEXT);
        exchange.Fail();
    };
    dialog.m_edit.SetSel(3, 3);
    EXPECT_EQ(FALSE, dialog.UpdateData());
    int start = -1;
    int end = -1;
    dialog.m_edit.GetSel(start, end);
    EXPECT_EQ(0, start);
    EXPECT_EQ(9, end);
}

TEST(ExchangedValueTest, RefusedControlBehindAnEdit_IsNotTakenForOne)
{
    OpenDialog dialog;
    NotedButton button;
    ASSERT_NE(FALSE, button.SubclassDlgItem(IDC_PUSH, &dialog));
    dialog.m_validate = [](CDataExchange& exchange)
    {
        exchange.PrepareEditCtrl(IDC_TEXT);
        exchange.PrepareCtrl(IDC_PUSH);
        exchange.Fail();
    };
    EXPECT_EQ(FALSE, dialog.UpdateData());
    EXPECT_EQ(button.m_hWnd, GetFocus());
    EXPECT_EQ(0, std::ranges::count(button.m_messages, UINT{EM_SETSEL}));
}

TEST(ExchangedValueTest, ExchangeInsideAnother_LeavesHandlersQuietUntilTheOuterOneEnds)
{
    OpenDialog dialog;
    dialog.m_log.clear();
    bool isInner = false;
    dialog.m_validate = [&](CDataExchange& exchange)
    {
        if (!std::exchange(isInner, true))
        {
            EXPECT_NE(FALSE, exchange.m_pDlgWnd->UpdateData(FALSE));
            exchange.m_pDlgWnd->SetDlgItemText(IDC_NUMBER, L"8");
        }
    };
    EXPECT_NE(FALSE, dialog.UpdateData(FALSE));
    EXPECT_EQ(L"", dialog.m_log);
    dialog.SetDlgItemText(IDC_NUMBER, L"9");
    EXPECT_EQ(L"text ", dialog.m_log);
}

TEST(ExchangedValueTest, RefusedWhileItIsShown_LeavesTheFocus)
{
    OpenDialog dialog;
    dialog.m_validate = [](CDataExchange& exchange)
    {
        exchange.PrepareEditCtrl(IDC_TEXT);
        exchange.Fail();
    };
    SetFocus(dialog.Control(IDC_PUSH));
    EXPECT_EQ(FALSE, dialog.UpdateData(FALSE));
    EXPECT_EQ(dialog.Control(IDC_PUSH), GetFocus()) << "it is not the user who is wrong";
}

TEST(DatePickerTest, NoDateChosen_EndsTheExchange)
{
    constexpr int kPicker = 2000;
    OpenDialog dialog;
    const HWND picker =
        CreateWindowExW(0, DATETIMEPICK_CLASSW, L"", WS_CHILD | DTS_SHOWNONE, 0, 0, 90, 20, dialog.m_hWnd,
                        std::bit_cast<HMENU>(UINT_PTR{kPicker}), nullptr, nullptr);
    CTime value = kDay;
    bool isReached = false;
    dialog.m_validate = [&](CDataExchange& exchange)
    {
        isReached = false;
        DDX_DateTimeCtrl(&exchange, kPicker, value);
        isReached = true;
    };
    EXPECT_NE(FALSE, dialog.UpdateData(FALSE));
    EXPECT_NE(FALSE, dialog.UpdateData());
    SYSTEMTIME none{};
    ASSERT_NE(0, ::SendMessageW(picker, DTM_SETSYSTEMTIME, GDT_NONE, std::bit_cast<LPARAM>(&none)));
    EXPECT_EQ(FALSE, dialog.UpdateData());
    EXPECT_FALSE(isReached);
    EXPECT_EQ(kDay, value);
}

TEST(DatePickerTest, NoDateChosen_IsNone)
{
    OpenDialog dialog;
    const HWND picker = CreateWindowExW(0, DATETIMEPICK_CLASSW, L"", WS_CHILD | DTS_SHOWNONE, 0, 0, 90, 20,
                                        dialog.m_hWnd, nullptr, nullptr, nullptr);
    ASSERT_NE(FALSE, CDateTimeCtrl::SetTimeOf(picker, kDay));
    EXPECT_EQ(kDay, CDateTimeCtrl::TimeOf(picker).value_or(CTime()));
    SYSTEMTIME none{};
    ASSERT_NE(0, ::SendMessageW(picker, DTM_SETSYSTEMTIME, GDT_NONE, std::bit_cast<LPARAM>(&none)));
    EXPECT_FALSE(CDateTimeCtrl::TimeOf(picker).has_value());
}

TEST(DatePickerTest, SetRange_SetsBothEnds)
{
    OpenDialog dialog;
    CDateTimeCtrl picker;
    ASSERT_NE(FALSE, picker.SubclassDlgItem(IDC_DATE, &dialog));
    ASSERT_NE(FALSE, picker.SetRange(CTime(2001, 2, 3, 0, 0, 0), CTime(2040, 5, 6, 0, 0, 0)));
    SYSTEMTIME range[2] = {};
    EXPECT_EQ(GDTR_MIN | GDTR_MAX,
              ::SendMessageW(picker.m_hWnd, DTM_GETRANGE, 0, std::bit_cast<LPARAM>(&range[0])));
    EXPECT_EQ(2001, range[0].wYear);
    EXPECT_EQ(2040, range[1].wYear);
}

// --- Lists ---

TEST(ListValueTest, ImageList_StaysItsOwners)
{
    OpenDialog dialog;
    CImageList images;
    ASSERT_NE(FALSE, images.Create(16, 16, ILC_COLOR32, 1, 1));
    dialog.m_list.SetImageList(images, LVSIL_SMALL);
    EXPECT_NE(0U, dialog.m_list.GetStyle() & LVS_SHAREIMAGELISTS);
}

TEST(ListValueTest, Columns_KnowTheirTextsAndTheirOrder)
{
    OpenDialog dialog;
    dialog.m_list.InsertColumn(0, L"first", LVCFMT_LEFT, 30);
    EXPECT_EQ(std::vector{0}, dialog.m_list.GetColumnOrderArray()) << "a single one has an order, too";
    dialog.m_list.InsertColumn(1, L"second", LVCFMT_LEFT, 40);
    for (const int column : {0, 1})
    {
        LVCOLUMNW description{};
        description.mask = LVCF_SUBITEM;
        ASSERT_NE(FALSE, dialog.m_list.GetColumn(column, &description));
        EXPECT_EQ(column, description.iSubItem);
    }
    EXPECT_EQ((std::vector{0, 1}), dialog.m_list.GetColumnOrderArray());
}

TEST(ListValueTest, SetItemState_ChangesWhatTheMaskNames)
{
    constexpr UINT kBoth = LVIS_SELECTED | LVIS_FOCUSED;
    OpenDialog dialog;
    dialog.m_list.InsertColumn(0, L"column", LVCFMT_LEFT, 50);
    ASSERT_EQ(0, dialog.m_list.InsertItem({}));
    dialog.m_list.SetItemState(0, kBoth, kBoth);
    EXPECT_EQ(kBoth, dialog.m_list.GetItemState(0, kBoth));
    dialog.m_list.SetItemState(0, 0, LVIS_SELECTED);
    EXPECT_EQ(UINT{LVIS_FOCUSED}, dialog.m_list.GetItemState(0, kBoth));
}

// --- Menus, drawing, icons ---

TEST(MenuTest, EnableMenuItem_ChangesTheItem)
{
    CMenu menu;
    ASSERT_NE(FALSE, menu.CreatePopupMenu());
    ASSERT_NE(FALSE, menu.AppendMenu(MF_STRING, 7, L"item"));
    EXPECT_NE(FALSE, menu.EnableMenuItem(7, false));
    EXPECT_EQ(UINT{MF_GRAYED},
              GetMenuState(menu.GetSafeHmenu(), 7, MF_BYCOMMAND) & (MF_GRAYED | MF_DISABLED));
    EXPECT_NE(FALSE, menu.EnableMenuItem(7, true));
    EXPECT_EQ(0U, GetMenuState(menu.GetSafeHmenu(), 7, MF_BYCOMMAND) & (MF_GRAYED | MF_DISABLED));
    EXPECT_EQ(FALSE, menu.EnableMenuItem(8, true)) << "there is none";
}

TEST(SplitButtonStateTest, OpenMenu_PressesTheArrowUntilItIsClosed)
{
    constexpr LRESULT kArrowIsPressed = 0x400; // BST_DROPDOWNPUSHED
    OpenDialog dialog;
    CcvSplitMenuButton button;
    ASSERT_NE(FALSE, button.Create(L"split", WS_CHILD | WS_VISIBLE, CRect(0, 0, 80, 20), &dialog, 40001));
    button.AddMenuItem(40002, L"item", 0);
    LRESULT whileOpen = 0;
    const WhenShown menu(L"#32768",
                         [&](HWND)
                         {
                             whileOpen = button.SendMessage(BM_GETSTATE);
                             EndMenu();
                         });
    button.SendMessage(WM_KEYDOWN, VK_DOWN, 1);
    EXPECT_TRUE(menu.Happened());
    EXPECT_NE(0, whileOpen & kArrowIsPressed);
    EXPECT_EQ(0, button.SendMessage(BM_GETSTATE) & kArrowIsPressed);
}

TEST(DrawTextTest, TextThatIsCut_StaysWholeInTheProgram)
{
    OpenDialog dialog;
    CClientDC dc(dialog.m_hWnd);
    const CString text = L"far too long for a rectangle of thirty pixels";
    CRect place(0, 0, 30, 20);
    dc.DrawText(text, place, DT_SINGLELINE | DT_END_ELLIPSIS | DT_MODIFYSTRING);
    EXPECT_STREQ(L"far too long for a rectangle of thirty pixels", text);
}

TEST(CommonIconTest, EachSize_IsTheSystems)
{
    const OpenDialog dialog;
    EXPECT_EQ(
        CSize(GetSystemMetrics(SM_CXSMICON), GetSystemMetrics(SM_CYSMICON)),
        CSize(SizeOf(globalUtils.GetCommonIcon(dialog, IDI_EXCLAMATION, CBCGPGlobalUtils::kSmallIcon))));
    EXPECT_EQ(
        CSize(GetSystemMetrics(SM_CXICON), GetSystemMetrics(SM_CYICON)),
        CSize(SizeOf(globalUtils.GetCommonIcon(dialog, IDI_EXCLAMATION, CBCGPGlobalUtils::kLargeIcon))));
}
