#include "outlook/OutlookTime.h"

#include "module/CcvComException.h"

SYSTEMTIME ts::ToLocalTime(const CTime& timeUtc)
{
    std::tm fields;
    if (timeUtc.GetLocalTm(&fields) == nullptr)
    {
        throw CcvComException(E_INVALIDARG);
    }
    SYSTEMTIME local{};
    local.wYear = static_cast<WORD>(fields.tm_year + 1900);
    local.wMonth = static_cast<WORD>(fields.tm_mon + 1);
    local.wDayOfWeek = static_cast<WORD>(fields.tm_wday);
    local.wDay = static_cast<WORD>(fields.tm_mday);
    local.wHour = static_cast<WORD>(fields.tm_hour);
    local.wMinute = static_cast<WORD>(fields.tm_min);
    local.wSecond = static_cast<WORD>(fields.tm_sec);
    return local;
}

DATE ts::ToOutlookDate(const SYSTEMTIME& local)
{
    SYSTEMTIME fields = local;
    DATE date = 0;
    if (SystemTimeToVariantTime(&fields, &date) == FALSE)
    {
        throw CcvComException(E_INVALIDARG);
    }
    return date;
}

DATE ts::ToOutlookTimeOnly(const SYSTEMTIME& local)
{
    // Day 0 of a DATE, so that nothing but the fraction is left.
    SYSTEMTIME clockTime{};
    clockTime.wYear = 1899;
    clockTime.wMonth = 12;
    clockTime.wDay = 30;
    clockTime.wHour = local.wHour;
    clockTime.wMinute = local.wMinute;
    clockTime.wSecond = local.wSecond;
    return ToOutlookDate(clockTime);
}

DATE ts::ToOutlookDateOnly(const SYSTEMTIME& local)
{
    SYSTEMTIME midnight{};
    midnight.wYear = local.wYear;
    midnight.wMonth = local.wMonth;
    midnight.wDay = local.wDay;
    return ToOutlookDate(midnight);
}
