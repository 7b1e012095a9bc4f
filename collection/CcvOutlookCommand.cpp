#include "collection/CcvOutlookCommand.h"

#include "outlook/OutlookAppointments.h"

IMPLEMENT_DYNAMIC(CcvOutlookCommand, CObject)
IMPLEMENT_DYNAMIC(CcvAddReminderToOutlookCommand, CcvOutlookCommand)
IMPLEMENT_DYNAMIC(CcvModifyReminderInOutlookCommand, CcvOutlookCommand)
IMPLEMENT_DYNAMIC(CcvRemoveReminderFromOutlookCommand, CcvOutlookCommand)
IMPLEMENT_DYNAMIC(CcvDismissReminderInOutlookCommand, CcvOutlookCommand)

bool CcvOutlookCommand::IsInOutlook() const
{
    return !m_record->GetOutlookObjectGuid().IsEmpty();
}

void CcvAddReminderToOutlookCommand::Execute()
{
    ts::AddAppointmentToOutlook(*m_record);
}

void CcvModifyReminderInOutlookCommand::Execute()
{
    if (IsInOutlook())
    {
        ts::ModifyAppointmentInOutlook(*m_record);
    }
}

void CcvRemoveReminderFromOutlookCommand::Execute()
{
    if (IsInOutlook())
    {
        ts::RemoveAppointmentFromOutlook(*m_record);
    }
}

void CcvDismissReminderInOutlookCommand::Execute()
{
    if (IsInOutlook())
    {
        ts::DismissOccurrenceInOutlook(*m_record, m_previousDueDate);
    }
}
