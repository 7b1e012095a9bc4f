#pragma once

#include "platform/mfc/CDC.h"
#include "platform/mfc/afxcmn.h"

/// What the list and its header share in drawing.
namespace ts
{

/// Makes an empty list of images of 16 by 16 pixels in the place of the former one.
void CreateListImages(CImageList& images);

/// Adds a bitmap of the resource module, without its transparent colour; its index, -1 on failure.
int AddListImage(CImageList& images, UINT bitmapId);

/// Keeps what is selected and set in a device context, and restores it at the end.
class SavedDC
{
  public:
    explicit SavedDC(CDC& dc) noexcept : m_dc(dc), m_saved(dc.SaveDC()) {}
    SavedDC(const SavedDC&) = delete;
    SavedDC& operator=(const SavedDC&) = delete;
    ~SavedDC() { m_dc.RestoreDC(m_saved); }

  private:
    CDC& m_dc;
    int m_saved;
};

} // namespace ts
