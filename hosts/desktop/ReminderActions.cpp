#include "ReminderActions.h"

#include "ResourceIds.h"
#include "Texts.h"
#include "TopicDialog.h"
#include "hosts/common/ReminderTimes.h"

namespace ts::desktop
{
namespace
{

bool IsMirrored()
{
    return CcvReminderOptionUtilities::GetSynchronizeOutlookAppointments();
}

/// The due time in force, none where the pattern is damaged; moves a recurring reminder on.
std::optional<CTime> DueTime(CcvReminderData& reminder)
{
    return hosts::Ask([&] { return reminder.GetCalculatedDueTime(CTime::GetCurrentTime()); });
}

} // namespace

std::optional<ReminderIdentity> ReminderActions::Add()
{
    TopicDialog topics(KnownTopics(m_manager), &m_parent);
    const INT_PTR answer = topics.DoModal();
    if (answer != IDOK)
    {
        return std::nullopt;
    }
    const Topic& topic = topics.GetTopic();
    // The library finds reminders by their topic, so a topic has one.
    const CcvReminderData* const present =
        m_manager.GetReminderByGuid(topic.documentPath, topic.mapGuid, topic.guid);
    if (present != nullptr)
    {
        const ReminderIdentity identity(*present);
        Edit(identity);
        return identity;
    }
    std::optional<CcvReminderData> entered = Enter(NewReminder(topic, CTime::GetCurrentTime()), CString());
    if (!entered)
    {
        return std::nullopt;
    }
    if (!m_manager.AddReminder(&*entered, IsMirrored()))
    {
        Say(IDS_NOT_SAVED);
        return std::nullopt;
    }
    return ReminderIdentity(*entered);
}

std::optional<CcvReminderData> ReminderActions::Enter(const CcvReminderData& reminder, const CString& caption)
{
    CcvMfcAddReminderDialog dialog(&m_parent);
    if (!caption.IsEmpty())
    {
        dialog.SetDialogCaption(caption);
    }
    dialog.UpdateReminderData(&reminder);
    if (dialog.DoModal() != IDOK)
    {
        return std::nullopt;
    }
    try
    {
        return *dialog.GetReminderData();
    }
    catch (const COleException&)
    {
        Say(IDS_NO_DUE_DATE);
        return std::nullopt;
    }
}

void ReminderActions::Edit(const ReminderIdentity& identity)
{
    const CcvReminderData* const seen = FindReminder(m_manager, identity);
    if (seen == nullptr)
    {
        Say(IDS_GONE);
        return;
    }
    std::optional<CcvReminderData> entered = Enter(*seen, seen->GetSubject());
    if (!entered)
    {
        return;
    }
    const CcvReminderData* const present = FindReminder(m_manager, identity);
    if (present == nullptr)
    {
        Say(IDS_GONE);
        return;
    }
    // What the dialog does not show may have changed while it was open: the reminder may have been snoozed,
    // and Outlook may have named its appointment.
    CcvReminderData changed(*present);
    changed.CopyData(&*entered);
    changed.LoadOutlookDataFromRegistry(kRemindersPath);
    if (!m_manager.ModifyReminder(&changed, IsMirrored()))
    {
        Say(IDS_NOT_SAVED);
    }
}

void ReminderActions::Delete(const ReminderIdentity& identity)
{
    CcvReminderData* const reminder = FindReminder(m_manager, identity);
    if (reminder == nullptr)
    {
        Say(IDS_GONE);
    }
    else if (reminder->IsRecurrent())
    {
        CcvReminderData copy(*reminder);
        DeleteRecurring(identity, DueTime(copy));
    }
    else
    {
        DeleteSeries(*reminder);
    }
}

void ReminderActions::DeleteRecurring(const ReminderIdentity& identity, std::optional<CTime> seenDue)
{
    CcvMfcDeleteRecurrenceConfirmationDialog question(&m_parent);
    if (question.DoModal() != IDOK)
    {
        return;
    }
    CcvReminderData* const reminder = FindReminder(m_manager, identity);
    if (reminder == nullptr)
    {
        Say(IDS_GONE);
    }
    else if (question.IsDeletingSeries())
    {
        DeleteSeries(*reminder);
    }
    // Somebody else may have settled the occurrence that was meant.
    else if (const std::optional<CTime> due = DueTime(*reminder); due && due == seenDue)
    {
        try
        {
            m_manager.DismissReminder(reminder);
        }
        catch (const COleException&)
        {
            Say(IDS_NOT_DELETED);
        }
    }
}

void ReminderActions::DeleteSeries(CcvReminderData& reminder)
{
    // The collection may be loaded again within the call, with its record.
    CcvReminderData copy(reminder);
    if (!m_manager.DeleteReminder(&copy, IsMirrored()))
    {
        Say(IDS_NOT_DELETED);
    }
}

void ReminderActions::Say(UINT textId) const
{
    MessageBoxW(m_parent.m_hWnd, Text(textId).c_str(), Text(IDS_APPLICATION).c_str(), MB_ICONEXCLAMATION);
}

} // namespace ts::desktop
