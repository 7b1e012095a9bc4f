// Two hosts change the same reminders for half a minute, each telling the other.

#include "collection/CcvReminderDataCollectionManager.h"
#include "module/RegistryPaths.h"
#include "tests/stress/ChildProcess.h"
#include "tests/stress/SharedStore.h"
#include "tests/stress/StampedRecord.h"
#include "tests/stress/StressChild.h"
#include "tests/support/RandomSource.h"
#include "tests/support/RawRegistry.h"
#include "tests/support/TextOutput.h"

#include <gtest/gtest.h>

namespace ts::test
{
namespace
{

constexpr unsigned kSeconds = 30;
/// For a machine that is busy with other things; nothing is measured by it.
constexpr DWORD kPatienceMilliseconds = (kSeconds + 150) * 1000;

std::wstring Arguments(const InheritedKey& user, wchar_t writer, std::uint64_t seed)
{
    return L"change " + std::to_wstring(NumberOf(user.get())) + L" " + writer + L" " +
           std::to_wstring(kSeconds) + L" " + std::to_wstring(seed);
}

std::uint32_t Reported(const std::wstring& name)
{
    const std::optional<RawValue> value = RawKey(kReports).Read(name);
    return value && value->bytes.size() == sizeof(std::uint32_t)
               ? value->bytes[0] | value->bytes[1] << 8U | value->bytes[2] << 16U
               : 0;
}

/// All values that a save writes, so that none is a default of the load.
void ExpectAllValues(const CString& key)
{
    constexpr std::size_t kValues = 20;
    const RawValues values = RawKey(std::wstring(kRemindersPath) + L"\\" + key.GetString()).Values();
    EXPECT_EQ(kValues, values.size()) << testing::PrintToString(key);
}

} // namespace

TEST(TwoProcesses_ForHalfAMinute, EveryKeyLoadsAndHoldsAWholeRecord)
{
    RandomSource random;
    SCOPED_TRACE(testing::Message() << random);
    const InheritedKey user = UserKeyForChildren();
    for (int topic = 0; topic < kSharedTopics; ++topic)
    {
        CcvReminderData record = StampedRecord(CString(), kSharedMap, topic, {L'A', 0});
        ASSERT_TRUE(record.SaveDataToRegistry(kRemindersPath));
    }
    const ChildProcess first(Arguments(user, L'A', random.Between(0, 1'000'000)));
    const ChildProcess second(Arguments(user, L'B', random.Between(0, 1'000'000)));
    ASSERT_TRUE(first.Wait(kPatienceMilliseconds));
    ASSERT_TRUE(second.Wait(kPatienceMilliseconds));
    EXPECT_EQ(DWORD{kChildDone}, first.ExitCode());
    EXPECT_EQ(DWORD{kChildDone}, second.ExitCode());

    CcvReminderDataCollectionManager manager(false);
    EXPECT_TRUE(manager.UpdateReminderCollection());
    EXPECT_GT(manager.GetRemindersCount(), 0);
    for (int index = 0; index < manager.GetRemindersCount(); ++index)
    {
        const CcvReminderData& record = *manager.GetReminderByIndex(index);
        const bool shared = record.GetMapGuid() == kSharedMap;
        EXPECT_TRUE(shared ? IsMadeOfStampedFields(record) : IsWhole(record))
            << testing::PrintToString(record.GetReminderKey());
        ExpectAllValues(record.GetReminderKey());
    }
    for (const wchar_t* what : {L"A changes", L"B changes", L"A messages", L"B messages"})
    {
        EXPECT_GT(Reported(what), 0U) << testing::PrintToString(CString(what));
    }
}

} // namespace ts::test
