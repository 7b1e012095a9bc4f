#include "dialogs/CcvMfcManageRemindersDialog.h"
#include "tests/gallery/RemindersDialogExhibit.h"

namespace ts::gallery
{

std::unique_ptr<Exhibit> MakeManageExhibit(Extent extent, int row)
{
    return std::make_unique<RemindersDialogExhibit<CcvMfcManageRemindersDialog>>(extent, row);
}

} // namespace ts::gallery
