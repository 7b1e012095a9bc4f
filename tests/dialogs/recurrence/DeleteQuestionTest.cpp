#include "dialogs/CcvMfcDeleteRecurrenceConfirmationDialog.h"
#include "platform/ts/CBCGPGlobalUtils.h"
#include "tests/dialogs/recurrence/PaneHarness.h"
#include "tests/support/HeapKind.h"
#include "tests/support/ManyRounds.h"

#include <bit>
#include <cstdlib>
#include <functional>

namespace
{

using namespace ts::test;

using Question = CcvMfcDeleteRecurrenceConfirmationDialog;

/// Shows the question and does something to it.
INT_PTR Ask(Question& question, std::function<void(HWND)> act)
{
    const WhenShown shown(L"#32770", std::move(act));
    return question.DoModal();
}

void ExpectInstance(const Question& question, bool isInstance)
{
    EXPECT_EQ(isInstance, question.IsDeletingInstance());
    EXPECT_EQ(!isInstance, question.IsDeletingSeries());
}

class DeleteQuestionTest : public PaneTest
{
};

} // namespace

TEST_F(DeleteQuestionTest, NewQuestion_MeansTheInstance)
{
    const Question question;
    ExpectInstance(question, true);
    EXPECT_STREQ("CcvMfcDeleteRecurrenceConfirmationDialog", question.GetRuntimeClass()->m_lpszClassName);
}

TEST_F(DeleteQuestionTest, Clicks_ChooseAndEnd)
{
    for (const wchar_t* const language : kAllLanguages)
    {
        SetLanguage(language);
        for (const int choice : {IDC_DELETE_INSTANCE, IDC_DELETE_SERIES})
        {
            Question question;
            const INT_PTR result = Ask(question,
                                       [choice](HWND window)
                                       {
                                           ::SendMessageW(::GetDlgItem(window, choice), BM_CLICK, 0, 0);
                                           ::SendMessageW(::GetDlgItem(window, IDOK), BM_CLICK, 0, 0);
                                       });
            EXPECT_EQ(IDOK, result);
            ExpectInstance(question, choice == IDC_DELETE_INSTANCE);
        }
    }
}

TEST_F(DeleteQuestionTest, Keys_ChooseAndEnd)
{
    Question question;
    EXPECT_EQ(IDOK, Ask(question,
                        [](HWND)
                        {
                            EXPECT_EQ(IDC_DELETE_INSTANCE, OuterDialog::Focus());
                            PressKey(VK_DOWN);
                            EXPECT_EQ(IDC_DELETE_SERIES, OuterDialog::Focus());
                            PressKey(VK_RETURN);
                        }));
    ExpectInstance(question, false);
    // What was chosen is there when the question is asked again.
    EXPECT_EQ(IDCANCEL, Ask(question,
                            [](HWND window)
                            {
                                EXPECT_EQ(UINT{BST_CHECKED}, IsDlgButtonChecked(window, IDC_DELETE_SERIES));
                                PressKey(VK_ESCAPE);
                            }));
    ExpectInstance(question, false);
}

TEST_F(DeleteQuestionTest, Cancel_LeavesTheChoice)
{
    Question question;
    EXPECT_EQ(IDCANCEL, Ask(question,
                            [](HWND window)
                            {
                                ::SendMessageW(::GetDlgItem(window, IDC_DELETE_SERIES), BM_CLICK, 0, 0);
                                ::SendMessageW(window, WM_CLOSE, 0, 0);
                            }));
    ExpectInstance(question, true);
}

TEST_F(DeleteQuestionTest, Window_ShowsTheWarningIcon)
{
    for (const wchar_t* const language : kAllLanguages)
    {
        SetLanguage(language);
        Question question;
        HICON icon = nullptr;
        const INT_PTR result = Ask(question,
                                   [&icon](HWND window)
                                   {
                                       icon = std::bit_cast<HICON>(
                                           ::SendDlgItemMessageW(window, IDC_DELETE_ICON, STM_GETICON, 0, 0));
                                       ::SendMessageW(window, WM_COMMAND, IDCANCEL, 0);
                                   });
        EXPECT_EQ(IDCANCEL, result);
        EXPECT_NE(nullptr, icon);
        EXPECT_EQ(globalUtils.GetCommonIcon(question, IDI_EXCLAMATION, CBCGPGlobalUtils::kLargeIcon), icon);
    }
}

TEST_F(DeleteQuestionTest, Owner_IsDisabledMeanwhile)
{
    CWnd owner;
    ASSERT_NE(FALSE,
              owner.CreateEx(0, L"Static", L"Owner", WS_POPUP | WS_VISIBLE, CRect(0, 0, 50, 50), nullptr, 0));
    Question question(&owner);
    BOOL enabled = TRUE;
    EXPECT_EQ(IDCANCEL, Ask(question,
                            [&](HWND window)
                            {
                                enabled = owner.IsWindowEnabled();
                                ::SendMessageW(window, WM_COMMAND, IDCANCEL, 0);
                            }));
    EXPECT_EQ(FALSE, enabled);
    EXPECT_NE(FALSE, owner.IsWindowEnabled());
}

TEST_F(DeleteQuestionTest, Window_StandsInTheMiddleOfItsOwner)
{
    CWnd owner;
    const CRect place(20, 30, 720, 530);
    ASSERT_NE(FALSE, owner.CreateEx(0, L"Static", L"Owner", WS_POPUP | WS_VISIBLE, place, nullptr, 0));
    Question question(&owner);
    CRect shown;
    EXPECT_EQ(IDCANCEL, Ask(question,
                            [&](HWND window)
                            {
                                ::GetWindowRect(window, shown);
                                ::SendMessageW(window, WM_COMMAND, IDCANCEL, 0);
                            }));
    EXPECT_LE(std::abs(place.CenterPoint().x - shown.CenterPoint().x), 1);
    EXPECT_LE(std::abs(place.CenterPoint().y - shown.CenterPoint().y), 1);
}

TEST(CommonIcons, BothSizes_AreTheSystemsOwn)
{
    const CWnd window;
    for (const int size : {CBCGPGlobalUtils::kSmallIcon, CBCGPGlobalUtils::kLargeIcon})
    {
        EXPECT_NE(nullptr, globalUtils.GetCommonIcon(window, IDI_EXCLAMATION, size));
    }
    EXPECT_EQ(nullptr, globalUtils.GetCommonIcon(window, L"no such icon", CBCGPGlobalUtils::kLargeIcon));
}

TEST_F(DeleteQuestionTest, ManyRounds_LeaveNothingBehind)
{
    const auto round = []
    {
        Question question;
        EXPECT_EQ(IDOK, Ask(question, [](HWND window) { ::SendMessageW(window, WM_COMMAND, IDOK, 0); }));
    };
    ExpectRoundsLeaveNothing(Rounds(20), round);
}
