#include "outlook/AppointmentRecurrence.h"

#include "outlook/OutlookMembers.h"
#include "outlook/OutlookTime.h"
#include "reminders/CcvReminderDataUtilities.h"

#include <algorithm>
#include <cstdint>
#include <vector>

namespace
{

using ts::AutomationObject;
namespace recurrence = ts::outlook::recurrence;

constexpr long kMondayToFriday = 62;

/// A property of a recurrence pattern, and the value that it is to have.
struct Setting
{
    ts::outlook::Member* property;
    long value;

    bool operator==(const Setting&) const = default;
};
using Settings = std::vector<Setting>;

/// Outlook counts first, second, ... from 1.
long InstanceOf(EcvReminderDayIntegralType ordinal)
{
    return static_cast<long>(static_cast<std::int64_t>(ordinal) + 1);
}

long DayMaskOf(long dayType)
{
    return CcvReminderDataUtilities::TsToOutlookDay(static_cast<EcvReminderDayType>(dayType));
}

Settings DailySettings(const CcvReminderData& record)
{
    switch (record.GetDailyOccurrenceType())
    {
    case EcvReminderDailyOccurence::EveryNDays:
        return {{&recurrence::kRecurrenceType, ts::outlook::kRecursDaily},
                {&recurrence::kInterval, record.GetDailyRecurrenceNumber()}};
    case EcvReminderDailyOccurence::EveryWeekday:
        return {{&recurrence::kRecurrenceType, ts::outlook::kRecursWeekly},
                {&recurrence::kDayOfWeekMask, kMondayToFriday},
                {&recurrence::kInterval, 1}};
    }
    return {};
}

Settings WeeklySettings(const CcvReminderData& record)
{
    return {{&recurrence::kRecurrenceType, ts::outlook::kRecursWeekly},
            {&recurrence::kInterval, record.GetWeeklyRecurrenceNumber()},
            {&recurrence::kDayOfWeekMask, record.GetWeeklyRecurrenceFlag()}};
}

Settings MonthlySettings(const CcvReminderData& record)
{
    switch (record.GetMonthlyOccurrenceType())
    {
    case EcvReminderMonthlyOccurence::DayOfMonth:
        return {{&recurrence::kRecurrenceType, ts::outlook::kRecursMonthly},
                {&recurrence::kInterval, record.GetMonthlyReminderPattern1Month()},
                {&recurrence::kDayOfMonth, record.GetMonthlyRecurrentDayOfMonth()}};
    case EcvReminderMonthlyOccurence::OrdinalDayType:
        return {{&recurrence::kRecurrenceType, ts::outlook::kRecursMonthNth},
                {&recurrence::kInterval, record.GetMonthlyReminderPattern2Month()},
                {&recurrence::kInstance, InstanceOf(record.GetMonthlyReminderDayIntegralType())},
                {&recurrence::kDayOfWeekMask, DayMaskOf(record.GetMonthlyReminderDayType())}};
    }
    return {};
}

Settings YearlySettings(const CcvReminderData& record)
{
    switch (record.GetYearlyOccurenceType())
    {
    case EcvReminderYearlyOccurence::DayOfMonth:
        return {{&recurrence::kRecurrenceType, ts::outlook::kRecursYearly},
                {&recurrence::kDayOfMonth, record.GetYearlyRecurrentDay()},
                {&recurrence::kMonthOfYear, static_cast<long>(record.GetYearlyReminderPattern1Month())}};
    case EcvReminderYearlyOccurence::OrdinalDayType:
        return {{&recurrence::kRecurrenceType, ts::outlook::kRecursYearNth},
                {&recurrence::kInstance, InstanceOf(record.GetYearlyReminderDayIntegralType())},
                {&recurrence::kDayOfWeekMask, DayMaskOf(record.GetYearlyReminderDayType())},
                {&recurrence::kMonthOfYear, static_cast<long>(record.GetYearlyReminderPattern2Month())}};
    }
    return {};
}

/// In the order in which they are written. None for a pattern that a damaged record makes up.
Settings SettingsOf(const CcvReminderData& record)
{
    switch (record.GetRecurrenceType())
    {
    case EcvReminderRecurrenceType::Daily:
        return DailySettings(record);
    case EcvReminderRecurrenceType::Weekly:
        return WeeklySettings(record);
    case EcvReminderRecurrenceType::Monthly:
        return MonthlySettings(record);
    case EcvReminderRecurrenceType::Yearly:
        return YearlySettings(record);
    case EcvReminderRecurrenceType::None:
        break;
    }
    return {};
}

/// All values are read before the first is written, because each write may change others.
Settings ReadSettings(const AutomationObject& pattern)
{
    Settings present{{&recurrence::kInterval, 0},      {&recurrence::kRecurrenceType, 0},
                     {&recurrence::kDayOfWeekMask, 0}, {&recurrence::kDayOfMonth, 0},
                     {&recurrence::kMonthOfYear, 0},   {&recurrence::kInstance, 0}};
    for (Setting& setting : present)
    {
        setting.value = pattern.GetLong(*setting.property);
    }
    return present;
}

/// Whether anything had to be written.
bool WriteDifferences(const AutomationObject& pattern, const Settings& wanted)
{
    const Settings present = ReadSettings(pattern);
    bool changed = false;
    for (const Setting& setting : wanted)
    {
        if (std::find(present.begin(), present.end(), setting) == present.end())
        {
            pattern.Put(*setting.property, ts::LongValue(setting.value));
            changed = true;
        }
    }
    return changed;
}

/// Whether anything had to be written.
bool WriteTimes(const AutomationObject& pattern, const CTime& firstDueUtc, bool newItem)
{
    const DATE startTime = pattern.GetDate(recurrence::kStartTime);
    const SYSTEMTIME local = ts::ToLocalTime(firstDueUtc);
    // A pattern answers a time without a date, so the two differ as good as always and every call writes.
    // That is wanted: nothing else of the pattern tells whether its start was moved.
    if (startTime == ts::ToOutlookDate(local))
    {
        return false;
    }
    const _variant_t timeOnly = ts::DateValue(ts::ToOutlookTimeOnly(local));
    pattern.Put(recurrence::kStartTime, timeOnly);
    if (newItem)
    {
        pattern.Put(recurrence::kEndTime, timeOnly);
    }
    pattern.Put(recurrence::kPatternStartDate, ts::DateValue(ts::ToOutlookDateOnly(local)));
    return true;
}

} // namespace

bool ts::ApplyRecurrencePattern(const CcvReminderData& record, const AutomationObject& appointment,
                                bool newItem)
{
    const bool isRecurring = appointment.GetBool(outlook::appointment::kIsRecurring);
    if (!record.IsRecurrent())
    {
        if (isRecurring)
        {
            appointment.Call(outlook::appointment::kClearRecurrencePattern);
        }
        return isRecurring;
    }
    const AutomationObject pattern = appointment.CallForObject(outlook::appointment::kGetRecurrencePattern);
    const bool settingsChanged = WriteDifferences(pattern, SettingsOf(record));
    const bool timesChanged = WriteTimes(pattern, record.GetInitialDueDate(), newItem);
    return settingsChanged || timesChanged;
}
