#include "platform/mfc/CGdiObject.h"

#include "platform/mfc/CWinApp.h"

BOOL CGdiObject::Attach(HGDIOBJ object) noexcept
{
    const HGDIOBJ former = std::exchange(m_hObject, object);
    if (former != nullptr && former != object)
    {
        ::DeleteObject(former);
    }
    return object != nullptr;
}

BOOL CFont::GetLogFont(LOGFONTW* description) const noexcept
{
    return GetObjectW(m_hObject, sizeof *description, description) != 0;
}

BOOL CBitmap::LoadBitmap(UINT id) noexcept
{
    const wchar_t* const name = MAKEINTRESOURCEW(id);
    return Attach(LoadImageW(AfxFindResourceHandle(name, RT_BITMAP), name, IMAGE_BITMAP, 0, 0, 0));
}
