#pragma once

#include "ReminderRows.h"

#include <optional>

namespace ts::desktop
{

/// What the user can do to reminders, each with the library's dialogs over the `parent` window. While a
/// dialog is open the collection may be loaded again: what is changed afterwards is the reminder that the
/// user meant, or nothing, and then the user is told.
class ReminderActions
{
  public:
    /// Both outlive this.
    ReminderActions(CcvReminderDataCollectionManager& manager, CWnd& parent)
        : m_manager(manager), m_parent(parent)
    {
    }

    /// Asks for a topic and for what to remind of. The new reminder, or the one that the topic had already;
    /// none when the user cancelled.
    std::optional<ReminderIdentity> Add();
    void Edit(const ReminderIdentity& identity);
    /// A recurring reminder asks whether all of it is meant.
    void Delete(const ReminderIdentity& identity);

  private:
    /// The reminder as the user entered it; none when the user cancelled or it has no due time.
    std::optional<CcvReminderData> Enter(const CcvReminderData& reminder, const CString& caption);
    void DeleteRecurring(const ReminderIdentity& identity, std::optional<CTime> seenDue);
    void DeleteSeries(CcvReminderData& reminder);
    void Say(UINT textId) const;

    CcvReminderDataCollectionManager& m_manager;
    CWnd& m_parent;
};

} // namespace ts::desktop
