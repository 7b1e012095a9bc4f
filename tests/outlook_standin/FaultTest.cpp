#include "tests/outlook_standin/AutomationBase.h"
#include "tests/outlook_standin/Client.h"
#include "tests/outlook_standin/Standin.h"

#include <gtest/gtest.h>

namespace
{

using namespace ts::standin;
using namespace ts::standin::test;
using namespace std::chrono_literals;

constexpr wchar_t kGuid[] = L"{11111111-2222-3333-4444-555555555555}";

class StandinFaults : public testing::Test
{
  protected:
    Answer NextCall() { return CallMethod(m_application, L"GetNamespace", {Text(L"MAPI")}); }

    InProcessOutlook m_outlook;
    Dispatch m_application = ActivateApplication();
};

TEST_F(StandinFaults, Failure_AtNthCall_StrikesOnce)
{
    m_outlook.SetFaults(
        {.failure = CallFailure{.call = 3, .error = E_ACCESSDENIED, .form = ErrorForm::Direct}});
    EXPECT_EQ(NextCall().result, S_OK);
    EXPECT_EQ(NextCall().result, S_OK);
    EXPECT_EQ(NextCall().result, E_ACCESSDENIED);
    EXPECT_EQ(NextCall().result, S_OK);
    EXPECT_EQ(m_outlook.GetCalls().size(), 5U);
}

TEST_F(StandinFaults, Failure_AndAllLater_StrikesUntilCleared)
{
    m_outlook.SetFaults({.failure = CallFailure{.call = 2, .error = E_FAIL, .andAllLater = true}});
    EXPECT_EQ(NextCall().result, S_OK);
    EXPECT_EQ(NextCall().scode, E_FAIL);
    EXPECT_EQ(NextCall().scode, E_FAIL);
    m_outlook.ClearFaults();
    EXPECT_EQ(NextCall().result, S_OK);
}

TEST_F(StandinFaults, Failure_AfterWork_KeepsWhatWasDone)
{
    const Dispatch item = SaveAppointment(m_application, L"Tea", kGuid);
    m_outlook.SetFaults({.failure = CallFailure{.moment = Moment::AfterWork}});
    EXPECT_EQ(CallMethod(item, L"Delete").result, DISP_E_EXCEPTION);
    EXPECT_FALSE(m_outlook.FindItem(kGuid));
}

TEST_F(StandinFaults, Failure_BeforeWork_DoesNothing)
{
    const Dispatch item = SaveAppointment(m_application, L"Tea", kGuid);
    m_outlook.SetFaults({.failure = CallFailure{}});
    EXPECT_EQ(CallMethod(item, L"Delete").result, DISP_E_EXCEPTION);
    EXPECT_TRUE(m_outlook.FindItem(kGuid));
}

TEST_F(StandinFaults, Failure_OfACallForAnObject_LeavesNoObjectBehind)
{
    const long before = m_outlook.LiveObjects();
    m_outlook.SetFaults({.failure = CallFailure{.moment = Moment::AfterWork}});
    EXPECT_EQ(NextCall().result, DISP_E_EXCEPTION);
    EXPECT_EQ(m_outlook.LiveObjects(), before);
}

TEST_F(StandinFaults, UnknownMember_LookUp_Fails)
{
    m_outlook.SetFaults({.unknownMember = L"Application.GetNamespace"});
    EXPECT_EQ(NextCall().result, DISP_E_UNKNOWNNAME);
    EXPECT_EQ(CallMethod(m_application, L"CreateItem", {Number(1)}).result, S_OK);
}

TEST_F(StandinFaults, WithoutInterface_Query_Fails)
{
    m_outlook.SetFaults({.withoutInterface = L"Appointment"});
    const Dispatch item = CallMethod(m_application, L"CreateItem", {Number(1)}).AsObject();
    void* queried = nullptr;
    EXPECT_EQ(item->QueryInterface(kAppointmentInterface, &queried), E_NOINTERFACE);
    EXPECT_EQ(queried, nullptr);
}

TEST_F(StandinFaults, RefusedActivation_AnswersThatErrorUntilCleared)
{
    m_outlook.SetFaults({.refuseActivation = CO_E_SERVER_EXEC_FAILURE});
    Dispatch another;
    EXPECT_EQ(Activate(another, kApplicationInterface), CO_E_SERVER_EXEC_FAILURE);
    EXPECT_EQ(m_outlook.LiveObjects(), 1);
    m_outlook.ClearFaults();
    EXPECT_EQ(Activate(another, kApplicationInterface), S_OK);
}

TEST_F(StandinFaults, Delay_IsTakenByEachCall)
{
    m_outlook.SetFaults({.delayPerCall = 50ms});
    const auto start = std::chrono::steady_clock::now();
    NextCall();
    NextCall();
    EXPECT_GE(std::chrono::steady_clock::now() - start, 95ms);
}

TEST_F(StandinFaults, Death_AfterWork_KeepsWhatWasDoneAndAnswersNothingMore)
{
    const Dispatch item = SaveAppointment(m_application, L"Tea", kGuid);
    m_outlook.SetFaults({.death = Death{.moment = Moment::AfterWork}});
    const HRESULT unavailable = HRESULT_FROM_WIN32(RPC_S_SERVER_UNAVAILABLE);
    EXPECT_EQ(CallMethod(item, L"Delete").result, unavailable);
    EXPECT_FALSE(m_outlook.FindItem(kGuid));
    EXPECT_EQ(NextCall().result, unavailable);
    m_outlook.ClearFaults();
    EXPECT_EQ(NextCall().result, S_OK);
}

TEST_F(StandinFaults, Move_ChangesTheEntryIdAndOldOneIsNotFound)
{
    const Dispatch item = SaveAppointment(m_application, L"Tea", kGuid);
    const std::wstring before = m_outlook.FindItem(kGuid)->entryId;
    const FolderId outer = m_outlook.MakeFolder(m_outlook.GetDefaultStore(), L"Outer", kMailItem);
    const FolderId inner = m_outlook.MakeFolder(outer, L"Inner");
    const std::wstring after = m_outlook.MoveItem(kGuid, inner);
    EXPECT_NE(after, before);
    EXPECT_EQ(m_outlook.FindFolderOf(kGuid), inner);
    const Dispatch session = NextCall().AsObject();
    EXPECT_EQ(CallMethod(session, L"GetItemFromID", {FromText(before)}).scode, kNotFound);
    const Dispatch moved = CallMethod(session, L"GetItemFromID", {FromText(after)}).AsObject();
    EXPECT_EQ(TextOf(Get(moved, L"Subject").value), L"Tea");
    EXPECT_EQ(CallMethod(item, L"Save").scode, kMovedOrDeleted);
}

TEST_F(StandinFaults, Lose_RemovesTheItemAltogether)
{
    SaveAppointment(m_application, L"Tea", kGuid);
    const std::wstring entryId = m_outlook.FindItem(kGuid)->entryId;
    m_outlook.LoseItem(kGuid);
    EXPECT_FALSE(m_outlook.GetCalendar().FindItem(entryId));
    EXPECT_THROW(m_outlook.LoseItem(kGuid), std::out_of_range);
}

TEST_F(StandinFaults, Delete_MovesToDeletedItemsUnderTheSameEntryId)
{
    SaveAppointment(m_application, L"Tea", kGuid);
    const std::wstring entryId = m_outlook.FindItem(kGuid)->entryId;
    m_outlook.DeleteItem(kGuid);
    EXPECT_FALSE(m_outlook.FindItem(kGuid));
    Calendar calendar = m_outlook.GetCalendar();
    const std::optional<Place> place = calendar.FindItem(entryId);
    ASSERT_TRUE(place);
    EXPECT_EQ(place->folder->id, m_outlook.GetDeletedItems());
}

} // namespace
