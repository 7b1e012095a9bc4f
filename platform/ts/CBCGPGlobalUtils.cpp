#include "platform/ts/CBCGPGlobalUtils.h"

HICON CBCGPGlobalUtils::GetCommonIcon(const CWnd&, const wchar_t* name, int size) const noexcept
{
    const bool isSmall = size == kSmallIcon;
    const int width = GetSystemMetrics(isSmall ? SM_CXSMICON : SM_CXICON);
    const int height = GetSystemMetrics(isSmall ? SM_CYSMICON : SM_CYICON);
    return static_cast<HICON>(LoadImageW(nullptr, name, IMAGE_ICON, width, height, LR_SHARED));
}
