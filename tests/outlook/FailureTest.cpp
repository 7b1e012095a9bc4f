// Every single call of every operation fails once, and every answer is once not what it should be.

#include "outlook/OutlookAppointments.h"
#include "tests/outlook/MeddlingOutlook.h"
#include "tests/outlook/OutlookTest.h"
#include "tests/outlook_standin/Objects.h"
#include "tests/support/HeapKind.h"

#include <algorithm>
#include <functional>

namespace ts::test
{
namespace
{

using standin::CallFailure;
using standin::ErrorForm;
using standin::Moment;

struct Operation
{
    const char* title;
    bool recurring;                            ///< the reminder that was mirrored
    bool mirrored;                             ///< else it was never added
    bool byEntryId;                            ///< else found by searching
    std::function<bool(CcvReminderData&)> run; ///< what a display says; else true
};

void PrintTo(const Operation& operation, std::ostream* out)
{
    *out << operation.title;
}

bool Modify(CcvReminderData& record)
{
    record.SetSubject(L"changed");
    record.SetInitialDueDate(CTime(2027, 1, 2, 3, 4, 5));
    ModifyAppointmentInOutlook(record);
    return true;
}

bool ModifyLost(CcvReminderData& record)
{
    record.SetOutlookObjectGuid(L"{lost}");
    record.SetOutlookEntryId(L"00");
    ModifyAppointmentInOutlook(record);
    return true;
}

bool ModifyToMonthly(CcvReminderData& record)
{
    SetRecurrence(record, EcvReminderRecurrenceType::Monthly, {1, 0, 0, 1, 4, 4});
    ModifyAppointmentInOutlook(record);
    return true;
}

bool ModifyToOneTime(CcvReminderData& record)
{
    record.SetRecurrenceType(EcvReminderRecurrenceType::None);
    return Modify(record);
}

bool Add(CcvReminderData& record)
{
    AddAppointmentToOutlook(record);
    return true;
}

bool Remove(CcvReminderData& record)
{
    RemoveAppointmentFromOutlook(record);
    return true;
}

bool Dismiss(CcvReminderData& record)
{
    DismissOccurrenceInOutlook(record, Due());
    return true;
}

bool Display(CcvReminderData& record)
{
    return DisplayOutlookAppointment(record);
}

const Operation kOperations[] = {
    {"AddOneTime", false, false, false, Add},
    {"AddRecurring", true, false, false, Add},
    {"ModifyOneTime", false, true, true, Modify},
    {"ModifyRecurring", true, true, false, Modify},
    {"ModifyToMonthly", true, true, true, ModifyToMonthly},
    {"ModifyToOneTime", true, true, true, ModifyToOneTime},
    {"ModifyLost", false, true, true, ModifyLost},
    {"Remove", false, true, true, Remove},
    {"RemoveBySearch", false, true, false, Remove},
    {"Dismiss", true, true, true, Dismiss},
    {"Display", false, true, true, Display},
    {"DisplayBySearch", false, true, false, Display},
};

class FailureTest : public OutlookTest, public testing::WithParamInterface<Operation>
{
  protected:
    /// A fresh calendar, with the reminder's appointment where the operation needs one.
    CcvReminderData Prepare()
    {
        Server().SetFaults({});
        Server().Write([](standin::Calendar& calendar) { calendar = standin::Calendar(); });
        CcvReminderData record = GetParam().recurring ? DailyRecord() : OneTimeRecord();
        if (GetParam().mirrored)
        {
            record = Mirror(record);
        }
        if (!GetParam().byEntryId)
        {
            record.SetOutlookEntryId(L"");
        }
        Server().ClearCalls();
        return record;
    }

    void ExpectNothingLeft(long call)
    {
        EXPECT_EQ(0, Server().GetLiveObjects()) << call;
        EXPECT_EQ(std::optional(false), SynchronizeInProgress()) << call;
    }

    static bool Contains(const Texts& calls, const std::wstring& call)
    {
        return std::find(calls.begin(), calls.end(), call) != calls.end();
    }

    /// A record keeps what the calls that were done told it, and nothing else changes.
    static void ExpectIdentifiers(const CcvReminderData& before, const CcvReminderData& after,
                                  const Texts& done)
    {
        if (Contains(done, L"put UserProperty.Value \"GUID\""))
        {
            EXPECT_EQ(38, after.GetOutlookObjectGuid().GetLength());
            EXPECT_NE(before.GetOutlookObjectGuid(), after.GetOutlookObjectGuid());
        }
        else
        {
            EXPECT_EQ(before.GetOutlookObjectGuid(), after.GetOutlookObjectGuid());
        }
        EXPECT_EQ(Contains(done, L"get Appointment.EntryID"),
                  before.GetOutlookEntryId() != after.GetOutlookEntryId());
    }

    /// An operation ends where a call fails, unless that asked for an entry id.
    static void ExpectToEndWith(const std::wstring& failed, const Texts& calls, std::size_t number)
    {
        if (!failed.starts_with(L"call Namespace.GetItemFromID"))
        {
            EXPECT_EQ(number, calls.size()) << "something was called after a failure";
        }
    }

    /// Runs the operation with a failure at that call. Whether it was reached.
    bool FailAt(long number, const CallFailure& failure)
    {
        CcvReminderData record = Prepare();
        standin::Faults faults;
        faults.failure = failure;
        faults.failure->call = number;
        Server().SetFaults(faults);
        CcvReminderData before(record);
        const bool answer = GetParam().run(record);
        if (std::string(GetParam().title) == "ModifyLost")
        {
            before.SetOutlookObjectGuid(L"{lost}");
            before.SetOutlookEntryId(L"00");
        }
        Texts calls = TakeCalls(record);
        std::erase(calls, L"activate Application.");
        ExpectNothingLeft(number);
        if (static_cast<std::size_t>(number) > calls.size())
        {
            EXPECT_TRUE(answer);
            return false;
        }
        Check(before, record, calls, number, answer);
        return true;
    }

    static void Check(const CcvReminderData& before, const CcvReminderData& record, Texts calls, long number,
                      bool answer)
    {
        const auto index = static_cast<std::size_t>(number) - 1;
        const std::wstring failed = calls[index];
        ExpectToEndWith(failed, calls, index + 1);
        calls.erase(calls.begin() + static_cast<std::ptrdiff_t>(index));
        SCOPED_TRACE(testing::PrintToString(CString(failed.c_str())));
        ExpectIdentifiers(before, record, calls);
        if (std::string(GetParam().title).starts_with("Display"))
        {
            EXPECT_EQ(failed.starts_with(L"call Namespace.GetItemFromID"), answer);
        }
    }
};

class MeddlingTest : public FailureTest
{
};

} // namespace

TEST_P(FailureTest, EachCall_ThatFails_EndsTheOperationWithTheStepsDone)
{
    for (const CallFailure& failure :
         {CallFailure{1, E_FAIL, ErrorForm::Direct}, CallFailure{1, E_ACCESSDENIED, ErrorForm::Exception},
          CallFailure{1, RPC_E_CALL_REJECTED, ErrorForm::Direct, Moment::AfterWork},
          CallFailure{1, E_OUTOFMEMORY, ErrorForm::Exception, Moment::AfterWork}})
    {
        long number = 1;
        while (FailAt(number, failure))
        {
            ++number;
        }
        EXPECT_GT(number, 8) << "the operation has more calls than that";
    }
}

TEST_P(FailureTest, EachCall_FromWhichOutlookIsGone_EndsTheOperation)
{
    for (long number = 1, calls = 1; number <= calls; ++number)
    {
        CcvReminderData record = Prepare();
        standin::Faults faults;
        faults.death = standin::Death{number, number % 2 == 0 ? Moment::BeforeWork : Moment::AfterWork};
        Server().SetFaults(faults);
        const bool answer = GetParam().run(record);
        calls = static_cast<long>(TakeCalls(record).size());
        ExpectNothingLeft(number);
        if (std::string(GetParam().title).starts_with("Display"))
        {
            EXPECT_EQ(number > calls - 1, answer);
        }
    }
}

INSTANTIATE_TEST_SUITE_P(Operations, FailureTest, testing::ValuesIn(kOperations),
                         [](const auto& operation) { return operation.param.title; });

TEST_P(MeddlingTest, EachAnswer_ThatIsOdd_LeavesNothingBehind)
{
    m_class.reset();
    const MeddlingOutlook::CreateApplication create = [&](IDispatch** application)
    {
        *application = standin::FromObject<standin::ApplicationObject>(m_server).Detach().pdispVal;
        return S_OK;
    };
    MeddlingOutlook meddling(create);
    for (const Meddling kind : {Meddling::FailLookUp, Meddling::FailQuery, Meddling::QueryAnswersNull,
                                Meddling::AnswerNothing, Meddling::AnswerText, Meddling::AnswerNumber,
                                Meddling::AnswerNull, Meddling::AnswerNullObject, Meddling::AnswerUnknown})
    {
        long request = 0;
        do
        {
            ++request;
            meddling.BeginRound(Meddling::Nothing, 0);
            CcvReminderData record = Prepare();
            meddling.BeginRound(kind, request);
            static_cast<void>(GetParam().run(record));
            ExpectNothingLeft(request);
            EXPECT_EQ(0, meddling.GetLiveObjects()) << testing::PrintToString(kind) << request;
        } while (meddling.WasReached());
        EXPECT_GT(request, 2) << testing::PrintToString(kind);
    }
}

INSTANTIATE_TEST_SUITE_P(Operations, MeddlingTest, testing::ValuesIn(kOperations),
                         [](const auto& operation) { return operation.param.title; });

} // namespace ts::test
