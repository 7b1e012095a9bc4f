#include "CommandLine.h"
#include "Commands.h"
#include "Errors.h"
#include "OutlookCheck.h"
#include "OutlookReader.h"
#include "Store.h"
#include "Strings.h"

#include <memory>

namespace ts::console
{
namespace
{

void RunOpenAppointment(const std::string& key, const Session& session)
{
    Store store;
    CcvReminderData reminder = store.Get(key);
    const std::string name = Quoted(FromLibrary(reminder.GetReminderKey()));
    if (reminder.GetOutlookObjectGuid().IsEmpty())
    {
        throw OperationError("the reminder " + name + " has no appointment in Outlook");
    }
    if (!store.OpenAppointment(reminder))
    {
        // The library does not tell why. Where Outlook itself is missing, this does.
        const OutlookReader outlook;
        throw OperationError("Outlook does not find the appointment of the reminder " + name +
                             ", or cannot open it");
    }
    session.out << "Opened.\n";
}

} // namespace

void AddOutlookCommands(CLI::App& app, Session& session)
{
    CLI::App* open = AddCommand(app, "open-appointment", "Open a reminder's appointment in Outlook",
                                "reminders open-appointment \"{{6B1D7C5E-0F43-4C0B-9A35-3F1B8E6A2D01}-0}\"");
    const auto key = std::make_shared<std::string>();
    AddArgument(*open, "KEY", *key, "Key of the reminder");
    open->callback([key, &session] { RunOpenAppointment(*key, session); });

    CLI::App* check =
        AddCommand(app, "outlook-check", "Check the mirror in Outlook with a reminder that is deleted again",
                   "reminders outlook-check");
    check->callback([&session] { OutlookCheck(session).Run(); });
}

} // namespace ts::console
