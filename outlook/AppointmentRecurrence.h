#pragma once

#include "outlook/AutomationObject.h"
#include "reminders/CcvReminderData.h"

namespace ts
{

/// Gives the appointment the recurrence of `record`, or takes it away. Whether anything was changed, as it
/// always is for a recurring record, whose start time is written each time. A new appointment also gets an
/// end time. Nothing is saved. Raises CcvComException; E_INVALIDARG when the due date cannot be converted.
bool ApplyRecurrencePattern(const CcvReminderData& record, const AutomationObject& appointment, bool newItem);

} // namespace ts
