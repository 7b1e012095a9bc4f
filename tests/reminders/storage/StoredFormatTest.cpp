// What a saved reminder is in the registry, byte by byte.

#include "tests/reminders/storage/StoreTest.h"

#include <limits>

namespace ts::test
{
namespace
{

using StoredFormatTest = StoreTest;

const wchar_t* const kOptionNames[] = {L"RecurrenceOption1", L"RecurrenceOption2", L"RecurrenceOption3",
                                       L"RecurrenceOption4", L"RecurrenceOption5", L"RecurrenceOption6"};

/// The values of DistinctRecord, without its recurrence.
RawValues DistinctValues()
{
    return {
        {L"DocumentPath", RawText(L"C:\\maps\\a")},
        {L"MapGuid", RawText(L"M")},
        {L"ObjectGuid", RawText(L"O")},
        {L"OutlookObjectGuid", RawText(L"outlook object")},
        {L"OutlookEntryId", RawText(L"outlook entry")},
        {L"DocumentTitle", RawText(L"document title")},
        {L"ObjectTitle", RawText(L"object title")},
        {L"Flags", RawDword(0)},
        {L"Subject", RawText(L"subject")},
        {L"NextRecurrentDueDate", RawInt64(1'700'000'002)},
        {L"InitialDueDate", RawInt64(1'700'000'001)},
        {L"Reminder", RawInt64(903)},
        {L"SnoozeTime", RawInt64(0)},
    };
}

RawValues DistinctValues(std::int32_t type, const std::array<std::int32_t, 6>& options)
{
    RawValues values = DistinctValues();
    values.emplace(L"RecurrenceType", RawDword(static_cast<std::uint32_t>(type)));
    for (std::size_t index = 0; index < StoredOptions(type); ++index)
    {
        values.emplace(kOptionNames[index], RawDword(static_cast<std::uint32_t>(options[index])));
    }
    return values;
}

} // namespace

TEST_F(StoredFormatTest, Save_OfEveryRecurrenceType_WritesItsOptionsOnly)
{
    constexpr std::int32_t kMax = std::numeric_limits<std::int32_t>::max();
    constexpr std::int32_t kMin = std::numeric_limits<std::int32_t>::min();
    const std::array<std::int32_t, 6> options = {kMin, kMax, -1, 0, 1, 512};
    for (const std::int32_t type : {0, 1, 2, 3, 4, 5, -1, kMax, kMin})
    {
        CcvReminderData record = DistinctRecord();
        record.SetRecurrenceType(static_cast<EcvReminderRecurrenceType>(type));
        SetOptions(record, options);
        ASSERT_TRUE(record.SaveDataToRegistry(kStore));
        EXPECT_EQ(DistinctValues(type, options), Key(record.GetReminderKey().GetString()).Values())
            << "type " << type;
    }
}

TEST_F(StoredFormatTest, Save_OfAnEmptyRecord_WritesEveryValue)
{
    CcvReminderData record{CString(L"empty")};
    ASSERT_TRUE(record.SaveDataToRegistry(kStore));
    RawValues expected = DistinctValues(0, {});
    for (auto& [name, value] : expected)
    {
        value.bytes = value.type == REG_SZ ? Bytes() : Bytes(value.bytes.size());
    }
    EXPECT_EQ(expected, Key(L"empty").Values());
}

TEST_F(StoredFormatTest, Save_OfATextOf3Characters_Stores6Bytes)
{
    CcvReminderData record{CString(L"k")};
    record.SetSubject(L"abc");
    ASSERT_TRUE(record.SaveDataToRegistry(kStore));
    EXPECT_EQ((RawValue{REG_SZ, {'a', 0, 'b', 0, 'c', 0}}), Key(L"k").Read(L"Subject"));
    EXPECT_EQ(L"abc", Load(L"k").GetSubject());
}

TEST_F(StoredFormatTest, Save_OfATime_Stores8BytesLittleEndian)
{
    CcvReminderData record{CString(L"k")};
    record.SetNextDueDate(0x0102030405060708);
    record.SetInitialDueDate(-2);
    ASSERT_TRUE(record.SaveDataToRegistry(kStore));
    EXPECT_EQ((RawValue{REG_BINARY, {8, 7, 6, 5, 4, 3, 2, 1}}), Key(L"k").Read(L"NextRecurrentDueDate"));
    EXPECT_EQ((RawValue{REG_BINARY, {0xFE, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF}}),
              Key(L"k").Read(L"InitialDueDate"));
}

TEST_F(StoredFormatTest, Save_OfTheStates_WritesTheirBits)
{
    struct Row
    {
        bool snoozed;
        bool dismissed;
        std::uint32_t flags;
    };
    for (const Row& row : {Row{false, false, 0}, {true, false, 1}, {false, true, 2}, {true, true, 3}})
    {
        CcvReminderData record{CString(L"k")};
        record.SetDismissed(row.dismissed);
        record.SetSnoozed(row.snoozed);
        ASSERT_TRUE(record.SaveDataToRegistry(kStore));
        EXPECT_EQ(RawDword(row.flags), Key(L"k").Read(L"Flags"));
    }
}

TEST_F(StoredFormatTest, Save_AfterAChangeOfType_LeavesStaleOptionsThatLoadIgnores)
{
    CcvReminderData record = DistinctRecord();
    ASSERT_TRUE(record.SaveDataToRegistry(kStore));
    const std::wstring key = record.GetReminderKey().GetString();
    for (const std::int32_t type : {1, 2, 0, 5, -1})
    {
        record.SetRecurrenceType(static_cast<EcvReminderRecurrenceType>(type));
        SetOptions(record, {21, 22, 23, 24, 25, 26});
        ASSERT_TRUE(record.SaveDataToRegistry(kStore));
        const RawValues values = Key(key).Values();
        EXPECT_EQ(RawDword(13), values.at(L"RecurrenceOption3")) << "stale since it was monthly";
        EXPECT_EQ(RawDword(16), values.at(L"RecurrenceOption6")) << "stale since it was monthly";
        EXPECT_EQ(RawDword(22), values.at(L"RecurrenceOption2")) << "written as daily or weekly";
        const std::array<std::int32_t, 6> expected =
            StoredOptions(type) == 2 ? std::array<std::int32_t, 6>{21, 22} : std::array<std::int32_t, 6>{};
        EXPECT_EQ(expected, OptionsOf(Load(key))) << "type " << type;
    }
}

TEST_F(StoredFormatTest, Save_OverDamagedValues_RepairsTypesAndSizes)
{
    CcvReminderData record = DistinctRecord();
    ASSERT_TRUE(record.SaveDataToRegistry(kStore));
    const std::wstring key = record.GetReminderKey().GetString();
    const RawValues whole = Key(key).Values();
    for (const auto& [name, value] : whole)
    {
        Key(key).Write(name, {REG_MULTI_SZ, Bytes(3000, 0x55)});
    }
    Key(key).Write(L"Foreign", RawText(L"kept"));
    ASSERT_TRUE(record.SaveDataToRegistry(kStore));
    RawValues expected = whole;
    expected.emplace(L"Foreign", RawText(L"kept"));
    EXPECT_EQ(expected, Key(key).Values());
}

} // namespace ts::test
