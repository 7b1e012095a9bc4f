#pragma once

#include "platform/mfc/afxcmn.h"

#include <vector>

/// The header of a reminder list. It draws its items itself and can show an image in one.
class CcvMfcRemindersHeaderControl : public CHeaderCtrl
{
  public:
    /// Forgets all images.
    void ResetImages();
    /// Shows a bitmap of the resource module in that column from now on.
    void SetItemBitmap(int column, UINT bitmapId);

    void DrawItem(DRAWITEMSTRUCT* item) override;

  private:
    [[nodiscard]] CString TextOf(int column) const;

    std::vector<int> m_imageNumbers; ///< by column: 0 for none, or the index of the image and one more
    CImageList m_images;
};
