#pragma once

#include "platform/mfc/CDC.h"
#include "platform/mfc/CGdiObject.h"

namespace ts
{

/// A bitmap of somebody else's and the mask of its transparent pixels.
class TransparentBitmap
{
  public:
    /// Makes the mask from the pixels of that colour, which become black in the bitmap itself. So a bitmap
    /// can be prepared once. It must not be selected into a device context. Without `drawTransparent` it is
    /// drawn as disabled.
    void Prepare(HBITMAP bitmap, COLORREF transparent, bool drawTransparent);
    [[nodiscard]] CSize GetSize() const noexcept { return {m_width, m_height}; }
    void Draw(CDC& dc, CPoint position) const;

  private:
    void DrawTransparent(CDC& dc, CDC& source, CDC& mask, CPoint position) const;
    void DrawDisabled(CDC& dc, CDC& source, CDC& mask, CPoint position) const;

    int m_width = 0;
    int m_height = 0;
    HBITMAP m_bitmap = nullptr;
    CBitmap m_mask; // white where the bitmap is transparent
    bool m_drawTransparent = true;
};

} // namespace ts
