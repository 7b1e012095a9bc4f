#pragma once

/// The one header that a host includes: all public classes of TsServiceUtilities.dll.

#include "collection/CcvReminderDataCollectionManager.h"
#include "collection/SynchronizationMessage.h"
#include "dialogs/CcvMfcAddReminderDialog.h"
#include "dialogs/CcvMfcDeleteRecurrenceConfirmationDialog.h"
#include "dialogs/CcvMfcManageRemindersDialog.h"
#include "dialogs/CcvMfcRecurrenceDailyDialog.h"
#include "dialogs/CcvMfcRecurrenceMonthlyDialog.h"
#include "dialogs/CcvMfcRecurrenceWeeklyDialog.h"
#include "dialogs/CcvMfcRecurrenceYearlyDialog.h"
#include "dialogs/CcvMfcReminderAlertDialog.h"
#include "module/CcvReminderOptionUtilities.h"
#include "module/InterfaceLanguage.h"
#include "module/RegistryPaths.h"
#include "platform/mfc/atlexcept.h"
#include "reminders/CcvReminderData.h"
#include "reminders/CcvReminderDataUtilities.h"
