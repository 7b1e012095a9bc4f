#include "tests/outlook_standin/Objects.h"
#include "tests/outlook_standin/RecurrenceRules.h"

#include <cguid.h>
#include <cmath>

namespace
{

using namespace ts::standin;

constexpr long kHighestItemType = 7; // olDistributionListItem
constexpr double kHalfHour = 0.5 / 24;

// Values of OlInspectorClose.
constexpr long kCloseSave = 0;
constexpr long kClosePromptForSave = 2;

/// A new appointment starts at the next half hour and takes half an hour.
double NextHalfHour()
{
    SYSTEMTIME now{};
    GetLocalTime(&now);
    double date = 0;
    SystemTimeToVariantTime(&now, &date);
    return std::ceil(date / kHalfHour) * kHalfHour;
}

const Kind& OtherItemKind()
{
    using Object = OtherItemObject;
    static const Kind kind{
        L"OtherItem",
        0x600,
        IID_NULL,
        {{.name = L"Subject",
          .get = GetOf<Object, [](Object& self) { return FromText(self.GetDraft().item.subject); }>},
         {.name = L"EntryID",
          .get = GetOf<Object, [](Object& self) { return FromText(self.GetDraft().item.entryId); }>},
         {.name = L"Parent",
          .get =
              GetOf<Object, [](Object& self) { return ParentOf(self.GetServer(), self.GetDraft().item); }>},
         {.name = L"UserProperties", .get = GetOf<Object, [](Object& self) {
                                         return FromObject<UserPropertiesObject>(self.GetServer(),
                                                                                 self.ShareDraft());
                                     }>}}};
    return kind;
}

/// A property of an appointment that is only kept.
template <auto field, auto from, auto to>
Member Kept(const wchar_t* name)
{
    return {.name = name,
            .get = GetOf<AppointmentObject, [](AppointmentObject& self) { return from(self.Look().*field); }>,
            .put = PutOf<AppointmentObject, [](AppointmentObject& self, const VARIANT& value)
                         { self.Change().*field = to(value); }>};
}

std::vector<Member> AppointmentProperties()
{
    using Object = AppointmentObject;
    return {Kept<&Item::subject, FromText, TextOf>(L"Subject"),
            Kept<&Item::body, FromText, TextOf>(L"Body"),
            Kept<&Item::busyStatus, FromLong, LongOf>(L"BusyStatus"),
            Kept<&Item::reminderSet, FromBool, BoolOf>(L"ReminderSet"),
            {.name = L"Start",
             .get = GetOf<Object, [](Object& self) { return FromDate(self.Look().start); }>,
             .put = PutOf<Object, [](Object& self, const VARIANT& value) { self.SetStart(DateOf(value)); }>},
            {.name = L"End",
             .get = GetOf<Object, [](Object& self) { return FromDate(self.Look().end); }>,
             .put = PutOf<Object, [](Object& self, const VARIANT& value) { self.SetEnd(DateOf(value)); }>},
            {.name = L"EntryID",
             .get = GetOf<Object, [](Object& self) { return FromText(self.Look().entryId); }>},
            {.name = L"IsRecurring",
             .get = GetOf<Object, [](Object& self) { return FromBool(self.Look().recurrence.has_value()); }>},
            {.name = L"Parent",
             .get = GetOf<Object, [](Object& self) { return ParentOf(self.GetServer(), self.Look()); }>},
            {.name = L"UserProperties", .get = GetOf<Object, [](Object& self) {
                                            return FromObject<UserPropertiesObject>(self.GetServer(),
                                                                                    self.ShareDraft());
                                        }>}};
}

/// A method without arguments and without an answer.
template <auto method>
_variant_t Simply(AppointmentObject& self, const Arguments&)
{
    (self.*method)();
    return {};
}

std::vector<Member> AppointmentMembers()
{
    using Object = AppointmentObject;
    std::vector<Member> members = AppointmentProperties();
    members.insert(
        members.end(),
        {{.name = L"GetRecurrencePattern",
          .call = CallOf<Object, [](Object& self, const Arguments&) { return self.GetRecurrencePattern(); }>},
         {.name = L"ClearRecurrencePattern", .call = CallOf<Object, Simply<&Object::ClearRecurrencePattern>>},
         {.name = L"Save", .call = CallOf<Object, Simply<&Object::Save>>},
         {.name = L"Close",
          .call = CallOf<Object,
                         [](Object& self, const Arguments& arguments)
                         {
                             self.Close(LongOf(arguments[0]));
                             return _variant_t();
                         }>},
         {.name = L"Delete", .call = CallOf<Object, Simply<&Object::Delete>>},
         {.name = L"Display", .call = CallOf<Object, Simply<&Object::Display>>}});
    return members;
}

const Kind& AppointmentKind()
{
    static const Kind kind{L"Appointment", 0x700, kAppointmentInterface, AppointmentMembers()};
    return kind;
}

} // namespace

ts::standin::OtherItemObject::OtherItemObject(std::shared_ptr<Server> server, DraftPtr draft)
    : AutomationBase(std::move(server), OtherItemKind()), m_draft(std::move(draft))
{
}

ts::standin::AppointmentObject::AppointmentObject(std::shared_ptr<Server> server, DraftPtr draft)
    : AutomationBase(std::move(server), AppointmentKind()), m_draft(std::move(draft))
{
}

void ts::standin::AppointmentObject::RequirePresent() const
{
    if (m_draft->deleted)
    {
        throw CallError(kMovedOrDeleted, "The item has been moved or deleted.");
    }
}

ts::standin::Item& ts::standin::AppointmentObject::Look()
{
    RequirePresent();
    return m_draft->item;
}

ts::standin::Item& ts::standin::AppointmentObject::Change()
{
    Item& item = Look();
    m_draft->changed = true;
    return item;
}

void ts::standin::AppointmentObject::SetStart(double start)
{
    Item& item = Change();
    // The appointment keeps its length.
    item.end += start - item.start;
    item.start = start;
    if (item.recurrence)
    {
        const Recurrence moved = DefaultRecurrence(item);
        m_draft->patternChanged = m_draft->patternChanged || moved.startTime != item.recurrence->startTime ||
                                  moved.patternStartDate != item.recurrence->patternStartDate;
        item.recurrence->startTime = moved.startTime;
        item.recurrence->endTime = moved.endTime;
        item.recurrence->patternStartDate = moved.patternStartDate;
    }
}

void ts::standin::AppointmentObject::SetEnd(double end)
{
    Item& item = Change();
    if (end < item.start)
    {
        throw CallError(E_INVALIDARG, "The end lies before the start.");
    }
    item.end = end;
    if (item.recurrence)
    {
        item.recurrence->endTime = ClockTimeOf(end);
    }
}

_variant_t ts::standin::AppointmentObject::GetRecurrencePattern()
{
    if (!Look().recurrence)
    {
        // To take the pattern is what makes an appointment recurring.
        Item& item = Change();
        item.recurrence = DefaultRecurrence(item);
        m_draft->patternChanged = true;
    }
    return FromObject<RecurrencePatternObject>(GetServer(), m_draft);
}

void ts::standin::AppointmentObject::ClearRecurrencePattern()
{
    if (Look().recurrence)
    {
        Change().recurrence.reset();
        m_draft->patternChanged = true;
    }
}

void ts::standin::AppointmentObject::Save()
{
    RequirePresent();
    GetServer()->Write([&](Calendar& calendar) { Store(calendar); });
    m_draft->changed = false;
    m_draft->patternChanged = false;
}

void ts::standin::AppointmentObject::Store(Calendar& calendar)
{
    Item& item = m_draft->item;
    if (item.entryId.empty())
    {
        item.entryId = calendar.AddItem(calendar.calendarFolder, item);
        return;
    }
    const std::optional<Place> place = calendar.FindItem(item.entryId);
    if (!place)
    {
        throw CallError(kMovedOrDeleted, "The item has been moved or deleted.");
    }
    if (item.recurrence && place->item->recurrence)
    {
        // Occurrences may have been deleted meanwhile. Another pattern has occurrences of its own.
        item.recurrence->deletedOccurrences =
            m_draft->patternChanged ? std::vector<double>{} : place->item->recurrence->deletedOccurrences;
    }
    *place->item = item;
}

void ts::standin::AppointmentObject::Close(long mode)
{
    RequirePresent();
    if (mode < kCloseSave || mode > kClosePromptForSave)
    {
        throw CallError(E_INVALIDARG, "There is no such way to close.");
    }
    if (mode == kCloseSave && (m_draft->changed || m_draft->item.entryId.empty()))
    {
        Save();
    }
}

void ts::standin::AppointmentObject::Delete()
{
    const std::wstring& entryId = Look().entryId;
    if (!entryId.empty())
    {
        GetServer()->Write(
            [&](Calendar& calendar)
            {
                if (!calendar.FindItem(entryId))
                {
                    throw CallError(kMovedOrDeleted, "The item has been moved or deleted.");
                }
                calendar.DeleteItem(entryId);
            });
    }
    m_draft->deleted = true;
}

_variant_t ts::standin::FromItem(const std::shared_ptr<Server>& server, Item item)
{
    const bool isAppointment = item.type == kAppointmentItem;
    auto draft = std::make_shared<Draft>(Draft{std::move(item), false, false, false});
    return isAppointment ? FromObject<AppointmentObject>(server, std::move(draft))
                         : FromObject<OtherItemObject>(server, std::move(draft));
}

_variant_t ts::standin::NewItem(const std::shared_ptr<Server>& server, long type)
{
    if (type < 0 || type > kHighestItemType)
    {
        throw CallError(E_INVALIDARG, "There is no such kind of item.");
    }
    Item item;
    item.type = type;
    item.start = NextHalfHour();
    item.end = item.start + kHalfHour;
    return FromItem(server, std::move(item));
}

_variant_t ts::standin::ParentOf(const std::shared_ptr<Server>& server, const Item& item)
{
    const FolderId id = server->Read(
        [&](Calendar& calendar)
        {
            if (item.entryId.empty())
            {
                return calendar.calendarFolder;
            }
            const std::optional<Place> place = calendar.FindItem(item.entryId);
            if (!place)
            {
                throw CallError(kMovedOrDeleted, "The item has been moved or deleted.");
            }
            return place->folder->id;
        });
    return FromObject<FolderObject>(server, id);
}
