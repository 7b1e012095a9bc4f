#pragma once

#include "Session.h"

namespace CLI
{
class App;
}

/// The commands of the program. Each function adds its commands to the command line's parser, which then
/// runs them; they raise UsageError and OperationError. `session` outlives the parser.
namespace ts::console
{

/// add, edit
void AddEditingCommands(CLI::App& app, Session& session);
/// list, show, next, find
void AddViewingCommands(CLI::App& app, Session& session);
/// snooze, dismiss, undismiss, delete, move
void AddStateCommands(CLI::App& app, Session& session);
/// open-appointment, outlook-check
void AddOutlookCommands(CLI::App& app, Session& session);
/// watch
void AddWatchCommand(CLI::App& app, Session& session);
/// options
void AddOptionsCommand(CLI::App& app, Session& session);

} // namespace ts::console
