#pragma once

#include "platform/mfc/CDialog.h"

#include <span>

/// Where the fields and sections of the add-reminder dialog stand. Everything is measured on the windows
/// themselves, so it holds for every language, font and resolution.
namespace ts
{

/// Puts a pane of the recurrence section beside the section's buttons, and right behind them in the tab
/// order.
void PlacePane(const CDialog& dialog, const CWnd& pane);

/// Opens or closes the recurrence section: shows it with `shownPane`, or hides it when that is null; all
/// other `panes` are hidden. Moves the buttons below what is shown and fits the dialog's height. A dialog
/// that grows beyond its monitor's work area moves back into it.
void LayOutAddReminder(CDialog& dialog, std::span<const HWND> panes, HWND shownPane);

} // namespace ts
