// The question before a recurring reminder is deleted, answered by keys alone.

#include "dialogs/CcvMfcDeleteRecurrenceConfirmationDialog.h"
#include "tests/dialogs/recurrence/PaneHarness.h"

namespace
{

using namespace ts::test;

using Question = CcvMfcDeleteRecurrenceConfirmationDialog;

struct Letters
{
    const wchar_t* language;
    wchar_t instance, series;
};

constexpr Letters kLetters[] = {{L"en", L'o', L's'}, {L"de", L'n', L's'}, {L"fr", L'u', L's'}};

class DeleteQuestionKeysTest : public PaneTest
{
  protected:
    /// Asks in each language; `act` uses the keys. What the answers were.
    static void Ask(INT_PTR result, bool series, const std::function<void(HWND, const Letters&)>& act)
    {
        for (const Letters& letters : kLetters)
        {
            SetLanguage(letters.language);
            Question question;
            const WhenShown shown(L"#32770", [&](HWND window) { act(window, letters); });
            EXPECT_EQ(result, question.DoModal()) << testing::PrintToString(letters.language);
            EXPECT_EQ(series, question.IsDeletingSeries()) << testing::PrintToString(letters.language);
        }
    }
};

} // namespace

TEST_F(DeleteQuestionKeysTest, Letters_ChooseFromEveryStop)
{
    Ask(IDOK, true,
        [](HWND window, const Letters& letters)
        {
            for (const int from : {IDC_DELETE_INSTANCE, IDOK, IDCANCEL})
            {
                for (const auto& [letter, id] : {std::pair{letters.series, IDC_DELETE_SERIES},
                                                 std::pair{letters.instance, IDC_DELETE_INSTANCE}})
                {
                    ::SetFocus(::GetDlgItem(window, from));
                    PressMnemonic(letter);
                    EXPECT_EQ(id, OuterDialog::Focus()) << "from " << from;
                    EXPECT_EQ(UINT{BST_CHECKED}, IsDlgButtonChecked(window, id)) << "from " << from;
                }
            }
            PressMnemonic(letters.series);
            PressKey(VK_RETURN);
        });
}

TEST_F(DeleteQuestionKeysTest, Tab_GoesRoundAndBack)
{
    Ask(IDCANCEL, false,
        [](HWND, const Letters&)
        {
            EXPECT_EQ(IDC_DELETE_INSTANCE, OuterDialog::Focus());
            for (const int id : {IDOK, IDCANCEL, IDC_DELETE_INSTANCE})
            {
                PressKey(VK_TAB);
                EXPECT_EQ(id, OuterDialog::Focus());
            }
            {
                const KeyHeld shift(VK_SHIFT);
                for (const int id : {IDCANCEL, IDOK, IDC_DELETE_INSTANCE})
                {
                    PressKey(VK_TAB);
                    EXPECT_EQ(id, OuterDialog::Focus());
                }
            }
            PressKey(VK_ESCAPE);
        });
}

TEST_F(DeleteQuestionKeysTest, Tab_StopsAtTheChosenButton)
{
    Ask(IDCANCEL, false,
        [](HWND, const Letters& letters)
        {
            PressMnemonic(letters.series);
            PressKey(VK_TAB);
            EXPECT_EQ(IDOK, OuterDialog::Focus());
            const KeyHeld shift(VK_SHIFT);
            PressKey(VK_TAB);
            EXPECT_EQ(IDC_DELETE_SERIES, OuterDialog::Focus());
            PressKey(VK_ESCAPE);
        });
}

TEST_F(DeleteQuestionKeysTest, Arrows_GoRoundTheChoicesBothWays)
{
    Ask(IDOK, false,
        [](HWND window, const Letters&)
        {
            int chosen = IDC_DELETE_INSTANCE;
            for (const UINT key : {VK_DOWN, VK_DOWN, VK_RIGHT, VK_UP, VK_UP, VK_LEFT})
            {
                PressKey(key);
                chosen = IDC_DELETE_INSTANCE + IDC_DELETE_SERIES - chosen;
                EXPECT_EQ(chosen, OuterDialog::Focus()) << key;
                EXPECT_EQ(UINT{BST_CHECKED}, IsDlgButtonChecked(window, chosen)) << key;
            }
            PressKey(VK_RETURN);
        });
}

TEST_F(DeleteQuestionKeysTest, EnterAndSpace_AreTheButtonThatHasTheFocus)
{
    for (const UINT key : {VK_RETURN, VK_SPACE})
    {
        Ask(IDOK, true,
            [key](HWND, const Letters&)
            {
                PressKey(VK_DOWN);
                PressKey(VK_TAB);
                PressKey(key);
            });
        Ask(IDCANCEL, false,
            [key](HWND, const Letters&)
            {
                PressKey(VK_DOWN);
                PressKey(VK_TAB);
                PressKey(VK_TAB);
                PressKey(key);
            });
    }
}

TEST_F(DeleteQuestionKeysTest, Escape_IsCancelFromEveryStop)
{
    for (const int from : {IDC_DELETE_INSTANCE, IDC_DELETE_SERIES, IDOK, IDCANCEL})
    {
        Ask(IDCANCEL, false,
            [from](HWND window, const Letters&)
            {
                ::SetFocus(::GetDlgItem(window, from));
                PressKey(VK_ESCAPE);
            });
    }
}
