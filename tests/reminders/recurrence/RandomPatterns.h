#pragma once

#include "platform/mfc/atlexcept.h"
#include "reminders/CcvReminderData.h"
#include "tests/reminders/recurrence/LiteralRules.h"
#include "tests/support/RandomSource.h"

#include <ostream>

namespace ts::test
{

/// A record of that type with a pattern as the dialogs make them: it advances.
CcvReminderData RandomPattern(RandomSource& random, EcvReminderRecurrenceType type);

/// A record of that type with option slots of any value, likely ones preferred.
CcvReminderData RandomOptions(RandomSource& random, EcvReminderRecurrenceType type);

/// One of the four types that have a pattern.
EcvReminderRecurrenceType RandomType(RandomSource& random);

/// A time from the years 1970 to 3000, often close to midnight or to a clock change.
std::int64_t RandomTime(RandomSource& random);

/// What the library answered, failures included.
template <typename Call>
literal::Outcome LibraryOutcome(Call call)
{
    try
    {
        return {S_OK, call()};
    }
    catch (const COleException& error)
    {
        return {error.m_sc, 0};
    }
}

/// Shows a record's pattern in messages.
struct PatternText
{
    const CcvReminderData& record;
    friend std::ostream& operator<<(std::ostream& out, const PatternText& text);
};

} // namespace ts::test
