// The registry format of one reminder.

#include "platform/ts/CcvPathUtilities.h"
#include "platform/ts/SECRegistry.h"
#include "reminders/CcvReminderData.h"
#include "reminders/CcvReminderDataUtilities.h"

#include <array>

namespace
{

constexpr wchar_t kDocumentPath[] = L"DocumentPath";
constexpr wchar_t kMapGuid[] = L"MapGuid";
constexpr wchar_t kObjectGuid[] = L"ObjectGuid";
constexpr wchar_t kOutlookObjectGuid[] = L"OutlookObjectGuid";
constexpr wchar_t kOutlookEntryId[] = L"OutlookEntryId";
constexpr wchar_t kDocumentTitle[] = L"DocumentTitle";
constexpr wchar_t kObjectTitle[] = L"ObjectTitle";
constexpr wchar_t kFlags[] = L"Flags";
constexpr wchar_t kSubject[] = L"Subject";
constexpr wchar_t kNextDueDate[] = L"NextRecurrentDueDate";
constexpr wchar_t kInitialDueDate[] = L"InitialDueDate";
constexpr wchar_t kReminderTimeSpan[] = L"Reminder";
constexpr wchar_t kSnoozeTime[] = L"SnoozeTime";
constexpr wchar_t kRecurrenceType[] = L"RecurrenceType";
constexpr std::array<const wchar_t*, 6> kRecurrenceOptions = {L"RecurrenceOption1", L"RecurrenceOption2",
                                                              L"RecurrenceOption3", L"RecurrenceOption4",
                                                              L"RecurrenceOption5", L"RecurrenceOption6"};

/// How many of the options a recurrence type stores.
std::size_t OptionCount(EcvReminderRecurrenceType type)
{
    switch (type)
    {
    case EcvReminderRecurrenceType::Daily:
    case EcvReminderRecurrenceType::Weekly:
        return 2;
    case EcvReminderRecurrenceType::Monthly:
    case EcvReminderRecurrenceType::Yearly:
        return 6;
    default:
        return 0;
    }
}

template <typename Time>
void ReadTime(HKEY key, const wchar_t* name, Time& value)
{
    std::int64_t seconds = 0;
    if (ts::TryReadInt64(key, name, seconds))
    {
        value = seconds;
    }
}

void ReadOption(HKEY key, const wchar_t* name, std::int32_t& option)
{
    auto stored = static_cast<DWORD>(option);
    if (ts::TryReadUpTo4Bytes(key, name, stored))
    {
        option = static_cast<std::int32_t>(stored);
    }
}

void WriteInt32(HKEY key, const wchar_t* name, std::int32_t value)
{
    ts::WriteDword(key, name, static_cast<DWORD>(value));
}

/// The existing key of that reminder; empty when there is none, or when the reminder has no name yet.
ts::RegistryKey TryOpenKey(const CString& basePath, const CString& reminderKey, REGSAM access)
{
    if (reminderKey.IsEmpty())
    {
        return {};
    }
    const CString path = CcvPathUtilities::AppendToPath(basePath, reminderKey);
    return ts::RegistryKey::TryOpen(HKEY_CURRENT_USER, path, access);
}

/// The same for writing; created when it is missing.
ts::RegistryKey TryOpenOrCreateKey(const CString& basePath, const CString& reminderKey)
{
    if (reminderKey.IsEmpty())
    {
        return {};
    }
    const CString path = CcvPathUtilities::AppendToPath(basePath, reminderKey);
    return ts::RegistryKey::TryOpenOrCreate(HKEY_CURRENT_USER, path);
}

} // namespace

bool CcvReminderData::LoadDataFromRegistry(const CString& basePath)
{
    const auto key = TryOpenKey(basePath, m_reminderKey, KEY_READ);
    if (!key)
    {
        return false;
    }
    // The subject is not among them: a key without one leaves the earlier subject.
    for (CString* text : {&m_documentPath, &m_mapGuid, &m_objectGuid, &m_outlookObjectGuid, &m_outlookEntryId,
                          &m_documentTitle, &m_objectTitle})
    {
        text->Empty();
    }
    ts::TryReadString(key.Get(), kDocumentPath, m_documentPath);
    ts::TryReadString(key.Get(), kMapGuid, m_mapGuid);
    ts::TryReadString(key.Get(), kObjectGuid, m_objectGuid);
    LoadOutlookIdentifiers(key.Get());
    DWORD flags = 0;
    if (ts::TryReadDword(key.Get(), kFlags, flags))
    {
        m_flags = flags;
    }
    ts::TryReadString(key.Get(), kDocumentTitle, m_documentTitle);
    ts::TryReadString(key.Get(), kObjectTitle, m_objectTitle);
    ts::TryReadString(key.Get(), kSubject, m_subject);
    ReadTime(key.Get(), kReminderTimeSpan, m_reminderTimeSpan);
    ReadTime(key.Get(), kSnoozeTime, m_snoozeTime);
    ReadTime(key.Get(), kInitialDueDate, m_initialDueDate);
    ReadTime(key.Get(), kNextDueDate, m_nextDueDate);
    LoadRecurrence(key.Get());
    return true;
}

void CcvReminderData::LoadRecurrence(HKEY key)
{
    // The type is read once for itself and for the options, which ReadDoubleWordValue would each check again.
    DWORD type = 0;
    if (!ts::TryReadDword(key, kRecurrenceType, type))
    {
        return;
    }
    m_recurrenceType = static_cast<EcvReminderRecurrenceType>(type);
    const std::array<std::int32_t*, 6> slots = {&m_recurrenceOption1, &m_recurrenceOption2,
                                                &m_recurrenceOption3, &m_recurrenceOption4,
                                                &m_recurrenceOption5, &m_recurrenceOption6};
    for (std::size_t index = 0; index < OptionCount(m_recurrenceType); ++index)
    {
        ReadOption(key, kRecurrenceOptions[index], *slots[index]);
    }
}

bool CcvReminderData::SaveDataToRegistry(const CString& basePath)
{
    if (m_reminderKey.IsEmpty())
    {
        m_reminderKey = CcvReminderDataUtilities::GenerateUniqueReminderKey(basePath, m_mapGuid);
    }
    const auto key = TryOpenOrCreateKey(basePath, m_reminderKey);
    if (!key)
    {
        return false;
    }
    ts::WriteString(key.Get(), kDocumentPath, m_documentPath);
    ts::WriteString(key.Get(), kMapGuid, m_mapGuid);
    ts::WriteString(key.Get(), kObjectGuid, m_objectGuid);
    SaveOutlookIdentifiers(key.Get());
    ts::WriteString(key.Get(), kDocumentTitle, m_documentTitle);
    ts::WriteString(key.Get(), kObjectTitle, m_objectTitle);
    ts::WriteDword(key.Get(), kFlags, m_flags);
    ts::WriteString(key.Get(), kSubject, m_subject);
    ts::WriteInt64(key.Get(), kNextDueDate, m_nextDueDate.GetTime());
    ts::WriteInt64(key.Get(), kInitialDueDate, m_initialDueDate.GetTime());
    ts::WriteInt64(key.Get(), kReminderTimeSpan, m_reminderTimeSpan.GetTimeSpan());
    ts::WriteInt64(key.Get(), kSnoozeTime, m_snoozeTime.GetTime());
    WriteInt32(key.Get(), kRecurrenceType, static_cast<std::int32_t>(m_recurrenceType));
    const std::array<std::int32_t, 6> options = {m_recurrenceOption1, m_recurrenceOption2,
                                                 m_recurrenceOption3, m_recurrenceOption4,
                                                 m_recurrenceOption5, m_recurrenceOption6};
    for (std::size_t index = 0; index < OptionCount(m_recurrenceType); ++index)
    {
        WriteInt32(key.Get(), kRecurrenceOptions[index], options[index]);
    }
    return true;
}

bool CcvReminderData::DeleteDataFromRegistry(const CString& basePath)
{
    SECRegistry reminders;
    return !m_reminderKey.IsEmpty() && reminders.Connect(HKEY_CURRENT_USER) &&
           reminders.Open(basePath, KEY_ALL_ACCESS) && reminders.DeleteKey(m_reminderKey);
}

bool CcvReminderData::LoadOutlookDataFromRegistry(const CString& basePath)
{
    const auto key = TryOpenKey(basePath, m_reminderKey, KEY_READ);
    if (!key)
    {
        return false;
    }
    LoadOutlookIdentifiers(key.Get());
    return true;
}

bool CcvReminderData::SaveOutlookDataToRegistry(const CString& basePath)
{
    const auto key = TryOpenOrCreateKey(basePath, m_reminderKey);
    if (!key)
    {
        return false;
    }
    SaveOutlookIdentifiers(key.Get());
    return true;
}

bool CcvReminderData::UpdateOutlookDataInRegistry(const CString& basePath) const
{
    // Through this one key, whatever its name leads to later: values of a deleted key cannot be written.
    const auto key = TryOpenKey(basePath, m_reminderKey, KEY_READ | KEY_WRITE);
    if (!key)
    {
        return false;
    }
    CString mapGuid;
    CString objectGuid;
    ts::TryReadString(key.Get(), kMapGuid, mapGuid);
    ts::TryReadString(key.Get(), kObjectGuid, objectGuid);
    return mapGuid == m_mapGuid && objectGuid == m_objectGuid && SaveOutlookIdentifiers(key.Get());
}

void CcvReminderData::LoadOutlookIdentifiers(HKEY key)
{
    ts::TryReadString(key, kOutlookObjectGuid, m_outlookObjectGuid);
    ts::TryReadString(key, kOutlookEntryId, m_outlookEntryId);
}

bool CcvReminderData::SaveOutlookIdentifiers(HKEY key) const
{
    const bool guidSaved = ts::WriteString(key, kOutlookObjectGuid, m_outlookObjectGuid);
    return ts::WriteString(key, kOutlookEntryId, m_outlookEntryId) && guidSaved;
}

bool CcvReminderData::ReadDoubleWordValue(HKEY key, const CString& name, DWORD* out)
{
    DWORD type = 0;
    return ts::TryReadDword(key, kRecurrenceType, type) && ts::TryReadUpTo4Bytes(key, name, *out);
}
