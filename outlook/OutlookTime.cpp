#include "outlook/OutlookTime.h"

#include "module/CcvComException.h"

SYSTEMTIME ts::ToLocalTime(const CTime& timeUtc)
{
    SYSTEMTIME local;
    if (!timeUtc.GetAsSystemTime(local))
    {
        throw CcvComException(E_INVALIDARG);
    }
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
