#include "Change.h"
#include "CommandLine.h"
#include "Commands.h"
#include "Errors.h"
#include "Evaluation.h"
#include "PatternOptions.h"
#include "ReminderDialog.h"
#include "Strings.h"
#include "TimeText.h"

#include <memory>

namespace ts::console
{
namespace
{

/// What the user said about a reminder.
struct ReminderArguments
{
    std::optional<std::string> document;
    std::optional<std::string> map;
    std::optional<std::string> topic;
    std::optional<std::string> title;
    std::optional<std::string> documentTitle;
    std::optional<std::string> subject;
    std::optional<std::string> due;
    std::optional<std::string> lead;
    PatternOptions pattern;
    std::string key;
    bool dialog = false;
    Store::Outlook outlook = Store::Outlook::Mirrored;
};

void DeclareFields(CLI::App& command, ReminderArguments& arguments, bool required)
{
    AddText(command, "--document", arguments.document, "PATH", "Path of the map document")
        ->required(required);
    AddText(command, "--map", arguments.map, "GUID", "Identifier of the map")->required(required);
    AddText(command, "--topic", arguments.topic, "GUID", "Identifier of the topic")->required(required);
    AddText(command, "--title", arguments.title, "TEXT", "Title of the topic");
    AddText(command, "--document-title", arguments.documentTitle, "TEXT", "Title of the document");
    AddText(command, "--subject", arguments.subject, "TEXT", "What to remind of");
    AddText(command, "--due", arguments.due, "TIME",
            "2026-11-21T09:00, with +01:00 or Z if wanted, or a date");
    AddText(command, "--lead", arguments.lead, "SPAN", "How long before that to remind: 15m, 2h, 1d, 1w");
    command.add_flag("--dialog", arguments.dialog,
                     required ? "Enter the reminder in a dialog, which shows what else is given"
                              : "Change the reminder in a dialog, which shows what else is given");
}

void DeclarePattern(CLI::App& command, PatternOptions& pattern)
{
    const auto group = [](CLI::Option* option) { option->group("Recurrence (one pattern)"); };
    group(command.add_flag("--once", pattern.once, "No recurrence"));
    group(AddText(command, "--daily", pattern.daily, "N", "Every N days"));
    group(command.add_flag("--weekdays", pattern.weekdays, "Monday to Friday"));
    group(AddText(command, "--weekly", pattern.weekly, "N", "Every N weeks, with --on"));
    group(command.add_option("--on", pattern.on, "Days of the week: mon,thu")
              ->type_name("DAYS")
              ->allow_extra_args(false));
    group(AddText(command, "--monthly", pattern.monthly, "N", "Every N months, with --day, or --the --of"));
    group(command.add_flag("--yearly", pattern.yearly, "Every year, with --month and --day, or --the --of"));
    group(AddText(command, "--month", pattern.month, "M", "1 to 12, or a name"));
    group(AddText(command, "--day", pattern.day, "D", "Day of the month"));
    group(AddText(command, "--the", pattern.the, "ORDINAL", "first, second, third, fourth, last"));
    group(AddText(command, "--of", pattern.of, "KIND", "day, weekday, weekend-day, sunday ... saturday"));
}

CString ParseSubject(const std::string& text)
{
    // The library strips line breaks, so they alone make no subject either.
    if (text.find_first_not_of(" \t\r\n") == std::string::npos)
    {
        throw UsageError("--subject must not be empty");
    }
    return ToLibrary(text);
}

CString ParseDocument(const std::string& text)
{
    if (text.empty())
    {
        throw UsageError("--document must not be empty");
    }
    return ToLibrary(text);
}

void SetFields(CcvReminderData& reminder, const ReminderArguments& arguments)
{
    if (arguments.document)
    {
        reminder.SetDocumentPath(ParseDocument(*arguments.document));
    }
    if (arguments.map)
    {
        reminder.SetMapGuid(ParseGuid(*arguments.map, "--map"));
    }
    if (arguments.topic)
    {
        reminder.SetObjectGuid(ParseGuid(*arguments.topic, "--topic"));
    }
    if (arguments.title)
    {
        reminder.SetObjectTitle(ToLibrary(*arguments.title));
    }
    if (arguments.documentTitle)
    {
        reminder.SetDocumentTitle(ToLibrary(*arguments.documentTitle));
    }
    if (arguments.subject)
    {
        reminder.SetSubject(ParseSubject(*arguments.subject));
    }
    if (arguments.lead)
    {
        reminder.SetReminderTimeSpan(ParseSpan(*arguments.lead, "--lead"));
    }
}

/// The due time of a new reminder: as given, or for the dialog the next full quarter of an hour.
CTime NewDueTime(const ReminderArguments& arguments)
{
    if (arguments.due)
    {
        return ParseTime(*arguments.due, "--due");
    }
    constexpr std::int64_t kQuarter = 15 * 60;
    const std::int64_t now = CTime::GetCurrentTime().GetTime();
    return now + (kQuarter - now % kQuarter) % kQuarter;
}

void RunAdd(const ReminderArguments& arguments, const Session& session)
{
    if (!arguments.dialog && (!arguments.subject || !arguments.due))
    {
        throw UsageError(std::string(arguments.subject ? "--due" : "--subject") +
                         " is required, unless --dialog is given");
    }
    CcvReminderData reminder{CString()};
    SetFields(reminder, arguments);
    SetPattern(reminder, arguments.pattern);
    SetDueTimes(reminder, NewDueTime(arguments));
    if (arguments.dialog && !EditInDialog(session, reminder, CString()))
    {
        session.out << "Not added.\n";
        return;
    }
    ChangeStore(session, arguments.outlook,
                [&](Store& store)
                {
                    store.Add(reminder);
                    session.out << FromLibrary(reminder.GetReminderKey()) << "\n";
                });
}

/// The time from which a changed reminder counts when the user gave none: a recurring one from where its
/// series began, one that no longer recurs from the occurrence that is in force.
CTime StartOf(CcvReminderData& reminder, bool recurs)
{
    CTime start = reminder.GetInitialDueDate();
    if (!recurs)
    {
        try
        {
            start = reminder.GetCalculatedDueTime(CTime::GetCurrentTime());
        }
        catch (const COleException&)
        {
            start = 0;
        }
    }
    if (!IsCalendarTime(start))
    {
        throw OperationError("the reminder has no due time to count from: give one with --due");
    }
    return start;
}

void Edit(CcvReminderData& reminder, const ReminderArguments& arguments, std::optional<CTime> due)
{
    SetFields(reminder, arguments);
    if (!arguments.pattern.Given() && !due)
    {
        return;
    }
    CcvReminderData changed = reminder;
    if (arguments.pattern.Given())
    {
        SetPattern(changed, arguments.pattern);
    }
    SetDueTimes(changed, due ? *due : StartOf(reminder, changed.IsRecurrent()));
    reminder = changed;
}

void RunEdit(const ReminderArguments& arguments, const Session& session)
{
    if (!arguments.dialog && !arguments.pattern.Given() && !arguments.document && !arguments.map &&
        !arguments.topic && !arguments.title && !arguments.documentTitle && !arguments.subject &&
        !arguments.due && !arguments.lead)
    {
        throw UsageError("nothing to change: give at least one option");
    }
    // Wrong options are reported whether or not there is such a reminder.
    CcvReminderData probe{CString()};
    SetFields(probe, arguments);
    SetPattern(probe, arguments.pattern);
    std::optional<CTime> due;
    if (arguments.due)
    {
        due = ParseTime(*arguments.due, "--due");
    }
    ChangeStore(session, arguments.outlook,
                [&](Store& store)
                {
                    CcvReminderData reminder = store.Get(arguments.key);
                    Edit(reminder, arguments, due);
                    if (arguments.dialog && !EditInDialog(session, reminder, reminder.GetSubject()))
                    {
                        session.out << "Not changed.\n";
                        return;
                    }
                    store.Modify(reminder);
                    const CTime dueNow = Evaluate(reminder, CTime::GetCurrentTime()).due.value_or(CTime());
                    const std::string text = ShortTime(dueNow);
                    session.out << (text.empty() ? "Changed.\n" : "Changed. Due " + text + ".\n");
                });
}

} // namespace

void AddEditingCommands(CLI::App& app, Session& session)
{
    CLI::App* add = AddCommand(app, "add", "Add a reminder and print its key",
                               "reminders add --document \"C:\\maps\\plan.map\""
                               " --map 6B1D7C5E-0F43-4C0B-9A35-3F1B8E6A2D01\n"
                               "    --topic 0A9E44C2-7B1D-4E55-8C90-1F2E3D4C5B6A --subject \"Send report\"\n"
                               "    --due 2026-11-21T09:00 --lead 15m --weekly 2 --on mon,thu");
    const auto added = std::make_shared<ReminderArguments>();
    DeclareFields(*add, *added, true);
    DeclarePattern(*add, added->pattern);
    AddNoOutlook(*add, added->outlook);
    add->callback([added, &session] { RunAdd(*added, session); });

    CLI::App* edit = AddCommand(app, "edit", "Change what is given of a reminder",
                                "reminders edit \"{{6B1D7C5E-0F43-4C0B-9A35-3F1B8E6A2D01}-0}\" --lead 1h"
                                " --monthly 1 --the last --of friday");
    const auto edited = std::make_shared<ReminderArguments>();
    AddArgument(*edit, "KEY", edited->key, "Key of the reminder");
    DeclareFields(*edit, *edited, false);
    DeclarePattern(*edit, edited->pattern);
    AddNoOutlook(*edit, edited->outlook);
    edit->callback([edited, &session] { RunEdit(*edited, session); });
}

} // namespace ts::console
