#include "tests/gallery/Frame.h"

#include <stdexcept>

int ts::gallery::Scaled(int pixels)
{
    const HDC screen = GetDC(nullptr);
    const int scaled = MulDiv(pixels, GetDeviceCaps(screen, LOGPIXELSX), USER_DEFAULT_SCREEN_DPI);
    ReleaseDC(nullptr, screen);
    return scaled;
}

ts::gallery::Frame::Frame(const wchar_t* title, Extent extent, CSize usual)
{
    constexpr wchar_t kFrameClass[] = L"GalleryFrame";
    WNDCLASSW frameClass{};
    frameClass.lpszClassName = kFrameClass;
    frameClass.lpfnWndProc = ::DefWindowProcW;
    frameClass.hbrBackground = GetSysColorBrush(COLOR_BTNFACE);
    frameClass.hInstance = GetModuleHandleW(nullptr);
    RegisterClassW(&frameClass);
    const CRect area(CPoint(40, 40), CSize(extent.width > 0 ? extent.width : Scaled(usual.cx),
                                           extent.height > 0 ? extent.height : Scaled(usual.cy)));
    if (CreateEx(0, kFrameClass, title, WS_OVERLAPPEDWINDOW | WS_VISIBLE, area, nullptr, 0) == FALSE)
    {
        throw std::runtime_error("no window");
    }
    NONCLIENTMETRICSW metrics{};
    metrics.cbSize = sizeof metrics;
    SystemParametersInfoW(SPI_GETNONCLIENTMETRICS, sizeof metrics, &metrics, 0);
    m_font.CreateFontIndirect(&metrics.lfMessageFont);
}
