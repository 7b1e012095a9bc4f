#include "module/CcvReminderOptionUtilities.h"

#include "module/RegistryPaths.h"
#include "platform/ts/SECRegistry.h"

namespace
{

constexpr wchar_t kPlaySound[] = L"PlayTicklerSound";
// Spelt so in every store that exists.
constexpr wchar_t kSynchronizeOutlook[] = L"SynchronizeOutlookAppoints";
constexpr wchar_t kSynchronizeInProgress[] = L"SynchInProgress";
constexpr wchar_t kDisableOutlookEvents[] = L"DisableTopicAlertsLinkerOutlookEvents";
constexpr wchar_t kAddInInstalled[] = L"TopicAlertsLinkerInstalled";

bool OpenSettings(SECRegistry& settings, HKEY root, REGSAM access)
{
    return settings.Connect(root) && settings.Open(ts::kSettingsPath, access);
}

/// Sets `installed` when the settings below `root` say whether the add-in is installed.
void ReadAddInInstalled(HKEY root, bool& installed)
{
    SECRegistry settings;
    DWORD stored = 0;
    if (OpenSettings(settings, root, KEY_READ) && settings.GetDoubleWordValue(kAddInInstalled, stored))
    {
        installed = stored != 0;
    }
}

} // namespace

bool CcvReminderOptionUtilities::GetPlaySoundWithTickler()
{
    bool value = true;
    ReadBoolOption(kPlaySound, true, value);
    return value;
}

void CcvReminderOptionUtilities::SetPlaySoundWithTickler(bool value)
{
    WriteBoolOption(kPlaySound, value);
}

bool CcvReminderOptionUtilities::GetSynchronizeOutlookAppointments()
{
    bool value = true;
    ReadBoolOption(kSynchronizeOutlook, true, value);
    return value && GetAdminTopicAlertsLinkerInstalled();
}

void CcvReminderOptionUtilities::SetSynchronizeOutlookAppointments(bool value)
{
    WriteBoolOption(kSynchronizeOutlook, value);
}

bool CcvReminderOptionUtilities::GetSynchronizeInProgress()
{
    bool value = false;
    ReadBoolOption(kSynchronizeInProgress, false, value);
    return value;
}

void CcvReminderOptionUtilities::SetSynchronizeInProgress(bool value)
{
    WriteBoolOption(kSynchronizeInProgress, value);
}

bool CcvReminderOptionUtilities::GetDisableOutlookEventsHandling()
{
    bool value = false;
    ReadBoolOption(kDisableOutlookEvents, false, value);
    return value;
}

bool CcvReminderOptionUtilities::GetAdminTopicAlertsLinkerInstalled()
{
    bool installed = true;
    ReadAddInInstalled(HKEY_CURRENT_USER, installed);
    // The machine's word is read last, so it overrides the user's.
    ReadAddInInstalled(HKEY_LOCAL_MACHINE, installed);
    return installed;
}

void CcvReminderOptionUtilities::ReadBoolOption(const CString& name, bool defaultValue, bool& value)
{
    SECRegistry settings;
    if (OpenSettings(settings, HKEY_CURRENT_USER, KEY_READ))
    {
        DWORD stored = 0;
        value = settings.GetDoubleWordValue(name, stored) ? stored != 0 : defaultValue;
    }
}

void CcvReminderOptionUtilities::WriteBoolOption(const CString& name, bool value)
{
    SECRegistry settings;
    if (OpenSettings(settings, HKEY_CURRENT_USER, KEY_WRITE))
    {
        settings.SetDoubleWordValue(name, value ? 1 : 0);
    }
}
