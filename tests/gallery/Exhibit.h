#pragma once

#include "platform/WindowsHeaders.h"
#include "reminders/CcvReminderData.h"

#include <functional>
#include <memory>
#include <string>
#include <vector>

/// The windows that the gallery can show. A new one gets a maker in a file of its own and a line in
/// AllExhibits.
namespace ts::gallery
{

/// Something that is shown, until it ends.
class Exhibit
{
  public:
    Exhibit() = default;
    Exhibit(const Exhibit&) = delete;
    Exhibit& operator=(const Exhibit&) = delete;
    virtual ~Exhibit() = default;

    /// The window to make a picture of.
    [[nodiscard]] virtual HWND GetWindow() const = 0;
};

/// How large a window is to be; 0 by 0 is its own size.
struct Extent
{
    int width = 0;
    int height = 0;
};

struct ExhibitEntry
{
    const char* name;
    std::function<std::unique_ptr<Exhibit>(Extent)> make;
};

[[nodiscard]] const std::vector<ExhibitEntry>& AllExhibits();

// The makers, by file.

/// The time picker and the picture control.
[[nodiscard]] std::unique_ptr<Exhibit> MakeControlsExhibit(Extent extent);
/// The list of recent reminders, with or without the focus.
[[nodiscard]] std::unique_ptr<Exhibit> MakeListExhibit(Extent extent, bool focused);
/// The alert with that row selected, or empty with the row -1.
[[nodiscard]] std::unique_ptr<Exhibit> MakeAlertExhibit(Extent extent, int row);
/// The same for the manage dialog.
[[nodiscard]] std::unique_ptr<Exhibit> MakeManageExhibit(Extent extent, int row);
/// The list of due reminders with its columns in another order.
[[nodiscard]] std::unique_ptr<Exhibit> MakeReorderedListExhibit(Extent extent);

/// The add-reminder dialog, editing a reminder of that type.
[[nodiscard]] std::unique_ptr<Exhibit> MakeAddReminderExhibit(EcvReminderRecurrenceType type);
/// The recurrence panes, each in a window of its own size.
[[nodiscard]] std::unique_ptr<Exhibit> MakeDailyExhibit(Extent extent);
[[nodiscard]] std::unique_ptr<Exhibit> MakeWeeklyExhibit(Extent extent);
[[nodiscard]] std::unique_ptr<Exhibit> MakeMonthlyExhibit(Extent extent);
[[nodiscard]] std::unique_ptr<Exhibit> MakeYearlyExhibit(Extent extent);
/// The question before a recurring reminder is deleted.
[[nodiscard]] std::unique_ptr<Exhibit> MakeDeleteExhibit(Extent extent);

} // namespace ts::gallery
