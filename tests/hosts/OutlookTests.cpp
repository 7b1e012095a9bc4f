#include "tests/hosts/ConsoleHarness.h"
#include "tests/hosts/WaitUntil.h"
#include "tests/outlook_standin/Standin.h"

#include "Strings.h"

#include <memory>

// What of the console's commands reaches Outlook, shown with a stand-in for it.

namespace
{

using namespace ts::standin;

class OutlookCommands : public ConsoleTest
{
  protected:
    void SetUp() override
    {
        ConsoleTest::SetUp();
        m_outlook = std::make_unique<InProcessOutlook>(Apartment::OwnThread);
    }

    /// Turns the mirror on or off, in a settings key that is there afterwards.
    static void SetMirror(bool on)
    {
        const DWORD value = on ? 1 : 0;
        ASSERT_EQ(ERROR_SUCCESS,
                  RegSetKeyValueW(HKEY_CURRENT_USER, ts::kSettingsPath, L"SynchronizeOutlookAppoints",
                                  REG_DWORD, &value, sizeof value));
    }

    /// The appointment whose identifiers are stored with the reminder.
    std::optional<Item> ItemOf(const std::string& key) const
    {
        const Json json = SucceedJson({"show", key});
        const CString guid = ts::console::ToLibrary(json["outlookObjectGuid"].get<std::string>());
        const auto item = m_outlook->FindItem(guid.GetString());
        EXPECT_TRUE(!item || ts::console::ToLibrary(json["outlookEntryId"].get<std::string>()) ==
                                 item->entryId.c_str());
        return item;
    }

    bool WasCalled(const std::wstring& part) const
    {
        const auto calls = m_outlook->GetCallTexts();
        return std::any_of(calls.begin(), calls.end(),
                           [&](const std::wstring& call) { return call.find(part) != std::wstring::npos; });
    }

    std::unique_ptr<InProcessOutlook> m_outlook;
};

TEST_F(OutlookCommands, Add_MakesAnAppointmentBeforeItEnds)
{
    const std::string key = Add("2950-03-04T09:00");
    const auto item = ItemOf(key);
    ASSERT_TRUE(item);
    EXPECT_EQ(L"Send report", item->subject);
    EXPECT_FALSE(item->reminderSet);
    EXPECT_EQ(1u, m_outlook->CountItems());
}

TEST_F(OutlookCommands, Edit_ChangesTheAppointmentAlsoUnderAnotherIdentity)
{
    const std::string key = Add("2950-03-04T09:00");
    Succeed({"edit", key, "--subject", "Other", "--document", "D:\\x.map", "--map", kOtherMap});
    const auto item = ItemOf(key);
    ASSERT_TRUE(item);
    EXPECT_EQ(L"Other", item->subject);
    EXPECT_EQ(1u, m_outlook->CountItems());
}

TEST_F(OutlookCommands, DismissOfARecurringReminder_DeletesItsOccurrence)
{
    const std::string key = Add("2950-03-04T09:00", {"--daily", "1"});
    Succeed({"dismiss", key});
    const auto item = ItemOf(key);
    ASSERT_TRUE(item && item->recurrence);
    ASSERT_EQ(1u, item->recurrence->deletedOccurrences.size());
    EXPECT_EQ(item->start, item->recurrence->deletedOccurrences.front());
}

TEST_F(OutlookCommands, Delete_DeletesTheAppointment)
{
    const std::string key = Add("2950-03-04T09:00");
    Succeed({"delete", key});
    EXPECT_EQ(0u, m_outlook->CountItems());
}

TEST_F(OutlookCommands, SnoozeMoveAndReading_LeaveOutlookAlone)
{
    const std::string key = Add("2950-03-04T09:00");
    m_outlook->ClearCalls();
    Succeed({"snooze", key, "1h"});
    Succeed({"move", "C:\\maps\\plan.map", "D:\\x.map", kMap});
    Succeed({"list"});
    EXPECT_TRUE(m_outlook->GetCalls().empty());
}

TEST_F(OutlookCommands, NoOutlook_LeavesItAlone)
{
    const std::string key = Add("2950-03-04T09:00", {"--daily", "1"});
    m_outlook->ClearCalls();
    Add("2950-03-04T09:00", {"--no-outlook"});
    for (const std::vector<std::string>& arguments :
         {std::vector<std::string>{"edit", key, "--subject", "Other"}, {"dismiss", key}, {"delete", key}})
    {
        std::vector<std::string> alone = arguments;
        alone.emplace_back("--no-outlook");
        Succeed(alone);
    }
    EXPECT_TRUE(m_outlook->GetCalls().empty());
    EXPECT_EQ(1u, m_outlook->CountItems());
}

TEST_F(OutlookCommands, MirrorOff_LeavesOutlookAlone)
{
    SetMirror(false);
    const std::string key = Add("2950-03-04T09:00", {"--daily", "1"});
    Succeed({"dismiss", key});
    Succeed({"delete", key});
    EXPECT_TRUE(m_outlook->GetCalls().empty());
}

TEST_F(OutlookCommands, OutlookThatRefuses_FailsNoChange)
{
    Faults faults;
    faults.refuseActivation = E_ACCESSDENIED;
    m_outlook->SetFaults(faults);
    const std::string key = Add("2950-03-04T09:00");
    Succeed({"edit", key, "--subject", "Other"});
    EXPECT_EQ("", SucceedJson({"show", key})["outlookObjectGuid"]);
}

TEST_F(OutlookCommands, OutlookThatIsSlow_IsToldAndTheChangeStands)
{
    SetMirror(true);
    Faults faults;
    faults.delayPerCall = std::chrono::milliseconds(400);
    m_outlook->SetFaults(faults);
    const ULONGLONG begin = GetTickCount64();
    const Outcome outcome = Reminders(AddArguments("2950-03-04T09:00"), 100, CTimeSpan(1));
    EXPECT_LT(GetTickCount64() - begin, 5'000u);
    EXPECT_EQ(0, outcome.code);
    EXPECT_EQ("reminders: Outlook was not done with the change after 1 second; its calendar may lack it\n",
              outcome.err);
    EXPECT_EQ(std::string("{") + kMap + "-0}\n", outcome.out);
    EXPECT_EQ("in-progress off", Succeed({"options", "in-progress"}));
    EXPECT_EQ(1u, SucceedJson({"list"}).size());
    // The worker goes on in this process, which does not end as the program does.
    m_outlook->ClearFaults();
    const std::string key = outcome.out.substr(0, outcome.out.size() - 1);
    EXPECT_TRUE(WaitUntil([&] { return SucceedJson({"show", key})["outlookEntryId"] != ""; }));
}

TEST_F(OutlookCommands, OpenAppointment_OpensIt)
{
    const std::string key = Add("2950-03-04T09:00");
    EXPECT_FALSE(WasCalled(L"Display"));
    SetMirror(false);
    EXPECT_EQ("Opened.", Succeed({"open-appointment", key}));
    EXPECT_TRUE(WasCalled(L"Display"));
}

TEST_F(OutlookCommands, OpenAppointmentThatIsGone_Fails)
{
    const std::string key = Add("2950-03-04T09:00");
    m_outlook->LoseItem(
        ts::console::ToLibrary(SucceedJson({"show", key})["outlookObjectGuid"].get<std::string>())
            .GetString());
    ExpectFailure(1, "Outlook does not find the appointment", {"open-appointment", key});
}

TEST_F(OutlookCommands, OpenAppointmentWithoutOutlook_Fails)
{
    const std::string key = Add("2950-03-04T09:00");
    Faults faults;
    faults.refuseActivation = REGDB_E_CLASSNOTREG;
    m_outlook->SetFaults(faults);
    ExpectFailure(1, "Outlook is not installed, or cannot be started (0x80040154)",
                  {"open-appointment", key});
}

class OutlookCheckCommand : public OutlookCommands
{
  protected:
    /// Nothing may be left, neither in the store nor in the calendar.
    void ExpectNothingLeft(const std::string& what) const
    {
        EXPECT_EQ(Json::array(), SucceedJson({"list"})) << what;
        EXPECT_EQ(0u, m_outlook->CountItems()) << what;
    }

    static CallFailure FailureAt(long call)
    {
        CallFailure failure;
        failure.call = call;
        failure.error = E_ACCESSDENIED;
        return failure;
    }
};

TEST_F(OutlookCheckCommand, AllInOrder_IsVerifiedAndNothingLeft)
{
    SetMirror(true);
    const std::string before = Snapshot();
    EXPECT_EQ("add: verified\nmodify: verified\ndismiss: verified\nremove: verified\n"
              "Outlook mirrors reminders as it should.",
              Succeed({"outlook-check"}));
    ExpectNothingLeft("");
    EXPECT_EQ("outlook on", Succeed({"options", "outlook"}));
    EXPECT_EQ(0, m_outlook->LiveObjects());
}

TEST_F(OutlookCheckCommand, OtherRemindersAndAppointments_StayAsTheyAre)
{
    const std::string key = Add("2950-03-04T09:00", {"--daily", "1"});
    const auto before = ItemOf(key);
    const std::string stored = Snapshot();
    Succeed({"outlook-check"});
    EXPECT_EQ(stored, Snapshot());
    EXPECT_EQ(before, ItemOf(key));
    EXPECT_EQ(1u, m_outlook->CountItems());
}

TEST_F(OutlookCheckCommand, OutlookThatRefuses_IsOneLine)
{
    Faults faults;
    faults.refuseActivation = REGDB_E_CLASSNOTREG;
    m_outlook->SetFaults(faults);
    ExpectFailure(1, "Outlook is not installed, or cannot be started (0x80040154)", {"outlook-check"});
}

TEST_F(OutlookCheckCommand, FailureOfAnyCall_IsReportedAndNothingLeft)
{
    Succeed({"outlook-check"});
    const auto calls = static_cast<long>(m_outlook->GetCallTexts().size());
    ASSERT_GT(calls, 50);
    std::string all;
    // Each third call meets every operation several times; a step takes a third of a second.
    for (long call = 1; call <= calls; call += 3)
    {
        Faults faults;
        faults.failure = FailureAt(call);
        m_outlook->SetFaults(faults);
        const Outcome outcome = Reminders({"outlook-check"});
        m_outlook->ClearFaults();
        const std::string what = "call " + std::to_string(call) + "\n" + outcome.out + outcome.err;
        // A failure before the first step is one of its own; one that the library makes up for fails nothing.
        const bool noticed = outcome.out.find(": failed: ") != std::string::npos || outcome.out.empty();
        EXPECT_EQ(noticed ? 1 : 0, outcome.code) << what;
        EXPECT_EQ(noticed, !outcome.err.empty()) << what;
        ExpectNothingLeft(what);
        all += outcome.out;
    }
    for (const char* step : {"add", "modify", "dismiss", "remove"})
    {
        EXPECT_NE(std::string::npos, all.find(std::string(step) + ": failed: ")) << step;
    }
}

TEST_F(OutlookCheckCommand, OutlookThatDies_IsReported)
{
    Succeed({"outlook-check"});
    const auto calls = static_cast<long>(m_outlook->GetCallTexts().size());
    for (const long call : {1L, calls / 4, calls / 2, calls - 3, calls})
    {
        Faults faults;
        faults.death = Death{call};
        m_outlook->SetFaults(faults);
        const Outcome outcome = Reminders({"outlook-check"});
        EXPECT_EQ(1, outcome.code) << call << "\n" << outcome.out << outcome.err;
        EXPECT_EQ(Json::array(), SucceedJson({"list"})) << call;
        m_outlook = nullptr;
        m_outlook = std::make_unique<InProcessOutlook>(Apartment::OwnThread);
    }
}

TEST_F(OutlookCheckCommand, OutlookThatDoesNothing_VerifiesNothing)
{
    Faults faults;
    faults.failure = FailureAt(2);
    faults.failure->andAllLater = true;
    m_outlook->SetFaults(faults);
    const Outcome outcome = Reminders({"outlook-check"});
    EXPECT_EQ(1, outcome.code);
    EXPECT_EQ("add: failed: no appointment was made\n", outcome.out);
    EXPECT_EQ("reminders: Outlook does not mirror reminders as it should\n", outcome.err);
    m_outlook->ClearFaults();
    ExpectNothingLeft(outcome.out);
}

} // namespace
