#pragma once

#include "dialogs/CcvMfcDialogBaseInternal.h"
#include "module/LanguageText.h"
#include "platform/mfc/afxdtctl.h"
#include "resources/RecurrenceControls.h"
#include "resources/StringIds.h"
#include "tests/dialogs/recurrence/OuterDialog.h"
#include "tests/support/FixedClock.h"
#include "tests/support/WindowDriver.h"

#include <functional>
#include <gtest/gtest.h>
#include <string>
#include <string_view>
#include <vector>

namespace ts::test
{

inline constexpr const wchar_t* kAllLanguages[] = {L"en", L"de", L"fr"};

[[nodiscard]] inline bool IsEnglish(std::wstring_view language)
{
    return language == L"en";
}

/// A Saturday at noon.
[[nodiscard]] inline CTime PaneNow()
{
    return {2026, 11, 21, 12, 0, 0};
}

/// The dialog around a pane: asks it when OK is pressed, as the add-reminder dialog does, and stays open.
class OuterDialog : public CDialog
{
  public:
    OuterDialog(CcvMfcDialogBaseInternal& pane, UINT paneTemplate);
    ~OuterDialog() override { DestroyWindow(); }

    BOOL OnInitDialog() override;
    /// The number of the control that has the focus.
    [[nodiscard]] static int Focus() { return ::GetDlgCtrlID(::GetFocus()); }

    int m_oks = 0;
    int m_accepted = 0;
    int m_cancels = 0;
    std::function<void()> m_duringOk;
    CDateTimeCtrl m_date;

  protected:
    void OnOK() override;
    void OnCancel() override { ++m_cancels; }

  private:
    CcvMfcDialogBaseInternal& m_pane;
    UINT m_paneTemplate;
};

/// What came of the values of a pane.
struct Exchange
{
    bool accepted = false;
    bool asked = false;
    std::wstring message;
    HICON icon = nullptr; ///< of the message
    int buttons = 0;      ///< how many it had
    int focus = 0;
};

/// Panes of one kind in a dialog, on a day of the test's choice, in a language of the test's choice.
class PaneTest : public testing::Test
{
  protected:
    ~PaneTest() override;

    static void SetLanguage(const wchar_t* language);
    /// Reads the pane's values, and answers a message with the button.
    [[nodiscard]] static Exchange Save(CcvMfcDialogBaseInternal& pane, int button = IDOK);
    static void Enter(const CWnd& pane, int edit, const wchar_t* text);
    static void Choose(const CWnd& pane, int radioButton);
    static void Select(const CWnd& pane, int combo, int index);
    [[nodiscard]] static std::wstring ShownText(const CWnd& pane, int control);
    [[nodiscard]] static int ShownIndex(const CWnd& pane, int combo);
    [[nodiscard]] static bool IsChecked(const CWnd& pane, int button);
    [[nodiscard]] static std::vector<std::wstring> Entries(const CWnd& pane, int combo);
    [[nodiscard]] static std::vector<int> EntryData(const CWnd& pane, int combo);

    static void ExpectRefused(CcvMfcDialogBaseInternal& pane, const CString& message, int focus);
    static void ExpectAccepted(CcvMfcDialogBaseInternal& pane);
    /// A question: OK accepts, Cancel does not.
    static void ExpectAsked(CcvMfcDialogBaseInternal& pane, const CString& question, int focus);
    /// Fills an edit control with what is no number of 32 bits.
    static void ExpectRubbishRefused(CcvMfcDialogBaseInternal& pane, int edit);

    FixedClock m_clock{PaneNow()};
};

/// A pane in its dialog.
template <typename Pane, UINT kTemplate>
struct Opened
{
    using Kind = Pane;
    static constexpr UINT kPaneTemplate = kTemplate;

    Opened() = default;
    /// Fills the pane before it has a window.
    template <typename Fill>
    explicit Opened(Fill fill)
    {
        fill(pane);
        Show();
    }

    void Show()
    {
        if constexpr (requires { pane.SetDueDateControl(&outer.m_date); })
        {
            pane.SetDueDateControl(&outer.m_date);
        }
        ASSERT_NE(FALSE, outer.Create(IDD_OUTER));
        outer.ShowWindow(SW_SHOW);
        ::SetActiveWindow(outer.m_hWnd);
    }

    Pane pane;
    OuterDialog outer{pane, kTemplate};
};

} // namespace ts::test
