#include "Json.h"

#include "DisplayText.h"
#include "PatternText.h"
#include "Strings.h"
#include "TimeText.h"

namespace ts::console
{
namespace
{

Json StatusJson(std::optional<CcvReminderData::ReminderStatus> status)
{
    if (!status)
    {
        return nullptr;
    }
    switch (*status)
    {
    case CcvReminderData::RemindActive:
        return "RemindActive";
    case CcvReminderData::RemindPending:
        return "RemindPending";
    case CcvReminderData::DueTodayActive:
        return "DueTodayActive";
    case CcvReminderData::DueTodayPending:
        return "DueTodayPending";
    case CcvReminderData::Overdue:
        return "Overdue";
    }
    return nullptr;
}

Json RecurrenceTypeJson(EcvReminderRecurrenceType type)
{
    switch (type)
    {
    case EcvReminderRecurrenceType::None:
        return "none";
    case EcvReminderRecurrenceType::Daily:
        return "daily";
    case EcvReminderRecurrenceType::Weekly:
        return "weekly";
    case EcvReminderRecurrenceType::Monthly:
        return "monthly";
    case EcvReminderRecurrenceType::Yearly:
        return "yearly";
    default:
        return static_cast<std::int32_t>(type);
    }
}

} // namespace

Json TimeJson(std::optional<CTime> time)
{
    const auto text = time ? IsoTime(*time) : std::nullopt;
    return text ? Json(*text) : Json(nullptr);
}

Json ReminderJson(const CcvReminderData& reminder, const Evaluation& evaluation)
{
    Json json;
    json["key"] = FromLibrary(reminder.GetReminderKey());
    json["documentPath"] = FromLibrary(reminder.GetDocumentPath());
    json["mapGuid"] = FromLibrary(reminder.GetMapGuid());
    json["objectGuid"] = FromLibrary(reminder.GetObjectGuid());
    json["outlookObjectGuid"] = FromLibrary(reminder.GetOutlookObjectGuid());
    json["outlookEntryId"] = FromLibrary(reminder.GetOutlookEntryId());
    json["documentTitle"] = FromLibrary(reminder.GetDocumentTitle());
    json["objectTitle"] = FromLibrary(reminder.GetObjectTitle());
    json["subject"] = FromLibrary(reminder.GetSubject());
    json["initialDue"] = TimeJson(reminder.GetInitialDueDate());
    json["nextDue"] = TimeJson(reminder.GetNextDueDate());
    json["due"] = TimeJson(evaluation.due);
    json["dueIn"] = evaluation.dueIn ? Json(FromLibrary(*evaluation.dueIn)) : Json(nullptr);
    json["reminderTime"] = TimeJson(evaluation.reminderTime);
    json["snoozeTime"] = TimeJson(reminder.GetSnoozeTime());
    json["leadSeconds"] = reminder.GetReminderTimeSpan().GetTimeSpan();
    json["status"] = StatusJson(evaluation.status);
    json["snoozed"] = reminder.IsSnoozed();
    json["dismissed"] = reminder.IsDimissed();
    json["recurrenceType"] = RecurrenceTypeJson(reminder.GetRecurrenceType());
    json["recurrenceOptions"] = RecurrenceOptions(reminder);
    return json;
}

std::string JsonText(const Json& document)
{
    return EscapeJsonControls(document.dump(2, ' ', false, Json::error_handler_t::replace)) + "\n";
}

} // namespace ts::console
