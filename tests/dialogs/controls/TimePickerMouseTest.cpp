// What the mouse does to a real time picker and to its arrows.

#include "tests/dialogs/controls/PickerHarness.h"
#include "tests/support/TextOutput.h"

#include <bit>
#include <commctrl.h>
#include <gtest/gtest.h>

using namespace ts::test;

namespace
{

constexpr int kMiddle = 8; // of the text, from the top

void PressAt(HWND window, int x, int y)
{
    SendMessageW(window, WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(x, y));
    SendMessageW(window, WM_LBUTTONUP, 0, MAKELPARAM(x, y));
}

/// Where clicks on the text select a field: from its first pixel on, up to the next field's.
struct HitRow
{
    Selection selected;
    int firstCharacter;
    int endCharacter;
};

void ExpectHits(PickerHarness& window, const HitRow& row)
{
    const int end = window.LeftOf(row.endCharacter);
    for (int x = window.LeftOf(row.firstCharacter); x < end; ++x)
    {
        window.Select({0, 0});
        PressAt(window.edit, x, kMiddle);
        EXPECT_EQ(row.selected, window.Selected()) << x << " of " << end;
    }
}

LRESULT SendDelta(const PickerHarness& window, int delta)
{
    NMUPDOWN change{};
    change.hdr = {window.Spin(), kSpinId, static_cast<UINT>(UDN_DELTAPOS)};
    change.iDelta = delta;
    return SendMessageW(window.edit, WM_NOTIFY, kSpinId, std::bit_cast<LPARAM>(&change));
}

} // namespace

TEST(TimePickerMouseTest, Click_SelectsTheFieldFromItsFirstPixelToItsLast)
{
    // "10:50 AM": the separator belongs to the hour, the space to nothing.
    PickerHarness american(kAmerican);
    american.picker->SetFocus();
    ExpectHits(american, {{0, 2}, 0, 3});
    ExpectHits(american, {{3, 5}, 3, 5});
    ExpectHits(american, {{0, 0}, 5, 6});
    ExpectHits(american, {{6, 8}, 6, 8});

    PickerHarness korean(kKorean);
    ExpectHits(korean, {{0, 2}, 0, 2});
    ExpectHits(korean, {{0, 0}, 2, 3});
    ExpectHits(korean, {{3, 5}, 3, 6});
    ExpectHits(korean, {{6, 8}, 6, 8});
}

TEST(TimePickerMouseTest, ClickBesideTheFields_ChangesNothing)
{
    PickerHarness window(kAmerican);
    window.picker->SetFocus();
    window.Select({3, 5});
    // The space, the pixel behind the text, and further on up to the arrows.
    for (const int x : {window.LeftOf(5), window.LeftOf(6) - 1, window.LeftOf(8), window.LeftOf(8) + 10})
    {
        PressAt(window.edit, x, kMiddle);
        EXPECT_EQ((Selection{3, 5}), window.Selected()) << x;
    }
    EXPECT_EQ(L"10:50 AM", window.Text());
    EXPECT_EQ(CTime(2026, 3, 17, 10, 50, 37), window.picker->GetTime());
}

TEST(TimePickerMouseTest, Click_TakesTheFocus)
{
    PickerHarness window(kAmerican);
    SetFocus(window.other);
    PressAt(window.edit, window.LeftOf(3), kMiddle);
    EXPECT_EQ(window.edit, GetFocus());
    EXPECT_NE(window.edit, GetCapture());
    SetFocus(window.other);
    PressAt(window.edit, window.LeftOf(5), kMiddle);
    EXPECT_EQ(window.edit, GetFocus());
}

TEST(TimePickerMouseTest, Drag_SelectsNoMore)
{
    PickerHarness window(kAmerican);
    const int minute = window.LeftOf(3) + 1;
    SendMessageW(window.edit, WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(minute, kMiddle));
    SendMessageW(window.edit, WM_MOUSEMOVE, MK_LBUTTON, MAKELPARAM(2, kMiddle));
    EXPECT_EQ((Selection{3, 5}), window.Selected());
    SendMessageW(window.edit, WM_LBUTTONUP, 0, MAKELPARAM(2, kMiddle));
    EXPECT_EQ((Selection{3, 5}), window.Selected());
}

TEST(TimePickerMouseTest, DoubleClick_IsIgnored)
{
    PickerHarness window(kAmerican);
    SetFocus(window.other);
    window.Select({0, 2});
    SendMessageW(window.edit, WM_LBUTTONDBLCLK, MK_LBUTTON, MAKELPARAM(window.LeftOf(3) + 1, kMiddle));
    EXPECT_EQ((Selection{0, 2}), window.Selected());
    EXPECT_EQ(window.other, GetFocus());
}

TEST(TimePickerMouseTest, SetCursor_LeavesTheCursor)
{
    PickerHarness window(kAmerican);
    const HCURSOR cross = LoadCursorW(nullptr, IDC_CROSS);
    SetCursor(cross);
    EXPECT_FALSE(SendMessageW(window.edit, WM_SETCURSOR, std::bit_cast<WPARAM>(window.edit),
                              MAKELPARAM(HTCLIENT, WM_MOUSEMOVE)));
    EXPECT_EQ(cross, GetCursor());
}

TEST(TimePickerMouseTest, Wheel_ChangesNothing)
{
    PickerHarness window(kAmerican);
    window.picker->SetFocus();
    window.Select({3, 5});
    for (const int delta : {WHEEL_DELTA, -WHEEL_DELTA})
    {
        SendMessageW(window.edit, WM_MOUSEWHEEL, MAKEWPARAM(0, delta), MAKELPARAM(30, 30));
        EXPECT_EQ(L"10:50 AM", window.Text());
    }
}

TEST(TimePickerSpinTest, Arrows_StepTheSelectedField)
{
    PickerHarness window(kAmerican);
    CRect area;
    GetClientRect(window.Spin(), area);
    const auto up = [&] { PressAt(window.Spin(), area.Width() / 2, 2); };
    const auto down = [&] { PressAt(window.Spin(), area.Width() / 2, area.Height() - 3); };
    window.Select({0, 2});
    up();
    EXPECT_EQ(L"11:50 AM", window.Text());
    EXPECT_EQ((Selection{0, 2}), window.Selected());
    // Again and again in one direction, wherever the spin's own value stands.
    up();
    up();
    EXPECT_EQ(L" 1:50 PM", window.Text());
    for (int step = 0; step < 4; ++step)
    {
        down();
    }
    EXPECT_EQ(L" 9:50 AM", window.Text());
    window.Select({0, 0});
    down();
    EXPECT_EQ(L" 9:45 AM", window.Text());
    EXPECT_EQ((Selection{3, 5}), window.Selected());
    window.Select({6, 8});
    up();
    EXPECT_EQ(L" 9:45 PM", window.Text());
}

TEST(TimePickerSpinTest, Delta_CountsBySignAndIsAllowed)
{
    PickerHarness window(kAmerican);
    window.Select({0, 2});
    EXPECT_EQ(0, SendDelta(window, 5));
    EXPECT_EQ(L"11:50 AM", window.Text());
    EXPECT_EQ(0, SendDelta(window, -20));
    EXPECT_EQ(L"10:50 AM", window.Text());
    EXPECT_EQ(0, SendDelta(window, 0));
    EXPECT_EQ(L"10:50 AM", window.Text());
}

TEST(TimePickerSpinTest, WheelOverTheArrows_Steps)
{
    PickerHarness window(kAmerican);
    window.Select({0, 2});
    SendMessageW(window.Spin(), WM_MOUSEWHEEL, MAKEWPARAM(0, WHEEL_DELTA), 0);
    EXPECT_EQ(L"11:50 AM", window.Text());
    SendMessageW(window.Spin(), WM_MOUSEWHEEL, MAKEWPARAM(0, -WHEEL_DELTA), 0);
    EXPECT_EQ(L"10:50 AM", window.Text());
}
