#pragma once

#include "reminders/CcvReminderData.h"

/// One reminder as one appointment in the user's Outlook calendar.
///
/// Each operation starts Outlook's automation afresh on the calling thread, whose apartment it enters and
/// never leaves. Outlook that cannot be started and calls that fail end an operation in silence, with the
/// steps done so far standing; nothing is retried. Other exceptions, such as exhausted memory, reach the
/// caller.
///
/// Calls to Outlook let sent messages through to the calling thread's windows, so `record` must be the
/// caller's own copy, out of reach of what those messages start.
namespace ts
{

/// Creates the appointment, and leaves its object GUID and its entry id in `record`.
void AddAppointmentToOutlook(CcvReminderData& record);

/// Brings the appointment in line with `record`, or creates it anew when it is not found.
void ModifyAppointmentInOutlook(CcvReminderData& record);

/// Deletes the appointment, if there is one.
void RemoveAppointmentFromOutlook(const CcvReminderData& record);

/// Deletes one occurrence, at `previousDueDate` (UTC), of a recurring appointment. The series stays.
void DismissOccurrenceInOutlook(const CcvReminderData& record, const CTime& previousDueDate);

/// Opens the appointment's window. False when it could not be opened.
bool DisplayOutlookAppointment(const CcvReminderData& record);

} // namespace ts
