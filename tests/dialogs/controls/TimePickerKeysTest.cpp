// What keys do to a real time picker.

#include "tests/dialogs/controls/PickerHarness.h"
#include "tests/support/TextOutput.h"

#include <bit>
#include <commctrl.h>
#include <gtest/gtest.h>

using namespace ts::test;

namespace
{

constexpr Selection kHour{0, 2};
constexpr Selection kMinute{3, 5};
constexpr Selection kDesignator{6, 8};
constexpr Selection kNothing{0, 0};
constexpr Selection kAll{0, 8};

struct KeyRow
{
    const char* title;
    UINT key;
    Selection before;
    Selection after;
    int hour; ///< from 10:50 AM
    int minute;
};

const KeyRow kKeys[] = {
    {"Left from the hour", VK_LEFT, kHour, kHour, 10, 50},
    {"Left from the minute", VK_LEFT, kMinute, kHour, 10, 50},
    {"Left from the designator", VK_LEFT, kDesignator, kMinute, 10, 50},
    {"Left from no field", VK_LEFT, kNothing, kDesignator, 10, 50},
    {"Left from the whole text", VK_LEFT, kAll, kDesignator, 10, 50},
    {"Right from the hour", VK_RIGHT, kHour, kMinute, 10, 50},
    {"Right from the minute", VK_RIGHT, kMinute, kDesignator, 10, 50},
    {"Right from the designator", VK_RIGHT, kDesignator, kDesignator, 10, 50},
    {"Right from no field", VK_RIGHT, kNothing, kHour, 10, 50},
    {"Right from the whole text", VK_RIGHT, kAll, kHour, 10, 50},
    {"Up on the hour", VK_UP, kHour, kHour, 11, 50},
    {"Up on the minute", VK_UP, kMinute, kMinute, 11, 0},
    {"Up on the designator", VK_UP, kDesignator, kDesignator, 22, 50},
    {"Up on no field", VK_UP, kNothing, kMinute, 11, 0},
    {"Up on the whole text", VK_UP, kAll, kMinute, 11, 0},
    {"Up on half a field", VK_UP, {0, 1}, kMinute, 11, 0},
    {"Down on the hour", VK_DOWN, kHour, kHour, 9, 50},
    {"Down on the minute", VK_DOWN, kMinute, kMinute, 10, 45},
    {"Down on the designator", VK_DOWN, kDesignator, kDesignator, 22, 50},
    {"Down on no field", VK_DOWN, kNothing, kMinute, 10, 45},
    {"Page Up", VK_PRIOR, kMinute, kMinute, 10, 50},
    {"Page Down", VK_NEXT, kMinute, kMinute, 10, 50},
    {"Home", VK_HOME, kMinute, kMinute, 10, 50},
    {"End", VK_END, kMinute, kMinute, 10, 50},
    {"Delete", VK_DELETE, kMinute, kMinute, 10, 50},
    {"Delete on the whole text", VK_DELETE, kAll, kAll, 10, 50},
    {"Backspace", VK_BACK, kMinute, kMinute, 10, 50},
};

struct TypingRow
{
    const char* title;
    Selection selected;
    const wchar_t* characters;
    const wchar_t* text; ///< from "10:50 AM"
};

const TypingRow kTyping[] = {
    {"a digit into the hour", kHour, L"2", L"02:50 AM"},
    {"two digits into the hour", kHour, L"12", L"12:50 AM"},
    {"letters into the hour", kHour, L"px", L"10:50 AM"},
    {"digits into the minute", kMinute, L"37", L"10:37 AM"},
    {"a designator's key", kDesignator, L"p", L"10:50 PM"},
    {"another letter", kDesignator, L"x", L"10:50 AM"},
    {"Backspace", kMinute, L"\b", L"10:50 AM"},
    {"Ctrl+X and Ctrl+V", kMinute, L"\x18\x16", L"10:50 AM"},
    {"Ctrl+Z", kMinute, L"\x1A", L"10:50 AM"},
    {"a digit with nothing selected", kNothing, L"7", L"10:50 AM"},
    {"a digit with all selected", kAll, L"7", L"10:50 AM"},
    {"a digit with half a field selected", {0, 1}, L"7", L"10:50 AM"},
    {"a digit with the separator selected", {2, 3}, L"7", L"10:50 AM"},
};

constexpr TimePickerUser kTwoDigits{"two digits", false, L"AM", L"PM", L"hh:mm:ss tt", L":"};

} // namespace

TEST(TimePickerKeysTest, EachKey_MovesStepsOrDoesNothing)
{
    for (const KeyRow& row : kKeys)
    {
        PickerHarness window(kTwoDigits);
        window.picker->SetFocus();
        window.Select(row.before);
        PressKey(row.key);
        EXPECT_EQ(row.after, window.Selected()) << row.title;
        const bool changed = row.hour != 10 || row.minute != 50;
        EXPECT_EQ(CTime(2026, 3, 17, row.hour, row.minute, changed ? 0 : 37), window.picker->GetTime())
            << row.title;
        const CTime now = window.picker->GetTime();
        window.picker->SetTime(now);
        EXPECT_EQ(TextOf(window.edit), window.Text());
    }
}

namespace
{

/// Counts the messages of one kind that a window gets while it lives.
class MessageCount
{
  public:
    MessageCount(HWND window, UINT message) : m_window(window), m_message(message)
    {
        EXPECT_TRUE(SetWindowSubclass(window, &Procedure, 1, std::bit_cast<DWORD_PTR>(this)));
    }
    MessageCount(const MessageCount&) = delete;
    MessageCount& operator=(const MessageCount&) = delete;
    ~MessageCount() { RemoveWindowSubclass(m_window, &Procedure, 1); }

    [[nodiscard]] int Get() const noexcept { return m_count; }

  private:
    static LRESULT CALLBACK Procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam, UINT_PTR,
                                      DWORD_PTR self) noexcept
    {
        auto& count = *std::bit_cast<MessageCount*>(self);
        count.m_count += message == count.m_message ? 1 : 0;
        return DefSubclassProc(window, message, wParam, lParam);
    }

    HWND m_window;
    UINT m_message;
    int m_count = 0;
};

} // namespace

TEST(TimePickerKeysTest, SelectedField_IsScrolledIntoView)
{
    PickerHarness window(kTwoDigits, CRect(20, 20, 75, 43));
    window.picker->SetFocus();
    CRect view;
    window.picker->GetRect(view);
    window.Select(kHour);
    ASSERT_GT(window.LeftOf(8), view.right) << "the text is wider than its place";
    // Some systems' edits scroll to what is selected by themselves.
    const MessageCount scrolls(window.edit, EM_SCROLLCARET);
    PressKey(VK_RIGHT);
    PressKey(VK_RIGHT);
    ASSERT_EQ(kDesignator, window.Selected());
    EXPECT_LE(window.LeftOf(8), view.right);
    EXPECT_EQ(2, scrolls.Get());
    PressKey(VK_LEFT);
    PressKey(VK_LEFT);
    EXPECT_GE(window.LeftOf(0), 0);
}

TEST(TimePickerKeysTest, SteppedTime_IsShown)
{
    PickerHarness window(kTwoDigits);
    window.picker->SetFocus();
    window.Select(kHour);
    PressKey(VK_UP);
    PressKey(VK_UP);
    EXPECT_EQ(L"12:50 PM", window.Text());
    PressKey(VK_RIGHT);
    PressKey(VK_DOWN);
    EXPECT_EQ(L"12:45 PM", window.Text());
    PressKey(VK_RIGHT);
    PressKey(VK_UP);
    EXPECT_EQ(L"12:45 AM", window.Text());
}

TEST(TimePickerKeysTest, OtherKeys_AreTheEdits)
{
    PickerHarness window(kTwoDigits);
    window.picker->SetFocus();
    window.Select(kMinute);
    BYTE keys[256] = {};
    BYTE controlHeld[256] = {};
    controlHeld[VK_CONTROL] = 0x80;
    ASSERT_TRUE(SetKeyboardState(controlHeld));
    // Ctrl+Insert copies.
    SendMessageW(window.edit, WM_KEYDOWN, VK_INSERT, 1);
    ASSERT_TRUE(SetKeyboardState(keys));
    ASSERT_TRUE(OpenClipboard(window.edit));
    const HANDLE copied = GetClipboardData(CF_UNICODETEXT);
    EXPECT_NE(nullptr, copied);
    if (copied != nullptr)
    {
        EXPECT_STREQ(L"50", static_cast<const wchar_t*>(GlobalLock(copied)));
        GlobalUnlock(copied);
    }
    CloseClipboard();
}

TEST(TimePickerKeysTest, Typing_ReplacesTheSelectedFieldAndSelectsItAgain)
{
    for (const TypingRow& row : kTyping)
    {
        PickerHarness window(kTwoDigits);
        window.picker->SetFocus();
        window.Select(row.selected);
        TypeText(row.characters);
        EXPECT_EQ(row.text, window.Text()) << row.title;
        EXPECT_EQ(row.selected, window.Selected()) << row.title;
    }
}

TEST(TimePickerKeysTest, TwoDigits_AreOneHour)
{
    PickerHarness window(kGerman);
    window.picker->SetFocus();
    window.Select(kHour);
    TypeText(L"15");
    EXPECT_EQ(L"15:50", window.Text());
    TypeText(L"34");
    EXPECT_EQ(L"04:50", window.Text());
    TypeText(L"0");
    EXPECT_EQ(L"04:50", window.Text());
    EXPECT_EQ(CTime(2026, 3, 17, 4, 50, 0), window.picker->GetTime());
}

TEST(TimePickerKeysTest, TabAndMnemonic_ReachTheEditBehindItsLabel)
{
    PickerHarness window(kGerman);
    SetFocus(window.other);
    MSG alt{window.other, WM_SYSCHAR, L't', LPARAM{1} << 29 | 1, 0, {}};
    EXPECT_TRUE(IsDialogMessageW(window.Host().m_hWnd, &alt));
    EXPECT_EQ(window.edit, GetFocus());
    // The arrows are part of the field and no stop of their own.
    EXPECT_EQ(window.other, GetNextDlgTabItem(window.Host().m_hWnd, window.edit, FALSE));
    EXPECT_EQ(GetDlgItem(window.Host().m_hWnd, kLabelId), GetWindow(window.edit, GW_HWNDPREV));
    PressKey(VK_RIGHT);
    EXPECT_EQ(kHour, window.Selected());
}
