#pragma once

#include "TsServiceUtilities.h"

#include <memory>
#include <string_view>
#include <vector>

namespace ts::console
{

/// The user's reminders through the library's collection. Hands out copies, so that no reload and no change
/// pulls a record from under a command. Failures raise OperationError.
///
/// The collection itself leaves all reminders unloaded from the first damaged one on; here each of them is
/// loaded on its own, and only those that cannot be are passed over.
class Store
{
  public:
    /// Whether changes are mirrored in Outlook, as long as the user's option says so.
    enum class Outlook
    {
        Untouched,
        Mirrored
    };

    explicit Store(Outlook outlook = Outlook::Untouched);
    Store(const Store&) = delete;
    Store& operator=(const Store&) = delete;
    ~Store();

    // Each raises when there is a store that cannot be read.

    /// Every reminder, in the order of the registry; none when there is no store yet.
    [[nodiscard]] std::vector<CcvReminderData> All();
    /// The reminder with that key, in any case of its letters.
    [[nodiscard]] CcvReminderData Get(std::string_view key);
    /// The key of the first reminder of that topic; empty when there is none.
    [[nodiscard]] CString FindKey(const CString& path, const CString& map, const CString& topic);

    // Changes. What was written is read again to see that everything arrived.

    /// Writes a reminder that has no key yet, and gives it one. Leaves nothing behind on failure.
    void Add(CcvReminderData& reminder);
    void Modify(CcvReminderData& reminder);
    /// Raises COleException, and writes nothing, when the next occurrence cannot be found.
    void Dismiss(CcvReminderData& reminder);
    void Snooze(CcvReminderData& reminder, const CTimeSpan& span);
    void Delete(CcvReminderData& reminder);
    /// Gives the reminders of the map at `oldPath` another path and loads all reminders again.
    void Move(const CString& oldPath, const CString& newPath, const CString& map);

    /// What other programs changed comes with this only.
    void Reload() { m_manager->UpdateReminderCollection(); }

    /// Opens the reminder's appointment in Outlook. False when that could not be done.
    [[nodiscard]] bool OpenAppointment(CcvReminderData& reminder);

    /// Waits until Outlook has got all changes. False when `patience` is over before.
    [[nodiscard]] bool AwaitOutlook(const CTimeSpan& patience) const;
    /// Gives up what Outlook is not done with, so that destroying the store does not wait for it. The store
    /// is of no use any more, and the process is about to end.
    void AbandonOutlook();

  private:
    [[nodiscard]] CcvReminderData* Find(const CString& key) const;
    void TakeBack(const CcvReminderData& reminder);

    std::unique_ptr<CcvReminderDataCollectionManager> m_manager;
};

} // namespace ts::console
