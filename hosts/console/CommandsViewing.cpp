#include "CommandLine.h"
#include "Commands.h"
#include "DisplayText.h"
#include "Errors.h"
#include "Json.h"
#include "Store.h"
#include "Strings.h"
#include "TimeText.h"
#include "Views.h"

#include <memory>

namespace ts::console
{
namespace
{

constexpr int kMostOccurrences = 1000;

struct ViewArguments
{
    std::string key;
    std::optional<std::string> filter;
    std::optional<std::string> at;
    std::optional<std::string> from;
    std::optional<std::string> count;
    std::optional<std::string> language;
    bool json = false;
    bool tooltip = false;
};

/// The language of the library's texts, for this command only.
class LanguageChoice
{
  public:
    explicit LanguageChoice(const std::optional<std::string>& language)
    {
        if (!language)
        {
            return;
        }
        const std::string name = ToLower(*language);
        if (name != "en" && name != "de" && name != "fr")
        {
            throw UsageError("--language takes en, de or fr, not " + Quoted(*language));
        }
        SetInterfaceLanguage(ToLibrary(name));
    }
    LanguageChoice(const LanguageChoice&) = delete;
    LanguageChoice& operator=(const LanguageChoice&) = delete;
    ~LanguageChoice() { SetInterfaceLanguage(nullptr); }
};

CTime TimeOrNow(const std::optional<std::string>& text, std::string_view option)
{
    return text ? ParseTime(*text, option) : CTime::GetCurrentTime();
}

Filter ParseFilter(const std::optional<std::string>& text)
{
    const std::string name = ToLower(text.value_or("all"));
    if (name == "all")
    {
        return Filter::All;
    }
    if (name == "recent")
    {
        return Filter::Recent;
    }
    if (name == "today")
    {
        return Filter::Today;
    }
    if (name == "due")
    {
        return Filter::Due;
    }
    throw UsageError("--filter takes all, recent, today or due, not " + Quoted(*text));
}

void RunList(const ViewArguments& arguments, const Session& session)
{
    const LanguageChoice language(arguments.language);
    const Filter filter = ParseFilter(arguments.filter);
    const CTime now = TimeOrNow(arguments.at, "--at");
    const std::vector<ListedReminder> listed = FilterAndSort(Store().All(), filter, now);
    if (arguments.json)
    {
        Json document = Json::array();
        for (const auto& [reminder, evaluation] : listed)
        {
            document.push_back(ReminderJson(reminder, evaluation));
        }
        session.out << JsonText(document);
    }
    else if (listed.empty())
    {
        session.out << (filter == Filter::All ? "No reminders.\n" : "No such reminders.\n");
    }
    else
    {
        session.out << ListText(listed, session.width);
    }
}

std::string TooltipOf(CcvReminderData reminder, CTime now)
{
    try
    {
        return Printable(FromLibrary(CcvReminderDataUtilities::GetReminderTooltip(&reminder, now)));
    }
    catch (const COleException&)
    {
        throw OperationError("the pattern of " + Quoted(FromLibrary(reminder.GetReminderKey())) +
                             " is damaged: there is no due time to tell");
    }
}

void RunShow(const ViewArguments& arguments, const Session& session)
{
    const LanguageChoice language(arguments.language);
    const CTime now = TimeOrNow(arguments.at, "--at");
    const CcvReminderData reminder = Store().Get(arguments.key);
    if (arguments.tooltip)
    {
        session.out << TooltipOf(reminder, now) << "\n";
        return;
    }
    const Evaluation evaluation = Evaluate(reminder, now);
    session.out << (arguments.json ? JsonText(ReminderJson(reminder, evaluation))
                                   : DetailText(reminder, evaluation, session.width));
}

std::vector<CTime> FindOccurrences(const CcvReminderData& reminder, CTime from, int count)
{
    try
    {
        return hosts::OccurrencesAfter(reminder, from, count);
    }
    catch (const COleException&)
    {
        throw OperationError("the pattern of " + Quoted(FromLibrary(reminder.GetReminderKey())) +
                             " is damaged: no occurrence can be found");
    }
}

void RunNext(const ViewArguments& arguments, const Session& session)
{
    const int count = arguments.count ? ParseNumber(*arguments.count, "--count", kMostOccurrences) : 5;
    const CTime from = TimeOrNow(arguments.from, "--from");
    const CcvReminderData reminder = Store().Get(arguments.key);
    const std::vector<CTime> occurrences = FindOccurrences(reminder, from, count);
    if (arguments.json)
    {
        Json document = Json::array();
        for (const CTime occurrence : occurrences)
        {
            document.push_back(TimeJson(occurrence));
        }
        session.out << JsonText(document);
        return;
    }
    if (occurrences.empty())
    {
        session.out << (reminder.IsRecurrent() ? "No occurrence follows.\n"
                                               : "The reminder does not repeat.\n");
    }
    for (const CTime occurrence : occurrences)
    {
        session.out << ShortTime(occurrence) << "\n";
    }
}

void RunFind(const std::string& path, const std::string& map, const std::string& topic,
             const Session& session)
{
    const CString mapGuid = ParseGuid(map, "MAPGUID");
    const CString topicGuid = ParseGuid(topic, "TOPICGUID");
    const CString key = Store().FindKey(ToLibrary(path), mapGuid, topicGuid);
    if (key.IsEmpty())
    {
        throw OperationError("there is no reminder of that topic");
    }
    session.out << Printable(FromLibrary(key)) << "\n";
}

void AddFind(CLI::App& app, Session& session)
{
    CLI::App* find = AddCommand(app, "find", "Print the key of a topic's reminder",
                                "reminders find \"C:\\maps\\plan.map\" 6B1D7C5E-0F43-4C0B-9A35-3F1B8E6A2D01"
                                " 0A9E44C2-7B1D-4E55-8C90-1F2E3D4C5B6A");
    struct Arguments
    {
        std::string path;
        std::string map;
        std::string topic;
    };
    const auto arguments = std::make_shared<Arguments>();
    AddArgument(*find, "PATH", arguments->path, "Path of the map document, exactly as stored");
    AddArgument(*find, "MAPGUID", arguments->map, "Identifier of the map");
    AddArgument(*find, "TOPICGUID", arguments->topic, "Identifier of the topic");
    find->callback([arguments, &session]
                   { RunFind(arguments->path, arguments->map, arguments->topic, session); });
}

} // namespace

void AddViewingCommands(CLI::App& app, Session& session)
{
    const auto arguments = std::make_shared<ViewArguments>();
    const auto declareAt = [&](CLI::App& command)
    { AddText(command, "--at", arguments->at, "TIME", "What holds at that time, instead of now"); };
    const auto declareJson = [&](CLI::App& command)
    { return command.add_flag("--json", arguments->json, "Print one JSON document"); };
    const auto declareLanguage = [&](CLI::App& command)
    {
        AddText(command, "--language", arguments->language, "LANGUAGE",
                "en, de or fr for the library's texts, instead of the user's language");
    };

    CLI::App* list = AddCommand(app, "list", "List reminders by due time",
                                "reminders list --filter today --at 2026-11-21T09:00");
    AddText(*list, "--filter", arguments->filter, "FILTER", "all, recent (31 days), today, due");
    declareAt(*list);
    declareLanguage(*list);
    declareJson(*list);
    list->callback([arguments, &session] { RunList(*arguments, session); });

    CLI::App* show = AddCommand(app, "show", "Show one reminder",
                                "reminders show \"{{6B1D7C5E-0F43-4C0B-9A35-3F1B8E6A2D01}-0}\" --json");
    AddArgument(*show, "KEY", arguments->key, "Key of the reminder");
    declareAt(*show);
    declareLanguage(*show);
    show->add_flag("--tooltip", arguments->tooltip, "Print the reminder's tooltip, in mark-up")
        ->excludes(declareJson(*show));
    show->callback([arguments, &session] { RunShow(*arguments, session); });

    CLI::App* next = AddCommand(app, "next", "Print the occurrences that follow",
                                "reminders next \"{{6B1D7C5E-0F43-4C0B-9A35-3F1B8E6A2D01}-0}\" --count 3");
    AddArgument(*next, "KEY", arguments->key, "Key of the reminder");
    AddText(*next, "--count", arguments->count, "N", "How many, 1 to 1000 (default: 5)");
    AddText(*next, "--from", arguments->from, "TIME", "Those later than that time, instead of now");
    declareJson(*next);
    next->callback([arguments, &session] { RunNext(*arguments, session); });

    AddFind(app, session);
}

} // namespace ts::console
