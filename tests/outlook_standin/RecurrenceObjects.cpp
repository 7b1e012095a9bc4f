#include "tests/outlook_standin/Objects.h"
#include "tests/outlook_standin/RecurrenceRules.h"

#include <cguid.h>
#include <cmath>

namespace
{

using namespace ts::standin;

using Pattern = RecurrencePatternObject;

long InRange(const VARIANT& value, long lowest, long highest)
{
    const long number = LongOf(value);
    if (number < lowest || number > highest)
    {
        throw CallError(E_INVALIDARG, "The value is out of range.");
    }
    return number;
}

bool Always(RecurrenceType) noexcept
{
    return true;
}

/// A number of the pattern, which only some types of recurrence have.
template <auto field, long highest, auto uses>
Member Number(const wchar_t* name)
{
    return {.name = name,
            .get = GetOf<Pattern, [](Pattern& self) { return FromLong(self.Get().*field); }>,
            .put = PutOf<Pattern, [](Pattern& self, const VARIANT& value)
                         {
                             Recurrence changed = self.Get();
                             if (!uses(changed.type))
                             {
                                 throw CallError(E_INVALIDARG,
                                                 "This type of recurrence has no such property.");
                             }
                             changed.*field = InRange(value, 1, highest);
                             self.Set(changed);
                         }>};
}

void SetType(Pattern& self, const VARIANT& value)
{
    constexpr long kUnused = 4;
    const long type = InRange(value, 0, static_cast<long>(RecurrenceType::YearNth));
    if (type == kUnused)
    {
        throw CallError(E_INVALIDARG, "There is no such type of recurrence.");
    }
    Recurrence changed = self.Get();
    ChangeType(changed, static_cast<RecurrenceType>(type));
    self.Set(changed);
}

/// The length stays; the end follows.
void SetStartTime(Pattern& self, const VARIANT& value)
{
    Recurrence changed = self.Get();
    const double length = LengthOf(changed);
    changed.startTime = ClockTimeOf(DateOf(value));
    changed.endTime = ClockTimeOf(changed.startTime + length);
    self.Set(changed);
}

void SetEndTime(Pattern& self, const VARIANT& value)
{
    Recurrence changed = self.Get();
    changed.endTime = ClockTimeOf(DateOf(value));
    self.Set(changed);
}

void SetPatternStartDate(Pattern& self, const VARIANT& value)
{
    Recurrence changed = self.Get();
    changed.patternStartDate = std::floor(DateOf(value));
    self.Set(changed);
}

std::vector<Member> PatternMembers()
{
    return {
        {.name = L"RecurrenceType",
         .get = GetOf<Pattern, [](Pattern& self) { return FromLong(static_cast<long>(self.Get().type)); }>,
         .put = PutOf<Pattern, SetType>},
        Number<&Recurrence::interval, 999, Always>(L"Interval"),
        Number<&Recurrence::dayOfWeekMask, 127, UsesDayOfWeekMask>(L"DayOfWeekMask"),
        Number<&Recurrence::dayOfMonth, 31, UsesDayOfMonth>(L"DayOfMonth"),
        Number<&Recurrence::monthOfYear, 12, UsesMonthOfYear>(L"MonthOfYear"),
        Number<&Recurrence::instance, 5, UsesInstance>(L"Instance"),
        {.name = L"StartTime",
         .get = GetOf<Pattern, [](Pattern& self) { return FromDate(self.Get().startTime); }>,
         .put = PutOf<Pattern, SetStartTime>},
        {.name = L"EndTime",
         .get = GetOf<Pattern, [](Pattern& self) { return FromDate(self.Get().endTime); }>,
         .put = PutOf<Pattern, SetEndTime>},
        {.name = L"PatternStartDate",
         .get = GetOf<Pattern, [](Pattern& self) { return FromDate(self.Get().patternStartDate); }>,
         .put = PutOf<Pattern, SetPatternStartDate>},
        {.name = L"GetOccurrence", .call = CallOf<Pattern, [](Pattern& self, const Arguments& arguments) {
                                       return self.GetOccurrence(DateOf(arguments[0]));
                                   }>}};
}

const Kind& PatternKind()
{
    static const Kind kind{L"RecurrencePattern", 0xA00, IID_NULL, PatternMembers()};
    return kind;
}

const Kind& OccurrenceKind()
{
    using Object = OccurrenceObject;
    static const Kind kind{
        L"Occurrence",
        0xB00,
        kAppointmentInterface,
        {{.name = L"Start", .get = GetOf<Object, [](Object& self) { return FromDate(self.GetStart()); }>},
         {.name = L"Subject",
          .get = GetOf<Object, [](Object& self) { return FromText(self.ShareMaster()->item.subject); }>},
         {.name = L"IsRecurring", .get = GetOf<Object, [](Object&) { return FromBool(true); }>},
         {.name = L"Parent",
          .get = GetOf<Object, [](Object& self)
                       { return FromObject<AppointmentObject>(self.GetServer(), self.ShareMaster()); }>},
         {.name = L"Delete",
          .call = CallOf<Object, [](Object& self, const Arguments&)
                         {
                             self.Delete();
                             return _variant_t();
                         }>}}};
    return kind;
}

[[noreturn]] void FailWithoutOccurrence()
{
    throw CallError(kNotFound,
                    "You changed one of the recurrences of this item, or there is none at this time.");
}

} // namespace

ts::standin::RecurrencePatternObject::RecurrencePatternObject(std::shared_ptr<Server> server, DraftPtr draft)
    : AutomationBase(std::move(server), PatternKind()), m_draft(std::move(draft))
{
}

ts::standin::Recurrence& ts::standin::RecurrencePatternObject::Get()
{
    if (m_draft->deleted || !m_draft->item.recurrence)
    {
        throw CallError(kMovedOrDeleted, "The item no longer recurs.");
    }
    return *m_draft->item.recurrence;
}

void ts::standin::RecurrencePatternObject::Set(const Recurrence& recurrence)
{
    if (Get() != recurrence)
    {
        Get() = recurrence;
        m_draft->changed = true;
        m_draft->patternChanged = true;
        FollowPattern(m_draft->item);
    }
}

_variant_t ts::standin::RecurrencePatternObject::GetOccurrence(double start)
{
    if (!HasOccurrence(Get(), start))
    {
        FailWithoutOccurrence();
    }
    return FromObject<OccurrenceObject>(GetServer(), m_draft, start);
}

ts::standin::OccurrenceObject::OccurrenceObject(std::shared_ptr<Server> server, DraftPtr master, double start)
    : AutomationBase(std::move(server), OccurrenceKind()), m_master(std::move(master)), m_start(start)
{
}

void ts::standin::OccurrenceObject::Delete()
{
    GetServer()->Write(
        [&](Calendar& calendar)
        {
            const std::optional<Place> place = calendar.FindItem(m_master->item.entryId);
            if (!place || !place->item->recurrence || !HasOccurrence(*place->item->recurrence, m_start))
            {
                FailWithoutOccurrence();
            }
            place->item->recurrence->deletedOccurrences.push_back(m_start);
        });
    if (m_master->item.recurrence)
    {
        m_master->item.recurrence->deletedOccurrences.push_back(m_start);
    }
}
