#pragma once

#include "platform/WindowsHeaders.h"

#include <cstdint>
#include <memory>
#include <ostream>
#include <span>
#include <type_traits>

namespace ts::test
{

/// Something to draw on and to compare; black at first.
class Picture
{
  public:
    Picture(int width, int height);

    [[nodiscard]] HDC Dc() const noexcept { return m_dc.get(); }
    [[nodiscard]] int Width() const noexcept { return m_width; }
    [[nodiscard]] int Height() const noexcept { return m_height; }
    [[nodiscard]] COLORREF At(int x, int y) const;
    /// How many pixels have that colour.
    [[nodiscard]] int Count(COLORREF colour) const;
    /// How many pixels of a part have another colour.
    [[nodiscard]] int CountOthers(const RECT& part, COLORREF colour) const;
    [[nodiscard]] Picture Cut(const RECT& part) const;
    /// Draws a bitmap of the language library without its transparent colour.
    void DrawTransparent(UINT bitmapId, int x, int y);

    bool operator==(const Picture& other) const;

    /// As rows of characters, one per pixel; the most frequent colours differ.
    friend void PrintTo(const Picture& picture, std::ostream* out);

  private:
    struct DcDeleter
    {
        void operator()(HDC dc) const noexcept { DeleteDC(dc); }
    };
    struct BitmapDeleter
    {
        void operator()(HBITMAP bitmap) const noexcept { DeleteObject(bitmap); }
    };

    [[nodiscard]] std::span<const std::uint32_t> Pixels() const;

    int m_width;
    int m_height;
    std::uint32_t* m_pixels = nullptr;
    // The device context goes first: the bitmap is selected into it.
    std::unique_ptr<std::remove_pointer_t<HBITMAP>, BitmapDeleter> m_bitmap;
    std::unique_ptr<std::remove_pointer_t<HDC>, DcDeleter> m_dc;
};

/// What a list view's owner draws when it is asked for a row, cut to the row.
[[nodiscard]] Picture DrawnRow(HWND list, int row);

} // namespace ts::test
