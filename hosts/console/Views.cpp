#include "Views.h"

#include "DisplayText.h"
#include "PatternText.h"
#include "Strings.h"
#include "Table.h"
#include "TimeText.h"

namespace ts::console
{
namespace
{

constexpr std::size_t kLeastTextWidth = 12;

/// Keys get a column of their own when so much is left for the texts.
constexpr std::size_t kComfortableTextWidth = 60;

std::string ShortTimeOrNothing(std::optional<CTime> time)
{
    return time ? ShortTime(*time) : std::string();
}

std::string DueInOrNothing(const Evaluation& evaluation)
{
    return evaluation.dueIn ? FromLibrary(*evaluation.dueIn) : std::string();
}

/// The document's title, or its file name where it has none.
std::string DocumentName(const CcvReminderData& reminder)
{
    const std::string title = FromLibrary(reminder.GetDocumentTitle());
    if (!title.empty())
    {
        return title;
    }
    const std::string path = FromLibrary(reminder.GetDocumentPath());
    return path.substr(path.find_last_of("\\/") + 1);
}

std::string LibraryStatusText(CcvReminderData::ReminderStatus status)
{
    switch (status)
    {
    case CcvReminderData::RemindActive:
        return "active";
    case CcvReminderData::RemindPending:
        return "pending";
    case CcvReminderData::DueTodayActive:
        return "today, active";
    case CcvReminderData::DueTodayPending:
        return "today";
    case CcvReminderData::Overdue:
        return "overdue";
    }
    return {};
}

/// The line below a row: the key, and the distance where the terminal has room for it.
std::string NoteText(const std::string& key, const std::string& dueIn, std::size_t width)
{
    constexpr std::size_t kIndentation = 2;
    const std::string both = dueIn.empty() ? key : key + "  " + dueIn;
    return kIndentation + DisplayWidth(Printable(both)) <= width ? both : key;
}

Table BuildList(const std::vector<ListedReminder>& reminders, bool keyColumn, std::size_t width)
{
    Table table;
    table.AddColumn("DUE", Table::kWhole);
    table.AddColumn("STATUS", Table::kWhole);
    table.AddColumn("SUBJECT", kLeastTextWidth);
    table.AddColumn("DOCUMENT", kLeastTextWidth);
    table.AddColumn("REPEATS", kLeastTextWidth);
    if (keyColumn)
    {
        table.AddColumn("WHEN", Table::kWhole);
        table.AddColumn("KEY", Table::kWhole);
    }
    for (const auto& [reminder, evaluation] : reminders)
    {
        const std::string key = FromLibrary(reminder.GetReminderKey());
        std::vector<std::string> cells = {
            ShortTimeOrNothing(evaluation.due), StatusText(reminder, evaluation),
            FromLibrary(reminder.GetSubject()), DocumentName(reminder), PatternText(reminder)};
        const std::string dueIn = DueInOrNothing(evaluation);
        if (keyColumn)
        {
            cells.push_back(dueIn);
            cells.push_back(key);
        }
        table.AddRow(std::move(cells), keyColumn ? std::string() : NoteText(key, dueIn, width));
    }
    return table;
}

/// The columns that dates, status, distances and keys need beside the texts.
std::size_t WidthBesideTexts(const std::vector<ListedReminder>& reminders)
{
    Table table;
    for (const char* heading : {"DUE", "STATUS", "WHEN", "KEY"})
    {
        table.AddColumn(heading, Table::kWhole);
    }
    for (const auto& [reminder, evaluation] : reminders)
    {
        table.AddRow({ShortTimeOrNothing(evaluation.due), StatusText(reminder, evaluation),
                      DueInOrNothing(evaluation), FromLibrary(reminder.GetReminderKey())});
    }
    return table.NaturalWidth();
}

} // namespace

std::string StatusText(const CcvReminderData& reminder, const Evaluation& evaluation)
{
    if (reminder.IsDimissed())
    {
        return "dismissed";
    }
    if (reminder.IsSnoozed())
    {
        return "snoozed";
    }
    if (evaluation.due == CTime())
    {
        return "no due time";
    }
    const bool usable = evaluation.due && IsCalendarTime(*evaluation.due) && evaluation.status;
    return usable ? LibraryStatusText(*evaluation.status) : "damaged";
}

std::string ListText(const std::vector<ListedReminder>& reminders, std::size_t width)
{
    const bool keyColumn = BuildList(reminders, true, width).NaturalWidth() <= width ||
                           WidthBesideTexts(reminders) + kComfortableTextWidth <= width;
    return BuildList(reminders, keyColumn, width).Text(width);
}

std::string DetailText(const CcvReminderData& reminder, const Evaluation& evaluation, std::size_t width)
{
    std::vector<std::pair<std::string, std::string>> fields = {
        {"Subject", FromLibrary(reminder.GetSubject())},
        {"Topic", FromLibrary(reminder.GetObjectTitle())},
        {"Due", ShortTimeOrNothing(evaluation.due)},
        {"Due in", DueInOrNothing(evaluation)},
        {"Status", StatusText(reminder, evaluation)},
        {"Repeats", PatternText(reminder)},
        {"First due", ShortTime(reminder.GetInitialDueDate())},
        {"Lead time", SpanText(reminder.GetReminderTimeSpan())},
        {"Reminds at", ShortTimeOrNothing(evaluation.reminderTime)},
        {"Snoozed until", reminder.IsSnoozed() ? ShortTime(reminder.GetSnoozeTime()) : std::string()},
        {"Document", FromLibrary(reminder.GetDocumentTitle())},
        {"Path", FromLibrary(reminder.GetDocumentPath())},
        {"Map", FromLibrary(reminder.GetMapGuid())},
        {"Topic GUID", FromLibrary(reminder.GetObjectGuid())},
        {"Outlook GUID", FromLibrary(reminder.GetOutlookObjectGuid())},
        {"Outlook entry", FromLibrary(reminder.GetOutlookEntryId())},
        {"Key", FromLibrary(reminder.GetReminderKey())}};
    std::erase_if(fields, [](const auto& field) { return field.second.empty(); });
    return FieldsText(fields, width);
}

} // namespace ts::console
