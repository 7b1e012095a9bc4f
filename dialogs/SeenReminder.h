#pragma once

#include "reminders/CcvReminderData.h"

#include <optional>

class CcvReminderDataCollectionManager;

namespace ts
{

/// A reminder as the user saw it when choosing what to do with it. The record itself may be gone before that
/// is done: any change, and any message handled while a question is open, may load the collection again.
class SeenReminder
{
  public:
    SeenReminder(CcvReminderData& reminder, CTime now);

    /// The record that the collection holds now; null when the reminder is gone.
    [[nodiscard]] CcvReminderData* FindIn(const CcvReminderDataCollectionManager& manager) const;
    /// The same, moved on to the occurrence that is in force at `now`; null also when that has another due
    /// time than the one that was seen: somebody else has settled that one, or edited the reminder.
    [[nodiscard]] CcvReminderData* FindOccurrenceIn(const CcvReminderDataCollectionManager& manager,
                                                    CTime now) const;

  private:
    CString m_key;
    CString m_guid;
    std::optional<CTime> m_due;
};

// Both settle the occurrence of a recurring reminder that is in force now; a collection that was just loaded
// still holds an earlier one. A damaged pattern has no next occurrence; then at least the snooze ends,
// without which the reminder is not due.

void DismissOccurrence(CcvReminderDataCollectionManager& manager, CcvReminderData& reminder);
/// A reminder that is not recurrent is deleted.
void EndOccurrence(CcvReminderDataCollectionManager& manager, CcvReminderData& reminder);

} // namespace ts
