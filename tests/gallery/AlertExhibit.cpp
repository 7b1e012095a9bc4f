#include "dialogs/CcvMfcReminderAlertDialog.h"
#include "tests/gallery/RemindersDialogExhibit.h"

namespace ts::gallery
{

std::unique_ptr<Exhibit> MakeAlertExhibit(Extent extent, int row)
{
    return std::make_unique<RemindersDialogExhibit<CcvMfcReminderAlertDialog>>(extent, row);
}

} // namespace ts::gallery
