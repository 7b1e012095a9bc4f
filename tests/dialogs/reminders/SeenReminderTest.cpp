#include "dialogs/SeenReminder.h"

#include "collection/CcvReminderDataCollectionManager.h"
#include "module/RegistryPaths.h"
#include "tests/dialogs/ListHarness.h"

namespace
{

using namespace ts::test;

class SeenReminderTest : public testing::Test
{
  protected:
    /// Stores a reminder of a map; without a key it gets the next one of the map.
    static CString Store(const CString& key, const wchar_t* topic)
    {
        CcvReminderData reminder(key);
        reminder.SetMapGuid(L"{map}");
        reminder.SetObjectGuid(topic);
        reminder.SetDocumentPath(L"C:\\Maps\\Map");
        reminder.SetInitialDueDate(Noon());
        reminder.SetNextDueDate(Noon());
        EXPECT_TRUE(reminder.SaveDataToRegistry(ts::kRemindersPath));
        return reminder.GetReminderKey();
    }

    FixedClock m_clock{Noon()};
    ReminderStore m_store;
};

TEST_F(SeenReminderTest, KeyThatIsUsedAgainForAnotherTopic_IsAnotherReminder)
{
    const CString key = Store(CString(), L"{first}");
    CcvReminderDataCollectionManager manager(false);
    ASSERT_EQ(1, manager.GetRemindersCount());
    const ts::SeenReminder seen(*manager.GetReminderByIndex(0), Noon());
    EXPECT_EQ(manager.GetReminderByIndex(0), seen.FindIn(manager));
    Store(key, L"{second}");
    manager.UpdateReminderCollection();
    ASSERT_EQ(1, manager.GetRemindersCount());
    EXPECT_EQ(nullptr, seen.FindIn(manager));
}

TEST_F(SeenReminderTest, TwoRemindersOfOneTopic_AreToldApart)
{
    Store(CString(), L"{topic}");
    Store(CString(), L"{topic}");
    const CcvReminderDataCollectionManager manager(false);
    ASSERT_EQ(2, manager.GetRemindersCount());
    for (int index = 0; index < 2; ++index)
    {
        const ts::SeenReminder seen(*manager.GetReminderByIndex(index), Noon());
        EXPECT_EQ(manager.GetReminderByIndex(index), seen.FindIn(manager)) << index;
    }
}

} // namespace
