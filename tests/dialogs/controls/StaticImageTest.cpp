#include "dialogs/CcvStaticImage.h"
#include "dialogs/TransparentBitmap.h"
#include "tests/dialogs/controls/Canvas.h"
#include "tests/dialogs/controls/HostWindow.h"
#include "tests/support/HeapKind.h"
#include "tests/support/ManyRounds.h"
#include "tests/support/VirtualSlot.h"
#include "tests/support/WindowDriver.h"

#include <gtest/gtest.h>
#include <memory>

using namespace ts::test;

namespace
{

constexpr int kImageId = 1069;

const Picture kPicture = {"tRt", //
                          "WKn", //
                          "ttt", //
                          "RRR"};

/// A picture of `size` pixels in each direction without a transparent one.
Picture Solid(int width, int height)
{
    return Picture(static_cast<std::size_t>(height), std::string(static_cast<std::size_t>(width), 'R'));
}

/// The control in a window, with a client area of that size.
class ImageWindow
{
  public:
    ImageWindow(int width, int height)
    {
        m_host.Add(L"STATIC", L"", SS_OWNERDRAW, CRect(5, 7, 5 + width, 7 + height), kImageId);
        EXPECT_TRUE(image.SubclassDlgItem(kImageId, &m_host));
    }

    /// Draws as the system would, but on `canvas`.
    void DrawOn(Canvas& canvas)
    {
        DRAWITEMSTRUCT item{};
        item.CtlType = ODT_STATIC;
        item.CtlID = kImageId;
        item.itemAction = ODA_DRAWENTIRE;
        item.hwndItem = image.m_hWnd;
        item.hDC = canvas.Dc().GetSafeHdc();
        image.GetClientRect(&item.rcItem);
        image.DrawItem(&item);
    }

    HostWindow m_host;
    CcvStaticImage image;
};

void ExpectPicture(const Canvas& canvas, const Picture& expected, CPoint at)
{
    for (int y = 0; y < std::ssize(expected); ++y)
    {
        const std::string& row = expected[static_cast<std::size_t>(y)];
        for (int x = 0; x < std::ssize(row); ++x)
        {
            EXPECT_EQ(ColourOf(row[static_cast<std::size_t>(x)]), canvas.At(at.x + x, at.y + y))
                << x << "," << y;
        }
    }
}

struct IconDestroyer
{
    void operator()(HICON icon) const noexcept { DestroyIcon(icon); }
};
using Icon = std::unique_ptr<std::remove_pointer_t<HICON>, IconDestroyer>;

/// All red, or red with a transparent left half.
Icon RedIcon(bool half = false)
{
    Canvas colours(Solid(32, 32));
    CBitmap mask;
    std::vector<BYTE> bits(32 * 4, 0);
    for (std::size_t index = 0; half && index < bits.size(); index += 4)
    {
        bits[index] = bits[index + 1] = 0xFF;
    }
    mask.CreateBitmap(32, 32, 1, 1, bits.data());
    if (half)
    {
        colours.Dc().FillSolidRect(CRect(0, 0, 16, 32), kBlack);
    }
    colours.Deselect();
    ICONINFO info{TRUE, 0, 0, mask.GetHandle(), colours.Bitmap()};
    Icon icon(CreateIconIndirect(&info));
    colours.Select();
    return icon;
}

} // namespace

TEST(CcvStaticImageTest, VirtualFunctions_StandInTheirOrder)
{
    EXPECT_EQ(VirtualSlotOf(&CStatic::DrawItem), VirtualSlotOf(&CcvStaticImage::DrawItem));
    const auto first = VirtualSlotOf(&CcvStaticImage::SetImageBitmap);
    EXPECT_LT(VirtualSlotOf(&CcvStaticImage::DrawItem), first);
    EXPECT_EQ(first + 1, VirtualSlotOf(&CcvStaticImage::SetImageIcon));
}

TEST(CcvStaticImageTest, Bitmap_IsDrawnWithoutItsTransparentPixels)
{
    for (const WORD bits : {WORD{24}, WORD{32}})
    {
        Canvas picture(kPicture, bits);
        picture.Deselect();
        ImageWindow window(9, 10);
        window.image.SetImageBitmap(picture.Bitmap());
        Canvas canvas(9, 10);
        window.DrawOn(canvas);
        ExpectPicture(canvas, {"gRg", "WKn", "ggg", "RRR"}, {3, 3});
        EXPECT_EQ(CRect(3, 3, 6, 7), canvas.Drawn());
        // Once more over the first, as a repaint without an erased background does.
        window.DrawOn(canvas);
        ExpectPicture(canvas, {"gRg", "WKn", "ggg", "RRR"}, {3, 3});
        picture.Select();
    }
}

TEST(CcvStaticImageTest, ColoursOfTheDeviceContext_DoNotMatterAndStay)
{
    Canvas picture(kPicture);
    picture.Deselect();
    ImageWindow window(3, 4);
    window.image.SetImageBitmap(picture.Bitmap());
    Canvas canvas(3, 4);
    canvas.Dc().SetTextColor(RGB(1, 2, 3));
    canvas.Dc().SetBkColor(RGB(4, 5, 6));
    window.DrawOn(canvas);
    ExpectPicture(canvas, {"gRg", "WKn", "ggg", "RRR"}, {0, 0});
    EXPECT_EQ(RGB(1, 2, 3), GetTextColor(canvas.Dc().GetSafeHdc()));
    EXPECT_EQ(RGB(4, 5, 6), GetBkColor(canvas.Dc().GetSafeHdc()));
    picture.Select();
}

TEST(CcvStaticImageTest, SourceBitmap_BecomesBlackWhereItIsTransparent)
{
    Canvas picture(kPicture);
    picture.Deselect();
    CcvStaticImage image;
    image.SetImageBitmap(picture.Bitmap());
    picture.Select();
    ExpectPicture(picture, {"KRK", "WKn", "KKK", "RRR"}, {0, 0});
}

TEST(CcvStaticImageTest, Bitmap_IsCentred)
{
    struct Row
    {
        CSize area;
        CSize bitmap;
        CPoint at;
    };
    const Row rows[] = {{{20, 20}, {16, 16}, {2, 2}},   {{21, 20}, {16, 16}, {2, 2}},
                        {{20, 21}, {15, 16}, {2, 2}},   {{16, 16}, {16, 16}, {0, 0}},
                        {{17, 19}, {16, 16}, {0, 1}},   {{33, 7}, {2, 3}, {15, 2}},
                        {{10, 10}, {12, 13}, {-1, -1}}, {{9, 9}, {14, 9}, {-2, 0}}};
    for (const Row& row : rows)
    {
        Canvas picture(Solid(row.bitmap.cx, row.bitmap.cy));
        picture.Deselect();
        ImageWindow window(row.area.cx, row.area.cy);
        window.image.SetImageBitmap(picture.Bitmap());
        Canvas canvas(40, 40);
        SetViewportOrgEx(canvas.Dc().GetSafeHdc(), 4, 4, nullptr);
        window.DrawOn(canvas);
        SetViewportOrgEx(canvas.Dc().GetSafeHdc(), 0, 0, nullptr);
        EXPECT_EQ(CRect(CPoint(row.at.x + 4, row.at.y + 4), row.bitmap), canvas.Drawn())
            << row.area.cx << "x" << row.area.cy;
        picture.Select();
    }
}

TEST(CcvStaticImageTest, SecondBitmap_TakesThePlaceOfTheFirst)
{
    Canvas first(Solid(8, 8));
    Canvas second({"tR", "Rt"});
    first.Deselect();
    second.Deselect();
    ImageWindow window(8, 8);
    window.image.SetImageBitmap(first.Bitmap());
    window.image.SetImageBitmap(second.Bitmap());
    Canvas canvas(8, 8);
    window.DrawOn(canvas);
    EXPECT_EQ(CRect(3, 3, 5, 5), canvas.Drawn());
    ExpectPicture(canvas, {"gR", "Rg"}, {3, 3});
    first.Select();
    second.Select();
}

TEST(CcvStaticImageTest, PaintedWindow_ShowsTheImageOverTheWindowBehind)
{
    Canvas picture(kPicture);
    picture.Deselect();
    ImageWindow window(9, 10);
    window.image.SetImageBitmap(picture.Bitmap());
    InvalidateRect(window.m_host.m_hWnd, nullptr, TRUE);
    UpdateWindow(window.m_host.m_hWnd);
    const CClientDC dc(window.image.m_hWnd);
    EXPECT_EQ(kRed, dc.GetPixel(4, 3));
    EXPECT_EQ(kWhite, dc.GetPixel(3, 4));
    const CClientDC behind(window.m_host.m_hWnd);
    EXPECT_EQ(behind.GetPixel(100, 100), dc.GetPixel(3, 3));
    EXPECT_EQ(behind.GetPixel(100, 100), dc.GetPixel(0, 0));
    picture.Select();
}

TEST(CcvStaticImageTest, Icon_HasTheLargestSizeThatFits)
{
    struct Row
    {
        CSize area;
        int size;
    };
    const Row rows[] = {{{48, 48}, 48},  {{60, 49}, 48}, {{47, 48}, 32}, {{48, 47}, 32},
                        {{100, 47}, 32}, {{32, 32}, 32}, {{33, 35}, 32}, {{31, 32}, 16},
                        {{32, 31}, 16},  {{31, 90}, 16}, {{16, 16}, 16}, {{17, 20}, 16}};
    const Icon icon = RedIcon();
    for (const Row& row : rows)
    {
        ImageWindow window(row.area.cx, row.area.cy);
        window.image.SetImageIcon(icon.get());
        Canvas canvas(row.area.cx, row.area.cy);
        window.DrawOn(canvas);
        const CPoint at((row.area.cx - row.size) / 2, (row.area.cy - row.size) / 2);
        EXPECT_EQ(CRect(at, CSize(row.size, row.size)), canvas.Drawn()) << row.area.cx << "x" << row.area.cy;
    }
}

TEST(CcvStaticImageTest, Icon_IsTransparentWhereItsMaskSaysSo)
{
    const Icon icon = RedIcon(true);
    ImageWindow window(32, 32);
    window.image.SetImageIcon(icon.get());
    Canvas canvas(32, 32);
    window.DrawOn(canvas);
    EXPECT_EQ(CRect(16, 0, 32, 32), canvas.Drawn());
    EXPECT_EQ(kRed, canvas.At(20, 20));
}

TEST(CcvStaticImageTest, BitmapAndIcon_ShowTheBitmapUntilItIsTakenAway)
{
    Canvas picture(Solid(2, 2));
    picture.Deselect();
    const Icon icon = RedIcon();
    ImageWindow window(32, 32);
    window.image.SetImageIcon(icon.get());
    window.image.SetImageBitmap(picture.Bitmap());
    Canvas withBitmap(32, 32);
    window.DrawOn(withBitmap);
    EXPECT_EQ(CRect(15, 15, 17, 17), withBitmap.Drawn());
    window.image.SetImageBitmap(nullptr);
    Canvas withIcon(32, 32);
    window.DrawOn(withIcon);
    EXPECT_EQ(CRect(0, 0, 32, 32), withIcon.Drawn());
    window.image.SetImageIcon(nullptr);
    Canvas empty(32, 32);
    window.DrawOn(empty);
    EXPECT_TRUE(empty.Drawn().IsRectEmpty());
    picture.Select();
}

TEST(TransparentBitmapTest, Disabled_IsEmbossed)
{
    // Light falls one pixel to the right and below; what is transparent or white is no part of the relief.
    Canvas picture({"tttt", "tRKt", "tWRt", "tttt"});
    picture.Deselect();
    ts::TransparentBitmap bitmap;
    bitmap.Prepare(picture.Bitmap(), kTransparent, false);
    Canvas canvas(8, 8);
    bitmap.Draw(canvas.Dc(), {1, 1});
    const COLORREF light = GetSysColor(COLOR_3DHILIGHT);
    const COLORREF shadow = GetSysColor(COLOR_3DSHADOW);
    ASSERT_NE(light, shadow);
    const std::string expected[] = {"........", "........", "..ss....", "...sl...", "....l...", "........"};
    for (int y = 0; y < std::ssize(expected); ++y)
    {
        for (int x = 0; x < 8; ++x)
        {
            const char letter = expected[y][static_cast<std::size_t>(x)];
            EXPECT_EQ(letter == 's'   ? shadow
                      : letter == 'l' ? light
                                      : kGround,
                      canvas.At(x, y))
                << x << "," << y;
        }
    }
    picture.Select();
}

TEST(CcvStaticImageTest, ManyRounds_LeaveNothingBehind)
{
    HostWindow host;
    Canvas picture(kPicture);
    picture.Deselect();
    Canvas canvas(20, 20);
    const auto round = [&]
    {
        host.Add(L"STATIC", L"", SS_OWNERDRAW, CRect(0, 0, 20, 20), kImageId);
        CcvStaticImage image;
        EXPECT_TRUE(image.SubclassDlgItem(kImageId, &host));
        image.SetImageBitmap(picture.Bitmap());
        image.SetImageBitmap(picture.Bitmap());
        DRAWITEMSTRUCT item{};
        item.hDC = canvas.Dc().GetSafeHdc();
        image.DrawItem(&item);
    };
    ExpectRoundsLeaveNothing(Rounds(2000), round);
    picture.Select();
}
