// One thread or process changes a key while another reads it.

#include "reminders/CcvReminderDataUtilities.h"
#include "tests/reminders/storage/StoreTest.h"
#include "tests/support/Background.h"
#include "tests/support/HeapKind.h"

#include <vector>

namespace ts::test
{
namespace
{

using ConcurrentStoreTest = StoreTest;

/// A record all of whose fields show that letter; long texts exceed what a read holds at once.
CcvReminderData RecordOf(wchar_t letter, std::size_t length)
{
    CcvReminderData record{CString(L"{M-0}")};
    const CString text(std::wstring(length, letter).c_str());
    record.SetDocumentPath(text);
    record.SetMapGuid(text);
    record.SetObjectGuid(text);
    record.SetOutlookObjectGuid(text);
    record.SetOutlookEntryId(text);
    record.SetDocumentTitle(text);
    record.SetObjectTitle(text);
    record.SetSubject(text);
    const std::int64_t number = 0x0101010101010101 * letter;
    record.SetInitialDueDate(number);
    record.SetNextDueDate(number);
    record.SetReminderTimeSpan(number);
    record.SetRecurrenceType(EcvReminderRecurrenceType::Monthly);
    const std::int32_t option = 0x01010101 * letter;
    SetOptions(record, {option, option, option, option, option, option});
    return record;
}

/// Whether each field is that of one of the records; `allowed` are the records that were ever written.
void ExpectUnmixed(const RecordFields& fields, const std::vector<RecordFields>& allowed)
{
    const auto oneOf = [&](auto member)
    {
        bool found = false;
        for (const RecordFields& record : allowed)
        {
            found = found || fields.*member == record.*member;
        }
        return found;
    };
    for (const auto text : {&RecordFields::documentPath, &RecordFields::mapGuid, &RecordFields::objectGuid,
                            &RecordFields::outlookObjectGuid, &RecordFields::outlookEntryId,
                            &RecordFields::documentTitle, &RecordFields::objectTitle, &RecordFields::subject})
    {
        ASSERT_TRUE(oneOf(text)) << testing::PrintToString(fields);
    }
    ASSERT_TRUE(oneOf(&RecordFields::initialDue)) << testing::PrintToString(fields);
    ASSERT_TRUE(oneOf(&RecordFields::nextDue)) << testing::PrintToString(fields);
    ASSERT_TRUE(oneOf(&RecordFields::lead)) << testing::PrintToString(fields);
    ASSERT_TRUE(oneOf(&RecordFields::type)) << testing::PrintToString(fields);
    for (const std::int32_t option : fields.options)
    {
        bool found = false;
        for (const RecordFields& record : allowed)
        {
            found = found || option == record.options[0];
        }
        ASSERT_TRUE(found) << testing::PrintToString(fields);
    }
}

} // namespace

TEST_F(ConcurrentStoreTest, Load_WhileAnotherSaves_SeesOldOrNewFields)
{
    CcvReminderData first = RecordOf(L'a', 10);
    CcvReminderData second = RecordOf(L'b', 5000);
    CcvReminderData third = RecordOf(L'c', 20'000);
    ASSERT_TRUE(first.SaveDataToRegistry(kStore));
    const std::vector<RecordFields> allowed = {FieldsOf(first), FieldsOf(second), FieldsOf(third)};
    const Background writer(
        [&]
        {
            second.SaveDataToRegistry(kStore);
            first.SaveDataToRegistry(kStore);
            third.SaveDataToRegistry(kStore);
        });
    for (int round = 0; round < Rounds(400) || writer.Rounds() < 3; ++round)
    {
        ExpectUnmixed(FieldsOf(Load(L"{M-0}")), allowed);
        if (HasFatalFailure())
        {
            return;
        }
    }
}

TEST_F(ConcurrentStoreTest, Load_WhileAnotherDeletesAndSaves_SeesAWholeFieldOrNone)
{
    CcvReminderData written = RecordOf(L'a', 2000);
    const std::vector<RecordFields> allowed = {FieldsOf(written), FieldsOf(EmptyRecord())};
    const Background writer(
        [&]
        {
            written.SaveDataToRegistry(kStore);
            written.DeleteDataFromRegistry(kStore);
        });
    for (int round = 0; round < Rounds(600) || writer.Rounds() < 3; ++round)
    {
        CcvReminderData record{CString(L"{M-0}")};
        const bool loaded = record.LoadDataFromRegistry(kStore);
        ExpectUnmixed(FieldsOf(record), allowed);
        if (HasFatalFailure())
        {
            return;
        }
        ASSERT_TRUE(loaded || FieldsOf(record) == FieldsOf(CcvReminderData{CString(L"{M-0}")}));
    }
}

TEST_F(ConcurrentStoreTest, KeySearches_WhileAnotherDeletesAndSaves_FindTheKeysThatStay)
{
    using Utilities = CcvReminderDataUtilities;
    CcvReminderData staying = RecordOf(L's', 10);
    ASSERT_TRUE(staying.SaveDataToRegistry(kStore));
    const CString path = staying.GetDocumentPath();
    const Background writer(
        []
        {
            for (const wchar_t* key : {L"{Z-0}", L"{Z-1}", L"{Z-2}"})
            {
                CcvReminderData record = RecordOf(L'z', 10);
                CcvReminderData named{CString(key)};
                named.SetDocumentPath(record.GetDocumentPath());
                named.SaveDataToRegistry(kStore);
                named.DeleteDataFromRegistry(kStore);
            }
        });
    for (int round = 0; round < Rounds(300) || writer.Rounds() < 3; ++round)
    {
        ASSERT_EQ(L"{M-0}", Utilities::FindReminderKey(kStore, path, path, path));
        ASSERT_EQ(L"", Utilities::FindReminderKey(kStore, path, path, L"missing"));
        Utilities::UpdateDocumentPath(kStore, path, path, path);
        ASSERT_EQ(L"{M-1}", Utilities::GenerateUniqueReminderKey(kStore, L"M"));
    }
    EXPECT_EQ(FieldsOf(Load(L"{M-0}")), FieldsOf(staying));
}

} // namespace ts::test
