#include "TimeText.h"

#include "Errors.h"
#include "Strings.h"
#include "hosts/common/Utf8.h"

#include <array>
#include <charconv>
#include <chrono>
#include <cstdio>

namespace ts::console
{
namespace
{

constexpr int kFirstYear = 1970;
constexpr int kLastYear = 3000;
constexpr std::int64_t kSecondsPerMinute = 60;
constexpr std::int64_t kSecondsPerHour = 3600;
constexpr std::int64_t kSecondsPerDay = 86400;
constexpr std::int64_t kLongestSpan = 365'250 * kSecondsPerDay;

struct Fields
{
    int year = 0;
    int month = 0;
    int day = 0;
    int hour = 0;
    int minute = 0;
    int second = 0;
    /// Seconds ahead of UTC; none means local time.
    std::optional<int> offset;
};

/// Reads a text from the front. Every step that does not fit makes the whole reading fail.
class Reader
{
  public:
    explicit Reader(std::string_view text) : m_rest(text) {}

    [[nodiscard]] bool Failed() const { return m_failed; }
    [[nodiscard]] bool AtEnd() const { return m_rest.empty(); }

    /// A number of exactly `digits` digits.
    int Number(std::size_t digits)
    {
        const std::string_view text = m_rest.substr(0, digits);
        const char* end = text.data() + text.size();
        int number = 0;
        if (text.size() < digits || text.front() == '-' ||
            std::from_chars(text.data(), end, number).ptr != end)
        {
            Fail();
            return 0;
        }
        m_rest.remove_prefix(digits);
        return number;
    }

    void Expect(char character)
    {
        if (!TryTake(character))
        {
            Fail();
        }
    }

    void Fail() { m_failed = true; }

    bool TryTake(char character)
    {
        const bool found = m_rest.starts_with(character);
        m_rest.remove_prefix(found ? 1 : 0);
        return found;
    }

  private:
    std::string_view m_rest;
    bool m_failed = false;
};

void ReadOffset(Reader& reader, Fields& fields)
{
    if (reader.TryTake('Z'))
    {
        fields.offset = 0;
        return;
    }
    const bool behind = reader.TryTake('-');
    if (!behind)
    {
        reader.Expect('+');
    }
    const int hours = reader.Number(2);
    reader.Expect(':');
    const int minutes = reader.Number(2);
    if (hours > 23 || minutes > 59)
    {
        reader.Fail();
    }
    const auto seconds = static_cast<int>(hours * kSecondsPerHour + minutes * kSecondsPerMinute);
    fields.offset = behind ? -seconds : seconds;
}

std::optional<Fields> ReadFields(std::string_view text)
{
    Reader reader(text);
    Fields fields;
    fields.year = reader.Number(4);
    reader.Expect('-');
    fields.month = reader.Number(2);
    reader.Expect('-');
    fields.day = reader.Number(2);
    if (!reader.AtEnd())
    {
        reader.Expect('T');
        fields.hour = reader.Number(2);
        reader.Expect(':');
        fields.minute = reader.Number(2);
        if (reader.TryTake(':'))
        {
            fields.second = reader.Number(2);
        }
        if (!reader.AtEnd())
        {
            ReadOffset(reader, fields);
        }
    }
    return reader.Failed() || !reader.AtEnd() ? std::nullopt : std::optional(fields);
}

std::chrono::year_month_day DateOf(const Fields& fields)
{
    return std::chrono::year(fields.year) / std::chrono::month(static_cast<unsigned>(fields.month)) /
           std::chrono::day(static_cast<unsigned>(fields.day));
}

/// The fields as if they were UTC.
std::int64_t SecondsOf(const Fields& fields)
{
    const auto days = std::chrono::sys_days(DateOf(fields)).time_since_epoch();
    return std::int64_t{days.count()} * kSecondsPerDay + fields.hour * kSecondsPerHour +
           fields.minute * kSecondsPerMinute + fields.second;
}

std::optional<Fields> LocalFields(CTime time)
{
    std::tm local{};
    if (time == CTime() || time.GetLocalTm(&local) == nullptr)
    {
        return std::nullopt;
    }
    Fields fields{local.tm_year + 1900, local.tm_mon + 1, local.tm_mday, local.tm_hour,
                  local.tm_min,         local.tm_sec,     std::nullopt};
    fields.offset = static_cast<int>(SecondsOf(fields) - time.GetTime());
    return fields;
}

/// The time of local fields; none when the clocks skip it.
std::optional<CTime> LocalTime(const Fields& fields)
{
    const CTime time(fields.year, fields.month, fields.day, fields.hour, fields.minute, fields.second);
    const auto back = LocalFields(time);
    return back && SecondsOf(*back) == SecondsOf(fields) ? std::optional(time) : std::nullopt;
}

[[noreturn]] void ThrowTimeError(std::string_view option, std::string_view text, std::string_view reason)
{
    throw UsageError(std::string(option) + ": " + Quoted(text) + " " + std::string(reason));
}

/// Looks only at the fields, not yet at the clocks.
void CheckFields(const Fields& fields, std::string_view text, std::string_view option)
{
    if (fields.year < kFirstYear || fields.year > kLastYear)
    {
        ThrowTimeError(option, text, "lies outside the years 1970 to 3000");
    }
    if (!DateOf(fields).ok())
    {
        ThrowTimeError(option, text, "is a date that does not exist");
    }
    if (fields.hour > 23 || fields.minute > 59 || fields.second > 59)
    {
        ThrowTimeError(option, text, "is a time of day that does not exist");
    }
}

std::string LocaleText(int (*format)(const SYSTEMTIME&, wchar_t*, int), const SYSTEMTIME& time)
{
    std::array<wchar_t, 128> buffer{};
    const int length = format(time, buffer.data(), static_cast<int>(buffer.size()));
    return length > 1 ? hosts::ToUtf8({buffer.data(), static_cast<std::size_t>(length) - 1}) : std::string();
}

int ShortDate(const SYSTEMTIME& time, wchar_t* buffer, int size)
{
    return GetDateFormatEx(LOCALE_NAME_USER_DEFAULT, DATE_SHORTDATE, &time, nullptr, buffer, size, nullptr);
}

int ShortClock(const SYSTEMTIME& time, wchar_t* buffer, int size)
{
    return GetTimeFormatEx(LOCALE_NAME_USER_DEFAULT, TIME_NOSECONDS, &time, nullptr, buffer, size);
}

std::int64_t SecondsPerUnit(char unit) noexcept
{
    switch (unit)
    {
    case 'm':
        return kSecondsPerMinute;
    case 'h':
        return kSecondsPerHour;
    case 'd':
        return kSecondsPerDay;
    case 'w':
        return 7 * kSecondsPerDay;
    default:
        return 0;
    }
}

} // namespace

CTime ParseTime(std::string_view text, std::string_view option)
{
    const auto fields = ReadFields(text);
    if (!fields)
    {
        ThrowTimeError(option, text, "is no time (expected for example 2026-11-21T09:00 or 2026-11-21)");
    }
    CheckFields(*fields, text, option);
    CTime time;
    if (fields->offset)
    {
        time = SecondsOf(*fields) - *fields->offset;
    }
    else
    {
        try
        {
            const auto local = LocalTime(*fields);
            if (!local)
            {
                ThrowTimeError(option, text, "does not exist here: the clocks skip it");
            }
            time = *local;
        }
        catch (const COleException&)
        {
            ThrowTimeError(option, text, "lies outside the years 1970 to 3000");
        }
    }
    if (time <= CTime() || !IsCalendarTime(time))
    {
        ThrowTimeError(option, text, "lies outside the years 1970 to 3000");
    }
    return time;
}

CTimeSpan ParseSpan(std::string_view text, std::string_view option)
{
    const std::string_view digits = text.substr(0, text.empty() ? 0 : text.size() - 1);
    const std::int64_t unit = text.empty() ? 0 : SecondsPerUnit(text.back());
    std::int64_t count = 0;
    const auto [end, error] = std::from_chars(digits.data(), digits.data() + digits.size(), count);
    const bool tooLarge = error == std::errc::result_out_of_range && !digits.starts_with('-');
    const bool isSpan = unit != 0 && !digits.empty() && end == digits.data() + digits.size() &&
                        (error == std::errc() || tooLarge) && count >= 0 && !digits.starts_with('-');
    if (!isSpan)
    {
        throw UsageError(std::string(option) + ": " + Quoted(text) +
                         " is no span of time (expected for example 15m, 2h, 1d or 1w)");
    }
    if (tooLarge || count > kLongestSpan / unit)
    {
        throw UsageError(std::string(option) + ": " + Quoted(text) + " is longer than a thousand years");
    }
    return count * unit;
}

std::optional<std::string> IsoTime(CTime time)
{
    const auto fields = LocalFields(time);
    if (!fields)
    {
        return std::nullopt;
    }
    const int ahead = *fields->offset < 0 ? -*fields->offset : *fields->offset;
    std::array<char, 64> buffer{};
    std::snprintf(buffer.data(), buffer.size(), "%04d-%02d-%02dT%02d:%02d:%02d%c%02d:%02d", fields->year,
                  fields->month, fields->day, fields->hour, fields->minute, fields->second,
                  *fields->offset < 0 ? '-' : '+', ahead / 3600, ahead / 60 % 60);
    return std::string(buffer.data());
}

std::string ShortTime(CTime time)
{
    const auto fields = LocalFields(time);
    if (!fields)
    {
        return {};
    }
    SYSTEMTIME local{};
    local.wYear = static_cast<WORD>(fields->year);
    local.wMonth = static_cast<WORD>(fields->month);
    local.wDay = static_cast<WORD>(fields->day);
    local.wHour = static_cast<WORD>(fields->hour);
    local.wMinute = static_cast<WORD>(fields->minute);
    local.wSecond = static_cast<WORD>(fields->second);
    return LocaleText(ShortDate, local) + " " + LocaleText(ShortClock, local);
}

std::string SpanText(CTimeSpan span)
{
    constexpr std::array<std::pair<std::int64_t, const char*>, 4> kUnits = {{{7 * kSecondsPerDay, " week"},
                                                                             {kSecondsPerDay, " day"},
                                                                             {kSecondsPerHour, " hour"},
                                                                             {kSecondsPerMinute, " minute"}}};
    const std::int64_t seconds = span.GetTimeSpan();
    for (const auto& [unit, name] : kUnits)
    {
        if (seconds != 0 && seconds % unit == 0)
        {
            return std::to_string(seconds / unit) + name + (seconds == unit ? "" : "s");
        }
    }
    return seconds == 0 ? "none" : std::to_string(seconds) + (seconds == 1 ? " second" : " seconds");
}

} // namespace ts::console
