#include "tests/reminders/storage/StoreTest.h"

#include "module/RegistryPaths.h"

namespace ts::test
{

StoreTest::StoreTest()
{
    EXPECT_STREQ(kStore, kRemindersPath);
    DeleteKeyTree(kStore);
}

StoreTest::~StoreTest()
{
    DeleteKeyTree(kStore);
}

CcvReminderData StoreTest::Load(const std::wstring& key)
{
    CcvReminderData record{CString(key.c_str())};
    EXPECT_TRUE(record.LoadDataFromRegistry(kStore));
    return record;
}

std::map<std::wstring, RawValues> StoreTest::Snapshot()
{
    std::map<std::wstring, RawValues> store;
    for (const std::wstring& key : RawKey(kStore).Subkeys())
    {
        store.emplace(key, Key(key).Values());
    }
    return store;
}

} // namespace ts::test
