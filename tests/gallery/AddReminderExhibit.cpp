#include "collection/CcvReminderDataCollectionManager.h"
#include "dialogs/CcvMfcAddReminderDialog.h"
#include "resources/AddReminderControls.h"
#include "tests/gallery/Exhibit.h"

#include <stdexcept>

namespace ts::gallery
{
namespace
{

/// The add-reminder dialog over one of the stored reminders.
class AddReminderExhibit : public Exhibit
{
  public:
    explicit AddReminderExhibit(EcvReminderRecurrenceType type)
    {
        for (int index = 0; index < m_manager.GetRemindersCount(); ++index)
        {
            if (m_manager.GetReminderByIndex(index)->GetRecurrenceType() == type)
            {
                m_dialog.UpdateReminderData(m_manager.GetReminderByIndex(index));
            }
        }
        if (m_dialog.Create(IDD_ADD_REMINDER, nullptr) == FALSE)
        {
            throw std::runtime_error("no dialog");
        }
        ShowWindow(m_dialog.GetSafeHwnd(), SW_SHOW);
    }

    [[nodiscard]] HWND GetWindow() const override { return m_dialog.GetSafeHwnd(); }

  private:
    CcvReminderDataCollectionManager m_manager{false};
    CcvMfcAddReminderDialog m_dialog;
};

} // namespace

std::unique_ptr<Exhibit> MakeAddReminderExhibit(EcvReminderRecurrenceType type)
{
    return std::make_unique<AddReminderExhibit>(type);
}

} // namespace ts::gallery
