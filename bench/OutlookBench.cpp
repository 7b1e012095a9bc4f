// Making an appointment through the stand-in for Outlook, which is on a thread of its own: each call is
// marshalled, as it is to another process. What Outlook itself takes is not measured.

#include "bench/Sandbox.h"
#include "bench/StoredReminders.h"
#include "bench/Suites.h"
#include "outlook/AutomationObject.h"
#include "outlook/OutlookAppointments.h"
#include "outlook/OutlookMembers.h"
#include "tests/outlook_standin/Standin.h"

#include <array>
#include <objbase.h>

namespace ts::bench
{
namespace
{

constexpr char kGroup[] = "outlook, stand-in";

/// An appointment of the stand-in, whose subject is read with nothing but the call.
class BareAppointment
{
  public:
    BareAppointment()
    {
        const DispatchPtr application = Activate();
        _variant_t type(outlook::kAppointmentItem, VT_I4);
        m_item =
            Invoke(application, IdOf(application, L"CreateItem"), DISPATCH_METHOD, {&type, nullptr, 1, 0})
                .pdispVal;
        m_subject = IdOf(m_item, L"Subject");
    }

    static DispatchPtr Activate()
    {
        void* created = nullptr;
        Require(SUCCEEDED(CoCreateInstance(outlook::kApplicationClass, nullptr, CLSCTX_LOCAL_SERVER,
                                           outlook::kApplicationInterface, &created)),
                "the stand-in cannot be reached");
        return {static_cast<IDispatch*>(created), false};
    }

    void ReadSubject() const { Invoke(m_item, m_subject, DISPATCH_PROPERTYGET, {}); }

  private:
    static DISPID IdOf(const DispatchPtr& object, const wchar_t* name)
    {
        std::wstring text(name);
        std::array<LPOLESTR, 1> names = {text.data()};
        DISPID id = DISPID_UNKNOWN;
        Require(SUCCEEDED(object->GetIDsOfNames(IID_NULL, names.data(), 1, LOCALE_USER_DEFAULT, &id)),
                "the stand-in lacks a member");
        return id;
    }

    static _variant_t Invoke(const DispatchPtr& object, DISPID id, WORD kind, DISPPARAMS parameters)
    {
        _variant_t answer;
        Require(SUCCEEDED(object->Invoke(id, IID_NULL, LOCALE_USER_DEFAULT, kind, &parameters, &answer,
                                         nullptr, nullptr)),
                "a call to the stand-in failed");
        return answer;
    }

    DispatchPtr m_item;
    DISPID m_subject = DISPID_UNKNOWN;
};

void AddOnce(const CcvReminderData& reminder)
{
    CcvReminderData added(reminder);
    AddAppointmentToOutlook(added);
    Require(!added.GetOutlookEntryId().IsEmpty(), "no appointment was made");
}

void MeasureAdd(Harness& harness, const std::string& name, const CcvReminderData& reminder,
                standin::InProcessOutlook& outlook, const BareAppointment& bare)
{
    // Also the first time, at which the ids of the members are asked for.
    AddOnce(reminder);
    outlook.ClearCalls();
    AddOnce(reminder);
    // One of them is the activation.
    const std::size_t calls = outlook.GetCalls().size() - 1;
    const auto add = [&](std::size_t)
    {
        AddOnce(reminder);
        outlook.ClearCalls();
    };
    const auto call = [&bare, calls](std::size_t)
    {
        const DispatchPtr application = BareAppointment::Activate();
        for (std::size_t index = 0; index < calls; ++index)
        {
            bare.ReadSubject();
        }
    };
    if (Result* result = harness.Measure(
            {kGroup, name, "activation and as many bare calls", "objects cost more", 1, add, call}))
    {
        result->notes.push_back({"calls", static_cast<double>(calls)});
        result->notes.push_back({"ms", result->subject.median / 1e6});
    }
}

} // namespace

void MeasureOutlook(Harness& harness)
{
    constexpr char kOnce[] = "add an appointment";
    constexpr char kRecurrent[] = "add a recurring appointment";
    if (!harness.Wants(kGroup, kOnce) && !harness.Wants(kGroup, kRecurrent))
    {
        return;
    }
    const Sandbox sandbox;
    standin::InProcessOutlook outlook(standin::Apartment::OwnThread);
    Require(SUCCEEDED(CoInitialize(nullptr)), "no apartment");
    {
        const BareAppointment bare;
        CcvReminderData reminder = MakeReminders(1).front();
        MeasureAdd(harness, kRecurrent, reminder, outlook, bare);
        reminder.SetRecurrenceType(EcvReminderRecurrenceType::None);
        MeasureAdd(harness, kOnce, reminder, outlook, bare);
    }
    CoUninitialize();
}

} // namespace ts::bench
