// What a real time picker looks like while it is used.

#include "tests/dialogs/controls/PickerHarness.h"

#include <gtest/gtest.h>
#include <vector>

using namespace ts::test;

namespace
{

/// The pixels of a part of the screen.
std::vector<COLORREF> PixelsOf(HWND window)
{
    UpdateWindow(window);
    PumpMessages();
    CRect client;
    GetClientRect(window, client);
    const HDC screen = GetDC(window);
    std::vector<COLORREF> pixels;
    for (int y = 0; y < client.bottom; ++y)
    {
        for (int x = 0; x < client.right; ++x)
        {
            pixels.push_back(GetPixel(screen, x, y));
        }
    }
    ReleaseDC(window, screen);
    return pixels;
}

} // namespace

TEST(TimePickerDrawingTest, Arrows_StayWhileTheTimeIsSteppedAndTyped)
{
    PickerHarness window(kGerman);
    const std::vector<COLORREF> arrows = PixelsOf(window.Spin());
    ASSERT_NE(std::vector<COLORREF>(arrows.size(), arrows.front()), arrows) << "something is drawn";
    window.picker->SetFocus();
    EXPECT_EQ(arrows, PixelsOf(window.Spin())) << "focus";
    for (const UINT key : {VK_UP, VK_LEFT, VK_DOWN, VK_RIGHT})
    {
        PressKey(key);
        EXPECT_EQ(arrows, PixelsOf(window.Spin())) << key;
    }
    TypeText(L"2");
    EXPECT_EQ(arrows, PixelsOf(window.Spin())) << "typing";
    InvalidateRect(window.edit, nullptr, TRUE);
    EXPECT_EQ(arrows, PixelsOf(window.Spin())) << "drawn anew";
    SetFocus(window.other);
    EXPECT_EQ(arrows, PixelsOf(window.Spin())) << "no focus";
}
