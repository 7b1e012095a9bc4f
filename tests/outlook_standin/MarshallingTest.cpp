// The stand-in on a thread of its own, reached through real proxies.

#include "tests/outlook_standin/AutomationBase.h"
#include "tests/outlook_standin/Client.h"
#include "tests/outlook_standin/Standin.h"

#include <gtest/gtest.h>

namespace
{

using namespace ts::standin;
using namespace ts::standin::test;

constexpr wchar_t kGuid[] = L"{11111111-2222-3333-4444-555555555555}";

class MarshalledStandin : public testing::Test
{
  protected:
    static void SetUpTestSuite() { CoInitialize(nullptr); }
    static void TearDownTestSuite() { CoUninitialize(); }

    InProcessOutlook m_outlook{Apartment::OwnThread};
};

/// Releases travel between the threads, so the count follows a little later.
void ExpectAllReleased(const InProcessOutlook& outlook)
{
    for (int attempt = 0; attempt < 200 && outlook.LiveObjects() != 0; ++attempt)
    {
        Sleep(10);
    }
    EXPECT_EQ(outlook.LiveObjects(), 0);
}

TEST_F(MarshalledStandin, Appointment_SavedFromAnotherThread_ArrivesAndIsReleased)
{
    {
        const Dispatch application = ActivateApplication();
        const Dispatch item = SaveAppointment(application, L"Tea", kGuid);
        EXPECT_EQ(TextOf(Get(item, L"EntryID").value).size(), 48U);
        EXPECT_GT(m_outlook.LiveObjects(), 0);
    }
    EXPECT_TRUE(m_outlook.FindItem(kGuid));
    ExpectAllReleased(m_outlook);
}

TEST_F(MarshalledStandin, Query_OwnInterface_Succeeds)
{
    const Dispatch application = ActivateApplication();
    const Dispatch item = SaveAppointment(application, L"Tea", kGuid);
    const Dispatch folder = Get(item, L"Parent").AsObject();
    void* queried = nullptr;
    ASSERT_EQ(item->QueryInterface(kAppointmentInterface, &queried), S_OK);
    const Dispatch appointment(static_cast<IDispatch*>(queried), false);
    EXPECT_EQ(TextOf(Get(appointment, L"Subject").value), L"Tea");
    ASSERT_EQ(folder->QueryInterface(kFolderInterface, &queried), S_OK);
    const Dispatch own(static_cast<IDispatch*>(queried), false);
    EXPECT_EQ(LongOf(Get(own, L"DefaultItemType").value), kAppointmentItem);
    EXPECT_EQ(folder->QueryInterface(kAppointmentInterface, &queried), E_NOINTERFACE);
}

TEST_F(MarshalledStandin, Failure_AsException_ArrivesWithItsCode)
{
    const Dispatch application = ActivateApplication();
    m_outlook.SetFaults({.failure = CallFailure{.error = E_ACCESSDENIED}});
    const Answer answer = CallMethod(application, L"GetNamespace", {Text(L"MAPI")});
    EXPECT_EQ(answer.result, DISP_E_EXCEPTION);
    EXPECT_EQ(answer.scode, E_ACCESSDENIED);
}

TEST_F(MarshalledStandin, Failure_Direct_ArrivesAsItIs)
{
    const Dispatch application = ActivateApplication();
    m_outlook.SetFaults({.failure = CallFailure{.error = E_ACCESSDENIED, .form = ErrorForm::Direct}});
    EXPECT_EQ(CallMethod(application, L"GetNamespace", {Text(L"MAPI")}).result, E_ACCESSDENIED);
}

TEST_F(MarshalledStandin, Activation_Refused_AnswersThatError)
{
    m_outlook.SetFaults({.refuseActivation = CO_E_SERVER_EXEC_FAILURE});
    Dispatch application;
    EXPECT_EQ(Activate(application, kApplicationInterface), CO_E_SERVER_EXEC_FAILURE);
    EXPECT_EQ(application, nullptr);
}

TEST_F(MarshalledStandin, Death_InACall_AnswersThatAndLaterCallsAsAnEndedServer)
{
    const Dispatch application = ActivateApplication();
    m_outlook.SetFaults({.death = Death{}});
    const HRESULT unavailable = HRESULT_FROM_WIN32(RPC_S_SERVER_UNAVAILABLE);
    EXPECT_EQ(CallMethod(application, L"GetNamespace", {Text(L"MAPI")}).result, unavailable);
    EXPECT_EQ(CallMethod(application, L"GetNamespace", {Text(L"MAPI")}).result, unavailable);
    Dispatch another;
    EXPECT_EQ(Activate(another, kApplicationInterface), unavailable);
}

} // namespace
