#include "ConsoleHarness.h"
#include "hosts/common/ServiceWindow.h"

#include <functional>
#include <utility>

// Another program changes a reminder while the console writes it: as soon as it hears of it.

namespace
{

class ChangedMeanwhile : public ConsoleTest
{
  protected:
    /// Once, inside the call that tells of a change.
    std::function<void()> m_change;

  private:
    ts::hosts::ServiceWindow m_window{L"Other program", [this](ts::hosts::ServiceEvent)
                                      {
                                          if (const auto change = std::exchange(m_change, nullptr))
                                          {
                                              change();
                                          }
                                      }};
};

CcvReminderData Stored(const wchar_t* key)
{
    CcvReminderData reminder{CString(key)};
    EXPECT_TRUE(reminder.LoadDataFromRegistry(ts::kRemindersPath));
    return reminder;
}

constexpr wchar_t kKey[] = L"{{6B1D7C5E-0F43-4C0B-9A35-3F1B8E6A2D01}-0}";

TEST_F(ChangedMeanwhile, AddedReminder_IsNotTakenBack)
{
    m_change = []
    {
        CcvReminderData reminder = Stored(kKey);
        reminder.SetSnoozeTime(CTimeSpan(3600));
        EXPECT_TRUE(reminder.SaveDataToRegistry(ts::kRemindersPath));
    };
    EXPECT_EQ("{{6B1D7C5E-0F43-4C0B-9A35-3F1B8E6A2D01}-0}", Add("2950-03-04"));
    EXPECT_FALSE(m_change);
    EXPECT_TRUE(Stored(kKey).IsSnoozed());
}

TEST_F(ChangedMeanwhile, EditedReminder_IsLeftToTheOtherProgramAndTheUserIsTold)
{
    const CTime later(2951, 1, 1, 0, 0, 0);
    const std::function<void(CcvReminderData&)> changes[] = {
        [](CcvReminderData& reminder) { reminder.SetDocumentPath(L"theirs"); },
        [](CcvReminderData& reminder) { reminder.SetDocumentTitle(L"theirs"); },
        [](CcvReminderData& reminder) { reminder.SetObjectTitle(L"theirs"); },
        [](CcvReminderData& reminder) { reminder.SetSubject(L"theirs"); },
        [&](CcvReminderData& reminder) { reminder.SetInitialDueDate(later); },
        [&](CcvReminderData& reminder) { reminder.SetNextDueDate(later); },
        [](CcvReminderData& reminder) { reminder.SetReminderTimeSpan(CTimeSpan(77)); },
        [](CcvReminderData& reminder) { reminder.SetSnoozeTime(CTimeSpan(77)); },
        [](CcvReminderData& reminder) { reminder.SetDailyRecurrenceNumber(7); },
        [](CcvReminderData& reminder) { reminder.SetRecurrenceType(EcvReminderRecurrenceType::None); },
    };
    int number = 0;
    for (const auto& change : changes)
    {
        SCOPED_TRACE(testing::Message() << "change " << number++);
        const std::string key = Add("2950-03-04", {"--daily", "2"});
        Succeed({"snooze", key, "5m"});
        m_change = [&change]
        {
            CcvReminderData reminder = Stored(kKey);
            change(reminder);
            EXPECT_TRUE(reminder.SaveDataToRegistry(ts::kRemindersPath));
        };
        const Outcome outcome = Reminders({"edit", key, "--subject", "mine"});
        EXPECT_EQ(1, outcome.code);
        EXPECT_NE(std::string::npos, outcome.err.find("another program may have changed it")) << outcome.err;
        Succeed({"delete", key});
    }
}

TEST_F(ChangedMeanwhile, ReminderOfAnotherTopicUnderTheSameKey_IsLeftAlone)
{
    // Two programs that add at the same moment may choose the same key; the later one's reminder stands.
    m_change = []
    {
        CcvReminderData reminder = Stored(kKey);
        reminder.SetObjectGuid(L"{77777777-0F43-4C0B-9A35-3F1B8E6A2D02}");
        EXPECT_TRUE(reminder.SaveDataToRegistry(ts::kRemindersPath));
    };
    const Outcome outcome = Reminders(AddArguments("2950-03-04", {"--no-outlook"}));
    EXPECT_EQ(1, outcome.code);
    EXPECT_NE(std::string::npos, outcome.err.find("could not be written"));
    EXPECT_EQ(L"{77777777-0F43-4C0B-9A35-3F1B8E6A2D02}", std::wstring(Stored(kKey).GetObjectGuid()));
}

} // namespace
