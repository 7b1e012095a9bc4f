// Days of a type within their month.
//
// By definition a day is of a type when its local midnight, built and broken down again by the C runtime,
// falls on such a weekday. Walking a month that way costs dozens of conversions, so arithmetic answers
// instead. It keeps a month as a word with one bit per day: the pattern of a week, turned to the month's
// first weekday, repeated and cut to the month's length. Where the clocks skip a midnight, that one day
// counts as the weekday before, and so does its bit. Only the first and the last year that the runtime knows
// are walked: there a midnight can lie outside its range, which raises an error on the way.

#include "reminders/CcvReminderDataUtilities.h"
#include "reminders/LocalCalendar.h"
#include "reminders/SkippedMidnights.h"

#include <bit>
#include <chrono>

namespace
{

constexpr int kFirstYear = 1970;
constexpr int kLastYear = 3000;

/// The weekdays of a day type, bit 0 Sunday to bit 6 Saturday. Unknown types match every day.
constexpr std::uint32_t WeekdaysOf(EcvReminderDayType dayType)
{
    switch (dayType)
    {
    case EcvReminderDayType::Sunday:
    case EcvReminderDayType::Monday:
    case EcvReminderDayType::Tuesday:
    case EcvReminderDayType::Wednesday:
    case EcvReminderDayType::Thursday:
    case EcvReminderDayType::Friday:
    case EcvReminderDayType::Saturday:
        return static_cast<std::uint32_t>(dayType);
    case EcvReminderDayType::Weekday:
        return 0b0111110;
    case EcvReminderDayType::WeekendDay:
        return 0b1000001;
    default:
        return 0b1111111;
    }
}

constexpr std::uint32_t kEveryWeekday = WeekdaysOf(EcvReminderDayType::Day);

/// Whether the day is of the type, by asking the runtime for its local midnight.
bool IsDayOfType(int day, int month, int year, EcvReminderDayType dayType)
{
    const CTime midnight(year, month, day, 0, 0, 0);
    const std::uint32_t weekdays = WeekdaysOf(dayType);
    if (weekdays == kEveryWeekday)
    {
        return true;
    }
    std::tm local;
    if (midnight.GetLocalTm(&local) == nullptr)
    {
        // A weekend day is what is not a weekday, so a day that has no weekday is one.
        return dayType == EcvReminderDayType::WeekendDay;
    }
    return (weekdays >> local.tm_wday & 1) != 0;
}

/// Answers GetDayOfMonth by walking the month day by day.
int WalkMonth(EcvReminderDayIntegralType ordinal, EcvReminderDayType dayType, int year, int month, int days)
{
    if (ordinal == EcvReminderDayIntegralType::Last)
    {
        int day = days;
        while (day > 0 && !IsDayOfType(day, month, year, dayType))
        {
            --day;
        }
        return day;
    }
    if (ordinal < EcvReminderDayIntegralType::First || ordinal > EcvReminderDayIntegralType::Last)
    {
        // No dialog makes such an ordinal. It is met before the first day of the type: at once, or not at
        // all.
        return IsDayOfType(1, month, year, dayType) ? 0 : 1;
    }
    const int wanted = static_cast<int>(ordinal) + 1;
    int count = 0;
    for (int day = 1; day <= days; ++day)
    {
        count += IsDayOfType(day, month, year, dayType) ? 1 : 0;
        if (count == wanted)
        {
            return day;
        }
    }
    return 0;
}

/// One bit per day of the month, bit 0 for day 1, set where the day's weekday is among `weekdays`.
std::uint32_t MonthMask(std::uint32_t weekdays, int year, int month, int days)
{
    using namespace std::chrono;
    const auto first = sys_days(std::chrono::year(year) / month / 1);
    const unsigned weekday = std::chrono::weekday(first).c_encoding();
    const std::uint32_t week = (weekdays >> weekday | weekdays << (7 - weekday)) & kEveryWeekday;
    const std::uint64_t weeks = std::uint64_t{week} * 0x10204081;
    return static_cast<std::uint32_t>(weeks & ((std::uint64_t{1} << days) - 1));
}

/// Answers GetDayOfMonth from the month's mask.
int PickDay(EcvReminderDayIntegralType ordinal, std::uint32_t mask)
{
    switch (ordinal)
    {
    case EcvReminderDayIntegralType::First:
    case EcvReminderDayIntegralType::Second:
    case EcvReminderDayIntegralType::Third:
    case EcvReminderDayIntegralType::Fourth:
        for (int skipped = 0; skipped < static_cast<int>(ordinal); ++skipped)
        {
            mask &= mask - 1;
        }
        return mask != 0 ? std::countr_zero(mask) + 1 : 0;
    case EcvReminderDayIntegralType::Last:
        return static_cast<int>(std::bit_width(mask));
    default:
        return (mask & 1) != 0 ? 0 : 1;
    }
}

/// MonthMask as the runtime sees the month: the day whose midnight is skipped has the weekday of the day
/// before.
std::uint32_t LocalMonthMask(std::uint32_t weekdays, int year, int month, int days)
{
    using namespace std::chrono;
    const std::uint32_t mask = MonthMask(weekdays, year, month, days);
    const ts::SkippedMidnight skipped = ts::SkippedMidnightOf(year);
    if (skipped.month != month)
    {
        return mask;
    }
    const auto before = sys_days(std::chrono::year(year) / month / skipped.day) - std::chrono::days(1);
    const std::uint32_t bit = std::uint32_t{1} << (skipped.day - 1);
    return (weekdays >> weekday(before).c_encoding() & 1) != 0 ? mask | bit : mask & ~bit;
}

} // namespace

int ts::DaysInMonth(int month, int year) noexcept
{
    if (month < 1 || month > 12)
    {
        return -1;
    }
    constexpr int kDays[] = {31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
    const bool leap = year % 4 == 0 && (year % 100 != 0 || year % 400 == 0);
    return kDays[month - 1] + (month == 2 && leap ? 1 : 0);
}

bool ts::IsSameLocalDate(CTime left, CTime right) noexcept
{
    std::tm leftLocal;
    std::tm rightLocal;
    const bool leftValid = left.GetLocalTm(&leftLocal) != nullptr;
    const bool rightValid = right.GetLocalTm(&rightLocal) != nullptr;
    if (!leftValid || !rightValid)
    {
        return leftValid == rightValid;
    }
    return leftLocal.tm_year == rightLocal.tm_year && leftLocal.tm_yday == rightLocal.tm_yday;
}

int CcvReminderDataUtilities::GetDayOfMonth(EcvReminderDayIntegralType ordinal, EcvReminderDayType dayType,
                                            int year, int month)
{
    const int days = ts::DaysInMonth(month, year);
    if (days < 1)
    {
        return 0;
    }
    const std::uint32_t weekdays = WeekdaysOf(dayType);
    if (ordinal == EcvReminderDayIntegralType::Last && weekdays == kEveryWeekday)
    {
        return days;
    }
    if (year <= kFirstYear || year >= kLastYear)
    {
        return WalkMonth(ordinal, dayType, year, month, days);
    }
    return PickDay(ordinal, LocalMonthMask(weekdays, year, month, days));
}

void CcvReminderDataUtilities::GetDayTypeArray(CAtlArray<EcvReminderDayType>* array)
{
    using enum EcvReminderDayType;
    array->RemoveAll();
    for (const EcvReminderDayType dayType :
         {Day, Weekday, WeekendDay, Sunday, Monday, Tuesday, Wednesday, Thursday, Friday, Saturday})
    {
        array->Add(dayType);
    }
}

long CcvReminderDataUtilities::TsToOutlookDay(EcvReminderDayType dayType)
{
    switch (dayType)
    {
    case EcvReminderDayType::Day:
    case EcvReminderDayType::Weekday:
    case EcvReminderDayType::WeekendDay:
        return static_cast<long>(WeekdaysOf(dayType));
    default:
        return static_cast<long>(dayType);
    }
}

EcvReminderDayType CcvReminderDataUtilities::OutlookToTsDay(long mask)
{
    for (const auto dayType :
         {EcvReminderDayType::Day, EcvReminderDayType::Weekday, EcvReminderDayType::WeekendDay})
    {
        if (mask == TsToOutlookDay(dayType))
        {
            return dayType;
        }
    }
    return static_cast<EcvReminderDayType>(mask);
}

bool CcvReminderDataUtilities::IsInitialUpcomingDueDatePassed(const CTime& now, const CTime& candidate)
{
    return !ts::IsSameLocalDate(now, candidate) && now > candidate;
}
