#include "CommandLine.h"
#include "Commands.h"
#include "Errors.h"
#include "Store.h"
#include "Strings.h"
#include "TimeText.h"

#include <algorithm>
#include <memory>

namespace ts::console
{
namespace
{

void RunSnooze(const std::string& key, const std::string& spanText, const Session& session)
{
    const CTimeSpan span = ParseSpan(spanText, "SPAN");
    if (span == CTimeSpan() || !IsCalendarTime(CTime::GetCurrentTime() + span))
    {
        throw UsageError("SPAN: " + Quoted(spanText) + " is no time to snooze");
    }
    CcvReminderData reminder = LoadReminder(key);
    reminder.SetSnoozeTime(span);
    SaveReminder(reminder);
    session.out << "Snoozed until " << ShortTime(reminder.GetSnoozeTime()) << ".\n";
}

/// Ends the occurrence that a list shows now, so a recurring reminder is first brought up to date.
void Dismiss(CcvReminderData& reminder)
{
    try
    {
        reminder.GetCalculatedDueTime(CTime::GetCurrentTime());
        reminder.SetDismissed(true);
    }
    catch (const COleException&)
    {
        throw OperationError("the next occurrence of " + Quoted(FromLibrary(reminder.GetReminderKey())) +
                             " cannot be found");
    }
}

void RunDismiss(const std::string& key, const Session& session)
{
    CcvReminderData reminder = LoadReminder(key);
    Dismiss(reminder);
    SaveReminder(reminder);
    if (!reminder.IsRecurrent())
    {
        session.out << "Dismissed.\n";
    }
    else if (IsCalendarTime(reminder.GetNextDueDate()))
    {
        session.out << "Dismissed. Next due " << ShortTime(reminder.GetNextDueDate()) << ".\n";
    }
    else
    {
        session.out << "Dismissed. No occurrence follows.\n";
    }
}

void RunUndismiss(const std::string& key, const Session& session)
{
    CcvReminderData reminder = LoadReminder(key);
    if (!reminder.IsDimissed())
    {
        session.out << "The reminder is not dismissed.\n";
        return;
    }
    reminder.SetDismissed(false);
    SaveReminder(reminder);
    session.out << "No longer dismissed.\n";
}

void RunDelete(const std::string& key, const Session& session)
{
    CcvReminderData reminder = LoadReminder(key);
    DeleteReminder(reminder);
    session.out << "Deleted.\n";
}

struct MoveArguments
{
    std::string oldPath;
    std::string newPath;
    std::string map;
};

void RunMove(const MoveArguments& arguments, const Session& session)
{
    const CString oldPath = ToLibrary(arguments.oldPath);
    const CString newPath = ToLibrary(arguments.newPath);
    const CString map = ParseGuid(arguments.map, "MAPGUID");
    if (newPath.IsEmpty())
    {
        throw UsageError("NEWPATH must not be empty");
    }
    const auto count = [&map](const CString& path)
    {
        const auto reminders = LoadReminders();
        return std::count_if(reminders.begin(), reminders.end(),
                             [&](const CcvReminderData& reminder)
                             { return reminder.GetDocumentPath() == path && reminder.GetMapGuid() == map; });
    };
    const auto affected = count(oldPath);
    CcvReminderDataUtilities::UpdateDocumentPath(kRemindersPath, oldPath, newPath, map);
    const auto left = oldPath == newPath ? 0 : count(oldPath);
    if (left != 0)
    {
        throw OperationError(std::to_string(left) + " of " + std::to_string(affected) +
                             " reminders could not be written");
    }
    session.out << "Moved " << affected << (affected == 1 ? " reminder.\n" : " reminders.\n");
}

void AddKeyCommand(CLI::App& app, Session& session, const std::string& name, const std::string& description,
                   void (*run)(const std::string&, const Session&))
{
    CLI::App* command = AddCommand(app, name, description,
                                   "reminders " + name + " \"{{6B1D7C5E-0F43-4C0B-9A35-3F1B8E6A2D01}-0}\"");
    const auto key = std::make_shared<std::string>();
    AddArgument(*command, "KEY", *key, "Key of the reminder");
    command->callback([key, run, &session] { run(*key, session); });
}

void AddSnooze(CLI::App& app, Session& session)
{
    CLI::App* snooze = AddCommand(app, "snooze", "Remind again after a while",
                                  "reminders snooze \"{{6B1D7C5E-0F43-4C0B-9A35-3F1B8E6A2D01}-0}\" 15m");
    const auto key = std::make_shared<std::string>();
    const auto span = std::make_shared<std::string>();
    AddArgument(*snooze, "KEY", *key, "Key of the reminder");
    AddArgument(*snooze, "SPAN", *span, "From now: 15m, 2h, 1d, 1w");
    snooze->callback([key, span, &session] { RunSnooze(*key, *span, session); });
}

void AddMove(CLI::App& app, Session& session)
{
    CLI::App* move = AddCommand(app, "move", "Follow a map document to its new path",
                                "reminders move \"C:\\maps\\plan.map\" \"D:\\old\\plan.map\""
                                " 6B1D7C5E-0F43-4C0B-9A35-3F1B8E6A2D01");
    const auto arguments = std::make_shared<MoveArguments>();
    AddArgument(*move, "OLDPATH", arguments->oldPath, "Path of the document, exactly as stored");
    AddArgument(*move, "NEWPATH", arguments->newPath, "Its path from now on");
    AddArgument(*move, "MAPGUID", arguments->map, "Identifier of the map");
    move->callback([arguments, &session] { RunMove(*arguments, session); });
}

} // namespace

void AddStateCommands(CLI::App& app, Session& session)
{
    AddSnooze(app, session);
    AddKeyCommand(app, session, "dismiss", "End a reminder, or the present occurrence of a recurring one",
                  RunDismiss);
    AddKeyCommand(app, session, "undismiss", "Take a dismissal back", RunUndismiss);
    AddKeyCommand(app, session, "delete", "Delete a reminder", RunDelete);
    AddMove(app, session);
}

} // namespace ts::console
