#include "TimeText.h"

#include "ConsoleHarness.h"
#include "Errors.h"

#include <ctime>

using namespace ts::console;

namespace
{

TEST(ParseTime, WithOffset_Table)
{
    const std::pair<const char*, std::int64_t> rows[] = {
        {"1970-01-02T00:00Z", 86400},           {"2026-11-21T09:00Z", 1795251600},
        {"2026-11-21T09:00:59Z", 1795251659},   {"2026-11-21T09:00+01:00", 1795248000},
        {"2026-11-21T09:00-05:30", 1795271400}, {"2024-02-29T23:59:59+00:00", 1709251199},
        {"2999-12-31T12:00Z", 32503636800},
    };
    for (const auto& [text, seconds] : rows)
    {
        EXPECT_EQ(CTime(seconds), ParseTime(text, "--at")) << text;
    }
}

TEST(ParseTime, Local_IsThatLocalTime)
{
    const CTime time = ParseTime("2026-11-21T09:05:06", "--at");
    EXPECT_EQ(CTime(2026, 11, 21, 9, 5, 6), time);
    EXPECT_EQ(CTime(2026, 11, 21, 9, 5, 0), ParseTime("2026-11-21T09:05", "--at"));
    EXPECT_EQ(CTime(2026, 11, 21, 0, 0, 0), ParseTime("2026-11-21", "--at"));
}

constexpr const char* kBadTexts[] = {"",
                                     "today",
                                     "2026",
                                     "2026-11",
                                     "2026-1-1",
                                     "26-11-21",
                                     "2026-11-21T",
                                     "2026-11-21T9:00",
                                     "2026-11-21T09",
                                     "2026-11-21T09:0",
                                     "2026-11-21 09:00",
                                     "2026-11-21T09:00:",
                                     "2026-11-21T09:00:00.5",
                                     "2026-11-21T09:00z",
                                     "2026-11-21T09:00+1",
                                     "2026-11-21T09:00+0100",
                                     "2026-11-21T09:00+24:00",
                                     "2026-11-21T09:00+01:60",
                                     "2026-11-21T09:00Zx",
                                     " 2026-11-21",
                                     "2026-11-21 ",
                                     "-026-11-21",
                                     "2026-02-30",
                                     "2026-02-29",
                                     "2026-13-01",
                                     "2026-00-01",
                                     "2026-01-00",
                                     "2026-04-31",
                                     "2026-11-21T24:00",
                                     "2026-11-21T25:00",
                                     "2026-11-21T09:60",
                                     "2026-11-21T09:00:60",
                                     "1969-12-31",
                                     "3001-01-01",
                                     "0000-01-01",
                                     "9999-12-31T23:59Z",
                                     "1970-01-01T00:00Z",
                                     "1970-01-01T00:00+14:00",
                                     "\xC3\xBC"};

TEST(ParseTime, BadText_IsRefused)
{
    for (const char* text : kBadTexts)
    {
        EXPECT_THROW((void)ParseTime(text, "--at"), UsageError) << text;
    }
}

/// The changes of the clocks in 2026: the first second after each, and by how many seconds they move.
struct ClockChange
{
    std::int64_t at;
    std::int64_t shift;
};

std::int64_t OffsetAt(std::int64_t seconds)
{
    std::tm local{};
    const CTime time(seconds);
    EXPECT_NE(nullptr, time.GetLocalTm(&local));
    local.tm_isdst = 0;
    return _mkgmtime64(&local) - seconds;
}

std::vector<ClockChange> ClockChangesOf2026()
{
    constexpr std::int64_t kBegin = 1767225600;
    constexpr std::int64_t kStep = 900;
    std::vector<ClockChange> changes;
    for (std::int64_t at = kBegin; at < kBegin + 365 * 86400; at += kStep)
    {
        const std::int64_t shift = OffsetAt(at) - OffsetAt(at - kStep);
        if (shift != 0)
        {
            changes.push_back({at, shift});
        }
    }
    return changes;
}

/// The local time that the clocks showed so many seconds after a change if they had not been changed.
std::string UnchangedLocalTime(const ClockChange& change, std::int64_t seconds)
{
    const __time64_t local = change.at + OffsetAt(change.at - 1) + seconds;
    std::tm fields{};
    EXPECT_EQ(0, _gmtime64_s(&fields, &local));
    char text[32];
    EXPECT_NE(0u, std::strftime(text, sizeof text, "%Y-%m-%dT%H:%M:%S", &fields));
    return text;
}

TEST(ClockChanges, InAZoneThatHasThem_AreFound)
{
    // The suite also runs in zones of which this is known.
    wchar_t expected[8] = L"";
    if (GetEnvironmentVariableW(L"TS_CLOCK_CHANGES", expected, 8) != 0)
    {
        EXPECT_EQ(std::to_wstring(ClockChangesOf2026().size()), expected);
    }
}

TEST(ParseTime, LocalTimeThatTheClocksSkip_IsRefused)
{
    for (const ClockChange& change : ClockChangesOf2026())
    {
        if (change.shift > 0)
        {
            EXPECT_NO_THROW((void)ParseTime(UnchangedLocalTime(change, -1), "--at"));
            EXPECT_THROW((void)ParseTime(UnchangedLocalTime(change, 0), "--at"), UsageError);
            EXPECT_THROW((void)ParseTime(UnchangedLocalTime(change, change.shift / 2), "--at"), UsageError);
            EXPECT_THROW((void)ParseTime(UnchangedLocalTime(change, change.shift - 1), "--at"), UsageError);
            EXPECT_EQ(CTime(change.at), ParseTime(UnchangedLocalTime(change, change.shift), "--at"));
        }
    }
}

TEST(ParseTime, LocalTimeThatComesTwice_IsOneOfThem)
{
    for (const ClockChange& change : ClockChangesOf2026())
    {
        if (change.shift < 0)
        {
            const std::int64_t first = change.at + change.shift / 2;
            const CTime time = ParseTime(UnchangedLocalTime(change, change.shift / 2), "--at");
            EXPECT_TRUE(time == CTime(first) || time == CTime(first - change.shift)) << time.GetTime();
        }
    }
}

TEST(IsoTime, AroundAChangeOfTheClocks_HasTheOffsetOfThatTime)
{
    for (const ClockChange& change : ClockChangesOf2026())
    {
        const std::string before = IsoTime(change.at - 1).value_or("").substr(19);
        const std::string after = IsoTime(change.at).value_or("").substr(19);
        EXPECT_NE(before, after);
        const std::string utc = UnchangedLocalTime(change, 0).substr(0, 19) + before;
        EXPECT_EQ(CTime(change.at), ParseTime(utc, "--at")) << utc;
    }
}

TEST(IsoTime, WhatItWrites_IsReadAsTheSameTime)
{
    for (std::int64_t seconds = 1'000'000; seconds < 32'000'000'000; seconds += 7'654'321)
    {
        const CTime time(seconds);
        ASSERT_EQ(time, ParseTime(IsoTime(time).value_or(""), "--at")) << seconds;
    }
}

TEST(IsoTime, NoTimeAndTimesOutOfAnyCalendar_AreNone)
{
    for (const std::int64_t seconds :
         {std::int64_t{0}, std::int64_t{-86'400'000}, std::int64_t{40'000'000'000},
          std::numeric_limits<std::int64_t>::min(), std::numeric_limits<std::int64_t>::max()})
    {
        EXPECT_EQ(std::nullopt, IsoTime(seconds)) << seconds;
        EXPECT_EQ("", ShortTime(seconds)) << seconds;
        EXPECT_FALSE(IsCalendarTime(seconds)) << seconds;
    }
}

TEST(ShortTime, IsTheUsersDateAndTime)
{
    SYSTEMTIME fields{};
    fields.wYear = 2026;
    fields.wMonth = 11;
    fields.wDay = 21;
    fields.wHour = 17;
    fields.wMinute = 5;
    wchar_t date[64];
    wchar_t clock[64];
    ASSERT_NE(0,
              GetDateFormatEx(LOCALE_NAME_USER_DEFAULT, DATE_SHORTDATE, &fields, nullptr, date, 64, nullptr));
    ASSERT_NE(0, GetTimeFormatEx(LOCALE_NAME_USER_DEFAULT, TIME_NOSECONDS, &fields, nullptr, clock, 64));
    const std::wstring expected = std::wstring(date) + L" " + clock;
    const std::string actual = ShortTime(CTime(2026, 11, 21, 17, 5, 59));
    EXPECT_EQ(std::string(expected.begin(), expected.end()), actual);
    EXPECT_NE(std::string::npos, actual.find("2026"));
}

TEST(ParseSpan, Table)
{
    const std::pair<const char*, std::int64_t> rows[] = {
        {"0m", 0},      {"15m", 900},     {"2h", 7200},           {"1d", 86400},
        {"1w", 604800}, {"007d", 604800}, {"52178w", 31557254400}};
    for (const auto& [text, seconds] : rows)
    {
        EXPECT_EQ(CTimeSpan(seconds), ParseSpan(text, "--lead")) << text;
    }
}

TEST(ParseSpan, BadText_IsRefused)
{
    for (const char* text :
         {"", "m", "15", "15s", "15M", "-5m", "+5m", "1.5h", "1h30m", " 1h", "1h ", "52179w",
          "9223372036854775807w", "99999999999999999999m", "-99999999999999999999m"})
    {
        EXPECT_THROW((void)ParseSpan(text, "--lead"), UsageError) << text;
    }
}

TEST(SpanText, Table)
{
    const std::pair<std::int64_t, const char*> rows[] = {
        {0, "none"},
        {60, "1 minute"},
        {900, "15 minutes"},
        {5400, "90 minutes"},
        {7200, "2 hours"},
        {86400, "1 day"},
        {604800, "1 week"},
        {1209600, "2 weeks"},
        {61, "61 seconds"},
        {-900, "-15 minutes"},
        {std::numeric_limits<std::int64_t>::max(), "9223372036854775807 seconds"}};
    for (const auto& [seconds, text] : rows)
    {
        EXPECT_EQ(text, SpanText(seconds)) << seconds;
    }
}

} // namespace
