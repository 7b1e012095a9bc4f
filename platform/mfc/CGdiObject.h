#pragma once

#include "platform/Export.h"
#include "platform/WindowsHeaders.h"

#include <utility>

/// Owns an object that draws: deletes it at the end.
class TS_API CGdiObject
{
  public:
    CGdiObject(const CGdiObject&) = delete;
    CGdiObject& operator=(const CGdiObject&) = delete;
    CGdiObject(CGdiObject&& other) noexcept : m_hObject(other.Detach()) {}
    CGdiObject& operator=(CGdiObject&& other) noexcept
    {
        Attach(other.Detach());
        return *this;
    }
    ~CGdiObject() { DeleteObject(); }

    [[nodiscard]] HGDIOBJ GetSafeHandle() const noexcept { return m_hObject; }
    /// Owns `object` from now on, in the place of the former one. True when there is one.
    BOOL Attach(HGDIOBJ object) noexcept;
    /// Gives the object away.
    HGDIOBJ Detach() noexcept { return std::exchange(m_hObject, nullptr); }
    void DeleteObject() noexcept { Attach(nullptr); }

  protected:
    CGdiObject() noexcept = default;

    HGDIOBJ m_hObject = nullptr;
};

class TS_API CFont : public CGdiObject
{
  public:
    BOOL CreateFontIndirect(const LOGFONTW* description) noexcept
    {
        return Attach(::CreateFontIndirectW(description));
    }
    BOOL GetLogFont(LOGFONTW* description) const noexcept;
    [[nodiscard]] HFONT GetHandle() const noexcept { return static_cast<HFONT>(m_hObject); }
};

class TS_API CBrush : public CGdiObject
{
  public:
    BOOL CreateSolidBrush(COLORREF colour) noexcept { return Attach(::CreateSolidBrush(colour)); }
    [[nodiscard]] HBRUSH GetHandle() const noexcept { return static_cast<HBRUSH>(m_hObject); }
};

class TS_API CBitmap : public CGdiObject
{
  public:
    /// From the resource module.
    BOOL LoadBitmap(UINT id) noexcept;
    BOOL CreateBitmap(int width, int height, UINT planes, UINT bitsPerPixel, const void* bits) noexcept
    {
        return Attach(::CreateBitmap(width, height, planes, bitsPerPixel, bits));
    }
    BOOL CreateCompatibleBitmap(HDC like, int width, int height) noexcept
    {
        return Attach(::CreateCompatibleBitmap(like, width, height));
    }
    BOOL GetBitmap(BITMAP* description) const noexcept
    {
        return GetObjectW(m_hObject, sizeof *description, description) != 0;
    }
    [[nodiscard]] HBITMAP GetHandle() const noexcept { return static_cast<HBITMAP>(m_hObject); }
};
