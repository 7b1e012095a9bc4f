// A process is terminated in the middle of saving, again and again. A save writes one value after the other,
// in a fixed order; so what it leaves is the new values up to some point, and behind them what was there
// before.

#include "collection/CcvReminderDataCollectionManager.h"
#include "module/RegistryPaths.h"
#include "platform/mfc/afxdisp.h"
#include "tests/reminders/storage/RecordFields.h"
#include "tests/stress/ChildProcess.h"
#include "tests/stress/SharedStore.h"
#include "tests/stress/StampedRecord.h"
#include "tests/stress/StressChild.h"
#include "tests/support/RandomSource.h"
#include "tests/support/RawRegistry.h"
#include "tests/support/TextOutput.h"

#include <algorithm>
#include <gtest/gtest.h>
#include <iterator>
#include <span>

namespace ts::test
{
namespace
{

constexpr int kKills = 100;
constexpr DWORD kPatienceMilliseconds = 60'000;

/// A monthly reminder's values, in the order in which a save writes them.
constexpr const wchar_t* kWriteOrder[] = {L"DocumentPath",      L"MapGuid",
                                          L"ObjectGuid",        L"OutlookObjectGuid",
                                          L"OutlookEntryId",    L"DocumentTitle",
                                          L"ObjectTitle",       L"Flags",
                                          L"Subject",           L"NextRecurrentDueDate",
                                          L"InitialDueDate",    L"Reminder",
                                          L"SnoozeTime",        L"RecurrenceType",
                                          L"RecurrenceOption1", L"RecurrenceOption2",
                                          L"RecurrenceOption3", L"RecurrenceOption4",
                                          L"RecurrenceOption5", L"RecurrenceOption6"};

using Store = std::map<std::wstring, RawValues>;

std::wstring PathOf(const std::wstring& key)
{
    return std::wstring(kRemindersPath) + L"\\" + key;
}

Store Snapshot()
{
    Store store;
    for (const std::wstring& key : RawKey(kRemindersPath).Subkeys())
    {
        store.emplace(key, RawKey(PathOf(key)).Values());
    }
    return store;
}

/// What a whole save of the record stores.
RawValues ValuesOf(CcvReminderData record)
{
    constexpr wchar_t kScratch[] = L"Software\\Scratch";
    DeleteKeyTree(kScratch);
    EXPECT_TRUE(record.SaveDataToRegistry(kScratch));
    return RawKey(std::wstring(kScratch) + L"\\" + record.GetReminderKey().GetString()).Values();
}

/// How many values, in the order of writing, are those of `expected`.
std::ptrdiff_t CountOfFirst(const RawValues& values, const RawValues& expected)
{
    const auto end = std::find_if(std::begin(kWriteOrder), std::end(kWriteOrder),
                                  [&](const wchar_t* name)
                                  { return !values.contains(name) || values.at(name) != expected.at(name); });
    return end - std::begin(kWriteOrder);
}

/// Whether values of the last save but one are left is counted in `mixed`.
void ExpectNewThenOld(const RawValues& values, int& mixed)
{
    CcvReminderData loaded{CString(kSavedKey)};
    ASSERT_TRUE(loaded.LoadDataFromRegistry(kRemindersPath));
    ASSERT_TRUE(IsMadeOfStampedFields(loaded));
    const Stamp newest = NewestStampOf(loaded);
    const std::ptrdiff_t count =
        CountOfFirst(values, ValuesOf(StampedRecord(kSavedKey, kSavedMap, 0, newest)));
    if (count == std::ssize(kWriteOrder))
    {
        return;
    }
    ++mixed;
    const RawValues old =
        ValuesOf(StampedRecord(kSavedKey, kSavedMap, 0, {newest.writer, newest.number - 1}));
    for (const wchar_t* name : std::span(kWriteOrder).subspan(static_cast<std::size_t>(count)))
    {
        ASSERT_EQ(old.at(name), values.at(name)) << testing::PrintToString(CString(name));
    }
}

/// All values, but for the last key, where the number of those that are there is free.
void ExpectFirstValues(const RawValues& values, int number, bool last, int& halfWritten)
{
    const RawValues whole = ValuesOf(StampedRecord(L"whole", kAddedMap, 0, {kSaver, number}));
    const std::ptrdiff_t count = CountOfFirst(values, whole);
    ASSERT_EQ(count, std::ssize(values));
    if (count != std::ssize(kWriteOrder))
    {
        ASSERT_TRUE(last);
        ++halfWritten;
    }
}

class KilledSaveTest : public testing::Test
{
  protected:
    KilledSaveTest() { AddOthers(); }
    ~KilledSaveTest() override { DeleteKeyTree(kRemindersPath); }

    /// Starts a child, and kills it at a random moment of its saving.
    void KillOne(const std::wstring& what)
    {
        const ChildProcess child(what + L" " + std::to_wstring(NumberOf(m_user.get())) + L" " +
                                 std::to_wstring(NumberOf(m_ready.get())));
        ASSERT_EQ(WAIT_OBJECT_0, WaitForSingleObject(m_ready.get(), kPatienceMilliseconds));
        Spend(m_random.Between(0, 6000));
        ASSERT_EQ(DWORD{STILL_ACTIVE}, child.ExitCode());
        child.Kill();
    }

    /// The others have not changed by a byte, and every key loads.
    void ExpectStore(const Store& store)
    {
        for (const auto& [key, values] : m_others)
        {
            ASSERT_TRUE(store.contains(key));
            ASSERT_EQ(values, store.at(key));
        }
        CcvReminderDataCollectionManager manager(false);
        ASSERT_TRUE(manager.UpdateReminderCollection());
        ASSERT_EQ(static_cast<int>(store.size()), manager.GetRemindersCount());
        for (int index = 0; index < manager.GetRemindersCount(); ++index)
        {
            CcvReminderData loaded{manager.GetReminderByIndex(index)->GetReminderKey()};
            ASSERT_TRUE(loaded.LoadDataFromRegistry(kRemindersPath));
            ASSERT_EQ(FieldsOf(loaded), FieldsOf(*manager.GetReminderByIndex(index)));
            AskForDueTime(loaded);
        }
    }

    // First, because all else goes into it.
    InheritedKey m_user = UserKeyForChildren();
    RandomSource m_random;
    Store m_others;

  private:
    /// Whole reminders and some that are none.
    void AddOthers()
    {
        for (int topic = 0; topic < 4; ++topic)
        {
            CcvReminderData record = StampedRecord(CString(), L"other", topic, {L'O', topic});
            EXPECT_TRUE(record.SaveDataToRegistry(kRemindersPath));
        }
        RawKey(PathOf(L"empty"));
        RawKey(PathOf(L"{rubbish}")).Write(L"RecurrenceType", RawText(L"none"));
        m_others = Snapshot();
    }

    /// Shorter than the system's clock ticks.
    static void Spend(int microseconds)
    {
        LARGE_INTEGER frequency;
        LARGE_INTEGER start;
        LARGE_INTEGER now;
        QueryPerformanceFrequency(&frequency);
        QueryPerformanceCounter(&start);
        do
        {
            QueryPerformanceCounter(&now);
        } while ((now.QuadPart - start.QuadPart) * 1'000'000 < microseconds * frequency.QuadPart);
    }

    /// A half-written pattern may have no due time, but asking for it ends.
    static void AskForDueTime(CcvReminderData& record)
    {
        constexpr std::int64_t kNow = 1'800'000'000;
        try
        {
            static_cast<void>(record.GetReminderStatus(kNow));
        }
        catch (const COleException&)
        {
            return;
        }
    }

    KernelHandle m_ready = EventForChildren();

    static KernelHandle EventForChildren()
    {
        SECURITY_ATTRIBUTES inherited{sizeof inherited, nullptr, TRUE};
        return KernelHandle(CreateEventW(&inherited, FALSE, FALSE, nullptr));
    }
};

} // namespace

TEST_F(KilledSaveTest, SaveOfAStoredReminder_Killed_LeavesNewValuesThenOldOnes)
{
    int mixed = 0;
    for (int kill = 0; kill < kKills; ++kill)
    {
        SCOPED_TRACE(testing::Message() << m_random << ", kill " << kill);
        CcvReminderData saved = StampedRecord(kSavedKey, kSavedMap, 0, {kSaver, 0});
        ASSERT_TRUE(saved.SaveDataToRegistry(kRemindersPath));
        ASSERT_NO_FATAL_FAILURE(KillOne(L"overwrite"));

        const Store store = Snapshot();
        ASSERT_EQ(m_others.size() + 1, store.size());
        ASSERT_NO_FATAL_FAILURE(ExpectStore(store));
        ASSERT_NO_FATAL_FAILURE(ExpectNewThenOld(store.at(kSavedKey), mixed));
    }
    EXPECT_GT(mixed, 0) << m_random;
}

TEST_F(KilledSaveTest, SaveOfANewReminder_Killed_LeavesItsFirstValues)
{
    int halfWritten = 0;
    for (int kill = 0; kill < kKills; ++kill)
    {
        SCOPED_TRACE(testing::Message() << m_random << ", kill " << kill);
        ASSERT_NO_FATAL_FAILURE(KillOne(L"add"));

        const Store store = Snapshot();
        ASSERT_NO_FATAL_FAILURE(ExpectStore(store));
        const int added = static_cast<int>(store.size() - m_others.size());
        for (int number = 0; number < added; ++number)
        {
            const std::wstring key = L"{" + std::wstring(kAddedMap) + L"-" + std::to_wstring(number) + L"}";
            ASSERT_TRUE(store.contains(key));
            ASSERT_NO_FATAL_FAILURE(
                ExpectFirstValues(store.at(key), number + 1, number + 1 == added, halfWritten));
            DeleteKeyTree(PathOf(key));
        }
    }
    EXPECT_GT(halfWritten, 0) << m_random;
}

} // namespace ts::test
