#include "tests/dialogs/Picture.h"

#include "module/ResourceScope.h"

#include <algorithm>
#include <bit>
#include <commctrl.h>
#include <map>
#include <string_view>

namespace ts::test
{

Picture::Picture(int width, int height) : m_width(width), m_height(height)
{
    BITMAPINFO info{};
    info.bmiHeader = {sizeof info.bmiHeader, width, -height, 1, 32, BI_RGB, 0, 0, 0, 0, 0};
    void* pixels = nullptr;
    m_bitmap.reset(CreateDIBSection(nullptr, &info, DIB_RGB_COLORS, &pixels, nullptr, 0));
    m_pixels = static_cast<std::uint32_t*>(pixels);
    m_dc.reset(CreateCompatibleDC(nullptr));
    SelectObject(Dc(), m_bitmap.get());
}

std::span<const std::uint32_t> Picture::Pixels() const
{
    GdiFlush();
    return {m_pixels, static_cast<std::size_t>(m_width) * static_cast<std::size_t>(m_height)};
}

COLORREF Picture::At(int x, int y) const
{
    return GetPixel(Dc(), x, y);
}

int Picture::Count(COLORREF colour) const
{
    const RECT all = {0, 0, m_width, m_height};
    return m_width * m_height - CountOthers(all, colour);
}

int Picture::CountOthers(const RECT& part, COLORREF colour) const
{
    int count = 0;
    for (int y = part.top; y < part.bottom; ++y)
    {
        for (int x = part.left; x < part.right; ++x)
        {
            count += At(x, y) != colour ? 1 : 0;
        }
    }
    return count;
}

Picture Picture::Cut(const RECT& part) const
{
    Picture cut(part.right - part.left, part.bottom - part.top);
    BitBlt(cut.Dc(), 0, 0, cut.m_width, cut.m_height, Dc(), part.left, part.top, SRCCOPY);
    return cut;
}

void Picture::DrawTransparent(UINT bitmapId, int x, int y)
{
    const ResourceScope scope;
    const std::unique_ptr<std::remove_pointer_t<HBITMAP>, BitmapDeleter> bitmap(
        LoadBitmapW(AfxGetResourceHandle(), MAKEINTRESOURCEW(bitmapId)));
    BITMAP size{};
    GetObjectW(bitmap.get(), sizeof size, &size);
    const Picture source(size.bmWidth, size.bmHeight);
    DrawStateW(source.Dc(), nullptr, nullptr, std::bit_cast<LPARAM>(bitmap.get()), 0, 0, 0, 0, 0, DST_BITMAP);
    for (int row = 0; row < source.m_height; ++row)
    {
        for (int column = 0; column < source.m_width; ++column)
        {
            const COLORREF colour = source.At(column, row);
            if (colour != RGB(0, 128, 128))
            {
                SetPixel(Dc(), x + column, y + row, colour);
            }
        }
    }
}

bool Picture::operator==(const Picture& other) const
{
    return m_width == other.m_width && m_height == other.m_height &&
           std::ranges::equal(Pixels(), other.Pixels(),
                              [](std::uint32_t left, std::uint32_t right)
                              { return ((left ^ right) & 0xFFFFFF) == 0; });
}

void PrintTo(const Picture& picture, std::ostream* out)
{
    constexpr std::string_view kSigns = ".#+o*x%@=~^abcdefghijkmnpqrstuvwyz";
    std::map<std::uint32_t, std::size_t> signs;
    *out << picture.m_width << " x " << picture.m_height << '\n';
    for (int y = 0; y < picture.m_height; ++y)
    {
        for (int x = 0; x < picture.m_width; ++x)
        {
            const auto colour = signs.try_emplace(picture.At(x, y), signs.size()).first;
            *out << kSigns[std::min(colour->second, kSigns.size() - 1)];
        }
        *out << '\n';
    }
}

Picture DrawnRow(HWND list, int row)
{
    RECT bounds{};
    ListView_GetItemRect(list, row, &bounds, LVIR_BOUNDS);
    Picture picture(bounds.right, bounds.bottom);
    DRAWITEMSTRUCT item{};
    item.CtlType = ODT_LISTVIEW;
    item.CtlID = static_cast<UINT>(GetDlgCtrlID(list));
    item.itemID = static_cast<UINT>(row);
    item.itemAction = ODA_DRAWENTIRE;
    item.hwndItem = list;
    item.hDC = picture.Dc();
    item.rcItem = bounds;
    SendMessageW(GetParent(list), WM_DRAWITEM, item.CtlID, std::bit_cast<LPARAM>(&item));
    return picture.Cut(bounds);
}

} // namespace ts::test
