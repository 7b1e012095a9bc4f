#pragma once

#include "platform/mfc/CGdiObject.h"
#include "platform/mfc/atltypes.h"

class CString;

/// A device context that belongs to somebody else, such as the one of an owner-drawn item.
class TS_API CDC
{
  public:
    explicit CDC(HDC dc) noexcept : m_hDC(dc) {}

    [[nodiscard]] HDC GetSafeHdc() const noexcept { return m_hDC; }

    int SaveDC() noexcept { return ::SaveDC(m_hDC); }
    BOOL RestoreDC(int saved) noexcept { return ::RestoreDC(m_hDC, saved); }
    HGDIOBJ SelectObject(HGDIOBJ object) noexcept { return ::SelectObject(m_hDC, object); }
    COLORREF SetTextColor(COLORREF colour) noexcept { return ::SetTextColor(m_hDC, colour); }
    COLORREF SetBkColor(COLORREF colour) noexcept { return ::SetBkColor(m_hDC, colour); }
    int SetBkMode(int mode) noexcept { return ::SetBkMode(m_hDC, mode); }
    [[nodiscard]] COLORREF GetPixel(int x, int y) const noexcept { return ::GetPixel(m_hDC, x, y); }
    [[nodiscard]] int GetDeviceCaps(int index) const noexcept { return ::GetDeviceCaps(m_hDC, index); }

    /// Leaves the background colour as it was.
    void FillSolidRect(const RECT* rect, COLORREF colour) noexcept;
    void FillRect(const RECT* rect, HBRUSH brush) noexcept { ::FillRect(m_hDC, rect, brush); }
    int DrawText(const CString& text, RECT* rect, UINT format) noexcept;
    [[nodiscard]] CSize GetTextExtent(const CString& text) const noexcept;
    BOOL DrawFrameControl(RECT* rect, UINT type, UINT state) noexcept
    {
        return ::DrawFrameControl(m_hDC, rect, type, state);
    }
    BOOL BitBlt(int x, int y, int width, int height, const CDC& source, int sourceX, int sourceY,
                DWORD operation) noexcept
    {
        return ::BitBlt(m_hDC, x, y, width, height, source.m_hDC, sourceX, sourceY, operation);
    }

  protected:
    HDC m_hDC;
};

/// Paints a window in answer to WM_PAINT.
class CPaintDC : public CDC
{
  public:
    explicit CPaintDC(HWND window) noexcept : CDC(nullptr), m_window(window)
    {
        m_hDC = BeginPaint(m_window, &m_ps);
    }
    CPaintDC(const CPaintDC&) = delete;
    CPaintDC& operator=(const CPaintDC&) = delete;
    ~CPaintDC() { EndPaint(m_window, &m_ps); }

    PAINTSTRUCT m_ps{};

  private:
    HWND m_window;
};

/// The client area of a window; of the whole screen for null.
class CClientDC : public CDC
{
  public:
    explicit CClientDC(HWND window) noexcept : CDC(GetDC(window)), m_window(window) {}
    CClientDC(const CClientDC&) = delete;
    CClientDC& operator=(const CClientDC&) = delete;
    ~CClientDC() { ReleaseDC(m_window, m_hDC); }

  private:
    HWND m_window;
};

/// A device context in memory, for drawing on the bitmap that is selected into it.
class CMemDC : public CDC
{
  public:
    explicit CMemDC(const CDC& like) noexcept : CDC(CreateCompatibleDC(like.GetSafeHdc())) {}
    CMemDC(const CMemDC&) = delete;
    CMemDC& operator=(const CMemDC&) = delete;
    ~CMemDC() { DeleteDC(m_hDC); }
};

namespace ts
{

/// Selects an object into a device context and the former one again at the end. Must end before the object
/// and the device context do.
class SelectedObject
{
  public:
    SelectedObject(CDC& dc, HGDIOBJ object) noexcept : m_dc(dc), m_former(dc.SelectObject(object)) {}
    SelectedObject(const SelectedObject&) = delete;
    SelectedObject& operator=(const SelectedObject&) = delete;
    ~SelectedObject()
    {
        if (m_former != nullptr)
        {
            m_dc.SelectObject(m_former);
        }
    }

  private:
    CDC& m_dc;
    HGDIOBJ m_former;
};

} // namespace ts
