#include "platform/ts/CcvGdiUtilities.h"

BOOL CcvGdiUtilities::CreateSafeFont(CFont& font, const LOGFONTW& description)
{
    if (font.CreateFontIndirect(&description) != FALSE)
    {
        return TRUE;
    }
    LOGFONTW usual{};
    return GetObjectW(GetStockObject(DEFAULT_GUI_FONT), sizeof usual, &usual) != 0 &&
           font.CreateFontIndirect(&usual) != FALSE;
}
