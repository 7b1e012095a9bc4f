#include "platform/ts/CcvDateUtilities.h"

#include "platform/WindowsHeaders.h"

namespace
{

// The longest pattern that a locale can hold, filled in, with room to spare.
constexpr int kLongestText = 256;

CString DateString(const CTime& time, DWORD style)
{
    wchar_t text[kLongestText] = L"";
    SYSTEMTIME local;
    if (time.GetAsSystemTime(local))
    {
        GetDateFormatW(LOCALE_USER_DEFAULT, style, &local, nullptr, text, kLongestText);
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
    SYSTEMTIME local;
    if (time.GetAsSystemTime(local))
    {
        GetTimeFormatW(LOCALE_USER_DEFAULT, TIME_NOSECONDS, &local, nullptr, text, kLongestText);
    }
    return text;
}

CString CcvDateUtilities::LongDateString(const CTime& time)
{
    return DateString(time, DATE_LONGDATE);
}
