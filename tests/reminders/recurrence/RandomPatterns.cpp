#include "tests/reminders/recurrence/RandomPatterns.h"

#include <algorithm>
#include <iterator>
#include <limits>

namespace ts::test
{
namespace
{

using Type = EcvReminderRecurrenceType;

constexpr int kDayTypes[] = {1, 2, 4, 8, 16, 32, 64, 128, 256, 512};

/// A value as hostile stores hold them: mostly small, sometimes at the limits, sometimes anything.
std::int32_t AnyInt(RandomSource& random)
{
    using Limits = std::numeric_limits<std::int32_t>;
    constexpr std::int32_t kEdges[] = {Limits::min(), Limits::max(), -1, 0, 1};
    const int kind = random.Between(0, 9);
    if (kind < 6)
    {
        return random.Between(-2, 40);
    }
    if (kind < 8)
    {
        return random.OneOf(kEdges);
    }
    return random.Between(Limits::min(), Limits::max());
}

} // namespace

EcvReminderRecurrenceType RandomType(RandomSource& random)
{
    return static_cast<Type>(random.Between(1, 4));
}

CcvReminderData RandomPattern(RandomSource& random, Type type)
{
    CcvReminderData record{CString(L"{random-0}")};
    record.SetRecurrenceType(type);
    const bool second = random.Chance(50);
    switch (type)
    {
    case Type::Daily:
        record.SetDailyOccurenceType(static_cast<EcvReminderDailyOccurence>(second));
        record.SetDailyRecurrenceNumber(random.Between(1, 40));
        break;
    case Type::Weekly:
        record.SetWeeklyRecurrenceNumber(random.Between(1, 6));
        record.SetWeeklyRecurrenceFlag(random.Between(1L, 127L));
        break;
    case Type::Monthly:
        record.SetMonthlyOccurenceType(static_cast<EcvReminderMonthlyOccurence>(second));
        record.SetMonthlyRecurrentDayOfMonth(random.Between(1, 31));
        record.SetMonthlyReminderPattern1Month(random.Between(1, 30));
        record.SetMonthlyReminderPattern2Month(random.Between(1, 30));
        record.SetMonthlyReminderDayIntegralType(
            static_cast<EcvReminderDayIntegralType>(random.Between(0, 4)));
        record.SetMonthlyReminderDayType(random.OneOf(kDayTypes));
        break;
    default:
        record.SetYearlyOccurenceType(static_cast<EcvReminderYearlyOccurence>(second));
        record.SetYearlyRecurrentDay(random.Between(1, 31));
        record.SetYearlyReminderPattern1Month(static_cast<EcvMonth>(random.Between(1, 12)));
        record.SetYearlyReminderPattern2Month(static_cast<EcvMonth>(random.Between(1, 12)));
        record.SetYearlyReminderDayIntegralType(
            static_cast<EcvReminderDayIntegralType>(random.Between(0, 4)));
        record.SetYearlyReminderDayType(random.OneOf(kDayTypes));
        break;
    }
    return record;
}

CcvReminderData RandomOptions(RandomSource& random, Type type)
{
    CcvReminderData record{CString(L"{random-0}")};
    record.SetRecurrenceType(type);
    record.SetMonthlyOccurenceType(
        static_cast<EcvReminderMonthlyOccurence>(random.Chance(70) ? random.Between(0, 1) : AnyInt(random)));
    record.SetMonthlyRecurrentDayOfMonth(AnyInt(random));
    record.SetMonthlyReminderPattern1Month(AnyInt(random));
    record.SetMonthlyReminderDayIntegralType(static_cast<EcvReminderDayIntegralType>(random.Between(-1, 6)));
    record.SetMonthlyReminderDayType(random.Chance(70) ? random.OneOf(kDayTypes) : AnyInt(random));
    record.SetMonthlyReminderPattern2Month(AnyInt(random));
    return record;
}

std::int64_t RandomTime(RandomSource& random)
{
    constexpr std::int64_t kFirst = 0;
    constexpr std::int64_t kLast = 32'535'000'000;
    std::int64_t time =
        random.Chance(80) ? random.Between<std::int64_t>(0, 5'000'000'000) : random.Between(kFirst, kLast);
    if (random.Chance(50))
    {
        // Close to a local midnight, or to an hour at which clocks are changed.
        const int hour = random.Between(-1, 3);
        CTime base(time);
        const std::int64_t sinceMidnight = (base.GetHour() * 60 + base.GetMinute()) * 60 + base.GetSecond();
        time += hour * 3600 - sinceMidnight + random.Between(-120, 120);
    }
    return std::clamp(time, kFirst, kLast);
}

std::ostream& operator<<(std::ostream& out, const PatternText& text)
{
    const CcvReminderData& record = text.record;
    return out << "type " << static_cast<int>(record.GetRecurrenceType()) << ", options "
               << record.GetWeeklyRecurrenceNumber() << ' ' << record.GetWeeklyRecurrenceFlag() << ' '
               << record.GetMonthlyReminderPattern1Month() << ' '
               << static_cast<int>(record.GetMonthlyReminderDayIntegralType()) << ' '
               << record.GetMonthlyReminderDayType() << ' ' << record.GetMonthlyReminderPattern2Month();
}

} // namespace ts::test
