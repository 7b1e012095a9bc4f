#pragma once

#include "platform/WindowsHeaders.h"

class CSize : public SIZE
{
  public:
    constexpr CSize() noexcept : SIZE{} {}
    constexpr CSize(int width, int height) noexcept : SIZE{width, height} {}
    constexpr CSize(const SIZE& size) noexcept : SIZE(size) {}

    friend constexpr bool operator==(const CSize& left, const CSize& right) noexcept
    {
        return left.cx == right.cx && left.cy == right.cy;
    }
};

class CPoint : public POINT
{
  public:
    constexpr CPoint() noexcept : POINT{} {}
    constexpr CPoint(int across, int down) noexcept : POINT{}
    {
        x = across;
        y = down;
    }
    constexpr CPoint(const POINT& point) noexcept : POINT(point) {}
    /// From the lParam of a mouse message.
    constexpr explicit CPoint(LPARAM packed) noexcept
        : POINT{static_cast<short>(LOWORD(packed)), static_cast<short>(HIWORD(packed))}
    {
    }

    friend constexpr bool operator==(const CPoint& left, const CPoint& right) noexcept
    {
        return left.x == right.x && left.y == right.y;
    }
};

/// A rectangle; its right and bottom edges lie outside.
class CRect : public RECT
{
  public:
    constexpr CRect() noexcept : RECT{} {}
    constexpr CRect(int l, int t, int r, int b) noexcept : RECT{l, t, r, b} {}
    constexpr CRect(const RECT& rect) noexcept : RECT(rect) {}
    constexpr CRect(POINT topLeft, SIZE size) noexcept
        : RECT{topLeft.x, topLeft.y, topLeft.x + size.cx, topLeft.y + size.cy}
    {
    }

    // Implicit, as in the class library: the system's functions take pointers.
    constexpr operator RECT*() noexcept { return this; }
    constexpr operator const RECT*() const noexcept { return this; }

    [[nodiscard]] constexpr int Width() const noexcept { return right - left; }
    [[nodiscard]] constexpr int Height() const noexcept { return bottom - top; }
    [[nodiscard]] constexpr CSize Size() const noexcept { return {Width(), Height()}; }
    [[nodiscard]] constexpr CPoint TopLeft() const noexcept { return {left, top}; }
    [[nodiscard]] constexpr CPoint BottomRight() const noexcept { return {right, bottom}; }
    [[nodiscard]] constexpr CPoint CenterPoint() const noexcept
    {
        return {(left + right) / 2, (top + bottom) / 2};
    }
    [[nodiscard]] constexpr bool IsRectEmpty() const noexcept { return Width() <= 0 || Height() <= 0; }
    [[nodiscard]] constexpr bool PtInRect(POINT point) const noexcept
    {
        return point.x >= left && point.x < right && point.y >= top && point.y < bottom;
    }

    constexpr void OffsetRect(int x, int y) noexcept { *this = {left + x, top + y, right + x, bottom + y}; }
    constexpr void InflateRect(int x, int y) noexcept { *this = {left - x, top - y, right + x, bottom + y}; }
    constexpr void DeflateRect(int x, int y) noexcept { InflateRect(-x, -y); }

    friend constexpr bool operator==(const CRect& a, const CRect& b) noexcept
    {
        return a.left == b.left && a.top == b.top && a.right == b.right && a.bottom == b.bottom;
    }
};
