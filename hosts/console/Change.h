#pragma once

#include "Session.h"
#include "Store.h"

#include <functional>

namespace CLI
{
class App;
}

namespace ts::console
{

/// Declares --no-outlook, which sets `outlook`.
void AddNoOutlook(CLI::App& command, Store::Outlook& outlook);

/// Runs `change` on the user's reminders, shows what it wrote, and waits until Outlook has got it. A line on
/// the session's error stream says when it has not; the change counts all the same.
void ChangeStore(const Session& session, Store::Outlook outlook, const std::function<void(Store&)>& change);

} // namespace ts::console
