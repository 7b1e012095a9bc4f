#include "tests/outlook_standin/CalendarFile.h"

#include "tests/outlook_standin/Files.h"

namespace
{

using nlohmann::json;
using ts::standin::FromUtf8;
using ts::standin::ToUtf8;

constexpr wchar_t kFileName[] = L"calendar.json";

std::wstring Text(const json& value)
{
    return FromUtf8(value.get_ref<const std::string&>());
}

json FromValue(const ts::standin::PropertyValue& value)
{
    if (const auto* const text = std::get_if<std::wstring>(&value))
    {
        return ToUtf8(*text);
    }
    if (const auto* const number = std::get_if<double>(&value))
    {
        return *number;
    }
    return std::get<bool>(value);
}

ts::standin::PropertyValue ToValue(const json& value)
{
    if (value.is_string())
    {
        return Text(value);
    }
    if (value.is_boolean())
    {
        return value.get<bool>();
    }
    return value.get<double>();
}

} // namespace

namespace ts::standin
{

void to_json(json& json, const UserProperty& property)
{
    json = {{"name", ToUtf8(property.name)}, {"type", property.type}, {"value", FromValue(property.value)}};
}

void from_json(const json& json, UserProperty& property)
{
    property = {Text(json.at("name")), json.at("type"), ToValue(json.at("value"))};
}

void to_json(json& json, const Recurrence& recurrence)
{
    json = {{"type", static_cast<long>(recurrence.type)},
            {"interval", recurrence.interval},
            {"dayOfWeekMask", recurrence.dayOfWeekMask},
            {"dayOfMonth", recurrence.dayOfMonth},
            {"monthOfYear", recurrence.monthOfYear},
            {"instance", recurrence.instance},
            {"startTime", recurrence.startTime},
            {"endTime", recurrence.endTime},
            {"patternStartDate", recurrence.patternStartDate},
            {"deletedOccurrences", recurrence.deletedOccurrences}};
}

void from_json(const json& json, Recurrence& recurrence)
{
    recurrence = {static_cast<RecurrenceType>(json.at("type").get<long>()),
                  json.at("interval"),
                  json.at("dayOfWeekMask"),
                  json.at("dayOfMonth"),
                  json.at("monthOfYear"),
                  json.at("instance"),
                  json.at("startTime"),
                  json.at("endTime"),
                  json.at("patternStartDate"),
                  json.at("deletedOccurrences").get<std::vector<double>>()};
}

void to_json(json& json, const Item& item)
{
    json = {{"type", item.type},
            {"entryId", ToUtf8(item.entryId)},
            {"subject", ToUtf8(item.subject)},
            {"body", ToUtf8(item.body)},
            {"start", item.start},
            {"end", item.end},
            {"busyStatus", item.busyStatus},
            {"reminderSet", item.reminderSet},
            {"userProperties", item.userProperties}};
    if (item.recurrence)
    {
        json["recurrence"] = *item.recurrence;
    }
}

void from_json(const json& json, Item& item)
{
    item = {};
    item.type = json.at("type");
    item.entryId = Text(json.at("entryId"));
    item.subject = Text(json.at("subject"));
    item.body = Text(json.at("body"));
    item.start = json.at("start");
    item.end = json.at("end");
    item.busyStatus = json.at("busyStatus");
    item.reminderSet = json.at("reminderSet");
    item.userProperties = json.at("userProperties").get<std::vector<UserProperty>>();
    if (json.contains("recurrence"))
    {
        item.recurrence = json.at("recurrence").get<Recurrence>();
    }
}

void to_json(json& json, const Folder& folder)
{
    json = {{"id", folder.id},
            {"name", ToUtf8(folder.name)},
            {"defaultItemType", folder.defaultItemType},
            {"folders", folder.folders},
            {"items", folder.items}};
}

void from_json(const json& json, Folder& folder)
{
    folder = {json.at("id"), Text(json.at("name")), json.at("defaultItemType"),
              json.at("folders").get<std::vector<Folder>>(), json.at("items").get<std::vector<Item>>()};
}

} // namespace ts::standin

ts::standin::Calendar ts::standin::LoadCalendar(const std::filesystem::path& folder)
{
    Calendar calendar;
    if (const auto content = TryReadFile(folder / kFileName))
    {
        const json stored = json::parse(*content);
        calendar.stores = stored.at("stores").get<std::vector<Folder>>();
        calendar.calendarFolder = stored.at("calendarFolder");
        calendar.deletedItems = stored.at("deletedItems");
        calendar.nextNumber = stored.at("nextNumber");
    }
    return calendar;
}

void ts::standin::SaveCalendar(const std::filesystem::path& folder, const Calendar& calendar)
{
    const json stored = {{"about", "calendar of the stand-in Outlook, a test double"},
                         {"stores", calendar.stores},
                         {"calendarFolder", calendar.calendarFolder},
                         {"deletedItems", calendar.deletedItems},
                         {"nextNumber", calendar.nextNumber}};
    ReplaceWhole(folder / kFileName, stored.dump(1));
}
