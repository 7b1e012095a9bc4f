#include "platform/mfc/afxdtctl.h"

#include "platform/mfc/afxdisp.h"

#include <bit>
#include <commctrl.h>

IMPLEMENT_DYNAMIC(CDateTimeCtrl, CWnd)

std::optional<CTime> CDateTimeCtrl::TimeOf(HWND picker)
{
    SYSTEMTIME fields{};
    const LRESULT state = ::SendMessageW(picker, DTM_GETSYSTEMTIME, 0, std::bit_cast<LPARAM>(&fields));
    if (state != GDT_VALID)
    {
        return std::nullopt;
    }
    try
    {
        return CTime(fields.wYear, fields.wMonth, fields.wDay, fields.wHour, fields.wMinute, fields.wSecond);
    }
    catch (const COleException&)
    {
        return std::nullopt;
    }
}

BOOL CDateTimeCtrl::SetTimeOf(HWND picker, const CTime& time)
{
    SYSTEMTIME local;
    return time.GetAsSystemTime(local) &&
           ::SendMessageW(picker, DTM_SETSYSTEMTIME, GDT_VALID, std::bit_cast<LPARAM>(&local)) != 0;
}

BOOL CDateTimeCtrl::GetTime(CTime& time) const
{
    const auto shown = TimeOf(m_hWnd);
    time = shown.value_or(time);
    return shown.has_value();
}

BOOL CDateTimeCtrl::SetRange(const CTime& minimum, const CTime& maximum)
{
    SYSTEMTIME range[2];
    return minimum.GetAsSystemTime(range[0]) && maximum.GetAsSystemTime(range[1]) &&
           ::SendMessageW(m_hWnd, DTM_SETRANGE, GDTR_MIN | GDTR_MAX, std::bit_cast<LPARAM>(&range)) != 0;
}
