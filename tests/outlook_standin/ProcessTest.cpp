// The stand-in as a program of its own, started by activation.

#include "tests/outlook_standin/AutomationBase.h"
#include "tests/outlook_standin/Client.h"
#include "tests/outlook_standin/ServerRegistration.h"
#include "tests/outlook_standin/Standin.h"

#include <algorithm>
#include <gtest/gtest.h>

namespace
{

using namespace ts::standin;
using namespace ts::standin::test;
using namespace std::chrono_literals;

constexpr wchar_t kGuid[] = L"{11111111-2222-3333-4444-555555555555}";

class StandinProcess : public testing::Test
{
  protected:
    static void SetUpTestSuite() { CoInitialize(nullptr); }
    static void TearDownTestSuite() { CoUninitialize(); }

    /// Of an appointment that was saved in a server that has ended since.
    std::wstring SaveAndLetEnd()
    {
        std::wstring entryId;
        {
            const Dispatch application = ActivateApplication();
            entryId = TextOf(Get(SaveAppointment(application, L"Tea", kGuid), L"EntryID").value);
        }
        EXPECT_TRUE(m_outlook.WaitUntilEnded());
        return entryId;
    }
    static Dispatch GetSession(const Dispatch& application)
    {
        return CallMethod(application, L"GetNamespace", {Text(L"MAPI")}).AsObject();
    }

    OutlookProcess m_outlook;
};

/// Calls to a server that has just ended fail in one of these ways.
bool IsGone(HRESULT result)
{
    return result == HRESULT_FROM_WIN32(RPC_S_SERVER_UNAVAILABLE) ||
           result == HRESULT_FROM_WIN32(RPC_S_CALL_FAILED);
}

TEST_F(StandinProcess, Activation_StartsItAndLastReleaseEndsIt)
{
    EXPECT_FALSE(m_outlook.IsRunning());
    Dispatch application = ActivateApplication();
    EXPECT_TRUE(m_outlook.IsRunning());
    EXPECT_EQ(m_outlook.LiveObjects(), 1);
    application = nullptr;
    EXPECT_TRUE(m_outlook.WaitUntilEnded());
    EXPECT_EQ(m_outlook.LiveObjects(), 0);
}

TEST_F(StandinProcess, Calendar_SurvivesTheProcess)
{
    const std::wstring entryId = SaveAndLetEnd();
    ASSERT_TRUE(m_outlook.FindItem(kGuid));
    const Dispatch application = ActivateApplication();
    const Dispatch item =
        CallMethod(GetSession(application), L"GetItemFromID", {FromText(entryId)}).AsObject();
    EXPECT_EQ(TextOf(Get(item, L"Subject").value), L"Tea");
}

TEST_F(StandinProcess, Calls_AreWrittenDownInOrder)
{
    {
        const Dispatch application = ActivateApplication();
        const Dispatch item = CallMethod(application, L"CreateItem", {Number(1)}).AsObject();
        EXPECT_TRUE(Put(item, L"Subject", Text(L"T\u00E4gliches\n\"Ende\"")).Succeeded());
        EXPECT_TRUE(Get(item, L"Subject").Succeeded());
    }
    const std::vector<std::wstring> expected{L"call Application.CreateItem 1",
                                             L"put Appointment.Subject \"T\u00E4gliches\n\"Ende\"\"",
                                             L"get Appointment.Subject"};
    EXPECT_EQ(m_outlook.GetCallTexts(), expected);
    ASSERT_EQ(m_outlook.GetCalls().size(), 4U);
    EXPECT_EQ(m_outlook.GetCalls().front().access, L"activate");
    m_outlook.ClearCalls();
    EXPECT_TRUE(m_outlook.GetCalls().empty());
}

TEST_F(StandinProcess, Activation_Refused_AnswersThatErrorAndEnds)
{
    m_outlook.SetFaults({.refuseActivation = E_ACCESSDENIED});
    Dispatch application;
    EXPECT_EQ(Activate(application, kApplicationInterface), E_ACCESSDENIED);
    EXPECT_TRUE(m_outlook.WaitUntilEnded());
    EXPECT_EQ(Activate(application, kApplicationInterface), E_ACCESSDENIED);
    m_outlook.ClearFaults();
    EXPECT_EQ(Activate(application, kApplicationInterface), S_OK);
}

TEST_F(StandinProcess, Failure_AtTheSecondCall_StrikesThereOnly)
{
    const Dispatch application = ActivateApplication();
    m_outlook.SetFaults({.failure = CallFailure{.call = 2, .error = E_ACCESSDENIED}});
    EXPECT_EQ(CallMethod(application, L"GetNamespace", {Text(L"MAPI")}).result, S_OK);
    const Answer failed = CallMethod(application, L"GetNamespace", {Text(L"MAPI")});
    EXPECT_EQ(failed.result, DISP_E_EXCEPTION);
    EXPECT_EQ(failed.scode, E_ACCESSDENIED);
    EXPECT_EQ(CallMethod(application, L"GetNamespace", {Text(L"MAPI")}).result, S_OK);
}

TEST_F(StandinProcess, Delay_IsTakenByEachCall)
{
    const Dispatch application = ActivateApplication();
    m_outlook.SetFaults({.delayPerCall = 300ms});
    const auto start = std::chrono::steady_clock::now();
    EXPECT_TRUE(CallMethod(application, L"GetNamespace", {Text(L"MAPI")}).Succeeded());
    EXPECT_GE(std::chrono::steady_clock::now() - start, 290ms);
}

TEST_F(StandinProcess, Death_BeforeWork_LosesTheCallAndLetsTheNextActivationWork)
{
    {
        const Dispatch application = ActivateApplication();
        const Dispatch item = CallMethod(application, L"CreateItem", {Number(1)}).AsObject();
        m_outlook.SetFaults({.death = Death{}});
        EXPECT_TRUE(IsGone(CallMethod(item, L"Save").result));
        EXPECT_TRUE(m_outlook.WaitUntilEnded());
        EXPECT_TRUE(IsGone(Get(item, L"Subject").result));
    }
    Calendar calendar = m_outlook.GetCalendar();
    EXPECT_TRUE(calendar.FindFolder(calendar.calendarFolder)->items.empty());
    const Dispatch application = ActivateApplication();
    EXPECT_TRUE(GetSession(application) != nullptr);
}

TEST_F(StandinProcess, Death_AfterWork_KeepsWhatWasSaved)
{
    {
        const Dispatch application = ActivateApplication();
        const Dispatch item = CallMethod(application, L"CreateItem", {Number(1)}).AsObject();
        m_outlook.SetFaults({.death = Death{.moment = Moment::AfterWork}});
        EXPECT_TRUE(IsGone(CallMethod(item, L"Save").result));
        EXPECT_TRUE(m_outlook.WaitUntilEnded());
    }
    Calendar calendar = m_outlook.GetCalendar();
    EXPECT_EQ(calendar.FindFolder(calendar.calendarFolder)->items.size(), 1U);
}

TEST_F(StandinProcess, Move_ToANestedFolder_ChangesTheEntryId)
{
    const std::wstring before = SaveAndLetEnd();
    Calendar calendar = m_outlook.GetCalendar();
    const FolderId outer = calendar.AddFolder(calendar.calendarFolder, L"Outer", kMailItem);
    const FolderId inner = calendar.AddFolder(outer, L"Inner", kAppointmentItem);
    m_outlook.SetCalendar(calendar);
    const Dispatch application = ActivateApplication();
    m_outlook.MoveItem(kGuid, inner);
    const Answer lost = CallMethod(GetSession(application), L"GetItemFromID", {FromText(before)});
    EXPECT_EQ(lost.scode, kNotFound);
    const std::optional<Item> moved = m_outlook.FindItem(kGuid);
    ASSERT_TRUE(moved);
    EXPECT_NE(moved->entryId, before);
    const Dispatch item =
        CallMethod(GetSession(application), L"GetItemFromID", {FromText(moved->entryId)}).AsObject();
    EXPECT_EQ(TextOf(Get(Get(item, L"Parent").AsObject(), L"Name").value), L"Inner");
}

TEST_F(StandinProcess, Lose_RemovesTheItemOnce)
{
    SaveAndLetEnd();
    m_outlook.LoseItem(kGuid);
    {
        const Dispatch application = ActivateApplication();
        EXPECT_FALSE(m_outlook.FindItem(kGuid));
        SaveAppointment(application, L"Tea again", kGuid);
    }
    ASSERT_TRUE(m_outlook.WaitUntilEnded());
    // A new server does not follow the old order again.
    const Dispatch application = ActivateApplication();
    EXPECT_TRUE(m_outlook.FindItem(kGuid));
}

TEST_F(StandinProcess, SetCalendar_WhileItRuns_Throws)
{
    const Dispatch application = ActivateApplication();
    EXPECT_THROW(m_outlook.SetCalendar(Calendar()), std::logic_error);
}

TEST_F(StandinProcess, Activations_WithinTheLingerTime_MeetTheSameServer)
{
    m_outlook.SetLinger(60s);
    EXPECT_NE(ActivateApplication(), nullptr);
    const unsigned long id = m_outlook.GetProcessId();
    for (int round = 0; round < 3; ++round)
    {
        Sleep(250);
        EXPECT_NE(ActivateApplication(), nullptr);
        EXPECT_EQ(m_outlook.GetProcessId(), id);
    }
    m_outlook.SetLinger(0ms);
    EXPECT_TRUE(m_outlook.WaitUntilEnded());
}

TEST(StandinRegistration, OutsideWine_IsRefused)
{
    EXPECT_THROW(RegisterServer(L"C:\\none.exe", L"C:\\none", 0, false), std::runtime_error);
    EXPECT_THROW(UnregisterServer(false), std::runtime_error);
    EXPECT_FALSE(std::filesystem::exists(L"C:\\none"));
}

TEST(StandinRegistration, Ended_LeavesNoClassBehind)
{
    CoInitialize(nullptr);
    {
        const OutlookProcess outlook;
        EXPECT_NE(ActivateApplication(), nullptr);
    }
    Dispatch application;
    EXPECT_EQ(Activate(application, kApplicationInterface), REGDB_E_CLASSNOTREG);
    CoUninitialize();
}

} // namespace
