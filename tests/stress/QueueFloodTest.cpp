// Far more changes than Outlook can follow: the host's thread never waits for it, and the worker survives.

#include "collection/CcvReminderDataCollectionManager.h"
#include "module/CcvReminderOptionUtilities.h"
#include "module/RegistryPaths.h"
#include "tests/outlook_standin/Standin.h"
#include "tests/reminders/storage/RecordFields.h"
#include "tests/support/RandomSource.h"
#include "tests/support/RawRegistry.h"
#include "tests/support/TextOutput.h"

#include <algorithm>
#include <array>
#include <chrono>
#include <gtest/gtest.h>
#include <memory>
#include <optional>

namespace ts::test
{
namespace
{

constexpr int kTopics = 10;
constexpr int kChanges = 10'000;

CcvReminderData Reminder(int topic, const wchar_t* outlookGuid)
{
    CcvReminderData record{CString()};
    record.SetDocumentPath(L"C:\\Maps\\Plan");
    record.SetMapGuid(L"{map}");
    record.SetObjectGuid((L"{topic " + std::to_wstring(topic) + L"}").c_str());
    record.SetOutlookObjectGuid(outlookGuid);
    record.SetInitialDueDate(1'800'000'000);
    record.SetNextDueDate(1'800'000'000);
    record.SetRecurrenceType(EcvReminderRecurrenceType::Daily);
    record.SetDailyRecurrenceNumber(3);
    return record;
}

/// The identifiers are the worker's business.
RecordFields FieldsButIdentifiers(const CcvReminderData& record)
{
    RecordFields fields = FieldsOf(record);
    fields.outlookObjectGuid.Empty();
    fields.outlookEntryId.Empty();
    return fields;
}

std::size_t CountActivations(const standin::InProcessOutlook& outlook)
{
    const std::vector<standin::Call> calls = outlook.GetCalls();
    return static_cast<std::size_t>(std::count_if(
        calls.begin(), calls.end(), [](const standin::Call& call) { return call.access == L"activate"; }));
}

class QueueFloodTest : public testing::Test
{
  protected:
    QueueFloodTest()
    {
        const RawKey settings(kSettingsPath);
        const RawKey reminders(kRemindersPath);
        CcvReminderOptionUtilities::SetSynchronizeOutlookAppointments(true);
    }
    ~QueueFloodTest() override
    {
        DeleteKeyTree(kRemindersPath);
        DeleteKeyTree(kSettingsPath);
    }

    /// Stores a reminder for each topic. With a GUID that Outlook does not know, each change reaches it.
    void FillStore()
    {
        for (int topic = 0; topic < kTopics; ++topic)
        {
            m_records[topic] = Reminder(topic, L"{appointment}");
            ASSERT_TRUE(m_records[topic]->SaveDataToRegistry(kRemindersPath));
        }
    }

    /// One change, which queues one command.
    void Change(CcvReminderDataCollectionManager& manager, int number)
    {
        const int topic = m_random.Between(0, kTopics - 1);
        std::optional<CcvReminderData>& record = m_records[topic];
        if (!record)
        {
            record = Reminder(topic, L"{appointment}");
            ASSERT_TRUE(manager.AddReminder(&*record, true));
        }
        else if (m_random.Chance(20))
        {
            ASSERT_TRUE(manager.DeleteReminder(&*record, true));
            record.reset();
        }
        else if (m_random.Chance(20))
        {
            ASSERT_TRUE(manager.DismissReminder(&*record));
        }
        else
        {
            record->SetSubject((L"change " + std::to_wstring(number)).c_str());
            ASSERT_TRUE(manager.ModifyReminder(&*record, true));
        }
    }

    /// Slow, and failing at any of the first calls of a command; some commands succeed in between.
    standin::Faults NextFaults()
    {
        standin::Faults faults;
        faults.delayPerCall = std::chrono::milliseconds(100);
        faults.failure = standin::CallFailure{m_random.Between<long>(1, 20)};
        faults.failure->andAllLater = m_random.Chance(50);
        return faults;
    }

    void ExpectStore() const
    {
        CcvReminderDataCollectionManager stored(false);
        EXPECT_TRUE(stored.UpdateReminderCollection());
        int expected = 0;
        for (const std::optional<CcvReminderData>& record : m_records)
        {
            if (!record)
            {
                continue;
            }
            ++expected;
            const CcvReminderData* found = stored.GetReminderByGuid(
                record->GetDocumentPath(), record->GetMapGuid(), record->GetObjectGuid());
            ASSERT_NE(nullptr, found);
            EXPECT_EQ(FieldsButIdentifiers(*record), FieldsButIdentifiers(*found));
        }
        EXPECT_EQ(expected, stored.GetRemindersCount());
    }

    RandomSource m_random;
    std::array<std::optional<CcvReminderData>, kTopics> m_records;
};

/// Whether an appointment is saved before a minute is over.
bool SavesAnAppointment(const standin::InProcessOutlook& outlook)
{
    for (int look = 0; look < 600; ++look)
    {
        for (const std::wstring& call : outlook.GetCallTexts())
        {
            if (call.find(L"Save") != std::wstring::npos)
            {
                return true;
            }
        }
        Sleep(100);
    }
    return false;
}

void SpinFor(std::chrono::nanoseconds time)
{
    const auto end = std::chrono::steady_clock::now() + time;
    while (std::chrono::steady_clock::now() < end)
    {
    }
}

} // namespace

TEST_F(QueueFloodTest, TenThousandChanges_WithASlowAndFailingOutlook_NeitherWaitNorHarm)
{
    SCOPED_TRACE(testing::Message() << m_random);
    standin::InProcessOutlook outlook(standin::Apartment::OwnThread);
    FillStore();
    auto manager = std::make_unique<CcvReminderDataCollectionManager>(true);
    for (int number = 0; number < kChanges; ++number)
    {
        if (number % 200 == 0)
        {
            outlook.SetFaults(NextFaults());
        }
        ASSERT_NO_FATAL_FAILURE(Change(*manager, number));
    }
    // All changes have returned, and most of what they queued is yet to come: they did not wait for it.
    EXPECT_FALSE(manager->WaitForOutlookCommands(0));
    EXPECT_LT(CountActivations(outlook), std::size_t{kChanges / 2});
    ExpectStore();

    outlook.ClearFaults();
    outlook.ClearCalls();
    EXPECT_TRUE(SavesAnAppointment(outlook));

    // In the middle of a slow command, with thousands behind it.
    outlook.SetFaults(NextFaults());
    EXPECT_FALSE(manager->WaitForOutlookCommands(0));
    manager.reset();
    const std::size_t activations = CountActivations(outlook);
    EXPECT_LT(activations, std::size_t{kChanges / 2});
    EXPECT_EQ(0, outlook.LiveObjects());
    ExpectStore();
}

TEST_F(QueueFloodTest, Deletion_WhileTheWorkerWritesBack_LeavesNoKey)
{
    // Without a GUID nothing is to be done in Outlook, and the identifiers are written back at once.
    CcvReminderData record = Reminder(0, L"");
    ASSERT_TRUE(record.SaveDataToRegistry(kRemindersPath));
    CcvReminderDataCollectionManager manager(true);
    ASSERT_TRUE(record.DeleteDataFromRegistry(kRemindersPath));
    for (int round = 0; round < 1500; ++round)
    {
        SCOPED_TRACE(testing::Message() << m_random << ", round " << round);
        CcvReminderData added = Reminder(0, L"");
        const auto start = std::chrono::steady_clock::now();
        ASSERT_TRUE(manager.AddReminder(&added, false));
        const std::chrono::nanoseconds took = std::chrono::steady_clock::now() - start;
        ASSERT_TRUE(manager.ModifyReminder(&added, true));
        SpinFor(took * m_random.Between(0, 300) / 100);
        ASSERT_TRUE(manager.DeleteReminder(&added, false));
    }
    ASSERT_TRUE(manager.WaitForOutlookCommands(60'000)) << m_random;
    EXPECT_EQ(std::vector<std::wstring>(), RawKey(kRemindersPath).Subkeys()) << m_random;
}

} // namespace ts::test
