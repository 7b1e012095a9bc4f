// What is saved is what is loaded.

#include "tests/reminders/storage/StoreTest.h"
#include "tests/support/HandleCount.h"
#include "tests/support/HeapKind.h"

#include <limits>

namespace ts::test
{
namespace
{

using RoundTripTest = StoreTest;

/// Saves the record and loads it into another, which it expects to be the same.
void ExpectRoundTrip(CcvReminderData& record)
{
    ASSERT_TRUE(record.SaveDataToRegistry(kStore));
    CcvReminderData loaded(record.GetReminderKey());
    ASSERT_TRUE(loaded.LoadDataFromRegistry(kStore));
    RecordFields expected = FieldsOf(record);
    for (std::size_t index = StoredOptions(static_cast<std::int32_t>(expected.type)); index < 6; ++index)
    {
        expected.options[index] = 0;
    }
    ASSERT_EQ(expected, FieldsOf(loaded));
}

std::wstring WholePlane()
{
    std::wstring text;
    for (unsigned unit = 1; unit <= 0xFFFF; ++unit)
    {
        text += static_cast<wchar_t>(unit);
    }
    return text;
}

void SetTexts(CcvReminderData& record, const std::wstring& text)
{
    for (const auto set :
         {&CcvReminderData::SetDocumentPath, &CcvReminderData::SetObjectGuid,
          &CcvReminderData::SetOutlookObjectGuid, &CcvReminderData::SetOutlookEntryId,
          &CcvReminderData::SetDocumentTitle, &CcvReminderData::SetObjectTitle, &CcvReminderData::SetSubject})
    {
        (record.*set)(text.c_str());
    }
}

CcvReminderData RandomRecord(RandomSource& random)
{
    CcvReminderData record = EmptyRecord();
    record.SetMapGuid(RandomText(random, 20).c_str());
    const auto text = [&] { return CString(RandomText(random, random.Chance(5) ? 3000 : 40).c_str()); };
    record.SetDocumentPath(text());
    record.SetObjectGuid(text());
    record.SetOutlookObjectGuid(text());
    record.SetOutlookEntryId(text());
    record.SetDocumentTitle(text());
    record.SetObjectTitle(text());
    record.SetSubject(text());
    record.SetInitialDueDate(RandomInt64(random));
    record.SetNextDueDate(RandomInt64(random));
    record.SetReminderTimeSpan(RandomInt64(random));
    record.SetSnoozeTime(RandomInt64(random));
    record.SetRecurrenceType(static_cast<EcvReminderRecurrenceType>(random.Chance(70) ? random.Between(0, 4)
                                                                                      : RandomInt32(random)));
    std::array<std::int32_t, 6> options{};
    for (std::int32_t& option : options)
    {
        option = RandomInt32(random);
    }
    SetOptions(record, options);
    return record;
}

} // namespace

TEST_F(RoundTripTest, SaveAndLoad_TextsAtTheirLimits_ComeBack)
{
    const std::wstring texts[] = {L"",
                                  L"x",
                                  std::wstring(1023, L'x'),
                                  std::wstring(1024, L'x'),
                                  std::wstring(1025, L'x'),
                                  std::wstring(100'000, L'\x4E00'),
                                  WholePlane(),
                                  L"\xD800",
                                  L"\xDC00\xD800",
                                  L"before\r\nafter",
                                  L"\r",
                                  L"100 %s %d %n"};
    for (const std::wstring& text : texts)
    {
        CcvReminderData record{CString(L"k")};
        SetTexts(record, text);
        record.SetMapGuid(text.c_str());
        ExpectRoundTrip(record);
    }
}

TEST_F(RoundTripTest, SaveAndLoad_LineBreaks_AreStrippedFromTheThreeTextsForDisplayOnly)
{
    CcvReminderData record{CString(L"k")};
    SetTexts(record, L"\ra\r\nb\n");
    record.SetMapGuid(L"\ra\r\nb\n");
    ExpectRoundTrip(record);
    const RecordFields fields = FieldsOf(Load(L"k"));
    for (const CString& text : {fields.documentTitle, fields.objectTitle, fields.subject})
    {
        EXPECT_EQ(L"ab", text);
    }
    for (const CString& text : {fields.documentPath, fields.mapGuid, fields.objectGuid,
                                fields.outlookObjectGuid, fields.outlookEntryId})
    {
        EXPECT_EQ(L"\ra\r\nb\n", text);
    }
}

TEST_F(RoundTripTest, SaveAndLoad_NumbersAtTheirLimits_ComeBack)
{
    using Limits64 = std::numeric_limits<std::int64_t>;
    using Limits32 = std::numeric_limits<std::int32_t>;
    for (const std::int64_t seconds : {Limits64::min(), Limits64::max(), std::int64_t{0}, std::int64_t{-1}})
    {
        for (const std::int32_t number : {Limits32::min(), Limits32::max(), 0, -1})
        {
            CcvReminderData record{CString(L"k")};
            record.SetInitialDueDate(seconds);
            record.SetNextDueDate(seconds);
            record.SetReminderTimeSpan(seconds);
            record.SetRecurrenceType(EcvReminderRecurrenceType::Monthly);
            SetOptions(record, {number, number, number, number, number, number});
            ExpectRoundTrip(record);
            record.SetRecurrenceType(static_cast<EcvReminderRecurrenceType>(number));
            ExpectRoundTrip(record);
        }
    }
}

TEST_F(RoundTripTest, LoadAndSave_EveryFlagBit_IsKept)
{
    CcvReminderData saved{CString(L"k")};
    ASSERT_TRUE(saved.SaveDataToRegistry(kStore));
    for (int bit = 0; bit < 32; ++bit)
    {
        for (const std::uint32_t flags : {1u << bit, ~(1u << bit)})
        {
            Key(L"k").Write(L"Flags", RawDword(flags));
            CcvReminderData record = Load(L"k");
            Key(L"k").Write(L"Flags", RawText(L"lost"));
            ASSERT_TRUE(record.SaveDataToRegistry(kStore));
            EXPECT_EQ(RawDword(flags), Key(L"k").Read(L"Flags"));

            record.SetSnoozed(true);
            record.SetSnoozed(false);
            record.SetDismissed(true);
            record.SetDismissed(false);
            ASSERT_TRUE(record.SaveDataToRegistry(kStore));
            EXPECT_EQ(RawDword(flags & ~3u), Key(L"k").Read(L"Flags")) << "only two bits are ours";
        }
    }
}

TEST_F(RoundTripTest, SaveAndLoad_RandomRecords_ComeBackToTheLastBit)
{
    RandomSource random;
    for (int round = 0; round < Rounds(200); ++round)
    {
        SCOPED_TRACE(testing::Message() << random << ", round " << round);
        CcvReminderData record = RandomRecord(random);
        ExpectRoundTrip(record);

        // Flags have no setter for the bits that the library does not use.
        const std::wstring key = record.GetReminderKey().GetString();
        Key(key).Write(L"Flags", RawDword(static_cast<std::uint32_t>(RandomInt32(random))));
        Key(key).Write(L"SnoozeTime", RawInt64(RandomInt64(random)));
        const RawValues stored = Key(key).Values();
        CcvReminderData loaded = Load(key);
        DeleteKeyTree(PathOf(key));
        ExpectRoundTrip(loaded);
        ASSERT_EQ(stored, Key(key).Values());
        ASSERT_TRUE(loaded.DeleteDataFromRegistry(kStore));
    }
}

TEST_F(RoundTripTest, Handles_AfterManyRounds_AreAsMany)
{
    CcvReminderData record = DistinctRecord();
    ASSERT_TRUE(record.SaveDataToRegistry(kStore));
    const std::size_t before = HandleCount();
    for (int round = 0; round < Rounds(200); ++round)
    {
        ASSERT_TRUE(record.LoadDataFromRegistry(kStore));
        ASSERT_TRUE(record.LoadOutlookDataFromRegistry(kStore));
        ASSERT_TRUE(record.SaveOutlookDataToRegistry(kStore));
        ASSERT_FALSE(CcvReminderData{CString(L"missing")}.LoadDataFromRegistry(kStore));
        ASSERT_TRUE(record.DeleteDataFromRegistry(kStore));
        ASSERT_TRUE(record.SaveDataToRegistry(kStore));
    }
    EXPECT_EQ(before, HandleCount());
}

} // namespace ts::test
