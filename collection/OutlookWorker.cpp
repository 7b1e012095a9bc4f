#include "collection/OutlookWorker.h"

#include "collection/CcvOutlookCommand.h"
#include "collection/SynchronizationSender.h"
#include "module/RegistryPaths.h"
#include "outlook/OutlookAppointments.h"

// A resume that comes before the worker has suspended itself is lost. So the worker announces its sleep and
// then looks at the queue once more, and whoever wakes it repeats the resume until it took or the worker says
// that it is awake: then it looks at the queue before it sleeps again.

namespace ts
{
namespace
{

void ExecuteAs(CcvOutlookCommand&& command)
{
    command.Execute();
}

void Execute(const QueuedOutlookCommand& command)
{
    CcvReminderData* const record = command.record.get();
    switch (command.kind)
    {
    case OutlookCommandKind::Add:
        return ExecuteAs(CcvAddReminderToOutlookCommand(record));
    case OutlookCommandKind::Modify:
        return ExecuteAs(CcvModifyReminderInOutlookCommand(record));
    case OutlookCommandKind::Remove:
        return ExecuteAs(CcvRemoveReminderFromOutlookCommand(record));
    case OutlookCommandKind::Dismiss:
        return ExecuteAs(CcvDismissReminderInOutlookCommand(record, command.previousDueDate));
    }
}

/// Whether the reminder still stands under its key. The key of a deleted one may have gone to another topic.
bool IsStored(const CcvReminderData& record)
{
    CcvReminderData stored(record.GetReminderKey());
    return stored.LoadDataFromRegistry(kRemindersPath) && stored.GetMapGuid() == record.GetMapGuid() &&
           stored.GetObjectGuid() == record.GetObjectGuid();
}

/// Keeps in the store what Outlook calls the reminder's appointment.
void WriteBack(const CcvReminderData& record, const CString& formerGuid)
{
    // The reminder may be deleted at any time: its key must not come back with nothing in it but these.
    if (!record.UpdateOutlookDataInRegistry(kRemindersPath) && record.GetOutlookObjectGuid() != formerGuid)
    {
        // It was deleted while Outlook made the appointment, which nobody would find any more.
        RemoveAppointmentFromOutlook(record);
    }
}

void Process(const QueuedOutlookCommand& command)
{
    CcvReminderData& record = *command.record;
    if (IsStored(record))
    {
        // An earlier command may have stored other identifiers since this one was queued.
        record.LoadOutlookDataFromRegistry(kRemindersPath);
    }
    const CString formerGuid = record.GetOutlookObjectGuid();
    Execute(command);
    if (command.kind != OutlookCommandKind::Remove)
    {
        WriteBack(record, formerGuid);
    }
    SendSynchronizationMessage();
}

void ExecuteCommands(OutlookCommandQueue& queue)
{
    CWinThread* const self = AfxGetThread();
    while (true)
    {
        if (queue.BeginSleep())
        {
            self->SuspendThread();
        }
        queue.EndSleep();
        if (!queue.IsRunning())
        {
            return;
        }
        while (auto command = queue.TakeHead())
        {
            Process(*command);
            command.reset();
            queue.ReportDone();
        }
    }
}

} // namespace

UINT OutlookWorkerThreadProc(void* queue) noexcept
{
    constexpr UINT kStopped = 1;
    constexpr UINT kFailed = 0;
    try
    {
        ExecuteCommands(*static_cast<OutlookCommandQueue*>(queue));
        return kStopped;
    }
    catch (...)
    {
        return kFailed;
    }
}

bool HasEnded(const CWinThread& thread) noexcept
{
    return WaitForSingleObject(thread.m_hThread, 0) != WAIT_TIMEOUT;
}

void WakeOutlookWorker(const OutlookCommandQueue& queue, CWinThread& worker) noexcept
{
    while (worker.ResumeThread() == 0 && queue.IsWorkerAsleep() && !HasEnded(worker))
    {
        SwitchToThread();
    }
}

} // namespace ts
