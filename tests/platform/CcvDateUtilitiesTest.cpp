#include "platform/ts/CcvDateUtilities.h"
#include "platform/WindowsHeaders.h"
#include "tests/support/TextOutput.h"

#include <gtest/gtest.h>
#include <limits>

namespace
{

CString SystemDate(DWORD style, WORD year, WORD month, WORD day)
{
    SYSTEMTIME fields{};
    fields.wYear = year;
    fields.wMonth = month;
    fields.wDay = day;
    wchar_t text[200] = L"";
    EXPECT_NE(0, GetDateFormatW(LOCALE_USER_DEFAULT, style, &fields, nullptr, text, 200));
    return text;
}

} // namespace

TEST(CcvDateUtilitiesTest, LocalDates_AreWrittenInTheUsersFormat)
{
    const CTime time(2026, 2, 3, 14, 5, 59);
    EXPECT_EQ(SystemDate(DATE_SHORTDATE, 2026, 2, 3), CcvDateUtilities::ShortDateString(time));
    EXPECT_EQ(SystemDate(DATE_LONGDATE, 2026, 2, 3), CcvDateUtilities::LongDateString(time));
    EXPECT_FALSE(CcvDateUtilities::ShortDateString(time) == CcvDateUtilities::LongDateString(time));
}

TEST(CcvDateUtilitiesTest, ShortTime_HasHoursAndMinutesOnly)
{
    SYSTEMTIME fields{};
    fields.wHour = 14;
    fields.wMinute = 5;
    fields.wSecond = 59;
    wchar_t text[200] = L"";
    ASSERT_NE(0, GetTimeFormatW(LOCALE_USER_DEFAULT, TIME_NOSECONDS, &fields, nullptr, text, 200));
    EXPECT_EQ(CString(text), CcvDateUtilities::ShortTimeString(CTime(2026, 2, 3, 14, 5, 59)));
}

TEST(CcvDateUtilitiesTest, TimesWithoutADate_AreEmptyTexts)
{
    for (const std::int64_t seconds :
         {std::numeric_limits<std::int64_t>::min(), std::int64_t{-1'000'000}, std::int64_t{40'000'000'000},
          std::numeric_limits<std::int64_t>::max()})
    {
        EXPECT_TRUE(CcvDateUtilities::ShortDateString(CTime(seconds)).IsEmpty()) << seconds;
        EXPECT_TRUE(CcvDateUtilities::ShortTimeString(CTime(seconds)).IsEmpty()) << seconds;
        EXPECT_TRUE(CcvDateUtilities::LongDateString(CTime(seconds)).IsEmpty()) << seconds;
    }
}
