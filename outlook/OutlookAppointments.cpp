#include "outlook/OutlookAppointments.h"

#include "module/CcvComException.h"
#include "module/LanguageText.h"
#include "outlook/AppointmentRecurrence.h"
#include "outlook/AppointmentSearch.h"
#include "outlook/OutlookApplication.h"
#include "outlook/OutlookMembers.h"
#include "outlook/OutlookTime.h"
#include "resources/StringIds.h"

#include <array>
#include <objbase.h>

namespace
{

using ts::AutomationObject;
namespace appointment = ts::outlook::appointment;

// By this name Outlook shows the property; it is found again by its value alone.
constexpr wchar_t kGuidProperty[] = L"OutlookTicklerItemGuid";

/// Runs `steps` with Outlook's application and its MAPI namespace, with the running or default profile. False
/// when Outlook cannot be started or a call fails, else what the steps say.
template <typename Steps>
bool WithOutlook(const Steps& steps)
{
    try
    {
        const std::optional<AutomationObject> application = ts::CreateOutlookApplication();
        if (!application)
        {
            return false;
        }
        return steps(*application, application->CallForObject(ts::outlook::application::kGetNamespace,
                                                              {ts::TextValue(L"MAPI")}));
    }
    catch (const CcvComException&)
    {
        // The reminder itself is safe in the store, and nobody waits for the calendar: no report, no retry.
        return false;
    }
}

/// Runs `steps` with the record's appointment. False when there is none, else like WithOutlook.
template <typename Steps>
bool WithAppointment(const CcvReminderData& record, const Steps& steps)
{
    return WithOutlook(
        [&](const AutomationObject&, const AutomationObject& session)
        {
            const std::optional<AutomationObject> item = ts::FindOutlookAppointment(
                record.GetOutlookObjectGuid(), record.GetOutlookEntryId(), session);
            if (item)
            {
                steps(*item);
            }
            return item.has_value();
        });
}

CString NewGuid()
{
    GUID guid{};
    const HRESULT result = CoCreateGuid(&guid);
    if (FAILED(result))
    {
        throw CcvComException(result);
    }
    // 38 characters and the terminator.
    std::array<wchar_t, 39> text{};
    StringFromGUID2(guid, text.data(), static_cast<int>(text.size()));
    return {text.data()};
}

void FillNewAppointment(const AutomationObject& item, const CcvReminderData& record)
{
    item.Put(appointment::kSubject, ts::TextValue(record.GetSubject()));
    // The alert is this library's business.
    item.Put(appointment::kReminderSet, ts::BoolValue(false));
    item.Put(appointment::kBody, ts::TextValue(ts::FormatText(IDS_APPOINTMENT_BODY, record.GetDocumentTitle(),
                                                              record.GetDocumentPath())));
    item.Call(appointment::kClearRecurrencePattern);
    ts::ApplyRecurrencePattern(record, item, true);
    const _variant_t due = ts::DateValue(ts::ToOutlookDate(record.GetInitialDueDate()));
    item.Put(appointment::kStart, due);
    item.Put(appointment::kEnd, due);
}

/// Marks the appointment with a new GUID, which it leaves in the record.
void MarkAppointment(const AutomationObject& item, CcvReminderData& record)
{
    const AutomationObject properties = item.GetChild(appointment::kUserProperties);
    item.Put(appointment::kBusyStatus, ts::LongValue(ts::outlook::kFree));
    const CString guid = NewGuid();
    const AutomationObject property = properties.CallForObject(
        ts::outlook::userProperties::kAdd, {ts::TextValue(kGuidProperty), ts::LongValue(ts::outlook::kText),
                                            ts::BoolValue(true), ts::LongValue(1)});
    property.Put(ts::outlook::userProperty::kValue, ts::TextValue(guid));
    record.SetOutlookObjectGuid(guid);
}

void BringInLine(const AutomationObject& item, const CcvReminderData& record)
{
    bool changed = false;
    if (item.GetText(appointment::kSubject) != record.GetSubject())
    {
        item.Put(appointment::kSubject, ts::TextValue(record.GetSubject()));
        changed = true;
    }
    changed = ts::ApplyRecurrencePattern(record, item, false) || changed;
    if (!record.IsRecurrent())
    {
        const DATE start = item.GetDate(appointment::kStart);
        const DATE due = ts::ToOutlookDate(record.GetInitialDueDate());
        if (start != due)
        {
            item.Put(appointment::kStart, ts::DateValue(due));
            changed = true;
        }
    }
    if (changed)
    {
        item.Call(appointment::kSave);
    }
}

} // namespace

void ts::AddAppointmentToOutlook(CcvReminderData& record)
{
    WithOutlook(
        [&](const AutomationObject& application, const AutomationObject&)
        {
            const AutomationObject item =
                application
                    .CallForObject(outlook::application::kCreateItem, {LongValue(outlook::kAppointmentItem)})
                    .Query(outlook::kAppointmentInterface);
            FillNewAppointment(item, record);
            MarkAppointment(item, record);
            item.Call(appointment::kSave);
            item.Call(appointment::kClose, {LongValue(outlook::kSave)});
            record.SetOutlookEntryId(item.GetText(appointment::kEntryId));
            return true;
        });
}

void ts::ModifyAppointmentInOutlook(CcvReminderData& record)
{
    WithOutlook(
        [&](const AutomationObject&, const AutomationObject& session)
        {
            const std::optional<AutomationObject> item =
                FindOutlookAppointment(record.GetOutlookObjectGuid(), record.GetOutlookEntryId(), session);
            if (item)
            {
                BringInLine(*item, record);
            }
            else
            {
                AddAppointmentToOutlook(record);
            }
            return true;
        });
}

void ts::RemoveAppointmentFromOutlook(const CcvReminderData& record)
{
    WithAppointment(record, [](const AutomationObject& item) { item.Call(appointment::kDelete); });
}

void ts::DismissOccurrenceInOutlook(const CcvReminderData& record, const CTime& previousDueDate)
{
    WithAppointment(record,
                    [&](const AutomationObject& item)
                    {
                        if (item.GetBool(appointment::kIsRecurring))
                        {
                            item.CallForObject(appointment::kGetRecurrencePattern)
                                .CallForObject(outlook::recurrence::kGetOccurrence,
                                               {DateValue(ToOutlookDate(previousDueDate))})
                                .Call(appointment::kDelete);
                        }
                    });
}

bool ts::DisplayOutlookAppointment(const CcvReminderData& record)
{
    return WithAppointment(record, [](const AutomationObject& item) { item.Call(appointment::kDisplay); });
}
