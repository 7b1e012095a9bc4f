// Changes of the collection as they arrive in Outlook, through the worker and real proxies.

#include "module/CcvReminderOptionUtilities.h"
#include "tests/collection/HostWindow.h"
#include "tests/collection_outlook/WorkerTest.h"
#include "tests/outlook_standin/Standin.h"

#include <algorithm>
#include <thread>

namespace ts::test
{
namespace
{

using namespace std::chrono_literals;

class MirrorTest : public WorkerTest
{
  protected:
    ~MirrorTest() override
    {
        m_manager.reset();
        EXPECT_TRUE(BecomesTrue([&] { return m_outlook.LiveObjects() == 0; })) << m_outlook.LiveObjects();
    }

    /// How many calls there were that begin so.
    [[nodiscard]] std::ptrdiff_t Count(const std::wstring& prefix) const
    {
        const auto calls = m_outlook.GetCallTexts();
        return std::count_if(calls.begin(), calls.end(),
                             [&](const std::wstring& call) { return call.starts_with(prefix); });
    }
    [[nodiscard]] std::optional<standin::Item> ItemOf(const CcvReminderData& record)
    {
        return m_outlook.FindItem(record.GetOutlookObjectGuid().GetString());
    }
    void SlowDown(std::chrono::milliseconds delay) { m_outlook.SetFaults({.delayPerCall = delay}); }

    standin::InProcessOutlook m_outlook{standin::Apartment::OwnThread};
};

} // namespace

TEST_F(MirrorTest, Add_StoresTheIdentifiersOfItsAppointment)
{
    CcvReminderData record = OneTimeRecord();
    const CcvReminderData* const stored = AddAndFinish(record);
    const standin::Item item = ItemOf(*stored).value();
    EXPECT_EQ(L"Call back", item.subject);
    EXPECT_EQ(item.entryId, stored->GetOutlookEntryId().GetString());
    EXPECT_EQ(RawText(item.entryId), Stored(L"OutlookEntryId").value());
    EXPECT_EQ(RawText(std::get<std::wstring>(item.userProperties.at(0).value)),
              Stored(L"OutlookObjectGuid").value());
    EXPECT_TRUE(record.GetOutlookObjectGuid().IsEmpty()) << "the caller's record is the caller's";
}

TEST_F(MirrorTest, AddAndModify_BackToBack_ChangeTheSameAppointment)
{
    SlowDown(2ms);
    CcvReminderData record = OneTimeRecord();
    ASSERT_TRUE(m_manager->AddReminder(&record, true));
    ASSERT_TRUE(m_manager->UpdateReminderCollection());
    record.SetSubject(L"Write");
    ASSERT_TRUE(m_manager->ModifyReminder(&record, true)) << "which knows nothing of the appointment";
    Finish();
    EXPECT_EQ(1, Count(L"call Application.CreateItem"));
    EXPECT_EQ(1u, m_outlook.CountItems());
    EXPECT_EQ(L"Write", ItemOf(*Only()).value().subject);
}

TEST_F(MirrorTest, Modify_OfALostAppointment_StoresTheIdentifiersOfTheNewOne)
{
    CcvReminderData record = OneTimeRecord();
    CcvReminderData* stored = AddAndFinish(record);
    const CcvReminderData before(*stored);
    m_outlook.DeleteItem(before.GetOutlookObjectGuid().GetString());
    ASSERT_TRUE(m_manager->ModifyReminder(stored, true));
    Finish();
    stored = Only();
    EXPECT_NE(before.GetOutlookObjectGuid(), stored->GetOutlookObjectGuid());
    EXPECT_NE(before.GetOutlookEntryId(), stored->GetOutlookEntryId());
    EXPECT_EQ(ItemOf(*stored).value().entryId, stored->GetOutlookEntryId().GetString());
}

TEST_F(MirrorTest, Modify_OfAReminderThatWasNeverMirrored_DoesNothing)
{
    CcvReminderData record = OneTimeRecord();
    ASSERT_TRUE(m_manager->AddReminder(&record, false));
    ASSERT_TRUE(m_manager->ModifyReminder(Only(), true));
    Finish();
    EXPECT_TRUE(m_outlook.GetCalls().empty());
}

TEST_F(MirrorTest, Dismiss_OfARecurringReminder_DeletesTheOccurrenceFromBefore)
{
    CcvReminderData record = DailyRecord();
    CcvReminderData* const stored = AddAndFinish(record);
    const CTime due = stored->GetNextDueDate();
    ASSERT_TRUE(m_manager->DismissReminder(stored));
    EXPECT_EQ(due + CTimeSpan(3 * 86400), stored->GetNextDueDate());
    Finish();
    const standin::Recurrence recurrence = ItemOf(*Only()).value().recurrence.value();
    EXPECT_EQ(1, Count(L"call RecurrencePattern.GetOccurrence 2026-11-26 10:00:00"));
    EXPECT_EQ(1u, recurrence.deletedOccurrences.size());
}

TEST_F(MirrorTest, Dismiss_OfAOneTimeReminder_ReachesNobody)
{
    CcvReminderData record = OneTimeRecord();
    CcvReminderData* const stored = AddAndFinish(record);
    m_outlook.ClearCalls();
    ASSERT_TRUE(m_manager->DismissReminder(stored));
    Finish();
    EXPECT_TRUE(m_outlook.GetCalls().empty());
}

TEST_F(MirrorTest, Snooze_ReachesNobody)
{
    CcvReminderData record = DailyRecord();
    CcvReminderData* const stored = AddAndFinish(record);
    m_outlook.ClearCalls();
    ASSERT_TRUE(m_manager->SnoozeReminder(stored, CTimeSpan(3600)));
    Finish();
    EXPECT_TRUE(m_outlook.GetCalls().empty());
}

TEST_F(MirrorTest, End_OfAOneTimeReminder_RemovesItsAppointment)
{
    CcvReminderData record = OneTimeRecord();
    ASSERT_TRUE(m_manager->EndReminder(AddAndFinish(record)));
    Finish();
    EXPECT_EQ(0u, m_outlook.CountItems());
    EXPECT_EQ(0u, StoredReminders());
}

TEST_F(MirrorTest, End_OfARecurringReminder_KeepsTheSeries)
{
    CcvReminderData record = DailyRecord();
    ASSERT_TRUE(m_manager->EndReminder(AddAndFinish(record)));
    Finish();
    EXPECT_EQ(1u, ItemOf(*Only()).value().recurrence.value().deletedOccurrences.size());
}

TEST_F(MirrorTest, EveryChange_WhileSynchronisationIsOff_ReachesNobody)
{
    CcvReminderData record = DailyRecord();
    CcvReminderData* const stored = AddAndFinish(record);
    m_outlook.ClearCalls();
    CcvReminderOptionUtilities::SetSynchronizeOutlookAppointments(false);
    CcvReminderData other = OneTimeRecord();
    m_manager->ModifyReminder(stored, true);
    m_manager->DismissReminder(stored);
    m_manager->AddReminder(&other, true);
    m_manager->DeleteReminder(stored, true);
    Finish();
    EXPECT_TRUE(m_outlook.GetCalls().empty());
}

TEST_F(MirrorTest, Add_ThatCannotBeStored_IsQueuedAndLeavesNoAppointment)
{
    // Longer than the name of a key can be.
    CcvReminderData record{CString(std::wstring(300, L'x').c_str())};
    record.SetInitialDueDate(Due());
    EXPECT_FALSE(m_manager->AddReminder(&record, true));
    Finish();
    EXPECT_EQ(1, Count(L"call Application.CreateItem"));
    EXPECT_EQ(0u, m_outlook.CountItems()) << "nobody would find it again";
    EXPECT_EQ(0u, StoredReminders());
}

TEST_F(MirrorTest, Delete_WhileTheAddIsExecuted_LeavesNoAppointmentAndNoKey)
{
    for (const wchar_t* const moment :
         {L"call Application.CreateItem", L"put Appointment.Start", L"put UserProperty.Value",
          L"call Appointment.Save", L"get Appointment.EntryID"})
    {
        m_outlook.ClearCalls();
        SlowDown(15ms);
        CcvReminderData record = OneTimeRecord();
        ASSERT_TRUE(m_manager->AddReminder(&record, true));
        CcvReminderData* const stored = Only();
        ASSERT_TRUE(BecomesTrue([&] { return Count(moment) > 0; }));
        ASSERT_TRUE(m_manager->DeleteReminder(stored, true));
        SlowDown(0ms);
        Finish();
        EXPECT_EQ(0u, m_outlook.CountItems()) << testing::PrintToString(CString(moment));
        EXPECT_EQ(0u, StoredReminders());
    }
}

TEST_F(MirrorTest, Open_ShowsTheAppointment_WhateverTheOptionSays)
{
    CcvReminderData record = OneTimeRecord();
    CcvReminderData* const stored = AddAndFinish(record);
    CcvReminderOptionUtilities::SetSynchronizeOutlookAppointments(false);
    EXPECT_TRUE(m_manager->OpenOutlookAppointment(stored));
    EXPECT_EQ(1, Count(L"call Appointment.Display"));
    m_outlook.DeleteItem(stored->GetOutlookObjectGuid().GetString());
    EXPECT_FALSE(m_manager->OpenOutlookAppointment(stored));
    CcvReminderData stranger = OneTimeRecord();
    stranger.SetObjectGuid(L"unknown");
    EXPECT_FALSE(m_manager->OpenOutlookAppointment(&stranger));
}

TEST_F(MirrorTest, Open_WhileAMessageReloadsTheCollection_StillOpensIt)
{
    CcvReminderData record = OneTimeRecord();
    CcvReminderData* const stored = AddAndFinish(record);
    const HostWindow window(kMainClass, [&] { m_manager->UpdateReminderCollection(); });
    m_outlook.ClearCalls();
    SlowDown(20ms);
    // Frees the record while Outlook is asked for the first time; calls let messages through.
    std::thread other(
        [&]
        {
            EXPECT_TRUE(BecomesTrue([&] { return Count(L"call Application.GetNamespace") > 0; }));
            SendMessageW(window.Get(), WM_APP + 120, 0, 0);
        });
    EXPECT_TRUE(m_manager->OpenOutlookAppointment(stored));
    EXPECT_EQ(1, window.Count()) << "in the middle of the call";
    other.join();
    EXPECT_EQ(1, Count(L"call Appointment.Display"));
}

TEST_F(MirrorTest, Open_WhileTheWorkerIsBusy_DoesNotWaitForIt)
{
    CcvReminderData record = OneTimeRecord();
    CcvReminderData* const stored = AddAndFinish(record);
    SlowDown(5ms);
    constexpr int kChanges = 20;
    for (int change = 0; change < kChanges; ++change)
    {
        ASSERT_TRUE(m_manager->ModifyReminder(stored, true));
    }
    m_outlook.ClearCalls();
    EXPECT_TRUE(m_manager->OpenOutlookAppointment(stored));
    EXPECT_FALSE(m_manager->WaitForOutlookCommands(0)) << "the worker has not finished yet";
    SlowDown(0ms);
    Finish();
}

// --- Failures ---

TEST_F(MirrorTest, Worker_SurvivesEveryCallThatFails)
{
    long number = 1;
    bool reached = true;
    for (; reached; ++number)
    {
        CcvReminderData record = OneTimeRecord();
        m_outlook.ClearCalls();
        m_outlook.SetFaults({.failure = standin::CallFailure{.call = number, .error = E_FAIL}});
        ASSERT_TRUE(m_manager->AddReminder(&record, true));
        Finish();
        reached = m_outlook.GetCallTexts().size() >= static_cast<std::size_t>(number);
        const CcvReminderData* const stored = Only();
        EXPECT_EQ(record.GetSubject(), stored->GetSubject());
        EXPECT_EQ(!reached, !stored->GetOutlookEntryId().IsEmpty()) << number;
        ASSERT_TRUE(m_manager->DeleteReminder(Only(), false));
    }
    EXPECT_GT(number, 15);
}

TEST_F(MirrorTest, Worker_SurvivesRefusedActivations)
{
    m_outlook.SetFaults({.refuseActivation = E_ACCESSDENIED});
    CcvReminderData record = OneTimeRecord();
    CcvReminderData* const stored = AddAndFinish(record);
    EXPECT_TRUE(stored->GetOutlookObjectGuid().IsEmpty());
    EXPECT_FALSE(m_manager->OpenOutlookAppointment(stored));
    m_outlook.ClearFaults();
    CcvReminderData other = OneTimeRecord();
    other.SetObjectGuid(L"other");
    ASSERT_TRUE(m_manager->AddReminder(&other, true));
    Finish();
    EXPECT_EQ(1u, m_outlook.CountItems());
}

TEST_F(MirrorTest, Manager_DestroyedWhileTheWorkerIsInACall_DropsTheRest)
{
    SlowDown(10ms);
    constexpr int kReminders = 5;
    for (int index = 0; index < kReminders; ++index)
    {
        CcvReminderData record = OneTimeRecord();
        record.SetObjectGuid(std::to_wstring(index).c_str());
        ASSERT_TRUE(m_manager->AddReminder(&record, true));
    }
    ASSERT_TRUE(BecomesTrue([&] { return Count(L"put Appointment.Subject") > 0; }));
    m_manager.reset();
    EXPECT_EQ(1, Count(L"call Application.CreateItem")) << "only the one that had begun";
    EXPECT_EQ(1u, m_outlook.CountItems());
}

} // namespace ts::test
