#include "dialogs/TransparentBitmap.h"

namespace
{

constexpr COLORREF kBlack = RGB(0, 0, 0);
constexpr COLORREF kWhite = RGB(255, 255, 255);

// The destination where the source is white, the brush where it is black.
constexpr DWORD kBrushWhereBlack = 0x00B8074A;

/// Sets the colours that monochrome bits turn to and come from, and the former ones again at the end.
class BitColours
{
  public:
    BitColours(CDC& dc, COLORREF zeros, COLORREF ones) noexcept
        : m_dc(dc), m_zeros(dc.SetTextColor(zeros)), m_ones(dc.SetBkColor(ones))
    {
    }
    BitColours(const BitColours&) = delete;
    BitColours& operator=(const BitColours&) = delete;
    ~BitColours()
    {
        m_dc.SetTextColor(m_zeros);
        m_dc.SetBkColor(m_ones);
    }

  private:
    CDC& m_dc;
    COLORREF m_zeros;
    COLORREF m_ones;
};

} // namespace

void ts::TransparentBitmap::Prepare(HBITMAP bitmap, COLORREF transparent, bool drawTransparent)
{
    BITMAP description{};
    GetObjectW(bitmap, sizeof description, &description);
    m_width = description.bmWidth;
    m_height = description.bmHeight;
    m_bitmap = bitmap;
    m_drawTransparent = drawTransparent;
    m_mask.CreateBitmap(m_width, m_height, 1, 1, nullptr);

    CMemDC source{CDC(nullptr)};
    CMemDC mask{CDC(nullptr)};
    const SelectedObject selectedSource(source, m_bitmap);
    const SelectedObject selectedMask(mask, m_mask.GetHandle());
    {
        const BitColours transparentIsWhite(source, kBlack, transparent);
        mask.BitBlt(0, 0, m_width, m_height, source, 0, 0, SRCCOPY);
    }
    const BitColours inverted(source, kWhite, kBlack);
    source.BitBlt(0, 0, m_width, m_height, mask, 0, 0, SRCAND);
}

void ts::TransparentBitmap::Draw(CDC& dc, CPoint position) const
{
    CMemDC source(dc);
    CMemDC mask(dc);
    const SelectedObject selectedSource(source, m_bitmap);
    const SelectedObject selectedMask(mask, m_mask.GetHandle());
    const BitColours plain(dc, kBlack, kWhite);
    if (m_drawTransparent)
    {
        DrawTransparent(dc, source, mask, position);
    }
    else
    {
        DrawDisabled(dc, source, mask, position);
    }
}

void ts::TransparentBitmap::DrawTransparent(CDC& dc, CDC& source, CDC& mask, CPoint position) const
{
    dc.BitBlt(position.x, position.y, m_width, m_height, mask, 0, 0, SRCAND);
    dc.BitBlt(position.x, position.y, m_width, m_height, source, 0, 0, SRCPAINT);
}

void ts::TransparentBitmap::DrawDisabled(CDC& dc, CDC& source, CDC& mask, CPoint position) const
{
    CBitmap outline;
    outline.CreateBitmap(m_width, m_height, 1, 1, nullptr);
    CMemDC shape(dc);
    const SelectedObject selectedOutline(shape, outline.GetHandle());
    const BitColours whiteIsWhite(source, kBlack, kWhite);
    shape.BitBlt(0, 0, m_width, m_height, source, 0, 0, SRCCOPY);
    // What is transparent has become black, but is no part of the picture.
    shape.BitBlt(0, 0, m_width, m_height, mask, 0, 0, SRCPAINT);
    {
        const SelectedObject light(dc, GetSysColorBrush(COLOR_3DHILIGHT));
        dc.BitBlt(position.x + 1, position.y + 1, m_width, m_height, shape, 0, 0, kBrushWhereBlack);
    }
    const SelectedObject shadow(dc, GetSysColorBrush(COLOR_3DSHADOW));
    dc.BitBlt(position.x, position.y, m_width, m_height, shape, 0, 0, kBrushWhereBlack);
}
