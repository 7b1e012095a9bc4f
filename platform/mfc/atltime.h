#pragma once

#include "platform/Export.h"

#include <compare>
#include <cstdint>
#include <ctime>
#include <limits>

struct _SYSTEMTIME; // SYSTEMTIME; most of what needs the time needs nothing else of windows.h

/// A signed count of seconds. Arithmetic that would leave 64 bits stops at the nearest limit.
class CTimeSpan
{
  public:
    constexpr CTimeSpan() noexcept = default;
    constexpr CTimeSpan(std::int64_t seconds) noexcept : m_seconds(seconds) {}

    [[nodiscard]] constexpr std::int64_t GetTimeSpan() const noexcept { return m_seconds; }

    constexpr auto operator<=>(const CTimeSpan&) const noexcept = default;

    /// The sum of two counts of seconds, or the limit that it would pass.
    [[nodiscard]] static constexpr std::int64_t Add(std::int64_t left, std::int64_t right) noexcept
    {
        std::int64_t sum = 0;
        return __builtin_add_overflow(left, right, &sum) ? Limit(left < 0) : sum;
    }

    /// The difference of two counts of seconds, or the limit that it would pass.
    [[nodiscard]] static constexpr std::int64_t Subtract(std::int64_t left, std::int64_t right) noexcept
    {
        std::int64_t difference = 0;
        return __builtin_sub_overflow(left, right, &difference) ? Limit(left < 0) : difference;
    }

  private:
    static constexpr std::int64_t Limit(bool negative) noexcept
    {
        return negative ? std::numeric_limits<std::int64_t>::min() : std::numeric_limits<std::int64_t>::max();
    }

    std::int64_t m_seconds = 0;
};

/// A point in time: signed 64-bit seconds since 1970-01-01 00:00 UTC; 0 means "no time".
///
/// Calendar fields are those of the machine's local time, as the C runtime gives them. The runtime converts
/// the years 1970 to 3000; outside them every field is 0 (hours, minutes and seconds are -1).
/// Arithmetic that would leave 64 bits stops at the nearest limit.
class TS_API CTime
{
  public:
    constexpr CTime() noexcept = default;
    constexpr CTime(std::int64_t secondsUtc) noexcept : m_seconds(secondsUtc) {}
    /// The local time of these fields: year from 1970, month 1 to 12, day 1 to 31, hour 0 to 23, minute and
    /// second 0 to 59. A day beyond the month's end goes over into the next month. `daylightSaving` is
    /// the runtime's tm_isdst: -1 lets the runtime decide.
    /// Raises COleException: E_FAIL for a field out of range, E_INVALIDARG when the runtime refuses.
    CTime(int year, int month, int day, int hour, int minute, int second, int daylightSaving = -1);

    [[nodiscard]] static CTime GetCurrentTime() noexcept;

    [[nodiscard]] constexpr std::int64_t GetTime() const noexcept { return m_seconds; }
    /// The local broken-down time in `local`, or null (and `local` undefined) outside the runtime's range.
    std::tm* GetLocalTm(std::tm* local) const noexcept;
    /// The local broken-down time as the system's functions take it, without milliseconds. Gives false, and
    /// leaves `local` as it is, outside the runtime's range.
    [[nodiscard]] bool GetAsSystemTime(_SYSTEMTIME& local) const noexcept;
    [[nodiscard]] int GetYear() const noexcept;
    [[nodiscard]] int GetMonth() const noexcept;     ///< 1 to 12
    [[nodiscard]] int GetDay() const noexcept;       ///< 1 to 31
    [[nodiscard]] int GetHour() const noexcept;      ///< 0 to 23
    [[nodiscard]] int GetMinute() const noexcept;    ///< 0 to 59
    [[nodiscard]] int GetSecond() const noexcept;    ///< 0 to 59
    [[nodiscard]] int GetDayOfWeek() const noexcept; ///< 1 = Sunday to 7 = Saturday

    constexpr auto operator<=>(const CTime&) const noexcept = default;

    constexpr CTime& operator+=(CTimeSpan span) noexcept { return *this = *this + span; }
    constexpr CTime& operator-=(CTimeSpan span) noexcept { return *this = *this - span; }
    friend constexpr CTime operator+(CTime time, CTimeSpan span) noexcept
    {
        return CTimeSpan::Add(time.m_seconds, span.GetTimeSpan());
    }
    friend constexpr CTime operator-(CTime time, CTimeSpan span) noexcept
    {
        return CTimeSpan::Subtract(time.m_seconds, span.GetTimeSpan());
    }
    friend constexpr CTimeSpan operator-(CTime left, CTime right) noexcept
    {
        return CTimeSpan::Subtract(left.m_seconds, right.m_seconds);
    }

  private:
    std::int64_t m_seconds = 0;
};
