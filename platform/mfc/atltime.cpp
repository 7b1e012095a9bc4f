#include "platform/mfc/atltime.h"

#include "platform/Clock.h"
#include "platform/WindowsHeaders.h"
#include "platform/mfc/atlexcept.h"

CTime::CTime(int year, int month, int day, int hour, int minute, int second, int daylightSaving)
{
    const bool inRange = year >= 1970 && month >= 1 && month <= 12 && day >= 1 && day <= 31 && hour >= 0 &&
                         hour <= 23 && minute >= 0 && minute <= 59 && second >= 0 && second <= 59;
    if (!inRange)
    {
        AtlThrow(E_FAIL);
    }
    std::tm local{};
    local.tm_year = year - 1900;
    local.tm_mon = month - 1;
    local.tm_mday = day;
    local.tm_hour = hour;
    local.tm_min = minute;
    local.tm_sec = second;
    local.tm_isdst = daylightSaving;
    m_seconds = _mktime64(&local);
    if (m_seconds == -1)
    {
        AtlThrow(E_INVALIDARG);
    }
}

CTime CTime::GetCurrentTime() noexcept
{
    return ts::Now();
}

std::tm* CTime::GetLocalTm(std::tm* local) const noexcept
{
    const __time64_t seconds = m_seconds;
    return _localtime64_s(local, &seconds) == 0 ? local : nullptr;
}

bool CTime::GetAsSystemTime(SYSTEMTIME& local) const noexcept
{
    std::tm fields;
    if (GetLocalTm(&fields) == nullptr)
    {
        return false;
    }
    local = {};
    local.wYear = static_cast<WORD>(fields.tm_year + 1900);
    local.wMonth = static_cast<WORD>(fields.tm_mon + 1);
    local.wDayOfWeek = static_cast<WORD>(fields.tm_wday);
    local.wDay = static_cast<WORD>(fields.tm_mday);
    local.wHour = static_cast<WORD>(fields.tm_hour);
    local.wMinute = static_cast<WORD>(fields.tm_min);
    local.wSecond = static_cast<WORD>(fields.tm_sec);
    return true;
}

int CTime::GetYear() const noexcept
{
    std::tm local;
    return GetLocalTm(&local) != nullptr ? local.tm_year + 1900 : 0;
}

int CTime::GetMonth() const noexcept
{
    std::tm local;
    return GetLocalTm(&local) != nullptr ? local.tm_mon + 1 : 0;
}

int CTime::GetDay() const noexcept
{
    std::tm local;
    return GetLocalTm(&local) != nullptr ? local.tm_mday : 0;
}

int CTime::GetHour() const noexcept
{
    std::tm local;
    return GetLocalTm(&local) != nullptr ? local.tm_hour : -1;
}

int CTime::GetMinute() const noexcept
{
    std::tm local;
    return GetLocalTm(&local) != nullptr ? local.tm_min : -1;
}

int CTime::GetSecond() const noexcept
{
    std::tm local;
    return GetLocalTm(&local) != nullptr ? local.tm_sec : -1;
}

int CTime::GetDayOfWeek() const noexcept
{
    std::tm local;
    return GetLocalTm(&local) != nullptr ? local.tm_wday + 1 : 0;
}
