// What a real time picker looks like while it is used.

#include "tests/dialogs/controls/PickerHarness.h"

#include <gtest/gtest.h>
#include <vector>

using namespace ts::test;

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
