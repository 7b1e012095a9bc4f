// A store in which any value may be anything.

#include "platform/mfc/atlexcept.h"
#include "reminders/CcvReminderDataUtilities.h"
#include "tests/reminders/storage/StoreTest.h"
#include "tests/support/HeapKind.h"

#include <chrono>
#include <limits>

namespace ts::test
{
namespace
{

const wchar_t* const kTextNames[] = {L"DocumentPath",      L"MapGuid",        L"ObjectGuid",
                                     L"OutlookObjectGuid", L"OutlookEntryId", L"DocumentTitle",
                                     L"ObjectTitle",       L"Subject"};
const wchar_t* const kTimeNames[] = {L"NextRecurrentDueDate", L"InitialDueDate", L"Reminder", L"SnoozeTime"};
const wchar_t* const kNumberNames[] = {L"Flags",
                                       L"RecurrenceType",
                                       L"RecurrenceOption1",
                                       L"RecurrenceOption2",
                                       L"RecurrenceOption3",
                                       L"RecurrenceOption4",
                                       L"RecurrenceOption5",
                                       L"RecurrenceOption6"};

// Far above what any query needs: it tells a hang from an answer, and nothing about speed.
constexpr auto kPatience = std::chrono::seconds(2);

/// Anything: any type, size and content.
RawValue Rubbish(RandomSource& random)
{
    constexpr DWORD kTypes[] = {REG_NONE,  REG_SZ, REG_EXPAND_SZ, REG_BINARY, REG_DWORD, REG_MULTI_SZ,
                                REG_QWORD, 12,     0xFFFFFFFF};
    constexpr std::size_t kSizes[] = {0,  1,    2,    3,    4,    5,    7,    8,   9,
                                      16, 2046, 2047, 2048, 2049, 2050, 2051, 5001};
    RawValue value{random.OneOf(kTypes), Bytes(random.OneOf(kSizes))};
    for (std::uint8_t& byte : value.bytes)
    {
        byte = random.Chance(10) ? 0 : static_cast<std::uint8_t>(random.Between(0, 255));
    }
    return value;
}

/// A value of the right type and size, with contents that may be senseless.
RawValue RightKind(RandomSource& random, const std::wstring& name, std::size_t size)
{
    if (size == 0)
    {
        return RawText(RandomText(random, 30));
    }
    if (size == 8)
    {
        // Most dates lie where patterns walk, some of them far back.
        const bool date = random.Chance(60);
        return RawInt64(date ? random.Between<std::int64_t>(-200'000, 3'000'000'000) : RandomInt64(random));
    }
    if (name == L"RecurrenceType" && random.Chance(90))
    {
        return RawDword(random.Between(0u, 5u));
    }
    return RawDword(random.Chance(50) ? random.Between(0u, 12u)
                                      : static_cast<std::uint32_t>(RandomInt32(random)));
}

void WriteHostileKey(RandomSource& random, const RawKey& key)
{
    const int damaged = random.OneOf(std::array{0, 20, 100});
    const auto write = [&](const wchar_t* name, std::size_t size)
    {
        if (!random.Chance(5))
        {
            key.Write(name, random.Chance(damaged) ? Rubbish(random) : RightKind(random, name, size));
        }
    };
    for (const wchar_t* name : kTextNames)
    {
        write(name, 0);
    }
    for (const wchar_t* name : kTimeNames)
    {
        write(name, 8);
    }
    for (const wchar_t* name : kNumberNames)
    {
        write(name, 4);
    }
}

/// Asks, and expects an answer or one of the library's own exceptions within the time.
template <typename Query>
void ExpectAnswer(const char* what, Query query)
{
    const auto start = std::chrono::steady_clock::now();
    try
    {
        query();
    }
    catch (const COleException& error)
    {
        EXPECT_TRUE(error.m_sc == E_FAIL || error.m_sc == E_INVALIDARG) << what << ": " << error.what();
    }
    catch (const CMemoryException&)
    {
        ADD_FAILURE() << what << " ran out of memory";
    }
    EXPECT_LT(std::chrono::steady_clock::now() - start, kPatience) << what;
}

void AskEverything(const CcvReminderData& loaded, CTime now)
{
    CcvReminderData record(loaded);
    ExpectAnswer("GetCalculatedDueTime", [&] { static_cast<void>(record.GetCalculatedDueTime(now)); });
    ExpectAnswer("GetReminderTime", [&] { static_cast<void>(record.GetReminderTime(now)); });
    record = loaded;
    ExpectAnswer("GetReminderStatus",
                 [&]
                 {
                     const auto status = record.GetReminderStatus(now);
                     EXPECT_GE(status, CcvReminderData::RemindActive);
                     EXPECT_LE(status, CcvReminderData::Overdue);
                 });
    ExpectAnswer("GetNextRecurrentTime", [&] { static_cast<void>(record.GetNextRecurrentTime(now)); });
    ExpectAnswer("SetDismissed", [&] { record.SetDismissed(true); });
}

class HostileStoreTest : public StoreTest
{
  protected:
    RandomSource m_random;
};

} // namespace

TEST_F(HostileStoreTest, LoadAndEveryQuery_OfThousandsOfKeys_Return)
{
    constexpr std::int64_t kMin = std::numeric_limits<std::int64_t>::min();
    constexpr std::int64_t kMax = std::numeric_limits<std::int64_t>::max();
    const CTime nows[] = {kMin, -1, 0, 86'400, 1'795'000'000, 32'535'000'000, 32'540'000'000, kMax};
    const RawKey key = Key(L"k");
    for (int round = 0; round < Rounds(2000); ++round)
    {
        SCOPED_TRACE(testing::Message() << m_random << ", round " << round);
        WriteHostileKey(m_random, key);
        const CcvReminderData record = Load(L"k");
        if (round % 10 == 0)
        {
            EXPECT_EQ(FieldsOf(record), FieldsOf(Load(L"k"))) << "loading is no game of chance";
        }
        AskEverything(record, m_random.OneOf(nows));
        AskEverything(record, m_random.Between<std::int64_t>(0, 4'000'000'000));
        if (HasFailure())
        {
            break;
        }
    }
}

TEST_F(HostileStoreTest, Save_OfWhatWasLoaded_LoadsAsTheSame)
{
    for (int round = 0; round < Rounds(400); ++round)
    {
        SCOPED_TRACE(testing::Message() << m_random << ", round " << round);
        WriteHostileKey(m_random, Key(L"k"));
        CcvReminderData record = Load(L"k");
        DeleteKeyTree(PathOf(L"k"));
        ASSERT_TRUE(record.SaveDataToRegistry(kStore));
        ASSERT_EQ(FieldsOf(record), FieldsOf(Load(L"k")));
    }
}

TEST_F(HostileStoreTest, KeySearches_OverAHostileStore_TouchOnlyWhatMatches)
{
    using Utilities = CcvReminderDataUtilities;
    const int keys = Rounds(200);
    for (int number = 0; number < keys; ++number)
    {
        WriteHostileKey(m_random, Key(L"{" + std::to_wstring(number) + L"}"));
    }
    for (const wchar_t* name : {L"first", L"{50.5}", L"{zzz}"})
    {
        Key(name).Write(L"DocumentPath", RawText(L"the path"));
        Key(name).Write(L"MapGuid", RawText(L"the map"));
    }
    Key(L"{zzz}").Write(L"ObjectGuid", RawText(L"the object"));
    auto expected = Snapshot();
    ASSERT_EQ(static_cast<std::size_t>(keys) + 3, expected.size());

    EXPECT_EQ(L"{zzz}", Utilities::FindReminderKey(kStore, L"the path", L"the map", L"the object"))
        << m_random;
    EXPECT_EQ(L"", Utilities::FindReminderKey(kStore, L"the path", L"the map", L"no object")) << m_random;
    EXPECT_EQ(L"{the map-0}", Utilities::GenerateUniqueReminderKey(kStore, L"the map")) << m_random;
    EXPECT_TRUE(expected == Snapshot()) << m_random;

    Utilities::UpdateDocumentPath(kStore, L"the path", L"another path", L"the map");
    for (const wchar_t* name : {L"first", L"{50.5}", L"{zzz}"})
    {
        expected.at(name).at(L"DocumentPath") = RawText(L"another path");
    }
    EXPECT_TRUE(expected == Snapshot()) << m_random;
}

TEST_F(HostileStoreTest, GetDayOfMonth_WithAStoredOrdinalThatNoDialogMakes_CountsTowardsZero)
{
    using Limits = std::numeric_limits<std::int32_t>;
    constexpr int kJune = 6;
    // The first and the last year take another way than those between.
    for (const int year : {1970, 2026, 3000})
    {
        const int firstDay = CTime(year, kJune, 1, 12, 0, 0).GetDayOfWeek();
        for (int weekday = 1; weekday <= 7; ++weekday)
        {
            for (const std::int32_t ordinal : {Limits::min(), -2, -1, 5, 6, 29, 30, Limits::max()})
            {
                const auto asked = static_cast<EcvReminderDayIntegralType>(ordinal);
                EXPECT_EQ(weekday == firstDay ? 0 : 1,
                          CcvReminderDataUtilities::GetDayOfMonth(
                              asked, static_cast<EcvReminderDayType>(1 << (weekday - 1)), year, kJune))
                    << year << ", weekday " << weekday << ", ordinal " << ordinal;
                EXPECT_EQ(
                    0, CcvReminderDataUtilities::GetDayOfMonth(asked, EcvReminderDayType::Day, year, kJune))
                    << year << ", ordinal " << ordinal;
            }
        }
    }
}

TEST_F(HostileStoreTest, CatchUp_OfPatternsThatBeganLongAgo_ReturnsInTime)
{
    // Each type with the smallest steps, from the first seconds of all and of the runtime, to the last.
    constexpr std::int64_t kMin = std::numeric_limits<std::int64_t>::min();
    constexpr std::int64_t kMax = std::numeric_limits<std::int64_t>::max();
    constexpr std::array<std::int32_t, 6> kPatterns[] = {{0, 1, 1, 0, 128, 1},   {1, 1, 1, 4, 512, 1},
                                                         {1, 127, 1, 0, 256, 1}, {1, 31, 1, 4, 1, 1},
                                                         {-1, 1, -1, 0, 1, -1},  {0, 0, 0, 0, 0, 0}};
    for (const std::int32_t type : {1, 2, 3, 4})
    {
        for (const auto& options : kPatterns)
        {
            for (const std::int64_t first :
                 {kMin, std::int64_t{-86'400}, std::int64_t{0}, std::int64_t{200'000}})
            {
                CcvReminderData record = EmptyRecord();
                record.SetRecurrenceType(static_cast<EcvReminderRecurrenceType>(type));
                SetOptions(record, options);
                record.SetNextDueDate(first);
                SCOPED_TRACE(testing::PrintToString(FieldsOf(record)));
                AskEverything(record, kMax);
                AskEverything(record, 32'500'000'000);
            }
        }
    }
}

} // namespace ts::test
