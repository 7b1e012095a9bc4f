#pragma once

#include "dialogs/CcvMfcRemindersListControl.h"
#include "tests/support/WindowDriver.h"

#include <gtest/gtest.h>
#include <vector>

/// Keys that both dialogs with a list of reminders understand.
namespace ts::test
{

/// Presses Tab until the focus is where it was; where it came by, in order.
inline std::vector<int> GoRound()
{
    std::vector<int> visited;
    const HWND start = GetFocus();
    do
    {
        PressKey(VK_TAB);
        visited.push_back(GetDlgCtrlID(GetFocus()));
    } while (GetFocus() != start && visited.size() < 20);
    return visited;
}

/// Tab goes one way, Shift+Tab the same way back.
inline void ExpectRound(const std::vector<int>& stops)
{
    EXPECT_EQ(stops, GoRound());
    std::vector<int> back(stops.rbegin() + 1, stops.rend());
    back.push_back(stops.back());
    const KeyHeld shift(VK_SHIFT);
    EXPECT_EQ(back, GoRound());
}

/// The keys that move the selection do so whatever rows are in sight.
inline void ExpectListKeys(const CcvMfcRemindersListControl& list)
{
    struct Case
    {
        UINT key;
        int row;
    };
    const int last = list.GetItemCount() - 1;
    for (const Case& each : {Case{VK_DOWN, 1}, Case{VK_UP, 0}, Case{VK_UP, 0}, Case{VK_END, last},
                             Case{VK_DOWN, last}, Case{VK_HOME, 0}, Case{VK_NEXT, last}, Case{VK_PRIOR, 0},
                             Case{VK_DELETE, 0}, Case{VK_LEFT, 0}, Case{VK_RIGHT, 0}, Case{VK_SPACE, 0}})
    {
        PressKey(each.key);
        EXPECT_EQ(each.row, list.GetSelectedIndex()) << each.key;
        EXPECT_EQ(last + 1, list.GetItemCount()) << each.key;
    }
}

} // namespace ts::test
