#include "hosts/desktop/Topics.h"

#include <gtest/gtest.h>
#include <set>
#include <string>

namespace
{

using namespace ts::desktop;

class TopicsTest : public testing::Test
{
  protected:
    void SetUp() override { RegDeleteTreeW(HKEY_CURRENT_USER, ts::kRemindersPath); }

    static std::size_t Marked(const std::vector<Topic>& topics)
    {
        std::size_t count = 0;
        for (const Topic& topic : topics)
        {
            count += topic.hasReminder ? 1 : 0;
        }
        return count;
    }
};

TEST_F(TopicsTest, EmptyStore_GivesTheSamplesWithDistinctIdentities)
{
    const CcvReminderDataCollectionManager manager(false);
    const auto topics = KnownTopics(manager);
    EXPECT_EQ(8u, topics.size());
    EXPECT_EQ(0u, Marked(topics));
    std::set<std::wstring> identities;
    for (const Topic& topic : topics)
    {
        identities.insert(NewReminder(topic, CTime(1)).GetGuid().GetString());
        CLSID guid;
        EXPECT_EQ(S_OK, CLSIDFromString(topic.guid, &guid)) << topic.title.GetString();
        EXPECT_EQ(S_OK, CLSIDFromString(topic.mapGuid, &guid)) << topic.documentTitle.GetString();
    }
    EXPECT_EQ(topics.size(), identities.size());
}

TEST_F(TopicsTest, SampleWithReminder_IsMarkedAndNotListedTwice)
{
    CcvReminderDataCollectionManager manager(false);
    CcvReminderData reminder = NewReminder(KnownTopics(manager).at(3), CTime::GetCurrentTime());
    ASSERT_TRUE(manager.AddReminder(&reminder, false));
    manager.UpdateReminderCollection();
    const auto topics = KnownTopics(manager);
    EXPECT_EQ(8u, topics.size());
    EXPECT_EQ(1u, Marked(topics));
    EXPECT_TRUE(topics.at(3).hasReminder);
}

TEST_F(TopicsTest, NewReminder_IsDueAtTheNextFullQuarter)
{
    const CcvReminderDataCollectionManager manager(false);
    const Topic topic = KnownTopics(manager).at(0);
    for (const auto& [now, due] : {std::pair(0, 900), {1, 900}, {899, 900}, {900, 1800}, {1000, 1800}})
    {
        const CcvReminderData reminder = NewReminder(topic, CTime(now));
        EXPECT_EQ(due, reminder.GetNextDueDate().GetTime()) << now;
        EXPECT_EQ(due, reminder.GetInitialDueDate().GetTime()) << now;
        EXPECT_TRUE(reminder.GetReminderKey().IsEmpty());
        EXPECT_TRUE(reminder.GetSubject() == topic.title);
        EXPECT_FALSE(reminder.IsRecurrent());
    }
}

} // namespace
