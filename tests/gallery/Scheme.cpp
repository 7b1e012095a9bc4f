#include "tests/gallery/Scheme.h"

#include "platform/WindowsHeaders.h"

#include <vector>

void ts::gallery::UseHighContrast()
{
    constexpr COLORREF kBlack = RGB(0, 0, 0);
    constexpr COLORREF kWhite = RGB(255, 255, 255);
    constexpr COLORREF kBright = RGB(26, 235, 255);
    const std::vector<INT> elements = {COLOR_WINDOW,    COLOR_WINDOWTEXT,  COLOR_BTNFACE,
                                       COLOR_BTNTEXT,   COLOR_HIGHLIGHT,   COLOR_HIGHLIGHTTEXT,
                                       COLOR_BTNSHADOW, COLOR_BTNHIGHLIGHT};
    const std::vector<COLORREF> colours = {kBlack, kWhite, kBlack, kWhite, kBright, kBlack, kWhite, kWhite};
    SetSysColors(static_cast<int>(elements.size()), elements.data(), colours.data());
}
