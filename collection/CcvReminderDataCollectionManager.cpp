#include "collection/CcvReminderDataCollectionManager.h"

#include "collection/MessageWait.h"
#include "collection/OutlookCommandQueue.h"
#include "collection/OutlookWorker.h"
#include "collection/SynchronizationSender.h"
#include "module/CcvReminderOptionUtilities.h"
#include "module/RegistryPaths.h"
#include "outlook/OutlookAppointments.h"
#include "platform/ts/SECRegistry.h"
#include "reminders/CcvReminderDataUtilities.h"

CcvReminderDataCollectionManager::CcvReminderDataCollectionManager(bool withOutlookQueue)
{
    try
    {
        if (withOutlookQueue)
        {
            StartOutlookWorker();
        }
        LoadRemindersFromRegistry();
    }
    catch (...)
    {
        // No destructor follows, and the worker must not outlive its queue.
        Close();
        throw;
    }
}

CcvReminderDataCollectionManager::~CcvReminderDataCollectionManager()
{
    Close();
}

void CcvReminderDataCollectionManager::Close()
{
    EmptyReminders();
    if (m_outlookQueue != nullptr)
    {
        StopOutlookWorker();
        // A message that was let through meanwhile may have loaded the collection again.
        EmptyReminders();
    }
}

bool CcvReminderDataCollectionManager::AddReminder(CcvReminderData* record, bool synchronizeWithOutlook)
{
    const bool ok = record->SaveDataToRegistry(ts::kRemindersPath);
    if (IsMirrored(synchronizeWithOutlook))
    {
        AddOutlookReminder(record);
    }
    SendSynchornizationMessage();
    return ok;
}

bool CcvReminderDataCollectionManager::ModifyReminder(CcvReminderData* record, bool synchronizeWithOutlook)
{
    if (GetReminderByGuid(record->m_documentPath, record->m_mapGuid, record->m_objectGuid) == nullptr)
    {
        return false;
    }
    record->SaveDataToRegistry(ts::kRemindersPath);
    if (IsMirrored(synchronizeWithOutlook))
    {
        ModifyOutlookReminder(record);
    }
    SendSynchornizationMessage();
    return true;
}

bool CcvReminderDataCollectionManager::DeleteReminder(CcvReminderData* record, bool synchronizeWithOutlook)
{
    if (GetReminderIndex(record) < 0)
    {
        return false;
    }
    const bool ok = record->DeleteDataFromRegistry(ts::kRemindersPath);
    if (IsMirrored(synchronizeWithOutlook))
    {
        RemoveOutlookReminder(record);
    }
    SendSynchornizationMessage();
    return ok;
}

bool CcvReminderDataCollectionManager::DismissReminder(CcvReminderData* record)
{
    const CTime previousDueDate = record->GetNextDueDate();
    record->SetDismissed(true);
    const bool ok = record->SaveDataToRegistry(ts::kRemindersPath);
    if (record->IsRecurrent() && IsMirrored(true))
    {
        QueueOutlookCommand(record, ts::OutlookCommandKind::Dismiss, previousDueDate);
    }
    if (ok)
    {
        SendSynchornizationMessage();
    }
    return ok;
}

bool CcvReminderDataCollectionManager::SnoozeReminder(CcvReminderData* record, const CTimeSpan& span)
{
    record->SetSnoozeTime(span);
    const bool ok = record->SaveDataToRegistry(ts::kRemindersPath);
    if (ok)
    {
        SendSynchornizationMessage();
    }
    return ok;
}

bool CcvReminderDataCollectionManager::EndReminder(CcvReminderData* record)
{
    if (record->IsRecurrent())
    {
        return DismissReminder(record);
    }
    return DeleteReminder(record, CcvReminderOptionUtilities::GetSynchronizeOutlookAppointments());
}

bool CcvReminderDataCollectionManager::UpdateReminderPath(CcvReminderData* record,
                                                          const CString& newDocumentPath)
{
    if (GetReminderIndex(record) < 0)
    {
        return false;
    }
    record->m_documentPath = newDocumentPath;
    const bool ok = record->SaveDataToRegistry(ts::kRemindersPath);
    SendSynchornizationMessage();
    return ok;
}

bool CcvReminderDataCollectionManager::UpdateRemindersDocumentPath(const CString& oldPath,
                                                                   const CString& newPath,
                                                                   const CString& mapGuid)
{
    CcvReminderDataUtilities::UpdateDocumentPath(ts::kRemindersPath, oldPath, newPath, mapGuid);
    SendSynchornizationMessage();
    return true;
}

bool CcvReminderDataCollectionManager::UpdateReminderCollection()
{
    return LoadRemindersFromRegistry();
}

bool CcvReminderDataCollectionManager::OpenOutlookAppointment(CcvReminderData* record)
{
    if (GetReminderIndex(record) < 0)
    {
        return false;
    }
    // Outlook's calls let messages through, and a reload that one of them causes frees the record.
    const CcvReminderData copy(*record);
    return ts::DisplayOutlookAppointment(copy);
}

CcvReminderData* CcvReminderDataCollectionManager::GetReminderByGuid(const CString& documentPath,
                                                                     const CString& mapGuid,
                                                                     const CString& objectGuid) const
{
    for (std::size_t index = 0; index < m_reminders.GetCount(); ++index)
    {
        CcvReminderData* const reminder = m_reminders[index];
        if (reminder->m_documentPath == documentPath && reminder->m_mapGuid == mapGuid &&
            reminder->m_objectGuid == objectGuid)
        {
            return reminder;
        }
    }
    return nullptr;
}

CcvReminderData* CcvReminderDataCollectionManager::GetReminderByIndex(int index) const
{
    return index >= 0 && index < GetRemindersCount() ? m_reminders[index] : nullptr;
}

CcvReminderData* CcvReminderDataCollectionManager::GetReminderByOutlookObjectGuid(
    const CString& outlookObjectGuid) const
{
    for (std::size_t index = 0; index < m_reminders.GetCount(); ++index)
    {
        if (m_reminders[index]->m_outlookObjectGuid == outlookObjectGuid)
        {
            return m_reminders[index];
        }
    }
    return nullptr;
}

int CcvReminderDataCollectionManager::GetRemindersCount() const
{
    return static_cast<int>(m_reminders.GetCount());
}

int CcvReminderDataCollectionManager::GetReminderIndex(const CcvReminderData* record) const
{
    const CString guid = record->GetGuid();
    for (int index = 0; index < GetRemindersCount(); ++index)
    {
        if (m_reminders[index]->HasGuid(guid))
        {
            return index;
        }
    }
    return -1;
}

bool CcvReminderDataCollectionManager::LoadRemindersFromRegistry()
{
    EmptyReminders();
    SECRegistry registry;
    if (!registry.Connect(HKEY_CURRENT_USER) || !registry.Open(ts::kRemindersPath, KEY_READ))
    {
        return false;
    }
    bool ok = true;
    CString key;
    for (DWORD index = 0; registry.EnumerateKeys(index, key); ++index)
    {
        auto reminder = std::make_unique<CcvReminderData>(key);
        // After the first failure the others are kept by their key only.
        ok = ok && reminder->LoadDataFromRegistry(ts::kRemindersPath);
        m_reminders.Add(reminder.get());
        static_cast<void>(reminder.release());
    }
    return ok;
}

void CcvReminderDataCollectionManager::EmptyReminders()
{
    for (std::size_t index = 0; index < m_reminders.GetCount(); ++index)
    {
        const std::unique_ptr<CcvReminderData> freed(m_reminders[index]);
    }
    m_reminders.RemoveAll();
}

void CcvReminderDataCollectionManager::SendSynchornizationMessage()
{
    ts::SendSynchronizationMessage();
}

// --- The Outlook worker ---

void CcvReminderDataCollectionManager::StartOutlookWorker()
{
    m_outlookQueue = std::make_unique<ts::OutlookCommandQueue>();
    m_outlookQueue->SetRunning(true);
    m_workerThread.reset(AfxBeginThread(&ts::OutlookWorkerThreadProc, m_outlookQueue.get()));
    if (m_workerThread != nullptr)
    {
        // The thread cannot end before it has got a command. Its handle is needed until it has ended.
        m_workerThread->m_bAutoDelete = FALSE;
    }
}

void CcvReminderDataCollectionManager::StopOutlookWorker()
{
    constexpr DWORD kResumeIntervalMilliseconds = 20;
    m_outlookQueue->SetRunning(false);
    if (m_workerThread != nullptr)
    {
        HANDLE const thread = m_workerThread->m_hThread;
        do
        {
            m_workerThread->ResumeThread();
        } while (!ts::WaitLettingMessagesThrough(thread, kResumeIntervalMilliseconds));
        m_workerThread.reset();
    }
    m_outlookQueue.reset();
}

bool CcvReminderDataCollectionManager::WaitForOutlookCommands(DWORD timeoutMilliseconds)
{
    const ULONGLONG end = GetTickCount64() + timeoutMilliseconds;
    while (m_outlookQueue != nullptr && m_outlookQueue->GetUnfinishedCount() != 0)
    {
        const ULONGLONG now = GetTickCount64();
        if (now >= end || m_workerThread == nullptr || ts::HasEnded(*m_workerThread))
        {
            return false;
        }
        constexpr ULONGLONG kLookIntervalMilliseconds = 100;
        ts::WaitLettingMessagesThrough(m_outlookQueue->GetDoneEvent(),
                                       static_cast<DWORD>(std::min(end - now, kLookIntervalMilliseconds)));
    }
    return true;
}

bool CcvReminderDataCollectionManager::IsMirrored(bool synchronizeWithOutlook) const
{
    // The option is asked for last: it costs several reads of the registry.
    return synchronizeWithOutlook && m_outlookQueue != nullptr &&
           CcvReminderOptionUtilities::GetSynchronizeOutlookAppointments();
}

void CcvReminderDataCollectionManager::AddOutlookReminder(const CcvReminderData* record)
{
    QueueOutlookCommand(record, ts::OutlookCommandKind::Add);
}

void CcvReminderDataCollectionManager::ModifyOutlookReminder(const CcvReminderData* record)
{
    QueueOutlookCommand(record, ts::OutlookCommandKind::Modify);
}

void CcvReminderDataCollectionManager::RemoveOutlookReminder(const CcvReminderData* record)
{
    QueueOutlookCommand(record, ts::OutlookCommandKind::Remove);
}

void CcvReminderDataCollectionManager::QueueOutlookCommand(const CcvReminderData* record,
                                                           ts::OutlookCommandKind kind,
                                                           const CTime& previousDueDate)
{
    auto command = std::make_unique<ts::QueuedOutlookCommand>();
    command->record = std::make_unique<CcvReminderData>(*record);
    command->kind = kind;
    command->previousDueDate = previousDueDate;
    m_outlookQueue->Append(std::move(command));
    if (m_workerThread != nullptr)
    {
        ts::WakeOutlookWorker(*m_outlookQueue, *m_workerThread);
    }
}
