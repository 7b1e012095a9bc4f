#include "module/ResourceScope.h"
#include "tests/support/HeapKind.h"
#include "tests/support/ManyRounds.h"
#include "tests/support/WindowDriver.h"
#include "tests/windows/ControlsDialog.h"

#include <bit>
#include <gtest/gtest.h>
#include <stdexcept>

namespace
{

using namespace ts::test;

const CTime kDay(2026, 11, 21, 13, 14, 15);

/// Posts a command that arrives when the dialog's loop runs.
void PostCommand(const CDialog& dialog, int id)
{
    dialog.PostMessage(WM_COMMAND, static_cast<WPARAM>(id));
}

/// A modeless dialog with its window.
class OpenDialog : public ControlsDialog
{
  public:
    OpenDialog()
    {
        m_date = kDay;
        EXPECT_NE(FALSE, Create(IDD_CONTROLS));
        ShowWindow(SW_SHOW);
        SetActiveWindow(m_hWnd);
    }
    [[nodiscard]] HWND Control(int id) const { return ::GetDlgItem(m_hWnd, id); }
};

} // namespace

TEST(CDialogTest, Modal_EndsWithTheCommandThatClosedIt)
{
    for (const int command : {IDOK, IDCANCEL})
    {
        ControlsDialog dialog;
        dialog.m_date = kDay;
        dialog.m_onInit = [command](ControlsDialog& shown) { PostCommand(shown, command); };
        EXPECT_EQ(command, dialog.DoModal());
        EXPECT_EQ(nullptr, dialog.m_hWnd);
    }
}

TEST(CDialogTest, Modal_ShownOnceAndAgain)
{
    ControlsDialog dialog(nullptr, IDD_PLAIN);
    dialog.m_exchanges = false;
    for (int round = 0; round < 3; ++round)
    {
        bool visible = false;
        const WhenShown close(L"#32770",
                              [&](HWND window)
                              {
                                  visible = window == dialog.m_hWnd;
                                  PressKey(VK_RETURN);
                              });
        EXPECT_EQ(IDOK, dialog.DoModal());
        EXPECT_TRUE(visible);
    }
}

TEST(CDialogTest, Keys_EnterIsOkAndEscapeIsCancel)
{
    const struct
    {
        UINT key;
        INT_PTR result;
    } rows[] = {{VK_RETURN, IDOK}, {VK_ESCAPE, IDCANCEL}};
    for (const auto& row : rows)
    {
        ControlsDialog dialog;
        dialog.m_date = kDay;
        const WhenShown press(L"#32770", [&](HWND) { PressKey(row.key); });
        EXPECT_EQ(row.result, dialog.DoModal());
    }
}

TEST(CDialogTest, Keys_TabMovesToTheNextControl)
{
    ControlsDialog dialog;
    dialog.m_date = kDay;
    int first = 0;
    int second = 0;
    const WhenShown press(L"#32770",
                          [&](HWND)
                          {
                              first = GetDlgCtrlID(GetFocus());
                              PressKey(VK_TAB);
                              second = GetDlgCtrlID(GetFocus());
                              PressKey(VK_ESCAPE);
                          });
    EXPECT_EQ(IDCANCEL, dialog.DoModal());
    EXPECT_EQ(IDC_TEXT, first);
    EXPECT_EQ(IDC_NUMBER, second);
}

TEST(CDialogTest, Modal_OwnerIsDisabledMeanwhileAndActiveAfterwards)
{
    OpenDialog owner;
    ControlsDialog dialog(&owner, IDD_PLAIN);
    dialog.m_exchanges = false;
    bool enabled = true;
    HWND ownerWindow = nullptr;
    const WhenShown close(L"#32770",
                          [&](HWND window)
                          {
                              enabled = owner.IsWindowEnabled() != FALSE;
                              ownerWindow = GetWindow(window, GW_OWNER);
                              PressKey(VK_ESCAPE);
                          });
    EXPECT_EQ(IDCANCEL, dialog.DoModal());
    EXPECT_FALSE(enabled);
    EXPECT_EQ(owner.m_hWnd, ownerWindow);
    EXPECT_NE(FALSE, owner.IsWindowEnabled());
    EXPECT_EQ(owner.m_hWnd, GetActiveWindow());
}

TEST(CDialogTest, Modal_OwnerIsEnabledAndActiveBeforeTheDialogGoes)
{
    /// Looks at its owner when its window is destroyed.
    class LeavingDialog : public ControlsDialog
    {
      public:
        explicit LeavingDialog(CWnd* owner) : ControlsDialog(owner, IDD_PLAIN), m_owner(owner)
        {
            m_exchanges = false;
            m_onInit = [](ControlsDialog& shown) { PostCommand(shown, IDCANCEL); };
        }
        bool m_ownerIsEnabled = false;
        bool m_ownerIsActive = false;

      protected:
        LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override
        {
            if (message == WM_DESTROY)
            {
                m_ownerIsEnabled = m_owner->IsWindowEnabled() != FALSE;
                m_ownerIsActive = GetActiveWindow() == m_owner->m_hWnd;
            }
            return ControlsDialog::WindowProc(message, wParam, lParam);
        }

      private:
        CWnd* m_owner;
    };
    OpenDialog owner;
    LeavingDialog dialog(&owner);
    EXPECT_EQ(IDCANCEL, dialog.DoModal());
    EXPECT_TRUE(dialog.m_ownerIsEnabled);
    EXPECT_TRUE(dialog.m_ownerIsActive);
}

TEST(CDialogTest, ModalWithoutParent_BelongsToTheActiveWindow)
{
    const OpenDialog active;
    ControlsDialog dialog(nullptr, IDD_PLAIN);
    dialog.m_exchanges = false;
    HWND ownerWindow = nullptr;
    dialog.m_onInit = [&](ControlsDialog& shown)
    {
        ownerWindow = GetWindow(shown.m_hWnd, GW_OWNER);
        PostCommand(shown, IDCANCEL);
    };
    EXPECT_EQ(IDCANCEL, dialog.DoModal());
    EXPECT_EQ(active.m_hWnd, ownerWindow);
}

TEST(CDialogTest, ModalOwnerDisabledBefore_StaysDisabled)
{
    OpenDialog owner;
    owner.EnableWindow(FALSE);
    ControlsDialog dialog(&owner, IDD_PLAIN);
    dialog.m_exchanges = false;
    dialog.m_onInit = [](ControlsDialog& shown) { shown.EndDialog(7); };
    EXPECT_EQ(7, dialog.DoModal());
    EXPECT_EQ(FALSE, owner.IsWindowEnabled());
}

TEST(CDialogTest, ClosedUnderAnotherOnesLoop_DisappearsAtOnceAndEndsAfterIt)
{
    const OpenDialog independent;
    ControlsDialog outer(nullptr, IDD_PLAIN);
    outer.m_exchanges = false;
    bool wasVisible = false;
    bool isVisible = true;
    INT_PTR innerResult = 0;
    const WhenShown meanwhile(L"#32770",
                              [&](HWND window)
                              {
                                  // The user has two windows, and goes on with the one under the other.
                                  ControlsDialog inner(nullptr, IDD_PLAIN);
                                  inner.m_exchanges = false;
                                  const WhenShown close(L"#32770",
                                                        [&](HWND)
                                                        {
                                                            wasVisible = IsWindowVisible(window) != FALSE;
                                                            outer.SendMessage(WM_COMMAND, IDCANCEL);
                                                            isVisible = IsWindowVisible(window) != FALSE;
                                                            inner.EndDialog(IDOK);
                                                        });
                                  innerResult = inner.DoModal();
                              });
    EXPECT_EQ(IDCANCEL, outer.DoModal());
    EXPECT_TRUE(wasVisible);
    EXPECT_FALSE(isVisible);
    EXPECT_EQ(IDOK, innerResult);
}

TEST(CDialogTest, EndedInItsStart_NeverShownAndResultKept)
{
    ControlsDialog dialog(nullptr, IDD_PLAIN);
    dialog.m_exchanges = false;
    dialog.m_onInit = [](ControlsDialog& shown) { shown.EndDialog(99); };
    EXPECT_EQ(99, dialog.DoModal());
}

TEST(CDialogTest, WindowDestroyedFromOutside_LoopEnds)
{
    ControlsDialog dialog(nullptr, IDD_PLAIN);
    dialog.m_exchanges = false;
    const WhenShown destroy(L"#32770", [](HWND window) { DestroyWindow(window); });
    EXPECT_EQ(-1, dialog.DoModal());
    EXPECT_EQ(nullptr, dialog.m_hWnd);
}

TEST(CDialogTest, ThreadIsToQuit_LoopEndsAndTheNextLoopKnows)
{
    ControlsDialog dialog(nullptr, IDD_PLAIN);
    dialog.m_exchanges = false;
    dialog.m_onInit = [](ControlsDialog&) { PostQuitMessage(12); };
    EXPECT_EQ(-1, dialog.DoModal());
    MSG message{};
    EXPECT_NE(FALSE, PeekMessageW(&message, nullptr, WM_QUIT, WM_QUIT, PM_REMOVE));
    EXPECT_EQ(12U, message.wParam);
}

TEST(CDialogTest, NoSuchTemplate_NoDialog)
{
    ControlsDialog dialog(nullptr, 4711);
    EXPECT_EQ(-1, dialog.DoModal());
    EXPECT_EQ(FALSE, dialog.Create(4711U));
    EXPECT_EQ(nullptr, dialog.m_hWnd);
}

TEST(CDialogTest, StartThrows_DialogOpensAndGoesOn)
{
    ControlsDialog dialog(nullptr, IDD_PLAIN);
    dialog.m_exchanges = false;
    dialog.m_onInit = [](ControlsDialog& shown)
    {
        PostCommand(shown, IDCANCEL);
        throw std::runtime_error("half way");
    };
    EXPECT_EQ(IDCANCEL, dialog.DoModal());
}

TEST(CDialogTest, Modeless_EndingDestroysTheWindowOnly)
{
    OpenDialog dialog;
    const HWND window = dialog.m_hWnd;
    PressKey(VK_ESCAPE);
    EXPECT_EQ(FALSE, IsWindow(window));
    EXPECT_EQ(nullptr, dialog.m_hWnd);
}

TEST(CDialogTest, ObjectEndsBeforeItsModelessWindow_BothGo)
{
    HWND window = nullptr;
    {
        const OpenDialog dialog;
        window = dialog.m_hWnd;
    }
    EXPECT_EQ(FALSE, IsWindow(window));
}

TEST(CDialogTest, DialogInADialog_KeysBelongToTheOuterOne)
{
    OpenDialog outer;
    ControlsDialog inner(nullptr, IDD_INNER);
    inner.m_exchanges = false;
    ASSERT_NE(FALSE, inner.Create(IDD_INNER, &outer));
    inner.ShowWindow(SW_SHOW);
    SetFocus(::GetDlgItem(inner.m_hWnd, IDC_NUMBER));
    PressKey(VK_TAB);
    EXPECT_EQ(outer.m_hWnd, ::GetParent(GetFocus())) << "the step leaves the inner dialog";
    SetFocus(::GetDlgItem(inner.m_hWnd, IDC_NUMBER));
    PressKey(VK_ESCAPE);
    EXPECT_EQ(nullptr, outer.m_hWnd);
    EXPECT_EQ(nullptr, inner.m_hWnd);
}

TEST(CDialogTest, CommandsAndNotifications_ReachHandlersAndControls)
{
    OpenDialog dialog;
    dialog.m_log.clear();
    dialog.m_edit.m_changes = 0;
    SendMessageW(dialog.Control(IDC_PUSH), BM_CLICK, 0, 0);
    SetWindowTextW(dialog.Control(IDC_NUMBER), L"6");
    SetWindowTextW(dialog.Control(IDC_TEXT), L"6");
    EXPECT_EQ(L"push text ", dialog.m_log);
    EXPECT_EQ(1, dialog.m_edit.m_changes) << "reflected to the control";
}

TEST(CDialogTest, OwnerDrawn_ControlsDrawThemselves)
{
    OpenDialog dialog;
    dialog.m_list.InsertColumn(0, L"Column", LVCFMT_LEFT, 50);
    const LVITEMW item{};
    ASSERT_EQ(0, dialog.m_list.InsertItem(item));
    dialog.m_list.m_drawn = 0;
    RedrawWindow(dialog.m_hWnd, nullptr, nullptr, RDW_INVALIDATE | RDW_ALLCHILDREN | RDW_UPDATENOW);
    EXPECT_LE(1, dialog.m_drawn.m_drawn);
    EXPECT_EQ(dialog.m_drawn.m_hWnd, dialog.m_drawn.m_itemWindow);
    EXPECT_LE(1, dialog.m_list.m_drawn);
}

TEST(DataExchangeTest, Loaded_ControlsShowTheMembers)
{
    const OpenDialog dialog;
    EXPECT_EQ(L"some text", TextOf(dialog.Control(IDC_TEXT)));
    EXPECT_EQ(L"5", TextOf(dialog.Control(IDC_NUMBER)));
    EXPECT_EQ(UINT{BST_CHECKED}, dialog.IsDlgButtonChecked(IDC_CHECK));
    EXPECT_EQ(UINT{BST_UNCHECKED}, dialog.IsDlgButtonChecked(IDC_RADIO_1));
    EXPECT_EQ(UINT{BST_CHECKED}, dialog.IsDlgButtonChecked(IDC_RADIO_2));
    EXPECT_EQ(2, dialog.m_combo.GetCurSel());
    EXPECT_EQ(kDay, CDateTimeCtrl::TimeOf(dialog.Control(IDC_DATE)).value_or(CTime()));
}

TEST(DataExchangeTest, Saved_MembersTakeWhatTheControlsShow)
{
    OpenDialog dialog;
    dialog.SetDlgItemText(IDC_TEXT, L"other\ttext");
    dialog.SetDlgItemText(IDC_NUMBER, L" -2147483648 ");
    dialog.CheckDlgButton(IDC_CHECK, BST_UNCHECKED);
    CheckRadioButton(dialog.m_hWnd, IDC_RADIO_1, IDC_RADIO_3, IDC_RADIO_3);
    dialog.m_combo.SetCurSel(0);
    ASSERT_NE(FALSE, CDateTimeCtrl::SetTimeOf(dialog.Control(IDC_DATE), CTime(1999, 12, 31, 1, 2, 3)));
    EXPECT_NE(FALSE, dialog.UpdateData());
    EXPECT_EQ(L"other\ttext", std::wstring(dialog.m_value.GetString()));
    EXPECT_EQ(INT_MIN, dialog.m_number);
    EXPECT_EQ(BST_UNCHECKED, dialog.m_check);
    EXPECT_EQ(2, dialog.m_radio);
    EXPECT_EQ(0, dialog.m_index);
    EXPECT_EQ(CTime(1999, 12, 31, 1, 2, 3), dialog.m_date);
}

TEST(DataExchangeTest, NothingChosen_IsMinusOne)
{
    OpenDialog dialog;
    CheckRadioButton(dialog.m_hWnd, IDC_RADIO_1, IDC_RADIO_3, 0);
    dialog.m_combo.SetCurSel(-1);
    EXPECT_NE(FALSE, dialog.UpdateData());
    EXPECT_EQ(-1, dialog.m_radio);
    EXPECT_EQ(-1, dialog.m_index);
}

TEST(DataExchangeTest, NoWholeNumber_MessageThenFocusOnTheFieldAndDialogStays)
{
    for (const wchar_t* text :
         {L"", L"x", L"5x", L"1.5", L"2147483648", L"-2147483649", L"99999999999999999999", L"1\r\n2"})
    {
        OpenDialog dialog;
        dialog.SetDlgItemText(IDC_NUMBER, text);
        SetFocus(dialog.Control(IDC_PUSH));
        const ts::ResourceScope texts;
        const MessageBoxAnswer answer(IDOK);
        dialog.SendMessage(WM_COMMAND, IDOK);
        EXPECT_TRUE(answer.WasShown());
        EXPECT_EQ(L"Controls", answer.Title());
        EXPECT_FALSE(answer.Text().empty());
        EXPECT_NE(nullptr, dialog.m_hWnd);
        EXPECT_EQ(dialog.Control(IDC_NUMBER), GetFocus());
        EXPECT_EQ(5, dialog.m_number);
    }
}

TEST(DataExchangeTest, RefusedByTheDialog_FocusOnTheLastControlPrepared)
{
    OpenDialog dialog;
    dialog.m_validate = [](CDataExchange& exchange)
    {
        if (exchange.m_bSaveAndValidate != FALSE)
        {
            exchange.PrepareEditCtrl(IDC_TEXT);
            exchange.Fail();
        }
    };
    SetFocus(dialog.Control(IDC_PUSH));
    EXPECT_EQ(FALSE, dialog.UpdateData());
    EXPECT_EQ(dialog.Control(IDC_TEXT), GetFocus());
    int start = -1;
    int end = -1;
    dialog.m_edit.GetSel(start, end);
    EXPECT_EQ(0, start);
    EXPECT_EQ(9, end) << "the text is selected, ready to be typed over";
    dialog.m_validate = [](CDataExchange& exchange) { exchange.Fail(); };
    SetFocus(dialog.Control(IDC_PUSH));
    EXPECT_EQ(FALSE, dialog.UpdateData());
    EXPECT_EQ(dialog.Control(IDC_DATE), GetFocus()) << "none named: the last one that was exchanged";
}

TEST(DataExchangeTest, Exchanging_HandlersOfControlsAreQuiet)
{
    OpenDialog dialog;
    dialog.m_log.clear();
    dialog.m_edit.m_changes = 0;
    dialog.m_number = 77;
    EXPECT_NE(FALSE, dialog.UpdateData(FALSE));
    EXPECT_EQ(L"77", TextOf(dialog.Control(IDC_NUMBER)));
    EXPECT_EQ(L"", dialog.m_log);
    EXPECT_EQ(0, dialog.m_edit.m_changes);
}

TEST(DataExchangeTest, ControlThatIsNotThere_IsAnError)
{
    OpenDialog dialog;
    CDataExchange exchange(&dialog, TRUE);
    EXPECT_THROW(exchange.PrepareCtrl(4711), CNotSupportedException);
}

TEST(DataExchangeTest, DateBeyondTheRange_MemberUntouched)
{
    OpenDialog dialog;
    CDateTimeCtrl picker;
    ASSERT_NE(FALSE, picker.SubclassDlgItem(IDC_DATE, &dialog));
    EXPECT_NE(FALSE, picker.SetRange(CTime(86400), CTime(3000, 12, 30, 23, 59, 59)));
    EXPECT_EQ(FALSE, picker.SetRange(CTime(-1), CTime(86400))) << "no local date";
    EXPECT_EQ(FALSE, picker.SetTime(CTime(-1)));
    CTime shown;
    EXPECT_NE(FALSE, picker.GetTime(shown));
    EXPECT_EQ(kDay, shown);
}

TEST(CDialogTest, ManyRounds_LeaveNothingBehind)
{
    const auto round = []
    {
        ControlsDialog dialog;
        dialog.m_date = kDay;
        ASSERT_NE(FALSE, dialog.Create(IDD_CONTROLS));
        ASSERT_NE(nullptr, dialog.GetDlgItem(IDOK));
    };
    ExpectRoundsLeaveNothing(Rounds(1000), round);
}
