#pragma once

#include "platform/mfc/CDC.h"
#include "platform/mfc/CGdiObject.h"

#include <algorithm>
#include <string>
#include <vector>

namespace ts::test
{

constexpr COLORREF kTransparent = RGB(0, 128, 128);
constexpr COLORREF kRed = RGB(255, 0, 0);
constexpr COLORREF kBlack = RGB(0, 0, 0);
constexpr COLORREF kWhite = RGB(255, 255, 255);
constexpr COLORREF kGround = RGB(10, 200, 60);

/// A picture in rows of letters.
using Picture = std::vector<std::string>;

[[nodiscard]] inline COLORREF ColourOf(char letter)
{
    switch (letter)
    {
    case 'R':
        return kRed;
    case 'K':
        return kBlack;
    case 'W':
        return kWhite;
    case 'n':
        return RGB(0, 128, 129); // nearly transparent, but not
    case 't':
        return kTransparent;
    default:
        return kGround;
    }
}

/// A bitmap in memory with a device context to draw on it and to look at it.
class Canvas
{
  public:
    Canvas(int width, int height, WORD bits = 32, COLORREF ground = kGround)
        : m_dc(CDC(nullptr)), m_width(width), m_height(height)
    {
        BITMAPINFO info{};
        info.bmiHeader.biSize = sizeof info.bmiHeader;
        info.bmiHeader.biWidth = width;
        info.bmiHeader.biHeight = height;
        info.bmiHeader.biPlanes = 1;
        info.bmiHeader.biBitCount = bits;
        void* pixels = nullptr;
        m_bitmap.Attach(CreateDIBSection(nullptr, &info, DIB_RGB_COLORS, &pixels, nullptr, 0));
        Select();
        m_dc.FillSolidRect(CRect(0, 0, width, height), ground);
    }
    explicit Canvas(const Picture& picture, WORD bits = 24)
        : Canvas(static_cast<int>(picture[0].size()), static_cast<int>(picture.size()), bits)
    {
        for (int y = 0; y < m_height; ++y)
        {
            for (int x = 0; x < m_width; ++x)
            {
                SetPixel(m_dc.GetSafeHdc(), x, y,
                         ColourOf(picture[static_cast<std::size_t>(y)][static_cast<std::size_t>(x)]));
            }
        }
    }
    Canvas(const Canvas&) = delete;
    Canvas& operator=(const Canvas&) = delete;
    ~Canvas() { Deselect(); }

    // A bitmap can be selected in one place at a time.
    void Select() { m_former = m_dc.SelectObject(m_bitmap.GetHandle()); }
    void Deselect() { m_dc.SelectObject(m_former); }

    [[nodiscard]] HBITMAP Bitmap() const { return m_bitmap.GetHandle(); }
    [[nodiscard]] CDC& Dc() { return m_dc; }
    [[nodiscard]] COLORREF At(int x, int y) const { return m_dc.GetPixel(x, y); }

    /// The smallest rectangle that holds all that is not ground.
    [[nodiscard]] CRect Drawn() const
    {
        CRect drawn(m_width, m_height, 0, 0);
        for (int y = 0; y < m_height; ++y)
        {
            for (int x = 0; x < m_width; ++x)
            {
                if (At(x, y) != kGround)
                {
                    drawn = CRect(std::min<int>(drawn.left, x), std::min<int>(drawn.top, y),
                                  std::max<int>(drawn.right, x + 1), std::max<int>(drawn.bottom, y + 1));
                }
            }
        }
        return drawn;
    }

  private:
    CBitmap m_bitmap;
    CMemDC m_dc;
    int m_width;
    int m_height;
    HGDIOBJ m_former = nullptr;
};

} // namespace ts::test
