#pragma once

#include "platform/mfc/afxwin.h"
#include "tests/gallery/Exhibit.h"

namespace ts::gallery
{

/// A window with the colour of a dialog, for controls that are shown without one.
class Frame : public CWnd
{
  public:
    /// `extent` 0 by 0 is `usual`.
    Frame(const wchar_t* title, Extent extent, CSize usual);

    /// The font that messages have, as the user chose it.
    [[nodiscard]] const CFont& Font() const noexcept { return m_font; }

  private:
    CFont m_font;
};

} // namespace ts::gallery
