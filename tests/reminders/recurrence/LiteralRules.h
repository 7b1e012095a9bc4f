#pragma once

#include "platform/WindowsHeaders.h"
#include "reminders/CcvReminderData.h"

#include <compare>
#include <cstdint>
#include <ostream>

/// The rules of recurrence written down word for word: day by day, step by step, every local time through the
/// C runtime. Slow on purpose, and independent of the library's arithmetic: it only reads the record.
namespace ts::test::literal
{

/// Raised where a rule fails, with the code that the library must raise.
struct Failure
{
    HRESULT code;
};

/// What a rule gave: a value, or a failure's code.
struct Outcome
{
    HRESULT code = S_OK;
    std::int64_t value = 0;

    friend bool operator==(const Outcome&, const Outcome&) = default;
    friend std::ostream& operator<<(std::ostream& out, const Outcome& outcome);
};

/// The seconds of a local time, with the checks and failures of building one.
std::int64_t BuildTime(std::int64_t year, std::int64_t month, std::int64_t day, int hour, int minute,
                       int second);

int DaysInMonth(int month, std::int64_t year);
int GetDayOfMonth(int ordinal, int dayType, std::int64_t year, int month);
bool IsPassed(std::int64_t now, std::int64_t candidate);

std::int64_t NextDaily(std::int64_t from, const CcvReminderData& record);
std::int64_t NextWeekly(std::int64_t from, const CcvReminderData& record);
std::int64_t NextMonthly(std::int64_t from, const CcvReminderData& record);
std::int64_t NextYearly(std::int64_t from, const CcvReminderData& record);
std::int64_t Next(EcvReminderRecurrenceType type, std::int64_t from, const CcvReminderData& record);

std::int64_t InitialDaily(std::int64_t start, const CcvReminderData& record);
std::int64_t InitialWeekly(std::int64_t start, const CcvReminderData& record);
std::int64_t InitialMonthly(std::int64_t start, const CcvReminderData& record);
std::int64_t InitialYearly(std::int64_t start, const CcvReminderData& record);

/// The first occurrence from `start` on that has not passed at `now`.
std::int64_t Upcoming(EcvReminderRecurrenceType type, std::int64_t start, std::int64_t now,
                      const CcvReminderData& record);

/// The due time in force at `now`. Walks that would never end stop where an occurrence is not followed by a
/// later one.
std::int64_t CalculatedDueTime(std::int64_t now, const CcvReminderData& record);

/// The due time of a reminder that is made at `now`.
std::int64_t DefaultDueTime(std::int64_t now);

/// The outcome of a rule, its failure included.
template <typename Rule>
Outcome OutcomeOf(Rule rule)
{
    try
    {
        return {S_OK, rule()};
    }
    catch (const Failure& failure)
    {
        return {failure.code, 0};
    }
}

} // namespace ts::test::literal
