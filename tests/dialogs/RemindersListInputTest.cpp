#include "tests/dialogs/ListHarness.h"

namespace
{

using namespace ts::test;

class ListInputTest : public ListTest
{
  protected:
    void ShowNumbered(int count, int height = 300)
    {
        for (int number = 0; number < count; ++number)
        {
            m_store.Add(std::to_wstring(number).c_str(), Noon() + CTimeSpan(60 * number + 60));
        }
        Show(ReminderListFilter::Recent, height);
    }

    void Select(int row)
    {
        List().SelectRow(row);
        m_parent.TakeSelections();
    }
};

// --- Keys ---

TEST_F(ListInputTest, EveryKey_SelectsTheRowOfTheTable)
{
    struct Case
    {
        UINT key;
        int from;
        int to;
    };
    const Case cases[] = {
        {VK_PRIOR, 3, 0},  {VK_PRIOR, 0, 0},   {VK_PRIOR, -1, 0}, {VK_HOME, 3, 0}, {VK_HOME, -1, 0},
        {VK_NEXT, 1, 4},   {VK_NEXT, 4, 4},    {VK_NEXT, -1, 4},  {VK_END, 1, 4},  {VK_END, -1, 4},
        {VK_UP, 3, 2},     {VK_UP, 1, 0},      {VK_UP, 0, 0},     {VK_UP, -1, 0},  {VK_DOWN, 3, 4},
        {VK_DOWN, 4, 4},   {VK_DOWN, 0, 1},    {VK_DOWN, -1, 0},  {VK_LEFT, 2, 2}, {VK_RIGHT, 2, 2},
        {VK_SPACE, 2, 2},  {VK_SPACE, -1, -1}, {VK_DELETE, 2, 2}, {'A', 2, 2},     {VK_F2, 2, 2},
        {VK_RETURN, 2, 2}, {VK_ADD, 2, 2},
    };
    ShowNumbered(5);
    for (const Case& row : cases)
    {
        Select(row.from);
        Press(row.key);
        EXPECT_EQ(row.to, List().GetSelectedIndex()) << "key " << row.key << " from " << row.from;
        const Rows told = row.to == row.from ? Rows{} : Rows{row.to, row.to};
        EXPECT_EQ(told, m_parent.TakeSelections()) << "key " << row.key << " from " << row.from;
    }
}

TEST_F(ListInputTest, EveryKeyInAnEmptyList_SelectsNothing)
{
    ShowNumbered(0);
    for (const UINT key : {VK_PRIOR, VK_NEXT, VK_HOME, VK_END, VK_UP, VK_DOWN, VK_SPACE})
    {
        Press(key);
        EXPECT_EQ(-1, List().GetSelectedIndex()) << key;
    }
    EXPECT_EQ(Rows{}, m_parent.TakeSelections());
}

TEST_F(ListInputTest, KeyThatLeadsOutOfSight_ScrollsThere)
{
    ShowNumbered(100);
    Press(VK_END);
    CRect row;
    CRect client;
    List().GetItemRect(99, &row, LVIR_BOUNDS);
    List().GetClientRect(&client);
    EXPECT_LE(row.bottom, client.bottom);
    Press(VK_HOME);
    EXPECT_EQ(0, List().GetTopIndex());
}

TEST_F(ListInputTest, NavigationKeys_AreWantedFromTheDialog)
{
    ShowNumbered(1);
    EXPECT_NE(0, List().SendMessage(WM_GETDLGCODE) & DLGC_WANTARROWS);
}

// --- Mouse ---

TEST_F(ListInputTest, Click_SelectsAndTellsOnce)
{
    ShowNumbered(5);
    Click(PointOn(3));
    EXPECT_EQ(3, List().GetSelectedIndex());
    EXPECT_EQ((Rows{3}), m_parent.TakeSelections());
    Click(PointOn(3));
    EXPECT_EQ(Rows{}, m_parent.TakeSelections());
}

TEST_F(ListInputTest, Click_AtTheBordersOfARow_SelectsThatRow)
{
    ShowNumbered(5);
    CRect row;
    List().GetItemRect(2, &row, LVIR_BOUNDS);
    Click({40, row.top});
    EXPECT_EQ(2, List().GetSelectedIndex());
    Click({40, row.top - 1});
    EXPECT_EQ(1, List().GetSelectedIndex());
    Click({40, row.bottom - 1});
    EXPECT_EQ(2, List().GetSelectedIndex());
    Click({40, row.bottom});
    EXPECT_EQ(3, List().GetSelectedIndex());
    Click({1, row.top});
    EXPECT_EQ(2, List().GetSelectedIndex()) << "on the icon's column";
}

TEST_F(ListInputTest, ClickBelowTheRows_SelectsNothingAndTells)
{
    ShowNumbered(2);
    Click({40, 250});
    EXPECT_EQ(-1, List().GetSelectedIndex());
    EXPECT_EQ((Rows{-1}), m_parent.TakeSelections());
}

TEST_F(ListInputTest, RightClick_TellsOfTheRowThatItSelects)
{
    ShowNumbered(5);
    Click(PointOn(3), WM_RBUTTONDOWN);
    EXPECT_EQ(3, List().GetSelectedIndex());
    EXPECT_EQ((Rows{3}), m_parent.TakeSelections());
}

TEST_F(ListInputTest, Wheel_ScrollsAndLeavesTheSelection)
{
    ShowNumbered(100);
    const LPARAM position = MAKELPARAM(100, 100);
    List().SendMessage(WM_MOUSEWHEEL, MAKEWPARAM(0, static_cast<WORD>(-2 * WHEEL_DELTA)), position);
    EXPECT_GT(List().GetTopIndex(), 0);
    EXPECT_EQ(0, List().GetSelectedIndex());
    List().SendMessage(WM_MOUSEWHEEL, MAKEWPARAM(0, 2 * WHEEL_DELTA), position);
    EXPECT_EQ(0, List().GetTopIndex());
    EXPECT_EQ(Rows{}, m_parent.TakeSelections());
}

} // namespace
