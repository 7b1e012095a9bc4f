#include "dialogs/ListImages.h"

void ts::CreateListImages(CImageList& images)
{
    constexpr int kSide = 16;
    images.Create(kSide, kSide, ILC_COLOR24 | ILC_MASK, 0, 1);
}

int ts::AddListImage(CImageList& images, UINT bitmapId)
{
    constexpr COLORREF kTransparent = RGB(0, 128, 128);
    CBitmap bitmap;
    return bitmap.LoadBitmap(bitmapId) != FALSE ? images.Add(bitmap, kTransparent) : -1;
}
