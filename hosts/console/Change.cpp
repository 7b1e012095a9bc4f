#include "Change.h"

#include "CommandLine.h"
#include "TimeText.h"

namespace ts::console
{
namespace
{

void AwaitOutlook(Store& store, const Session& session)
{
    session.out.flush();
    if (!store.AwaitOutlook(session.outlookPatience))
    {
        session.err << "reminders: Outlook was not done with the change after "
                    << SpanText(session.outlookPatience) << "; its calendar may lack it\n";
        store.AbandonOutlook();
    }
}

} // namespace

void AddNoOutlook(CLI::App& command, Store::Outlook& outlook)
{
    command.add_flag_callback(
        "--no-outlook", [&outlook] { outlook = Store::Outlook::Untouched; },
        "Leave Outlook alone; else the command waits for it, up to " + SpanText(kOutlookPatience));
}

void ChangeStore(const Session& session, Store::Outlook outlook, const std::function<void(Store&)>& change)
{
    Store store(outlook);
    try
    {
        change(store);
    }
    catch (...)
    {
        AwaitOutlook(store, session);
        throw;
    }
    AwaitOutlook(store, session);
}

} // namespace ts::console
