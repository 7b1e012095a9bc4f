#pragma once

#include "platform/mfc/atlcoll.h"
#include "reminders/CcvReminderData.h"

#include <memory>

class CWinThread;

namespace ts
{
class OutlookCommandQueue;
enum class OutlookCommandKind : std::uint32_t;
} // namespace ts

/// A host's reminders: loads them from the registry, writes every change to it, queues the change for Outlook
/// where that is wanted, and tells both host windows (collection/SynchronizationMessage.h).
///
/// The registry is what counts. A change does not touch the loaded records, other than the one that is passed
/// in: adding and deleting show after the next UpdateReminderCollection, which hosts call when the message
/// comes. That call frees all records, so pointers from before it are invalid then. Since the message may
/// reach a window of the calling thread inside the call, that holds after every changing member, too. Where a
/// record is passed in, it is not used any more when the message is sent.
///
/// Changes to Outlook are made later by a worker thread; their failures reach nobody. All members are for one
/// thread, the host's. Registry failures are told by a false result; exhausted memory raises.
class TS_API CcvReminderDataCollectionManager
{
  public:
    /// Loads the reminders. `withOutlookQueue` says whether changes may be mirrored in Outlook: only then
    /// there is a worker thread.
    explicit CcvReminderDataCollectionManager(bool withOutlookQueue);
    CcvReminderDataCollectionManager(const CcvReminderDataCollectionManager&) = delete;
    CcvReminderDataCollectionManager& operator=(const CcvReminderDataCollectionManager&) = delete;
    /// Waits for the Outlook command that is being executed, letting sent messages through to the thread's
    /// windows, and discards those that were not begun. WaitForOutlookCommands before gives them time.
    virtual ~CcvReminderDataCollectionManager();

    // Changes. Each is written to the store first. `record` stays the caller's; it need not be one of the
    // collection's, where its topic (GetGuid) or its identity counts. `synchronizeWithOutlook` has an effect
    // only while the user's option for it is on.

    /// Writes a new reminder. The message is sent also when that failed.
    bool AddReminder(CcvReminderData* record, bool synchronizeWithOutlook);
    /// Writes a changed reminder, if one with its document path, map GUID and object GUID is loaded; else
    /// does nothing and gives false. A failed write is not told.
    bool ModifyReminder(CcvReminderData* record, bool synchronizeWithOutlook);
    /// Deletes the reminder from the store, if one with its topic is loaded; else does nothing and gives
    /// false.
    bool DeleteReminder(CcvReminderData* record, bool synchronizeWithOutlook);
    /// Dismisses the reminder, or moves a recurring one on, and raises what CcvReminderData::SetDismissed
    /// does. Of a recurring one the occurrence in Outlook is deleted. The message is sent when the write
    /// succeeded.
    bool DismissReminder(CcvReminderData* record);
    /// Lets the reminder fire again after `span` from now. The message is sent when the write succeeded.
    bool SnoozeReminder(CcvReminderData* record, const CTimeSpan& span);
    /// Ends what is due: dismisses a recurring reminder, deletes any other.
    bool EndReminder(CcvReminderData* record);
    /// Gives the reminder another document path, if one with its topic is loaded; else does nothing and gives
    /// false. Outlook is not told.
    bool UpdateReminderPath(CcvReminderData* record, const CString& newDocumentPath);
    /// Gives every stored reminder of that map and document path a new path; see
    /// CcvReminderDataUtilities::UpdateDocumentPath. The loaded records stay as they are. Always true.
    bool UpdateRemindersDocumentPath(const CString& oldPath, const CString& newPath, const CString& mapGuid);

    /// Loads all reminders again and frees the records from before. False when the store or a record in it
    /// could not be read. From the first such record on, records hold nothing but their key.
    bool UpdateReminderCollection();

    /// Opens the reminder's appointment in Outlook, on the calling thread and whatever the option says. False
    /// when its topic is not loaded or it could not be opened.
    bool OpenOutlookAppointment(CcvReminderData* record);

    /// Waits until the queued Outlook commands are executed, letting sent messages through to the thread's
    /// windows. True when none is left; at once without a queue. False when the time is up or the worker
    /// ended.
    bool WaitForOutlookCommands(DWORD timeoutMilliseconds);

    // Lookups, by exact comparison: the first record in the order of the registry, which belongs to the
    // collection, or null.

    [[nodiscard]] CcvReminderData* GetReminderByGuid(const CString& documentPath, const CString& mapGuid,
                                                     const CString& objectGuid) const;
    /// Null when `index` lies outside 0 to GetRemindersCount() - 1.
    [[nodiscard]] CcvReminderData* GetReminderByIndex(int index) const;
    [[nodiscard]] CcvReminderData* GetReminderByOutlookObjectGuid(const CString& outlookObjectGuid) const;
    /// With those that could not be loaded.
    [[nodiscard]] int GetRemindersCount() const;

  private:
    void Close();
    void StartOutlookWorker();
    void StopOutlookWorker();
    bool LoadRemindersFromRegistry();
    void EmptyReminders();
    [[nodiscard]] int GetReminderIndex(const CcvReminderData* record) const;
    [[nodiscard]] bool IsMirrored(bool synchronizeWithOutlook) const;
    void AddOutlookReminder(const CcvReminderData* record);
    void ModifyOutlookReminder(const CcvReminderData* record);
    void RemoveOutlookReminder(const CcvReminderData* record);
    void QueueOutlookCommand(const CcvReminderData* record, ts::OutlookCommandKind kind,
                             const CTime& previousDueDate = CTime());
    /// Spelt so; part of the interface.
    void SendSynchornizationMessage();

    std::unique_ptr<ts::OutlookCommandQueue> m_outlookQueue;
    std::unique_ptr<CWinThread> m_workerThread;
    CAtlArray<CcvReminderData*> m_reminders;
};
