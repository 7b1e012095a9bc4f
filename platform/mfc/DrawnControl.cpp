#include "platform/mfc/DrawnControl.h"

#include <bit>

void ts::DrawnControl::DrawItem(DRAWITEMSTRUCT*)
{
}

BOOL ts::DrawnControl::OnChildNotify(UINT message, WPARAM wParam, LPARAM lParam, LRESULT* result)
{
    if (message != WM_DRAWITEM)
    {
        return CWnd::OnChildNotify(message, wParam, lParam, result);
    }
    DrawItem(std::bit_cast<DRAWITEMSTRUCT*>(lParam));
    *result = TRUE;
    return TRUE;
}
