// The columns and the room that the list has for them, which its vertical scroll bar takes a part of.

#include "tests/dialogs/ListHarness.h"

#include <bit>

namespace
{

using namespace ts::test;

class ListRoomTest : public ListTest
{
  protected:
    static constexpr int kWidth = 501;

    [[nodiscard]] Rows Widths()
    {
        Rows widths;
        const LRESULT count = ::SendMessageW(List().GetHeaderCtrl(), HDM_GETITEMCOUNT, 0, 0);
        for (int column = 0; column < count; ++column)
        {
            widths.push_back(List().GetColumnWidth(column));
        }
        return widths;
    }
    [[nodiscard]] bool HasBar(DWORD style) { return (List().GetStyle() & style) != 0; }
    void HaveRows(int count)
    {
        while (m_count < count)
        {
            m_numbers.push_back(m_store.Add(L"reminder", Noon() + CTimeSpan(++m_count)));
        }
        while (m_count > count)
        {
            m_store.Remove(m_numbers[static_cast<std::size_t>(--m_count)]);
            m_numbers.pop_back();
        }
        Reload();
        List().Refresh();
    }
    void Resize(int width, int height)
    {
        List().SetWindowPos(nullptr, 0, 0, width, height, SWP_NOMOVE | SWP_NOZORDER);
    }
    /// Moves the line behind a column as the mouse does.
    void Drag(int column, int pixels)
    {
        CRect rect;
        ::SendMessageW(List().GetHeaderCtrl(), HDM_GETITEMRECT, static_cast<WPARAM>(column),
                       std::bit_cast<LPARAM>(&rect));
        const POINT from{rect.right - 1, rect.CenterPoint().y};
        DragInHeader(from, {from.x + pixels, from.y});
    }
    [[nodiscard]] static Rows With(Rows widths, int subjectGain)
    {
        widths.at(1) += subjectGain;
        return widths;
    }

    const int m_bar = GetSystemMetrics(SM_CXVSCROLL);

  private:
    int m_count = 0;
    std::vector<int> m_numbers;
};

TEST_F(ListRoomTest, RowsThatComeAndGo_TakeTheBarsRoomFromTheSubjectAndGiveItBack)
{
    Open(kAllColumns, kWidth);
    const Rows start = Widths();
    for (int round = 0; round < 2; ++round)
    {
        HaveRows(200);
        EXPECT_TRUE(HasBar(WS_VSCROLL));
        EXPECT_FALSE(HasBar(WS_HSCROLL));
        EXPECT_EQ(With(start, -m_bar), Widths());
        HaveRows(1);
        EXPECT_FALSE(HasBar(WS_VSCROLL));
        EXPECT_FALSE(HasBar(WS_HSCROLL));
        EXPECT_EQ(start, Widths());
    }
}

TEST_F(ListRoomTest, EachCountOfRows_BringsAtMostTheVerticalBar)
{
    Open(kAllColumns, kWidth, 120);
    const Rows start = Widths();
    bool hadBar = false;
    for (int count = 0; count < 12; ++count)
    {
        HaveRows(count);
        EXPECT_FALSE(HasBar(WS_HSCROLL)) << count << " rows";
        EXPECT_TRUE(HasBar(WS_VSCROLL) || !hadBar) << count << " rows";
        hadBar = HasBar(WS_VSCROLL);
        EXPECT_EQ(With(start, hadBar ? -m_bar : 0), Widths()) << count << " rows";
    }
    EXPECT_TRUE(hadBar);
}

TEST_F(ListRoomTest, LargerAndSmallerList_GivesItsRoomToTheSubject)
{
    Open(kAllColumns, kWidth, 300);
    const Rows start = Widths();
    HaveRows(20);
    ASSERT_TRUE(HasBar(WS_VSCROLL));
    struct Case
    {
        int width, height;
        bool bar;
    };
    for (const Case& size : {Case{700, 300, true},
                             {700, 600, false},
                             {450, 600, false},
                             {450, 200, true},
                             {kWidth, 600, false},
                             {kWidth, 300, true}})
    {
        Resize(size.width, size.height);
        EXPECT_EQ(size.bar, HasBar(WS_VSCROLL)) << size.width << " x " << size.height;
        EXPECT_FALSE(HasBar(WS_HSCROLL)) << size.width << " x " << size.height;
        EXPECT_EQ(With(start, size.width - kWidth - (size.bar ? m_bar : 0)), Widths())
            << size.width << " x " << size.height;
    }
}

TEST_F(ListRoomTest, WidthOfTheSubjectThatTheUserSet_StaysWhateverTheRoom)
{
    for (const int pixels : {-60, 60})
    {
        Open(kAllColumns, kWidth);
        HaveRows(1);
        const Rows start = Widths();
        Drag(1, pixels);
        ASSERT_EQ(With(start, pixels), Widths());
        HaveRows(200);
        EXPECT_EQ(With(start, pixels), Widths());
        Resize(600, 300);
        EXPECT_EQ(With(start, pixels), Widths());
        Resize(400, 300);
        HaveRows(1);
        EXPECT_EQ(With(start, pixels), Widths());
    }
}

TEST_F(ListRoomTest, WidthOfAnotherColumnThatTheUserSet_StaysToo)
{
    Open(kAllColumns, kWidth);
    HaveRows(1);
    Drag(2, -30);
    const Rows set = Widths();
    HaveRows(200);
    EXPECT_EQ(With(set, -m_bar), Widths());
    EXPECT_FALSE(HasBar(WS_HSCROLL));
    Resize(600, 300);
    EXPECT_EQ(With(set, 600 - kWidth - m_bar), Widths());
    Resize(kWidth, 300);
    HaveRows(1);
    EXPECT_EQ(set, Widths());
}

TEST_F(ListRoomTest, ListWithoutSubjects_KeepsItsWidths)
{
    for (const unsigned mask : {4u, 13u})
    {
        Open(mask, kWidth);
        const Rows start = Widths();
        HaveRows(200);
        Resize(kWidth + 100, 300);
        EXPECT_EQ(start, Widths()) << "mask " << mask;
        HaveRows(0);
    }
}

TEST_F(ListRoomTest, TinyList_KeepsALittleWidthForTheSubject)
{
    Open(kAllColumns, kWidth);
    const Rows start = Widths();
    HaveRows(200);
    Resize(20, 20);
    EXPECT_EQ(40, Widths()[1]);
    Resize(kWidth, 300);
    EXPECT_FALSE(HasBar(WS_HSCROLL));
    EXPECT_EQ(With(start, -m_bar), Widths());
}

} // namespace
