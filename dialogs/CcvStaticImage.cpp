#include "dialogs/CcvStaticImage.h"

#include <algorithm>

namespace
{

constexpr COLORREF kTransparent = RGB(0, 128, 128);

CPoint Centred(CSize image, CSize area)
{
    return {(area.cx - image.cx) / 2, (area.cy - image.cy) / 2};
}

int IconSizeFor(CSize area)
{
    const long side = std::min(area.cx, area.cy);
    return side >= 48 ? 48 : side >= 32 ? 32 : 16;
}

} // namespace

CcvStaticImage::CcvStaticImage() noexcept = default;

CcvStaticImage::~CcvStaticImage() = default;

void CcvStaticImage::SetImageIcon(HICON icon)
{
    m_icon = icon;
}

void CcvStaticImage::SetImageBitmap(HBITMAP bitmap)
{
    m_bitmap = bitmap;
    if (m_bitmap == nullptr)
    {
        return;
    }
    if (!m_transparentBitmap)
    {
        m_transparentBitmap = std::make_unique<ts::TransparentBitmap>();
    }
    m_transparentBitmap->Prepare(m_bitmap, kTransparent, true);
}

void CcvStaticImage::DrawItem(DRAWITEMSTRUCT* item)
{
    CDC dc(item->hDC);
    CRect client;
    GetClientRect(client);
    if (m_bitmap != nullptr)
    {
        DrawBitmap(dc, client.Size());
    }
    else if (m_icon != nullptr)
    {
        DrawIcon(dc, client.Size());
    }
}

void CcvStaticImage::DrawBitmap(CDC& dc, CSize area) const
{
    m_transparentBitmap->Draw(dc, Centred(m_transparentBitmap->GetSize(), area));
}

void CcvStaticImage::DrawIcon(CDC& dc, CSize area) const
{
    const int size = IconSizeFor(area);
    const CPoint position = Centred({size, size}, area);
    DrawIconEx(dc.GetSafeHdc(), position.x, position.y, m_icon, size, size, 0, nullptr, DI_NORMAL);
}
