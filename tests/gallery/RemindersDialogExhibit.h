#pragma once

#include "collection/CcvReminderDataCollectionManager.h"
#include "tests/gallery/Exhibit.h"

#include <commctrl.h>
#include <stdexcept>

namespace ts::gallery
{

/// A dialog with a list of reminders, modeless. `Dialog` is its facade.
template <typename Dialog>
class RemindersDialogExhibit : public Exhibit
{
  public:
    /// Moves the selection down to `row`; -1 empties the list.
    RemindersDialogExhibit(Extent extent, int row)
    {
        if (m_dialog.Create(Dialog::kTemplate, nullptr) == FALSE)
        {
            throw std::runtime_error("no window");
        }
        constexpr int kList = 1030;
        const HWND list = GetDlgItem(GetWindow(), kList);
        if (row < 0)
        {
            SendMessageW(list, LVM_DELETEALLITEMS, 0, 0);
            constexpr UINT kSelectionChanged = 1165;
            SendMessageW(GetWindow(), kSelectionChanged, 0, -1);
        }
        for (int step = 0; step < row; ++step)
        {
            SendMessageW(list, WM_KEYDOWN, VK_DOWN, 1);
        }
        if (extent.width > 0 || extent.height > 0)
        {
            SetWindowPos(GetWindow(), nullptr, 0, 0, extent.width, extent.height, SWP_NOMOVE | SWP_NOZORDER);
        }
    }

    [[nodiscard]] HWND GetWindow() const override { return m_dialog.GetSafeHwnd(); }

  private:
    CcvReminderDataCollectionManager m_manager{false};
    Dialog m_dialog{&m_manager, nullptr};
};

} // namespace ts::gallery
