#include "platform/mfc/afxdtctl.h"

#include "platform/mfc/afxdisp.h"

#include <bit>
#include <commctrl.h>

IMPLEMENT_DYNAMIC(CDateTimeCtrl, CWnd)

namespace
{

std::optional<SYSTEMTIME> LocalFields(const CTime& time)
{
    std::tm local;
    if (time.GetLocalTm(&local) == nullptr)
    {
        return std::nullopt;
    }
    SYSTEMTIME fields{};
    fields.wYear = static_cast<WORD>(local.tm_year + 1900);
    fields.wMonth = static_cast<WORD>(local.tm_mon + 1);
    fields.wDay = static_cast<WORD>(local.tm_mday);
    fields.wDayOfWeek = static_cast<WORD>(local.tm_wday);
    fields.wHour = static_cast<WORD>(local.tm_hour);
    fields.wMinute = static_cast<WORD>(local.tm_min);
    fields.wSecond = static_cast<WORD>(local.tm_sec);
    return fields;
}

} // namespace

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
    const auto fields = LocalFields(time);
    return fields &&
           ::SendMessageW(picker, DTM_SETSYSTEMTIME, GDT_VALID, std::bit_cast<LPARAM>(&*fields)) != 0;
}

BOOL CDateTimeCtrl::GetTime(CTime& time) const
{
    const auto shown = TimeOf(m_hWnd);
    time = shown.value_or(time);
    return shown.has_value();
}

BOOL CDateTimeCtrl::SetRange(const CTime& minimum, const CTime& maximum)
{
    const auto low = LocalFields(minimum);
    const auto high = LocalFields(maximum);
    if (!low || !high)
    {
        return FALSE;
    }
    const SYSTEMTIME range[] = {*low, *high};
    return ::SendMessageW(m_hWnd, DTM_SETRANGE, GDTR_MIN | GDTR_MAX, std::bit_cast<LPARAM>(&range)) != 0;
}
