#include "tests/reminders/storage/RecordFields.h"

#include "tests/support/TextOutput.h"

#include <gtest/gtest.h>
#include <limits>
#include <ostream>

namespace ts::test
{

void PrintTo(const RecordFields& fields, std::ostream* out)
{
    const std::pair<const char*, CString> texts[] = {
        {"key", fields.key},
        {"documentPath", fields.documentPath},
        {"mapGuid", fields.mapGuid},
        {"objectGuid", fields.objectGuid},
        {"outlookObjectGuid", fields.outlookObjectGuid},
        {"outlookEntryId", fields.outlookEntryId},
        {"documentTitle", fields.documentTitle},
        {"objectTitle", fields.objectTitle},
        {"subject", fields.subject},
    };
    for (const auto& [name, text] : texts)
    {
        constexpr int kShown = 100;
        *out << "\n  " << name << " (" << text.GetLength()
             << "): " << testing::PrintToString(CString(text, std::min(text.GetLength(), kShown)));
    }
    *out << "\n  initialDue " << testing::PrintToString(fields.initialDue) << "\n  snoozeTime "
         << testing::PrintToString(fields.snoozeTime) << "\n  nextDue "
         << testing::PrintToString(fields.nextDue) << "\n  lead " << testing::PrintToString(fields.lead)
         << "\n  snoozed " << fields.snoozed << ", dismissed " << fields.dismissed << "\n  type "
         << static_cast<std::int32_t>(fields.type) << ", options " << testing::PrintToString(fields.options);
}

RecordFields FieldsOf(const CcvReminderData& record)
{
    return {record.GetReminderKey(),
            record.GetDocumentPath(),
            record.GetMapGuid(),
            record.GetObjectGuid(),
            record.GetOutlookObjectGuid(),
            record.GetOutlookEntryId(),
            record.GetDocumentTitle(),
            record.GetObjectTitle(),
            record.GetSubject(),
            record.GetInitialDueDate(),
            record.GetSnoozeTime(),
            record.GetNextDueDate(),
            record.GetReminderTimeSpan(),
            record.IsSnoozed(),
            record.IsDimissed(),
            record.GetRecurrenceType(),
            OptionsOf(record)};
}

std::array<std::int32_t, 6> OptionsOf(const CcvReminderData& record)
{
    return {record.GetWeeklyRecurrenceNumber(),
            record.GetDailyRecurrenceNumber(),
            record.GetMonthlyReminderPattern1Month(),
            static_cast<std::int32_t>(record.GetMonthlyReminderDayIntegralType()),
            record.GetMonthlyReminderDayType(),
            record.GetMonthlyReminderPattern2Month()};
}

void SetOptions(CcvReminderData& record, const std::array<std::int32_t, 6>& options)
{
    record.SetWeeklyRecurrenceNumber(options[0]);
    record.SetDailyRecurrenceNumber(options[1]);
    record.SetMonthlyReminderPattern1Month(options[2]);
    record.SetMonthlyReminderDayIntegralType(static_cast<EcvReminderDayIntegralType>(options[3]));
    record.SetMonthlyReminderDayType(options[4]);
    record.SetMonthlyReminderPattern2Month(options[5]);
}

CcvReminderData DistinctRecord()
{
    CcvReminderData record = EmptyRecord();
    record.SetDocumentPath(L"C:\\maps\\a");
    record.SetMapGuid(L"M");
    record.SetObjectGuid(L"O");
    record.SetOutlookObjectGuid(L"outlook object");
    record.SetOutlookEntryId(L"outlook entry");
    record.SetDocumentTitle(L"document title");
    record.SetObjectTitle(L"object title");
    record.SetSubject(L"subject");
    record.SetInitialDueDate(1'700'000'001);
    record.SetNextDueDate(1'700'000'002);
    record.SetReminderTimeSpan(903);
    record.SetRecurrenceType(EcvReminderRecurrenceType::Monthly);
    SetOptions(record, {11, 12, 13, 14, 15, 16});
    return record;
}

std::wstring RandomText(RandomSource& random, int maximum)
{
    std::wstring text(static_cast<std::size_t>(random.Between(0, maximum)), L'\0');
    for (wchar_t& character : text)
    {
        constexpr unsigned kRisky[] = {L'\r', L'\n', 0xD800, 0xDFFF, 0xFFFF, 0xFEFF, L'%', L'\\', 1};
        character =
            static_cast<wchar_t>(random.Chance(20) ? random.OneOf(kRisky) : random.Between(1u, 0xFFFFu));
    }
    return text;
}

std::int64_t RandomInt64(RandomSource& random)
{
    using Limits = std::numeric_limits<std::int64_t>;
    constexpr std::int64_t kRisky[] = {Limits::min(),
                                       Limits::min() + 1,
                                       Limits::max(),
                                       Limits::max() - 1,
                                       0,
                                       -1,
                                       1,
                                       60,
                                       86'400,
                                       1'795'000'000,
                                       2'147'483'647,
                                       -86'400,
                                       32'535'215'999,
                                       32'535'215'999 + 1,
                                       32'540'000'000,
                                       4'294'967'296};
    return random.Chance(60) ? random.OneOf(kRisky) : random.Between(Limits::min(), Limits::max());
}

std::int32_t RandomInt32(RandomSource& random)
{
    using Limits = std::numeric_limits<std::int32_t>;
    constexpr std::int32_t kRisky[] = {Limits::min(), Limits::max(), -1, 0, 1, 2, 3, 4, 5, 12, 31, 62,
                                       127,           128,           512};
    return random.Chance(80) ? random.OneOf(kRisky) : random.Between(Limits::min(), Limits::max());
}

std::size_t StoredOptions(std::int32_t type)
{
    if (type < 1 || type > 4)
    {
        return 0;
    }
    return type <= 2 ? 2 : 6;
}

} // namespace ts::test
