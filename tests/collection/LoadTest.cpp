// What the collection holds after it was loaded.

#include "tests/collection/CollectionTest.h"
#include "tests/support/Allocations.h"
#include "tests/support/HandleCount.h"
#include "tests/support/HeapKind.h"

#include <sddl.h>

namespace ts::test
{
namespace
{

/// While it lives, nobody may do more with a key than to read it.
class ReadOnlyKey
{
  public:
    explicit ReadOnlyKey(HKEY key) : m_key(key) { SetAccess(L"D:(A;;KR;;;WD)"); }
    ReadOnlyKey(const ReadOnlyKey&) = delete;
    ReadOnlyKey& operator=(const ReadOnlyKey&) = delete;
    ~ReadOnlyKey() { SetAccess(L"D:(A;;KA;;;WD)"); }

  private:
    void SetAccess(const wchar_t* text) const
    {
        PSECURITY_DESCRIPTOR access = nullptr;
        EXPECT_TRUE(
            ConvertStringSecurityDescriptorToSecurityDescriptorW(text, SDDL_REVISION_1, &access, nullptr));
        EXPECT_EQ(ERROR_SUCCESS, RegSetKeySecurity(m_key, DACL_SECURITY_INFORMATION, access));
        LocalFree(access);
    }

    HKEY m_key;
};

class LoadTest : public CollectionTest
{
  protected:
    static std::vector<RecordFields> Loaded(const Manager& manager)
    {
        std::vector<RecordFields> loaded;
        for (int index = 0; index < manager.GetRemindersCount(); ++index)
        {
            loaded.push_back(FieldsOf(*manager.GetReminderByIndex(index)));
        }
        return loaded;
    }

    /// What the store has for that key.
    static RecordFields Stored(const std::wstring& key) { return FieldsOf(Load(key)); }

    /// A record that has nothing but its key.
    static RecordFields Bare(const std::wstring& key)
    {
        return FieldsOf(CcvReminderData(CString(key.c_str())));
    }
};

} // namespace

TEST_F(LoadTest, Load_WithoutAStore_FailsAndIsEmpty)
{
    Manager manager(false);
    EXPECT_EQ(0, manager.GetRemindersCount());
    EXPECT_FALSE(manager.UpdateReminderCollection());
    EXPECT_EQ(0, manager.GetRemindersCount());
    EXPECT_FALSE(KeyExists(kStore)) << "loading writes nothing";
}

TEST_F(LoadTest, Load_OfAnEmptyStore_SucceedsAndIsEmpty)
{
    const RawKey root(kStore);
    root.Write(L"a value beside the reminders", RawDword(1));
    Manager manager(false);
    EXPECT_EQ(0, manager.GetRemindersCount());
    EXPECT_TRUE(manager.UpdateReminderCollection());
    EXPECT_EQ(0, manager.GetRemindersCount());
}

TEST_F(LoadTest, Load_OfManyReminders_KeepsTheRegistrysOrder)
{
    for (const wchar_t* key : {L"{M-2}", L"{M-10}", L"zebra", L"Ant", L"{M-1}", L" ", L"{\x00E4-0}", L"ant2"})
    {
        CcvReminderData keyed{CString(key)};
        keyed.SetObjectGuid(key);
        keyed.SetSubject(CString(L"about ") + key);
        Store(keyed);
    }
    const std::vector<std::wstring> keys = RawKey(kStore).Subkeys();
    ASSERT_EQ(8u, keys.size());
    std::vector<RecordFields> expected;
    for (const std::wstring& key : keys)
    {
        expected.push_back(Stored(key));
    }
    Manager manager(false);
    EXPECT_EQ(expected, Loaded(manager));
    EXPECT_TRUE(manager.UpdateReminderCollection());
    EXPECT_EQ(expected, Loaded(manager));
}

TEST_F(LoadTest, Load_AfterARecordThatFails_KeepsTheOthersByTheirKeyOnly)
{
    StoreTopics({L"first", L"second", L"third"});
    Manager whole(false);
    const std::vector<std::wstring> keys = {L"{M-0}", L"{M-1}", L"{M-2}"};
    for (std::size_t failing = 0; failing < keys.size(); ++failing)
    {
        DeleteKeyTree(kStore);
        StoreTopics({L"first", L"second", L"third"});
        std::vector<RecordFields> expected;
        for (std::size_t index = 0; index < keys.size(); ++index)
        {
            expected.push_back(index < failing ? Stored(keys[index]) : Bare(keys[index]));
        }
        {
            const LockedKey locked(keys[failing]);
            Manager manager(false);
            EXPECT_EQ(expected, Loaded(manager)) << failing;
            EXPECT_FALSE(manager.UpdateReminderCollection());
            EXPECT_EQ(expected, Loaded(manager)) << failing;
            EXPECT_FALSE(whole.UpdateReminderCollection());
            EXPECT_EQ(expected, Loaded(whole)) << failing;
        }
        EXPECT_TRUE(whole.UpdateReminderCollection()) << "the damaged one is gone";
        EXPECT_EQ(2, whole.GetRemindersCount());
    }
}

TEST_F(LoadTest, Load_OfAStoreThatMayOnlyBeRead_Succeeds)
{
    StoreTopics({L"first"});
    const RawKey root(kStore);
    const ReadOnlyKey readOnly(root.Get());
    HKEY writable = nullptr;
    ASSERT_EQ(ERROR_ACCESS_DENIED, RegOpenKeyExW(HKEY_CURRENT_USER, kStore, 0, KEY_WRITE, &writable));
    Manager manager(false);
    EXPECT_EQ(1, manager.GetRemindersCount());
    EXPECT_TRUE(manager.UpdateReminderCollection());
}

TEST_F(LoadTest, Update_AfterTheStoreChanged_HasTheNewState)
{
    StoreTopics({L"first", L"second"});
    Manager manager(false);
    StoreTopics({L"third"});
    Key(L"{M-0}").Write(L"Subject", RawText(L"changed"));
    EXPECT_EQ(2, manager.GetRemindersCount());
    EXPECT_EQ(L"about first", manager.GetReminderByIndex(0)->GetSubject()) << "until it is asked to";
    EXPECT_TRUE(manager.UpdateReminderCollection());
    ASSERT_EQ(3, manager.GetRemindersCount());
    EXPECT_EQ(L"changed", manager.GetReminderByIndex(0)->GetSubject());

    DeleteKeyTree(kStore);
    EXPECT_FALSE(manager.UpdateReminderCollection());
    EXPECT_EQ(0, manager.GetRemindersCount());
    EXPECT_EQ(nullptr, manager.GetReminderByIndex(0));
}

TEST_F(LoadTest, Update_ManyTimes_LeavesNoMemoryAndNoHandles)
{
    for (int topic = 0; topic < 40; ++topic)
    {
        Store(NewReminder(std::to_wstring(topic)));
    }
    Manager manager(false);
    ASSERT_EQ(40, manager.GetRemindersCount());
    manager.UpdateReminderCollection();
    const std::size_t memory = LiveAllocationCount();
    const std::size_t handles = HandleCount();
    for (int round = 0; round < Rounds(100) + 15; ++round)
    {
        ASSERT_TRUE(manager.UpdateReminderCollection());
    }
    EXPECT_EQ(memory, LiveAllocationCount());
    EXPECT_GT(handles + kNoise, HandleCount());
}

TEST_F(LoadTest, Destruction_OfAManager_FreesItsRecords)
{
    StoreTopics({L"first", L"second", L"third"});
    const std::size_t memory = LiveAllocationCount();
    {
        const Manager manager(false);
        EXPECT_LT(memory, LiveAllocationCount());
    }
    EXPECT_EQ(memory, LiveAllocationCount());
}

TEST_F(LoadTest, Load_WhileAnotherProcessWrites_GivesWholeRecordsOrBareOnes)
{
    StoreTopics({L"stays"});
    Manager manager(false);
    std::atomic<bool> stop{false};
    std::thread other(
        [&]
        {
            while (!stop)
            {
                CcvReminderData record = NewReminder(L"comes and goes");
                record.SaveDataToRegistry(kStore);
                record.DeleteDataFromRegistry(kStore);
            }
        });
    for (int round = 0; round < Rounds(300); ++round)
    {
        manager.UpdateReminderCollection();
        const int count = manager.GetRemindersCount();
        EXPECT_TRUE(count == 1 || count == 2) << count;
        EXPECT_EQ(L"stays", manager.GetReminderByIndex(0)->GetObjectGuid());
    }
    stop = true;
    other.join();
}

} // namespace ts::test
