#pragma once

#include "platform/mfc/afxstr.h"

/// The user's options. Every call goes to the registry, so a change that another process made is seen by
/// the next read. Reads never fail: what is missing, unreadable or no REG_DWORD gives the default. Any
/// thread.
class TS_API CcvReminderOptionUtilities
{
  public:
    /// Whether an opening alert plays a sound. Default: true.
    static bool GetPlaySoundWithTickler();
    /// Dropped without a report when the settings key does not exist; so are all writes.
    static void SetPlaySoundWithTickler(bool value);

    /// Whether reminders are mirrored as Outlook appointments. Default: true. Always false while the Outlook
    /// add-in is marked as not installed.
    static bool GetSynchronizeOutlookAppointments();
    static void SetSynchronizeOutlookAppointments(bool value);

    /// Whether a synchronisation with Outlook runs in any process. A marker, no lock. Default: false.
    static bool GetSynchronizeInProgress();
    static void SetSynchronizeInProgress(bool value);

    /// Whether events that the Outlook add-in raises are ignored. Default: false.
    static bool GetDisableOutlookEventsHandling();

    /// Whether the Outlook add-in is installed: the machine's value, else the user's, else true.
    static bool GetAdminTopicAlertsLinkerInstalled();

  private:
    static void ReadBoolOption(const CString& name, bool defaultValue, bool& value);
    static void WriteBoolOption(const CString& name, bool value);
};
