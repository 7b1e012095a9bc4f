#pragma once

#include "dialogs/TransparentBitmap.h"
#include "platform/mfc/afxwin.h"

#include <memory>

/// A static control with the style SS_OWNERDRAW that shows a bitmap with a transparent colour or an icon, in
/// the centre of its client area. A bitmap goes before an icon. Both stay the caller's and must live as long
/// as the control shows them.
class CcvStaticImage : public CStatic
{
  public:
    CcvStaticImage() noexcept;
    CcvStaticImage(const CcvStaticImage&) = delete;
    CcvStaticImage& operator=(const CcvStaticImage&) = delete;
    ~CcvStaticImage() override;

    void DrawItem(DRAWITEMSTRUCT* item) override;
    /// Pixels of the colour (0, 128, 128) are transparent; they become black in the bitmap itself, so it can
    /// be given once. Null takes the bitmap away.
    virtual void SetImageBitmap(HBITMAP bitmap);
    virtual void SetImageIcon(HICON icon);

  private:
    void DrawBitmap(CDC& dc, CSize area) const;
    void DrawIcon(CDC& dc, CSize area) const;

    HICON m_icon = nullptr;
    HBITMAP m_bitmap = nullptr;
    std::unique_ptr<ts::TransparentBitmap> m_transparentBitmap;
};
