// Rows in schemes of colours where a button looks like a window.

#include "tests/dialogs/ListHarness.h"
#include "tests/dialogs/Picture.h"

#include <bit>

namespace
{

using namespace ts::test;

/// Gives buttons the colour of windows while it lives.
class PlainButtons
{
  public:
    PlainButtons() : m_former(GetSysColor(COLOR_BTNFACE)) { Set(GetSysColor(COLOR_WINDOW)); }
    PlainButtons(const PlainButtons&) = delete;
    PlainButtons& operator=(const PlainButtons&) = delete;
    ~PlainButtons() { Set(m_former); }

  private:
    static void Set(COLORREF colour)
    {
        constexpr INT kElement = COLOR_BTNFACE;
        SetSysColors(1, &kElement, &colour);
        PumpMessages();
    }

    COLORREF m_former;
};

class ListContrastTest : public ListTest
{
  protected:
    /// How many pixels on the row's border have the colour of text.
    static int FrameOf(const Picture& picture)
    {
        int count = 0;
        const COLORREF frame = GetSysColor(COLOR_WINDOWTEXT);
        for (int x = 0; x < picture.Width(); ++x)
        {
            count += (picture.At(x, 0) == frame ? 1 : 0) + (picture.At(x, picture.Height() - 1) == frame);
        }
        for (int y = 1; y < picture.Height() - 1; ++y)
        {
            count += (picture.At(0, y) == frame ? 1 : 0) + (picture.At(picture.Width() - 1, y) == frame);
        }
        return count;
    }
    static int Border(const Picture& picture) { return 2 * (picture.Width() + picture.Height() - 2); }
    void ShowTwo(bool focus)
    {
        m_store.Add(L"a", Noon());
        m_store.Add(L"b", Noon());
        Show();
        List().SelectRow(0);
        focus ? List().SetFocus() : m_parent.SetFocus();
    }
};

TEST_F(ListContrastTest, SelectedRowWithoutFocus_IsFramedWhereItsColourSaysNothing)
{
    const PlainButtons plain;
    ShowTwo(false);
    const Picture selected = DrawnRow(List().m_hWnd, 0);
    EXPECT_EQ(Border(selected), FrameOf(selected));
    EXPECT_EQ(0, FrameOf(DrawnRow(List().m_hWnd, 1)));
}

TEST_F(ListContrastTest, SelectedRowWithFocus_NeedsNoFrame)
{
    const PlainButtons plain;
    ShowTwo(true);
    EXPECT_EQ(0, FrameOf(DrawnRow(List().m_hWnd, 0)));
}

TEST_F(ListContrastTest, SelectedRowWithoutFocus_NeedsNoFrameInTheUsualColours)
{
    ShowTwo(false);
    ASSERT_NE(GetSysColor(COLOR_WINDOW), GetSysColor(COLOR_BTNFACE));
    EXPECT_EQ(0, FrameOf(DrawnRow(List().m_hWnd, 0)));
}

} // namespace
