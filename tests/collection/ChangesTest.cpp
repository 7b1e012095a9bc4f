// What each change does to the store and to the records, what it answers and whether the hosts hear of it.

#include "tests/collection/CollectionTest.h"
#include "tests/support/FixedClock.h"

#include "platform/mfc/atlexcept.h"

namespace ts::test
{
namespace
{

constexpr std::int64_t kDay = 86'400;

class ChangesTest : public CollectionTest
{
  protected:
    /// The messages that came since the last call.
    int NewMessages()
    {
        const int before = m_seen;
        m_seen = m_window.Count();
        EXPECT_EQ(0, m_window.StrangeCount());
        return m_seen - before;
    }

    /// A record with the topic of a loaded one, under a key that nothing can be written to.
    static CcvReminderData Unwritable(const CcvReminderData& topic)
    {
        CcvReminderData record(CString(std::wstring(300, L'x').c_str()));
        record.SetDocumentPath(topic.GetDocumentPath());
        record.SetMapGuid(topic.GetMapGuid());
        record.SetObjectGuid(topic.GetObjectGuid());
        return record;
    }

    /// A record with everything of `record` but another key.
    static CcvReminderData WithoutKey(CcvReminderData record)
    {
        CcvReminderData nameless = EmptyRecord();
        nameless.SetDocumentPath(record.GetDocumentPath());
        nameless.SetMapGuid(record.GetMapGuid());
        nameless.SetObjectGuid(record.GetObjectGuid());
        return nameless;
    }

  private:
    HostWindow m_window{kServiceClass};
    int m_seen = 0;
};

} // namespace

TEST_F(ChangesTest, Add_OfANewReminder_WritesItAndLeavesTheCollection)
{
    Manager manager(false);
    CcvReminderData record = NewReminder(L"first");
    EXPECT_TRUE(manager.AddReminder(&record, true));
    EXPECT_EQ(1, NewMessages());
    EXPECT_EQ(L"{M-0}", record.GetReminderKey());
    EXPECT_EQ(FieldsOf(record), FieldsOf(Load(L"{M-0}")));
    EXPECT_EQ(0, manager.GetRemindersCount());
    EXPECT_TRUE(manager.UpdateReminderCollection());
    EXPECT_EQ(0, NewMessages()) << "loading tells nobody";
    ASSERT_EQ(1, manager.GetRemindersCount());
    EXPECT_EQ(FieldsOf(record), FieldsOf(*manager.GetReminderByIndex(0)));
}

TEST_F(ChangesTest, Add_OfASavedReminder_WritesItUnderItsKey)
{
    StoreTopics({L"first"});
    Manager manager(false);
    CcvReminderData record = Load(L"{M-0}");
    record.SetSubject(L"again");
    EXPECT_TRUE(manager.AddReminder(&record, false));
    EXPECT_EQ(1, NewMessages());
    EXPECT_EQ(1u, Snapshot().size());
    EXPECT_EQ(RawText(L"again"), Key(L"{M-0}").Read(L"Subject"));
}

TEST_F(ChangesTest, Add_ThatCannotBeWritten_FailsAndIsToldAllTheSame)
{
    StoreTopics({L"first"});
    const auto before = Snapshot();
    Manager manager(false);
    CcvReminderData record = Unwritable(NewReminder(L"new"));
    EXPECT_FALSE(manager.AddReminder(&record, true));
    EXPECT_EQ(1, NewMessages());
    EXPECT_EQ(before, Snapshot());
}

TEST_F(ChangesTest, Modify_OfALoadedTopic_WritesTheGivenRecordOnly)
{
    StoreTopics({L"first", L"second"});
    Manager manager(false);
    const RecordFields element = FieldsOf(*manager.GetReminderByIndex(1));
    CcvReminderData edited = *manager.GetReminderByIndex(1);
    edited.SetSubject(L"edited");
    EXPECT_TRUE(manager.ModifyReminder(&edited, true));
    EXPECT_EQ(1, NewMessages());
    EXPECT_EQ(FieldsOf(edited), FieldsOf(Load(L"{M-1}")));
    EXPECT_EQ(element, FieldsOf(*manager.GetReminderByIndex(1))) << "until the next reload";
}

TEST_F(ChangesTest, Modify_OfALoadedTopicUnderAnotherKey_WritesThere)
{
    StoreTopics({L"first"});
    Manager manager(false);
    CcvReminderData nameless = WithoutKey(*manager.GetReminderByIndex(0));
    EXPECT_TRUE(manager.ModifyReminder(&nameless, false));
    EXPECT_EQ(L"{M-1}", nameless.GetReminderKey()) << "the record that is given counts, not the element";
    EXPECT_EQ(2u, Snapshot().size());
}

TEST_F(ChangesTest, Modify_OfATopicThatIsNotLoaded_DoesNothing)
{
    StoreTopics({L"first"});
    Manager manager(false);
    StoreTopics({L"later"});
    const auto before = Snapshot();
    const CcvReminderData loaded = NewReminder(L"first");
    std::vector<CcvReminderData> others(4, loaded);
    others[0].SetDocumentPath(L"C:\\MAPS\\a");
    others[1].SetMapGuid(L"m");
    others[2].SetObjectGuid(L"FIRST");
    others[3] = Load(L"{M-1}");
    for (CcvReminderData& other : others)
    {
        const RecordFields fields = FieldsOf(other);
        EXPECT_FALSE(manager.ModifyReminder(&other, true));
        EXPECT_EQ(fields, FieldsOf(other));
    }
    EXPECT_EQ(0, NewMessages());
    EXPECT_EQ(before, Snapshot());
}

TEST_F(ChangesTest, Modify_ThatCannotBeWritten_SucceedsAllTheSame)
{
    StoreTopics({L"first"});
    const auto before = Snapshot();
    Manager manager(false);
    CcvReminderData record = Unwritable(*manager.GetReminderByIndex(0));
    EXPECT_TRUE(manager.ModifyReminder(&record, true));
    EXPECT_EQ(1, NewMessages());
    EXPECT_EQ(before, Snapshot());
}

TEST_F(ChangesTest, Delete_OfALoadedTopic_DeletesTheKeyAndLeavesTheElement)
{
    StoreTopics({L"first", L"second"});
    Key(L"{M-0}\\Sub").Write(L"Value", RawDword(1));
    Manager manager(false);
    CcvReminderData* const record = manager.GetReminderByIndex(0);
    EXPECT_TRUE(manager.DeleteReminder(record, true));
    EXPECT_EQ(1, NewMessages());
    EXPECT_EQ(std::vector<std::wstring>{L"{M-1}"}, RawKey(kStore).Subkeys());
    EXPECT_EQ(2, manager.GetRemindersCount());
    EXPECT_EQ(record, manager.GetReminderByIndex(0));
    EXPECT_EQ(L"first", record->GetObjectGuid());

    EXPECT_FALSE(manager.DeleteReminder(record, true))
        << "it is gone from the store, not from the collection";
    EXPECT_EQ(1, NewMessages()) << "a failed deletion is told";
    manager.UpdateReminderCollection();
    EXPECT_EQ(1, manager.GetRemindersCount());
}

TEST_F(ChangesTest, Delete_OfATopicThatIsNotLoaded_DoesNothing)
{
    StoreTopics({L"first"});
    Manager manager(false);
    StoreTopics({L"later"});
    const auto before = Snapshot();
    CcvReminderData later = Load(L"{M-1}");
    EXPECT_FALSE(manager.DeleteReminder(&later, true));
    CcvReminderData other = NewReminder(L"FIRST");
    EXPECT_FALSE(manager.DeleteReminder(&other, false));
    EXPECT_EQ(0, NewMessages());
    EXPECT_EQ(before, Snapshot());
}

TEST_F(ChangesTest, Delete_OfARecordWithoutAKey_FailsAndIsTold)
{
    StoreTopics({L"first"});
    const auto before = Snapshot();
    Manager manager(false);
    CcvReminderData nameless = NewReminder(L"first");
    EXPECT_FALSE(manager.DeleteReminder(&nameless, false));
    EXPECT_EQ(1, NewMessages());
    EXPECT_EQ(before, Snapshot());
}

TEST_F(ChangesTest, Dismiss_OfAOneTimeReminder_MarksItAndEndsItsSnooze)
{
    Manager manager(false);
    CcvReminderData record = NewReminder(L"first");
    record.SetSnoozeTime(600);
    Store(record);
    record = Load(L"{M-0}");
    ASSERT_TRUE(record.IsSnoozed());
    EXPECT_TRUE(manager.DismissReminder(&record)) << "it need not be loaded";
    EXPECT_EQ(1, NewMessages());
    EXPECT_TRUE(record.IsDimissed());
    EXPECT_FALSE(record.IsSnoozed());
    EXPECT_EQ(FieldsOf(record), FieldsOf(Load(L"{M-0}")));
    EXPECT_EQ(RawDword(2), Key(L"{M-0}").Read(L"Flags"));
    EXPECT_EQ(CTime(1'700'000'000), record.GetNextDueDate());
}

TEST_F(ChangesTest, Dismiss_OfARecurringReminder_MovesItOn)
{
    Store(NewDailyReminder(L"first"));
    Manager manager(false);
    CcvReminderData* const record = manager.GetReminderByIndex(0);
    const CTime expected = record->GetNextRecurrentTime(record->GetNextDueDate());
    ASSERT_EQ(CTime(1'700'000'000 + kDay), expected);
    EXPECT_TRUE(manager.DismissReminder(record));
    EXPECT_EQ(1, NewMessages());
    EXPECT_FALSE(record->IsDimissed());
    EXPECT_EQ(expected, record->GetNextDueDate());
    EXPECT_EQ(expected, Load(L"{M-0}").GetNextDueDate());
    EXPECT_EQ(CTime(1'700'000'000), Load(L"{M-0}").GetInitialDueDate());
}

TEST_F(ChangesTest, Dismiss_ThatCannotBeWritten_ChangesTheRecordAndTellsNobody)
{
    Manager manager(false);
    CcvReminderData record = Unwritable(NewReminder(L"first"));
    EXPECT_FALSE(manager.DismissReminder(&record));
    EXPECT_EQ(0, NewMessages());
    EXPECT_TRUE(record.IsDimissed());
    EXPECT_TRUE(Snapshot().empty());
}

TEST_F(ChangesTest, Dismiss_OfADateThatCannotBeMovedOn_RaisesAndWritesNothing)
{
    CcvReminderData record = NewReminder(L"first");
    record.SetRecurrenceType(EcvReminderRecurrenceType::Monthly);
    record.SetMonthlyReminderPattern1Month(1);
    record.SetNextDueDate(std::numeric_limits<std::int64_t>::max());
    Store(record);
    const auto before = Snapshot();
    Manager manager(true);
    EXPECT_THROW(manager.DismissReminder(manager.GetReminderByIndex(0)), COleException);
    EXPECT_TRUE(Finish(manager));
    EXPECT_EQ(0, NewMessages());
    EXPECT_EQ(before, Snapshot());
}

TEST_F(ChangesTest, Snooze_OfAReminder_SetsItsTimeFromNow)
{
    const FixedClock clock(1'750'000'000);
    StoreTopics({L"first"});
    Manager manager(false);
    CcvReminderData* const record = manager.GetReminderByIndex(0);
    EXPECT_TRUE(manager.SnoozeReminder(record, CTimeSpan(300)));
    EXPECT_EQ(1, NewMessages());
    EXPECT_TRUE(record->IsSnoozed());
    EXPECT_EQ(CTime(1'750'000'300), record->GetSnoozeTime());
    EXPECT_EQ(FieldsOf(*record), FieldsOf(Load(L"{M-0}")));
    EXPECT_EQ(RawInt64(1'750'000'300), Key(L"{M-0}").Read(L"SnoozeTime"));

    CcvReminderData stranger = NewReminder(L"not loaded");
    EXPECT_TRUE(manager.SnoozeReminder(&stranger, CTimeSpan(-1)));
    EXPECT_EQ(1, NewMessages());
    EXPECT_EQ(CTime(1'749'999'999), Load(L"{M-1}").GetSnoozeTime());
}

TEST_F(ChangesTest, Snooze_ThatCannotBeWritten_ChangesTheRecordAndTellsNobody)
{
    const FixedClock clock(1'750'000'000);
    Manager manager(false);
    CcvReminderData record = Unwritable(NewReminder(L"first"));
    EXPECT_FALSE(manager.SnoozeReminder(&record, CTimeSpan(300)));
    EXPECT_EQ(0, NewMessages());
    EXPECT_TRUE(record.IsSnoozed());
    EXPECT_EQ(CTime(1'750'000'300), record.GetSnoozeTime());
}

TEST_F(ChangesTest, End_OfAOneTimeReminder_DeletesIt)
{
    StoreTopics({L"first", L"second"});
    Manager manager(false);
    EXPECT_TRUE(manager.EndReminder(manager.GetReminderByIndex(0)));
    EXPECT_EQ(1, NewMessages());
    EXPECT_EQ(std::vector<std::wstring>{L"{M-1}"}, RawKey(kStore).Subkeys());
    EXPECT_FALSE(manager.EndReminder(manager.GetReminderByIndex(0))) << "deleted already";
    EXPECT_EQ(1, NewMessages());

    CcvReminderData stranger = NewReminder(L"not loaded");
    EXPECT_FALSE(manager.EndReminder(&stranger));
    EXPECT_EQ(0, NewMessages());
}

TEST_F(ChangesTest, End_OfARecurringReminder_DismissesIt)
{
    Store(NewDailyReminder(L"first"));
    Manager manager(false);
    CcvReminderData* const record = manager.GetReminderByIndex(0);
    EXPECT_TRUE(manager.EndReminder(record));
    EXPECT_EQ(1, NewMessages());
    EXPECT_EQ(CTime(1'700'000'000 + kDay), Load(L"{M-0}").GetNextDueDate());

    CcvReminderData unwritable = Unwritable(*record);
    unwritable.SetRecurrenceType(EcvReminderRecurrenceType::Daily);
    EXPECT_FALSE(manager.EndReminder(&unwritable));
    EXPECT_EQ(0, NewMessages());
}

TEST_F(ChangesTest, UpdateReminderPath_OfALoadedTopic_WritesTheWholeRecord)
{
    StoreTopics({L"first"});
    Manager manager(false);
    CcvReminderData* const record = manager.GetReminderByIndex(0);
    record->SetSubject(L"edited meanwhile");
    EXPECT_TRUE(manager.UpdateReminderPath(record, L"D:\\new\r\n"));
    EXPECT_EQ(1, NewMessages());
    EXPECT_EQ(L"D:\\new\r\n", record->GetDocumentPath());
    EXPECT_EQ(FieldsOf(*record), FieldsOf(Load(L"{M-0}")));
    EXPECT_TRUE(manager.UpdateReminderPath(record, record->GetDocumentPath()))
        << "the element has moved along";
    EXPECT_EQ(1, NewMessages());
}

TEST_F(ChangesTest, UpdateReminderPath_OfATopicThatIsNotLoaded_DoesNothing)
{
    StoreTopics({L"first"});
    const auto before = Snapshot();
    Manager manager(false);
    CcvReminderData other = NewReminder(L"other");
    const RecordFields fields = FieldsOf(other);
    EXPECT_FALSE(manager.UpdateReminderPath(&other, L"D:\\new"));
    EXPECT_EQ(fields, FieldsOf(other));
    EXPECT_EQ(0, NewMessages());
    EXPECT_EQ(before, Snapshot());
}

TEST_F(ChangesTest, UpdateReminderPath_ThatCannotBeWritten_FailsAndIsTold)
{
    StoreTopics({L"first"});
    const auto before = Snapshot();
    Manager manager(false);
    CcvReminderData record = Unwritable(*manager.GetReminderByIndex(0));
    EXPECT_FALSE(manager.UpdateReminderPath(&record, L"D:\\new"));
    EXPECT_EQ(L"D:\\new", record.GetDocumentPath());
    EXPECT_EQ(1, NewMessages());
    EXPECT_EQ(before, Snapshot());
}

TEST_F(ChangesTest, UpdateRemindersDocumentPath_OfAMap_RewritesTheStoreOnly)
{
    StoreTopics({L"first", L"second"});
    CcvReminderData elsewhere = NewReminder(L"third");
    elsewhere.SetDocumentPath(L"C:\\elsewhere");
    Store(elsewhere);
    Manager manager(false);
    EXPECT_TRUE(manager.UpdateRemindersDocumentPath(L"C:\\maps\\a", L"D:\\new", L"M"));
    EXPECT_EQ(1, NewMessages());
    EXPECT_EQ(L"D:\\new", Load(L"{M-0}").GetDocumentPath());
    EXPECT_EQ(L"D:\\new", Load(L"{M-1}").GetDocumentPath());
    EXPECT_EQ(L"C:\\elsewhere", Load(L"{M-2}").GetDocumentPath());
    EXPECT_EQ(L"C:\\maps\\a", manager.GetReminderByIndex(0)->GetDocumentPath());

    const auto before = Snapshot();
    EXPECT_TRUE(manager.UpdateRemindersDocumentPath(L"no such path", L"D:\\other", L"M"));
    EXPECT_TRUE(manager.UpdateRemindersDocumentPath(L"D:\\new", L"D:\\other", L"no such map"));
    EXPECT_EQ(2, NewMessages()) << "told whether something changed or not";
    EXPECT_EQ(before, Snapshot());
}

TEST_F(ChangesTest, OpenOutlookAppointment_WithoutOutlook_Fails)
{
    StoreTopics({L"first"});
    const auto before = Snapshot();
    Manager manager(false);
    WatchOutlook();
    CcvReminderData stranger = NewReminder(L"not loaded");
    EXPECT_FALSE(manager.OpenOutlookAppointment(&stranger));
    EXPECT_FALSE(WasOutlookTried()) << "its topic is not loaded";
    EXPECT_FALSE(manager.OpenOutlookAppointment(manager.GetReminderByIndex(0)));
    EXPECT_TRUE(WasOutlookTried());
    SwitchSynchronizationOff();
    EXPECT_FALSE(manager.OpenOutlookAppointment(manager.GetReminderByIndex(0)));
    EXPECT_TRUE(WasOutlookTried()) << "whatever the option says";
    EXPECT_EQ(0, NewMessages());
    EXPECT_EQ(before, Snapshot());
}

} // namespace ts::test
