#include "platform/mfc/CDC.h"

#include "platform/mfc/afxstr.h"

void CDC::FillSolidRect(const RECT* rect, COLORREF colour) noexcept
{
    const COLORREF former = SetBkColor(colour);
    ExtTextOutW(m_hDC, 0, 0, ETO_OPAQUE, rect, nullptr, 0, nullptr);
    SetBkColor(former);
}

int CDC::DrawText(const CString& text, RECT* rect, UINT format) noexcept
{
    // The system writes into the text only when asked to.
    return ::DrawTextW(m_hDC, text.GetString(), text.GetLength(), rect, format & ~UINT{DT_MODIFYSTRING});
}

CSize CDC::GetTextExtent(const CString& text) const noexcept
{
    CSize size;
    GetTextExtentPoint32W(m_hDC, text.GetString(), text.GetLength(), &size);
    return size;
}
