#include "tests/reminders/recurrence/LiteralRules.h"

#include <ctime>

namespace ts::test::literal
{
namespace
{

constexpr std::int64_t kDay = 86400;

struct Local
{
    bool valid = false;
    std::tm fields{};
};

Local LocalOf(std::int64_t seconds)
{
    Local local;
    const __time64_t time = seconds;
    local.valid = _localtime64_s(&local.fields, &time) == 0;
    return local;
}

int YearOf(const Local& local)
{
    return local.valid ? local.fields.tm_year + 1900 : 0;
}

int MonthOf(const Local& local)
{
    return local.valid ? local.fields.tm_mon + 1 : 0;
}

int DayOf(const Local& local)
{
    return local.valid ? local.fields.tm_mday : 0;
}

/// 1 = Sunday to 7 = Saturday, 0 when the time cannot be converted.
int DayOfWeekOf(std::int64_t seconds)
{
    const Local local = LocalOf(seconds);
    return local.valid ? local.fields.tm_wday + 1 : 0;
}

std::int64_t BuildAtClockOf(const Local& clock, std::int64_t year, std::int64_t month, std::int64_t day)
{
    const std::tm& fields = clock.fields;
    return BuildTime(year, month, day, clock.valid ? fields.tm_hour : -1, fields.tm_min, fields.tm_sec);
}

bool IsDayOfType(int day, int month, std::int64_t year, int dayType)
{
    const Local local = LocalOf(BuildTime(year, month, day, 0, 0, 0));
    const bool isWeekday = local.valid && local.fields.tm_wday >= 1 && local.fields.tm_wday <= 5;
    const int dayOfWeek = local.valid ? local.fields.tm_wday + 1 : 0;
    switch (dayType)
    {
    case 1:
        return dayOfWeek == 1;
    case 2:
        return dayOfWeek == 2;
    case 4:
        return dayOfWeek == 3;
    case 8:
        return dayOfWeek == 4;
    case 16:
        return dayOfWeek == 5;
    case 32:
        return dayOfWeek == 6;
    case 64:
        return dayOfWeek == 7;
    case 256:
        return isWeekday;
    case 512:
        return !isWeekday;
    default:
        return true;
    }
}

bool IsTestedType(int dayType)
{
    return dayType == 256 || dayType == 512 || dayType == 1 || dayType == 2 || dayType == 4 || dayType == 8 ||
           dayType == 16 || dayType == 32 || dayType == 64;
}

bool IsFlagged(const CcvReminderData& record, int dayOfWeek)
{
    switch (dayOfWeek)
    {
    case 1:
        return record.GetIsWeeklyRecurrenceOnSunday();
    case 2:
        return record.GetIsWeeklyRecurrenceOnMonday();
    case 3:
        return record.GetIsWeeklyRecurrenceOnTuesday();
    case 4:
        return record.GetIsWeeklyRecurrenceOnWednesday();
    case 5:
        return record.GetIsWeeklyRecurrenceOnThursday();
    case 6:
        return record.GetIsWeeklyRecurrenceOnFriday();
    case 7:
        return record.GetIsWeeklyRecurrenceOnSaturday();
    default:
        return false;
    }
}

bool HasFlaggedDay(const CcvReminderData& record)
{
    bool any = false;
    for (int dayOfWeek = 1; dayOfWeek <= 7; ++dayOfWeek)
    {
        any = any || IsFlagged(record, dayOfWeek);
    }
    return any;
}

/// Scans the weekdays from `dayOfWeek` on, then those of the week N weeks later, and so on.
std::int64_t ScanWeeks(std::int64_t from, std::int64_t offset, int dayOfWeek, const CcvReminderData& record)
{
    for (;;)
    {
        for (; dayOfWeek <= 7; ++dayOfWeek)
        {
            if (IsFlagged(record, dayOfWeek))
            {
                return from + offset;
            }
            offset += kDay;
        }
        offset += (std::int64_t{record.GetWeeklyRecurrenceNumber()} * 7 - 7) * kDay;
        dayOfWeek = 1;
    }
}

} // namespace

std::ostream& operator<<(std::ostream& out, const Outcome& outcome)
{
    if (outcome.code != S_OK)
    {
        return out << "failure 0x" << std::hex << static_cast<unsigned long>(outcome.code) << std::dec;
    }
    return out << outcome.value;
}

std::int64_t BuildTime(std::int64_t year, std::int64_t month, std::int64_t day, int hour, int minute,
                       int second)
{
    if (year < 1970 || month < 1 || month > 12 || day < 1 || day > 31 || hour < 0 || hour > 23 ||
        minute < 0 || minute > 59 || second < 0 || second > 59)
    {
        throw Failure{E_FAIL};
    }
    std::tm fields{};
    fields.tm_year = static_cast<int>(year - 1900);
    fields.tm_mon = static_cast<int>(month - 1);
    fields.tm_mday = static_cast<int>(day);
    fields.tm_hour = hour;
    fields.tm_min = minute;
    fields.tm_sec = second;
    fields.tm_isdst = -1;
    const __time64_t seconds = _mktime64(&fields);
    if (seconds == -1)
    {
        throw Failure{E_INVALIDARG};
    }
    return seconds;
}

int DaysInMonth(int month, std::int64_t year)
{
    switch (month)
    {
    case 1:
    case 3:
    case 5:
    case 7:
    case 8:
    case 10:
    case 12:
        return 31;
    case 4:
    case 6:
    case 9:
    case 11:
        return 30;
    case 2:
        return (year % 4 == 0 && year % 100 != 0) || year % 400 == 0 ? 29 : 28;
    default:
        return -1;
    }
}

int GetDayOfMonth(int ordinal, int dayType, std::int64_t year, int month)
{
    const int days = DaysInMonth(month, year);
    if (days < 1)
    {
        return 0;
    }
    if (ordinal == 4)
    {
        if (!IsTestedType(dayType))
        {
            return days;
        }
        for (int day = days; day >= 1; --day)
        {
            if (IsDayOfType(day, month, year, dayType))
            {
                return day;
            }
        }
        return 0;
    }
    if (ordinal < 0 || ordinal > 4)
    {
        return IsDayOfType(1, month, year, dayType) ? 0 : 1;
    }
    int count = 0;
    for (int day = 1; day <= days; ++day)
    {
        if (IsDayOfType(day, month, year, dayType) && ++count == ordinal + 1)
        {
            return day;
        }
    }
    return 0;
}

bool IsPassed(std::int64_t now, std::int64_t candidate)
{
    const Local left = LocalOf(now);
    const Local right = LocalOf(candidate);
    if (YearOf(left) == YearOf(right) && MonthOf(left) == MonthOf(right) && DayOf(left) == DayOf(right))
    {
        return false;
    }
    return now > candidate;
}

std::int64_t NextDaily(std::int64_t from, const CcvReminderData& record)
{
    switch (static_cast<int>(record.GetDailyOccurrenceType()))
    {
    case 0:
        return from + record.GetDailyRecurrenceNumber() * kDay;
    case 1:
        return from + (DayOfWeekOf(from) == 6 ? 3 : 1) * kDay;
    default:
        return from;
    }
}

std::int64_t NextWeekly(std::int64_t from, const CcvReminderData& record)
{
    if (!HasFlaggedDay(record))
    {
        return 0;
    }
    int dayOfWeek = DayOfWeekOf(from) + 1;
    std::int64_t offset = kDay;
    if (dayOfWeek > 7)
    {
        offset = (std::int64_t{record.GetWeeklyRecurrenceNumber()} * 7 - 7) * kDay + kDay;
        dayOfWeek = 1;
    }
    return ScanWeeks(from, offset, dayOfWeek, record);
}

std::int64_t NextMonthly(std::int64_t from, const CcvReminderData& record)
{
    const auto occurrence = static_cast<int>(record.GetMonthlyOccurrenceType());
    if (occurrence != 0 && occurrence != 1)
    {
        return 0;
    }
    const std::int64_t step =
        occurrence == 0 ? record.GetMonthlyReminderPattern1Month() : record.GetMonthlyReminderPattern2Month();
    const Local local = LocalOf(from);
    const std::int64_t months = MonthOf(local) - 1 + step;
    const std::int64_t year = YearOf(local) + months / 12;
    const auto month = static_cast<int>(months - months / 12 * 12 + 1);
    int day = 0;
    if (occurrence == 0)
    {
        const int days = DaysInMonth(month, year);
        day = days < record.GetMonthlyRecurrentDayOfMonth() ? days : record.GetMonthlyRecurrentDayOfMonth();
    }
    else
    {
        day = GetDayOfMonth(static_cast<int>(record.GetMonthlyReminderDayIntegralType()),
                            static_cast<int>(record.GetMonthlyReminderDayType()), year, month);
    }
    return BuildAtClockOf(local, year, month, day);
}

std::int64_t NextYearly(std::int64_t from, const CcvReminderData& record)
{
    const Local local = LocalOf(from);
    const int year = YearOf(local) + 1;
    switch (static_cast<int>(record.GetYearlyOccurenceType()))
    {
    case 0:
        return BuildAtClockOf(local, year, MonthOf(local), DayOf(local));
    case 1:
        return BuildAtClockOf(local, year, MonthOf(local),
                              GetDayOfMonth(static_cast<int>(record.GetYearlyReminderDayIntegralType()),
                                            static_cast<int>(record.GetYearlyReminderDayType()), year,
                                            MonthOf(local)));
    default:
        return 0;
    }
}

std::int64_t Next(EcvReminderRecurrenceType type, std::int64_t from, const CcvReminderData& record)
{
    switch (type)
    {
    case EcvReminderRecurrenceType::Daily:
        return NextDaily(from, record);
    case EcvReminderRecurrenceType::Weekly:
        return NextWeekly(from, record);
    case EcvReminderRecurrenceType::Monthly:
        return NextMonthly(from, record);
    case EcvReminderRecurrenceType::Yearly:
        return NextYearly(from, record);
    default:
        return 0;
    }
}

std::int64_t InitialDaily(std::int64_t start, const CcvReminderData& record)
{
    if (static_cast<int>(record.GetDailyOccurrenceType()) != 1)
    {
        return start;
    }
    const int dayOfWeek = DayOfWeekOf(start);
    return dayOfWeek == 7 ? start + 172800 : dayOfWeek == 1 ? start + 86400 : start;
}

std::int64_t InitialWeekly(std::int64_t start, const CcvReminderData& record)
{
    return HasFlaggedDay(record) ? ScanWeeks(start, 0, DayOfWeekOf(start), record) : 0;
}

std::int64_t InitialMonthly(std::int64_t start, const CcvReminderData& record)
{
    const Local local = LocalOf(start);
    int day = DaysInMonth(MonthOf(local), YearOf(local));
    switch (static_cast<int>(record.GetMonthlyOccurrenceType()))
    {
    case 0:
        if (day >= record.GetMonthlyRecurrentDayOfMonth())
        {
            day = record.GetMonthlyRecurrentDayOfMonth();
        }
        break;
    case 1:
        day = GetDayOfMonth(static_cast<int>(record.GetMonthlyReminderDayIntegralType()),
                            static_cast<int>(record.GetMonthlyReminderDayType()), YearOf(local),
                            MonthOf(local));
        break;
    default:
        return 0;
    }
    const std::int64_t candidate = BuildAtClockOf(local, YearOf(local), MonthOf(local), day);
    return candidate >= start ? candidate : NextMonthly(candidate, record);
}

std::int64_t InitialYearly(std::int64_t start, const CcvReminderData& record)
{
    const Local local = LocalOf(start);
    int month = 0;
    int day = 0;
    switch (static_cast<int>(record.GetYearlyOccurenceType()))
    {
    case 0:
        month = static_cast<int>(record.GetYearlyReminderPattern1Month());
        day = record.GetYearlyRecurrentDay();
        break;
    case 1:
        month = static_cast<int>(record.GetYearlyReminderPattern2Month());
        day = GetDayOfMonth(static_cast<int>(record.GetYearlyReminderDayIntegralType()),
                            static_cast<int>(record.GetYearlyReminderDayType()), YearOf(local), month);
        break;
    default:
        return 0;
    }
    const std::int64_t candidate = BuildAtClockOf(local, YearOf(local), month, day);
    return candidate >= start ? candidate : NextYearly(candidate, record);
}

std::int64_t Upcoming(EcvReminderRecurrenceType type, std::int64_t start, std::int64_t now,
                      const CcvReminderData& record)
{
    std::int64_t result = start;
    while (IsPassed(now, result))
    {
        const std::int64_t next = Next(type, result, record);
        if (next <= result)
        {
            break;
        }
        result = next;
    }
    return result;
}

std::int64_t CalculatedDueTime(std::int64_t now, const CcvReminderData& record)
{
    std::int64_t due = record.GetNextDueDate().GetTime();
    if (!record.IsRecurrent() || due >= now)
    {
        return due;
    }
    std::int64_t next = Next(record.GetRecurrenceType(), due, record);
    while (next > due && now >= next - record.GetReminderTimeSpan().GetTimeSpan())
    {
        due = next;
        next = Next(record.GetRecurrenceType(), due, record);
    }
    return due;
}

std::int64_t DefaultDueTime(std::int64_t now)
{
    const Local local = LocalOf(now);
    int hour = local.fields.tm_hour;
    int minute = local.fields.tm_min;
    if (minute >= 46)
    {
        minute = 0;
        hour += 1;
    }
    else if (minute >= 31)
    {
        minute = 45;
    }
    else if (minute >= 16)
    {
        minute = 30;
    }
    else if (minute >= 1)
    {
        minute = 15;
    }
    return BuildTime(YearOf(local), MonthOf(local), DayOf(local), hour, minute, 0);
}

} // namespace ts::test::literal
