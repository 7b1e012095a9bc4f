#include "platform/ts/CcvDateUtilities.h"

#include "platform/WindowsHeaders.h"

#include <optional>

namespace
{

// The longest pattern that a locale can hold, filled in, with room to spare.
constexpr int kLongestText = 256;

std::optional<SYSTEMTIME> LocalTimeOf(const CTime& time)
{
    std::tm local;
    if (time.GetLocalTm(&local) == nullptr)
    {
        return std::nullopt;
    }
    SYSTEMTIME fields{};
    fields.wYear = static_cast<WORD>(local.tm_year + 1900);
    fields.wMonth = static_cast<WORD>(local.tm_mon + 1);
    fields.wDayOfWeek = static_cast<WORD>(local.tm_wday);
    fields.wDay = static_cast<WORD>(local.tm_mday);
    fields.wHour = static_cast<WORD>(local.tm_hour);
    fields.wMinute = static_cast<WORD>(local.tm_min);
    fields.wSecond = static_cast<WORD>(local.tm_sec);
    return fields;
}

CString DateString(const CTime& time, DWORD style)
{
    wchar_t text[kLongestText] = L"";
    if (const auto local = LocalTimeOf(time))
    {
        GetDateFormatW(LOCALE_USER_DEFAULT, style, &*local, nullptr, text, kLongestText);
    }
    return text;
}

} // namespace

CString CcvDateUtilities::ShortDateString(const CTime& time)
{
    return DateString(time, DATE_SHORTDATE);
}

CString CcvDateUtilities::ShortTimeString(const CTime& time)
{
    wchar_t text[kLongestText] = L"";
    if (const auto local = LocalTimeOf(time))
    {
        GetTimeFormatW(LOCALE_USER_DEFAULT, TIME_NOSECONDS, &*local, nullptr, text, kLongestText);
    }
    return text;
}

CString CcvDateUtilities::LongDateString(const CTime& time)
{
    return DateString(time, DATE_LONGDATE);
}
