#include "Change.h"
#include "CommandLine.h"
#include "Commands.h"
#include "Errors.h"
#include "Strings.h"
#include "TimeText.h"

#include <algorithm>
#include <memory>

namespace ts::console
{
namespace
{

struct StateArguments
{
    std::string key;
    std::string span;
    Store::Outlook outlook = Store::Outlook::Mirrored;
};

void RunSnooze(const StateArguments& arguments, const Session& session)
{
    const CTimeSpan span = ParseSpan(arguments.span, "SPAN");
    if (span == CTimeSpan() || !IsCalendarTime(CTime::GetCurrentTime() + span))
    {
        throw UsageError("SPAN: " + Quoted(arguments.span) + " is no time to snooze");
    }
    ChangeStore(session, arguments.outlook,
                [&](Store& store)
                {
                    CcvReminderData reminder = store.Get(arguments.key);
                    store.Snooze(reminder, span);
                    session.out << "Snoozed until " << ShortTime(reminder.GetSnoozeTime()) << ".\n";
                });
}

/// Ends the occurrence that a list shows now, so a recurring reminder is first brought up to date.
void Dismiss(Store& store, CcvReminderData& reminder)
{
    try
    {
        reminder.GetCalculatedDueTime(CTime::GetCurrentTime());
        store.Dismiss(reminder);
    }
    catch (const COleException&)
    {
        throw OperationError("the next occurrence of " + Quoted(FromLibrary(reminder.GetReminderKey())) +
                             " cannot be found");
    }
}

std::string DismissedText(const CcvReminderData& reminder)
{
    if (!reminder.IsRecurrent())
    {
        return "Dismissed.\n";
    }
    return IsCalendarTime(reminder.GetNextDueDate())
               ? "Dismissed. Next due " + ShortTime(reminder.GetNextDueDate()) + ".\n"
               : "Dismissed. No occurrence follows.\n";
}

void RunDismiss(const StateArguments& arguments, const Session& session)
{
    ChangeStore(session, arguments.outlook,
                [&](Store& store)
                {
                    CcvReminderData reminder = store.Get(arguments.key);
                    Dismiss(store, reminder);
                    session.out << DismissedText(reminder);
                });
}

void RunUndismiss(const StateArguments& arguments, const Session& session)
{
    ChangeStore(session, arguments.outlook,
                [&](Store& store)
                {
                    CcvReminderData reminder = store.Get(arguments.key);
                    if (!reminder.IsDimissed())
                    {
                        session.out << "The reminder is not dismissed.\n";
                        return;
                    }
                    reminder.SetDismissed(false);
                    store.Modify(reminder);
                    session.out << "No longer dismissed.\n";
                });
}

void RunDelete(const StateArguments& arguments, const Session& session)
{
    ChangeStore(session, arguments.outlook,
                [&](Store& store)
                {
                    CcvReminderData reminder = store.Get(arguments.key);
                    store.Delete(reminder);
                    session.out << "Deleted.\n";
                });
}

struct MoveArguments
{
    std::string oldPath;
    std::string newPath;
    std::string map;
    Store::Outlook outlook = Store::Outlook::Mirrored;
};

auto CountReminders(Store& store, const CString& path, const CString& map)
{
    const auto reminders = store.All();
    return std::count_if(reminders.begin(), reminders.end(),
                         [&](const CcvReminderData& reminder)
                         { return reminder.GetDocumentPath() == path && reminder.GetMapGuid() == map; });
}

void Move(Store& store, const CString& oldPath, const CString& newPath, const CString& map,
          const Session& session)
{
    const auto affected = CountReminders(store, oldPath, map);
    store.Move(oldPath, newPath, map);
    const auto left = oldPath == newPath ? 0 : CountReminders(store, oldPath, map);
    if (left != 0)
    {
        throw OperationError(std::to_string(left) + " of " + std::to_string(affected) +
                             " reminders could not be written");
    }
    session.out << "Moved " << affected << (affected == 1 ? " reminder.\n" : " reminders.\n");
}

void RunMove(const MoveArguments& arguments, const Session& session)
{
    const CString oldPath = ToLibrary(arguments.oldPath);
    const CString newPath = ToLibrary(arguments.newPath);
    const CString map = ParseGuid(arguments.map, "MAPGUID");
    if (newPath.IsEmpty())
    {
        throw UsageError("NEWPATH must not be empty");
    }
    ChangeStore(session, arguments.outlook,
                [&](Store& store) { Move(store, oldPath, newPath, map, session); });
}

void AddKeyCommand(CLI::App& app, Session& session, const std::string& name, const std::string& description,
                   void (*run)(const StateArguments&, const Session&))
{
    CLI::App* command = AddCommand(app, name, description,
                                   "reminders " + name + " \"{{6B1D7C5E-0F43-4C0B-9A35-3F1B8E6A2D01}-0}\"");
    const auto arguments = std::make_shared<StateArguments>();
    AddArgument(*command, "KEY", arguments->key, "Key of the reminder");
    AddNoOutlook(*command, arguments->outlook);
    command->callback([arguments, run, &session] { run(*arguments, session); });
}

void AddSnooze(CLI::App& app, Session& session)
{
    CLI::App* snooze = AddCommand(app, "snooze", "Remind again after a while",
                                  "reminders snooze \"{{6B1D7C5E-0F43-4C0B-9A35-3F1B8E6A2D01}-0}\" 15m");
    const auto arguments = std::make_shared<StateArguments>();
    AddArgument(*snooze, "KEY", arguments->key, "Key of the reminder");
    AddArgument(*snooze, "SPAN", arguments->span, "From now: 15m, 2h, 1d, 1w");
    AddNoOutlook(*snooze, arguments->outlook);
    snooze->callback([arguments, &session] { RunSnooze(*arguments, session); });
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
    AddNoOutlook(*move, arguments->outlook);
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
