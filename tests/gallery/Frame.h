#pragma once

#include "platform/mfc/afxwin.h"
#include "tests/gallery/Exhibit.h"

namespace ts::gallery
{

/// As many pixels as those of a screen with 96 dots per inch, on this one.
[[nodiscard]] int Scaled(int pixels);

/// A window with the colour of a dialog, for controls that are shown without one.
class Frame : public CWnd
{
  public:
    /// `extent` 0 by 0 is `usual`, which is in pixels of a screen with 96 dots per inch.
    Frame(const wchar_t* title, Extent extent, CSize usual);

    /// The font that messages have, as the user chose it.
    [[nodiscard]] const CFont& Font() const noexcept { return m_font; }

  private:
    CFont m_font;
};

} // namespace ts::gallery
