// Which changes hand a command to the worker, and what is in it.

#include "tests/collection/CollectionTest.h"
#include "tests/collection/ManagerInside.h"

namespace ts::test
{
namespace
{

class QueuedCommandsTest : public CollectionTest
{
  protected:
    QueuedCommandsTest()
    {
        Store(NewReminder(L"first"));
        CcvReminderData daily = NewDailyReminder(L"second");
        daily.SetObjectTitle(L"title");
        daily.SetSnoozeTime(60);
        daily.SetOutlookObjectGuid(L"object");
        daily.SetOutlookEntryId(L"entry");
        Store(daily);
    }

    /// What a change queued, and nothing more: a command of that kind for that record.
    static void ExpectCommand(HeldWorker& held, std::uint32_t kind, const CcvReminderData& record,
                              CTime previousDueDate = 0)
    {
        const auto command = held.Take();
        ASSERT_NE(nullptr, command);
        EXPECT_EQ(kind, static_cast<std::uint32_t>(command->kind));
        EXPECT_EQ(previousDueDate, command->previousDueDate);
        ASSERT_NE(nullptr, command->record);
        EXPECT_NE(&record, command->record.get());
        EXPECT_EQ(FieldsOf(record), FieldsOf(*command->record)) << "the copy carries every field";
        EXPECT_EQ(nullptr, held.Take());
    }

    /// Every operation on the manager's two reminders.
    static void ChangeAll(Manager& manager, bool synchronizeWithOutlook)
    {
        CcvReminderData first = *manager.GetReminderByIndex(0);
        CcvReminderData daily = *manager.GetReminderByIndex(1);
        manager.AddReminder(&first, synchronizeWithOutlook);
        manager.ModifyReminder(&first, synchronizeWithOutlook);
        manager.DismissReminder(&first);
        manager.SnoozeReminder(&daily, CTimeSpan(60));
        manager.UpdateReminderPath(&first, L"D:\\new");
        manager.UpdateRemindersDocumentPath(L"D:\\new", L"E:\\newer", L"M");
        manager.UpdateReminderCollection();
        manager.DeleteReminder(&daily, synchronizeWithOutlook);
    }
};

} // namespace

TEST_F(QueuedCommandsTest, Add_QueuesKind0)
{
    Manager manager(true);
    HeldWorker held(manager);
    CcvReminderData record = NewReminder(L"new");
    record.SetSnoozeTime(90);
    EXPECT_TRUE(manager.AddReminder(&record, true));
    ASSERT_EQ(L"{M-2}", record.GetReminderKey());
    ExpectCommand(held, 0, record);
}

TEST_F(QueuedCommandsTest, Add_ThatCannotBeWritten_QueuesAllTheSame)
{
    Manager manager(true);
    HeldWorker held(manager);
    CcvReminderData record(CString(std::wstring(300, L'x').c_str()));
    EXPECT_FALSE(manager.AddReminder(&record, true));
    ExpectCommand(held, 0, record);
}

TEST_F(QueuedCommandsTest, Modify_QueuesKind1WithTheGivenRecord)
{
    Manager manager(true);
    HeldWorker held(manager);
    CcvReminderData edited = *manager.GetReminderByIndex(1);
    edited.SetSubject(L"edited");
    EXPECT_TRUE(manager.ModifyReminder(&edited, true));
    ExpectCommand(held, 1, edited);
    edited.SetObjectGuid(L"not loaded");
    EXPECT_FALSE(manager.ModifyReminder(&edited, true));
    EXPECT_EQ(nullptr, held.Take());
}

TEST_F(QueuedCommandsTest, Delete_QueuesKind2)
{
    Manager manager(true);
    HeldWorker held(manager);
    CcvReminderData* const record = manager.GetReminderByIndex(1);
    EXPECT_TRUE(manager.DeleteReminder(record, true));
    ExpectCommand(held, 2, *record);
    EXPECT_FALSE(manager.DeleteReminder(record, true));
    ExpectCommand(held, 2, *record);
    CcvReminderData stranger = NewReminder(L"not loaded");
    EXPECT_FALSE(manager.DeleteReminder(&stranger, true));
    EXPECT_EQ(nullptr, held.Take());
}

TEST_F(QueuedCommandsTest, Dismiss_OfARecurringReminder_QueuesKind3WithTheDueDateFromBefore)
{
    Manager manager(true);
    HeldWorker held(manager);
    CcvReminderData* const record = manager.GetReminderByIndex(1);
    EXPECT_TRUE(manager.DismissReminder(record));
    ASSERT_EQ(CTime(1'700'086'400), record->GetNextDueDate());
    ExpectCommand(held, 3, *record, 1'700'000'000);
    EXPECT_TRUE(manager.EndReminder(record));
    ExpectCommand(held, 3, *record, 1'700'086'400);
}

TEST_F(QueuedCommandsTest, Dismiss_ThatCannotBeWritten_QueuesAllTheSame)
{
    Manager manager(true);
    HeldWorker held(manager);
    const LockedKey locked(L"{M-1}");
    CcvReminderData* const record = manager.GetReminderByIndex(1);
    EXPECT_FALSE(manager.DismissReminder(record));
    ExpectCommand(held, 3, *record, 1'700'000'000);
}

TEST_F(QueuedCommandsTest, Dismiss_OfAOneTimeReminder_QueuesNothing)
{
    Manager manager(true);
    HeldWorker held(manager);
    EXPECT_TRUE(manager.DismissReminder(manager.GetReminderByIndex(0)));
    EXPECT_EQ(nullptr, held.Take());
}

TEST_F(QueuedCommandsTest, End_OfAOneTimeReminder_QueuesADeletionWhileTheOptionIsOn)
{
    Manager manager(true);
    HeldWorker held(manager);
    CcvReminderData* const record = manager.GetReminderByIndex(0);
    EXPECT_TRUE(manager.EndReminder(record));
    ExpectCommand(held, 2, *record);
    SwitchSynchronizationOff();
    EXPECT_FALSE(manager.EndReminder(record));
    EXPECT_EQ(nullptr, held.Take());
}

TEST_F(QueuedCommandsTest, SnoozesAndPaths_QueueNothing)
{
    Manager manager(true);
    HeldWorker held(manager);
    EXPECT_TRUE(manager.SnoozeReminder(manager.GetReminderByIndex(1), CTimeSpan(60)));
    EXPECT_TRUE(manager.UpdateReminderPath(manager.GetReminderByIndex(1), L"D:\\new"));
    EXPECT_TRUE(manager.UpdateRemindersDocumentPath(L"D:\\new", L"E:\\newer", L"M"));
    EXPECT_TRUE(manager.UpdateReminderCollection());
    EXPECT_EQ(nullptr, held.Take());
}

TEST_F(QueuedCommandsTest, Changes_NotToBeSynchronized_QueueNothing)
{
    Manager manager(true);
    HeldWorker held(manager);
    ChangeAll(manager, false);
    EXPECT_EQ(nullptr, held.Take());
}

TEST_F(QueuedCommandsTest, Changes_WhileTheOptionIsOff_QueueNothing)
{
    Manager manager(true);
    HeldWorker held(manager);
    SwitchSynchronizationOff();
    CcvReminderData daily = *manager.GetReminderByIndex(1);
    EXPECT_TRUE(manager.DismissReminder(&daily));
    ChangeAll(manager, true);
    EXPECT_EQ(nullptr, held.Take());
}

TEST_F(QueuedCommandsTest, Changes_WhileTheAddInIsMarkedAsMissing_QueueNothing)
{
    Manager manager(true);
    HeldWorker held(manager);
    RawKey(kSettings, HKEY_LOCAL_MACHINE).Write(L"TopicAlertsLinkerInstalled", RawDword(0));
    CcvReminderData daily = *manager.GetReminderByIndex(1);
    EXPECT_TRUE(manager.DismissReminder(&daily));
    ChangeAll(manager, true);
    EXPECT_EQ(nullptr, held.Take());
    DeleteKeyTree(kSettings, HKEY_LOCAL_MACHINE);
}

TEST_F(QueuedCommandsTest, Changes_WithoutAQueue_NeverReachOutlook)
{
    WatchOutlook();
    const HostWindow window(kMainClass);
    Manager manager(false);
    EXPECT_EQ(nullptr, QueueOf(manager));
    EXPECT_EQ(nullptr, WorkerOf(manager));
    ChangeAll(manager, true);
    EXPECT_EQ(7, window.Count()) << "one for each change";
    EXPECT_TRUE(manager.WaitForOutlookCommands(0)) << "nothing is queued";
    EXPECT_FALSE(WasOutlookTried());
}

TEST_F(QueuedCommandsTest, Changes_OneAfterTheOther_QueueInTheirOrder)
{
    Manager manager(true);
    HeldWorker held(manager);
    CcvReminderData first = *manager.GetReminderByIndex(0);
    CcvReminderData daily = *manager.GetReminderByIndex(1);
    manager.AddReminder(&first, true);
    manager.DismissReminder(&daily);
    manager.ModifyReminder(&first, true);
    manager.ModifyReminder(&daily, true);
    manager.DeleteReminder(&first, true);
    std::vector<std::pair<std::uint32_t, std::wstring>> queued;
    while (const auto command = held.Take())
    {
        queued.emplace_back(static_cast<std::uint32_t>(command->kind),
                            command->record->GetObjectGuid().GetString());
    }
    const std::vector<std::pair<std::uint32_t, std::wstring>> expected = {
        {0, L"first"}, {3, L"second"}, {1, L"first"}, {1, L"second"}, {2, L"first"}};
    EXPECT_EQ(expected, queued);
}

TEST_F(QueuedCommandsTest, Wait_ForAWorkerThatDoesNotCome_EndsInTime)
{
    Manager manager(true);
    const HeldWorker held(manager);
    EXPECT_TRUE(manager.WaitForOutlookCommands(0));
    CcvReminderData first = *manager.GetReminderByIndex(0);
    manager.ModifyReminder(&first, true);
    EXPECT_FALSE(manager.WaitForOutlookCommands(0));
    const ULONGLONG before = GetTickCount64();
    EXPECT_FALSE(manager.WaitForOutlookCommands(250));
    const ULONGLONG waited = GetTickCount64() - before;
    EXPECT_LE(230u, waited);
    EXPECT_GT(10'000u, waited);
}

} // namespace ts::test
