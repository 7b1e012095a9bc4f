#include "CommandLine.h"
#include "Commands.h"
#include "Errors.h"
#include "Strings.h"
#include "Table.h"
#include "hosts/common/RegistryHandle.h"

#include <array>
#include <memory>

namespace ts::console
{
namespace
{

using Options = CcvReminderOptionUtilities;

struct Option
{
    const char* name;
    const wchar_t* valueName;
    const char* description;
    bool (*get)();
    /// Null for an option that only the application itself writes.
    void (*set)(bool);
};

const std::array<Option, 5> kOptions = {{
    {"sound", L"PlayTicklerSound", "play a sound with an alert", Options::GetPlaySoundWithTickler,
     Options::SetPlaySoundWithTickler},
    {"outlook", L"SynchronizeOutlookAppoints", "mirror reminders in Outlook",
     Options::GetSynchronizeOutlookAppointments, Options::SetSynchronizeOutlookAppointments},
    {"in-progress", L"SynchInProgress", "a synchronisation with Outlook runs",
     Options::GetSynchronizeInProgress, Options::SetSynchronizeInProgress},
    {"disable-events", L"DisableTopicAlertsLinkerOutlookEvents", "ignore events of the Outlook add-in",
     Options::GetDisableOutlookEventsHandling, nullptr},
    {"add-in", L"TopicAlertsLinkerInstalled", "the Outlook add-in is installed",
     Options::GetAdminTopicAlertsLinkerInstalled, nullptr},
}};

const char* OnOff(bool value)
{
    return value ? "on" : "off";
}

const Option& FindOption(const std::string& name)
{
    const std::string lower = ToLower(name);
    for (const Option& option : kOptions)
    {
        if (lower == option.name || lower == ToLower(FromLibrary(option.valueName)))
        {
            return option;
        }
    }
    throw UsageError("there is no option " + Quoted(name) +
                     " (expected sound, outlook, in-progress, disable-events or add-in)");
}

bool ParseOnOff(const std::string& text)
{
    const std::string lower = ToLower(text);
    if (lower != "on" && lower != "off")
    {
        throw UsageError("an option is set to on or off, not " + Quoted(text));
    }
    return lower == "on";
}

/// Whether the registry holds exactly that; the library's answer may be a default.
bool IsStored(HKEY settings, const Option& option, bool value)
{
    DWORD stored = 0;
    DWORD size = sizeof stored;
    return RegGetValueW(settings, nullptr, option.valueName, RRF_RT_REG_DWORD, nullptr, &stored, &size) ==
               ERROR_SUCCESS &&
           stored == (value ? 1u : 0u);
}

void Write(const Option& option, bool value)
{
    if (option.set == nullptr)
    {
        throw OperationError(std::string("the option ") + option.name + " cannot be written");
    }
    // The library writes only into a key that is there; the application makes it, and may never have run.
    hosts::RegistryHandle settings;
    if (settings.Create(HKEY_CURRENT_USER, kSettingsPath, KEY_READ | KEY_WRITE) == ERROR_SUCCESS)
    {
        option.set(value);
    }
    if (!IsStored(settings.Get(), option, value))
    {
        throw OperationError(std::string("the option ") + option.name +
                             " could not be written below HKEY_CURRENT_USER\\" + FromLibrary(kSettingsPath));
    }
}

std::string AllOptionsText(std::size_t width)
{
    constexpr std::size_t kLeastWidth = 10;
    Table table;
    table.AddColumn("OPTION", Table::kWhole);
    table.AddColumn("NOW", Table::kWhole);
    table.AddColumn("MEANING", kLeastWidth);
    table.AddColumn("WRITABLE", kLeastWidth);
    table.AddColumn("REGISTRY VALUE", kLeastWidth);
    for (const Option& option : kOptions)
    {
        table.AddRow({option.name, OnOff(option.get()), option.description,
                      option.set == nullptr ? "no" : "yes", FromLibrary(option.valueName)});
    }
    return table.Text(width);
}

void RunOptions(const std::optional<std::string>& name, const std::optional<std::string>& value,
                const Session& session)
{
    if (!name)
    {
        session.out << AllOptionsText(session.width);
        return;
    }
    const Option& option = FindOption(*name);
    if (value)
    {
        const bool wanted = ParseOnOff(*value);
        Write(option, wanted);
        if (option.get() != wanted)
        {
            session.out << option.name << " is set to " << OnOff(wanted)
                        << ", but stays off while the Outlook add-in is not installed.\n";
            return;
        }
    }
    session.out << option.name << " " << OnOff(option.get()) << "\n";
}

} // namespace

void AddOptionsCommand(CLI::App& app, Session& session)
{
    CLI::App* options =
        AddCommand(app, "options", "Show all options or one, or set one", "reminders options sound off");
    const auto name = std::make_shared<std::optional<std::string>>();
    const auto value = std::make_shared<std::optional<std::string>>();
    AddText(*options, "NAME", *name, "", "sound, outlook, in-progress, disable-events, add-in");
    AddText(*options, "VALUE", *value, "", "on or off");
    options->callback([name, value, &session] { RunOptions(*name, *value, session); });
}

} // namespace ts::console
