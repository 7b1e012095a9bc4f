#pragma once

#include "platform/mfc/CGdiObject.h"

class CcvGdiUtilities
{
  public:
    /// Makes `font` a font as described or, when the system has none such, the one that it uses for dialogs.
    /// False when it has neither.
    static BOOL CreateSafeFont(CFont& font, const LOGFONTW& description);
};
