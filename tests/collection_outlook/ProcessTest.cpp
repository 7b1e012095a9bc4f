// The worker with an Outlook that is another program: started by activation, slow, refusing, and dying.

#include "module/CcvReminderOptionUtilities.h"
#include "tests/collection_outlook/WorkerTest.h"
#include "tests/outlook_standin/Standin.h"

#include <algorithm>

namespace ts::test
{
namespace
{

using namespace std::chrono_literals;

class ProcessTest : public WorkerTest
{
  protected:
    ProcessTest() { m_outlook.SetLinger(2s); }
    // Its calls hold objects of the program, which would be ended by force.
    ~ProcessTest() override { m_manager.reset(); }

    void Add(const wchar_t* topic)
    {
        CcvReminderData record = OneTimeRecord();
        record.SetObjectGuid(topic);
        ASSERT_TRUE(m_manager->AddReminder(&record, true));
    }
    /// Of the stored reminder of the topic.
    CString EntryIdOf(const wchar_t* topic)
    {
        EXPECT_TRUE(m_manager->UpdateReminderCollection());
        const CcvReminderData* const stored = m_manager->GetReminderByGuid(L"C:\\maps\\a.map", L"M", topic);
        return stored != nullptr ? stored->GetOutlookEntryId() : CString(L"no such reminder");
    }
    bool WasCalled(const std::wstring& call)
    {
        const auto calls = m_outlook.GetCallTexts();
        return std::find(calls.begin(), calls.end(), call) != calls.end();
    }

    standin::OutlookProcess m_outlook;
};

} // namespace

TEST_F(ProcessTest, Add_StartsTheProgram_AndShowsThatItDoes)
{
    Add(L"first");
    EXPECT_TRUE(BecomesTrue([] { return CcvReminderOptionUtilities::GetSynchronizeInProgress(); }));
    EXPECT_TRUE(BecomesTrue([] { return !CcvReminderOptionUtilities::GetSynchronizeInProgress(); }));
    Finish();
    EXPECT_FALSE(CcvReminderOptionUtilities::GetSynchronizeInProgress());
    EXPECT_EQ(48, EntryIdOf(L"first").GetLength());
    EXPECT_TRUE(BecomesTrue([&] { return m_outlook.LiveObjects() == 0; }));
}

TEST_F(ProcessTest, Death_InTheMiddleOfACall_LeavesTheWorkerAlive)
{
    // Getting the namespace, creating the item, its start, saving it and reading its entry id.
    for (const long call : {1L, 2L, 7L, 13L, 15L})
    {
        const auto moment = call % 2 == 0 ? standin::Moment::AfterWork : standin::Moment::BeforeWork;
        m_outlook.SetFaults({.death = standin::Death{call, moment}});
        Add(L"lost");
        Finish();
        EXPECT_EQ(CString(), EntryIdOf(L"lost")) << call;
        EXPECT_TRUE(m_outlook.WaitUntilEnded()) << call;
        m_outlook.ClearFaults();
        ASSERT_TRUE(m_manager->DeleteReminder(Only(), false));
    }
    Add(L"kept");
    Finish();
    EXPECT_EQ(48, EntryIdOf(L"kept").GetLength());
}

TEST_F(ProcessTest, Refusal_LeavesTheWorkerAlive)
{
    m_outlook.SetFaults({.refuseActivation = E_ACCESSDENIED});
    Add(L"first");
    Finish();
    EXPECT_EQ(CString(), EntryIdOf(L"first"));
    EXPECT_FALSE(CcvReminderOptionUtilities::GetSynchronizeInProgress());
    m_outlook.ClearFaults();
    Add(L"second");
    Finish();
    EXPECT_EQ(48, EntryIdOf(L"second").GetLength());
}

TEST_F(ProcessTest, Destruction_WhileTheProgramIsSlow_Returns)
{
    m_outlook.SetFaults({.delayPerCall = 50ms});
    Add(L"first");
    Add(L"second");
    ASSERT_TRUE(BecomesTrue([&] { return WasCalled(L"put Appointment.ReminderSet false"); }));
    m_manager.reset();
    EXPECT_TRUE(WasCalled(L"get Appointment.EntryID")) << "what had begun was finished";
    const auto calls = m_outlook.GetCallTexts();
    EXPECT_EQ(1, std::count(calls.begin(), calls.end(), L"call Application.CreateItem 1"));
}

TEST_F(ProcessTest, Destruction_WhileTheProgramStartsAndThenDies_Returns)
{
    m_outlook.SetFaults({.death = standin::Death{3}, .delayPerCall = 50ms});
    Add(L"first");
    Add(L"second");
    m_manager.reset();
    EXPECT_EQ(2u, StoredReminders());
}

TEST_F(ProcessTest, Open_OfADyingProgram_SaysThatItCouldNot)
{
    Add(L"first");
    Finish();
    CcvReminderData* const stored = Only();
    EXPECT_TRUE(m_manager->OpenOutlookAppointment(stored));
    m_outlook.SetFaults({.death = standin::Death{4}});
    EXPECT_FALSE(m_manager->OpenOutlookAppointment(stored));
    m_outlook.ClearFaults();
    EXPECT_TRUE(m_manager->OpenOutlookAppointment(stored)) << "another is started";
}

} // namespace ts::test
