#pragma once

#include "reminders/CcvReminderData.h"
#include "tests/support/RandomSource.h"
#include "tests/support/RawRegistry.h"

#include <array>
#include <cstdint>
#include <iosfwd>
#include <string>

namespace ts::test
{

/// All that the accessors of a record tell, for comparisons as a whole.
struct RecordFields
{
    CString key;
    CString documentPath;
    CString mapGuid;
    CString objectGuid;
    CString outlookObjectGuid;
    CString outlookEntryId;
    CString documentTitle;
    CString objectTitle;
    CString subject;
    CTime initialDue;
    CTime snoozeTime;
    CTime nextDue;
    CTimeSpan lead;
    bool snoozed;
    bool dismissed;
    EcvReminderRecurrenceType type;
    std::array<std::int32_t, 6> options;

    bool operator==(const RecordFields&) const = default;
};

void PrintTo(const RecordFields& fields, std::ostream* out);

[[nodiscard]] RecordFields FieldsOf(const CcvReminderData& record);
[[nodiscard]] std::array<std::int32_t, 6> OptionsOf(const CcvReminderData& record);
void SetOptions(CcvReminderData& record, const std::array<std::int32_t, 6>& options);

/// A record without a key and without times, which needs no clock.
[[nodiscard]] inline CcvReminderData EmptyRecord()
{
    return CcvReminderData(CString());
}

/// A record in which each field that has a setter has a value of its own.
[[nodiscard]] CcvReminderData DistinctRecord();

/// Up to `maximum` characters from the whole plane but zero, lone surrogates and line breaks included.
[[nodiscard]] std::wstring RandomText(RandomSource& random, int maximum);
/// Often a limit, else any value.
[[nodiscard]] std::int64_t RandomInt64(RandomSource& random);
[[nodiscard]] std::int32_t RandomInt32(RandomSource& random);

/// How many options a recurrence type stores, as the format says it.
[[nodiscard]] std::size_t StoredOptions(std::int32_t type);

} // namespace ts::test
