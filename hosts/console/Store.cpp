#include "Store.h"

#include "Errors.h"
#include "PatternText.h"
#include "Strings.h"
#include "hosts/common/Collection.h"
#include "hosts/common/RegistryHandle.h"

namespace ts::console
{
namespace
{

[[noreturn]] void ThrowUnreadable(LSTATUS error)
{
    throw OperationError("cannot read the reminders below HKEY_CURRENT_USER\\" + FromLibrary(kRemindersPath) +
                         ": Windows error " + std::to_string(error));
}

[[noreturn]] void ThrowUnknown(std::string_view key)
{
    throw OperationError("there is no reminder " + Quoted(key));
}

[[noreturn]] void ThrowUnwritable(const CcvReminderData& reminder)
{
    throw OperationError("the reminder " + Quoted(FromLibrary(reminder.GetReminderKey())) +
                         " could not be written");
}

/// Raises when the key is there and cannot be read, which the collection does not tell.
void CheckReadable(const CString& path)
{
    hosts::RegistryHandle key;
    const LSTATUS error = key.Open(HKEY_CURRENT_USER, path, KEY_READ);
    if (error != ERROR_SUCCESS && error != ERROR_FILE_NOT_FOUND)
    {
        ThrowUnreadable(error);
    }
}

bool IsSameKey(const CString& left, const CString& right)
{
    return CompareStringOrdinal(left.GetString(), left.GetLength(), right.GetString(), right.GetLength(),
                                TRUE) == CSTR_EQUAL;
}

/// Without the identifiers of the appointment, which the library may store at any moment.
bool HaveSameTexts(const CcvReminderData& left, const CcvReminderData& right)
{
    return left.GetDocumentPath() == right.GetDocumentPath() && left.GetMapGuid() == right.GetMapGuid() &&
           left.GetObjectGuid() == right.GetObjectGuid() &&
           left.GetDocumentTitle() == right.GetDocumentTitle() &&
           left.GetObjectTitle() == right.GetObjectTitle() && left.GetSubject() == right.GetSubject();
}

bool HaveSameTimesAndStates(const CcvReminderData& left, const CcvReminderData& right)
{
    return left.GetInitialDueDate() == right.GetInitialDueDate() &&
           left.GetNextDueDate() == right.GetNextDueDate() &&
           left.GetReminderTimeSpan() == right.GetReminderTimeSpan() &&
           left.GetSnoozeTime() == right.GetSnoozeTime() && left.IsSnoozed() == right.IsSnoozed() &&
           left.IsDimissed() == right.IsDimissed();
}

/// Whether the store holds the reminder as it is.
bool IsStored(const CcvReminderData& reminder)
{
    CcvReminderData stored(reminder.GetReminderKey());
    return stored.LoadDataFromRegistry(kRemindersPath) && HaveSameTexts(stored, reminder) &&
           HaveSameTimesAndStates(stored, reminder) &&
           stored.GetRecurrenceType() == reminder.GetRecurrenceType() &&
           RecurrenceOptions(stored) == RecurrenceOptions(reminder);
}

/// What the key of a reminder that was just added holds.
enum class Added
{
    Whole,   ///< the reminder, or what another program has made of it since
    Partly,  ///< less than was written
    Another, ///< another program's, which chose the same key at the same moment
};

Added FindAdded(const CcvReminderData& reminder)
{
    CcvReminderData stored(reminder.GetReminderKey());
    stored.LoadDataFromRegistry(kRemindersPath);
    if (!stored.GetObjectGuid().IsEmpty() && stored.GetObjectGuid() != reminder.GetObjectGuid())
    {
        return Added::Another;
    }
    const bool isWhole = stored.GetGuid() == reminder.GetGuid() && !stored.GetSubject().IsEmpty() &&
                         stored.GetInitialDueDate() != CTime() && stored.GetNextDueDate() != CTime();
    return isWhole ? Added::Whole : Added::Partly;
}

/// Neither the library's answer nor what the store holds is enough alone.
void CheckWritten(bool saved, const CcvReminderData& reminder)
{
    if (!saved)
    {
        ThrowUnwritable(reminder);
    }
    if (!IsStored(reminder))
    {
        throw OperationError("the reminder " + Quoted(FromLibrary(reminder.GetReminderKey())) +
                             " is not what was written: another program may have changed it since");
    }
}

} // namespace

Store::Store(Outlook outlook)
    : m_manager(std::make_unique<CcvReminderDataCollectionManager>(
          outlook == Outlook::Mirrored && CcvReminderOptionUtilities::GetSynchronizeOutlookAppointments()))
{
}

Store::~Store() = default;

std::vector<CcvReminderData> Store::All()
{
    CheckReadable(kRemindersPath);
    std::vector<CcvReminderData> reminders;
    for (int index = 0; index < m_manager->GetRemindersCount(); ++index)
    {
        CcvReminderData& record = *m_manager->GetReminderByIndex(index);
        if (hosts::EnsureLoaded(record))
        {
            reminders.push_back(record);
        }
    }
    return reminders;
}

CcvReminderData Store::Get(std::string_view key)
{
    CheckReadable(kRemindersPath);
    CcvReminderData* const record = Find(ToLibrary(key));
    if (record == nullptr)
    {
        ThrowUnknown(key);
    }
    if (!hosts::EnsureLoaded(*record))
    {
        CheckReadable(CString(kRemindersPath) + L"\\" + record->GetReminderKey());
        ThrowUnknown(key);
    }
    return *record;
}

CString Store::FindKey(const CString& path, const CString& map, const CString& topic)
{
    // Loads what the collection left unloaded.
    static_cast<void>(All());
    const CcvReminderData* const record = m_manager->GetReminderByGuid(path, map, topic);
    return record != nullptr ? record->GetReminderKey() : CString();
}

CcvReminderData* Store::Find(const CString& key) const
{
    for (int index = 0; index < m_manager->GetRemindersCount(); ++index)
    {
        CcvReminderData* const record = m_manager->GetReminderByIndex(index);
        if (IsSameKey(record->GetReminderKey(), key))
        {
            return record;
        }
    }
    return nullptr;
}

void Store::Add(CcvReminderData& reminder)
{
    const bool saved = m_manager->AddReminder(&reminder, true);
    if (saved && IsStored(reminder))
    {
        return;
    }
    const Added added = FindAdded(reminder);
    if (added == Added::Partly)
    {
        TakeBack(reminder);
    }
    if (!saved || added != Added::Whole)
    {
        ThrowUnwritable(reminder);
    }
}

/// Deletes what there is of a reminder, in Outlook too.
void Store::TakeBack(const CcvReminderData& reminder)
{
    m_manager->UpdateReminderCollection();
    CcvReminderData* const record = Find(reminder.GetReminderKey());
    if (record != nullptr)
    {
        hosts::EnsureLoaded(*record);
        CcvReminderData copy(*record);
        m_manager->DeleteReminder(&copy, true);
    }
}

void Store::Modify(CcvReminderData& reminder)
{
    // The library changes a reminder only where one of the same path, map and topic is loaded, and these may
    // be what the user changed.
    CcvReminderData* const record = Find(reminder.GetReminderKey());
    if (record != nullptr)
    {
        *record = reminder;
    }
    CheckWritten(m_manager->ModifyReminder(&reminder, true), reminder);
}

void Store::Dismiss(CcvReminderData& reminder)
{
    CheckWritten(m_manager->DismissReminder(&reminder), reminder);
}

void Store::Snooze(CcvReminderData& reminder, const CTimeSpan& span)
{
    CheckWritten(m_manager->SnoozeReminder(&reminder, span), reminder);
}

void Store::Delete(CcvReminderData& reminder)
{
    if (!m_manager->DeleteReminder(&reminder, true))
    {
        throw OperationError("the reminder " + Quoted(FromLibrary(reminder.GetReminderKey())) +
                             " could not be deleted");
    }
}

void Store::Move(const CString& oldPath, const CString& newPath, const CString& map)
{
    m_manager->UpdateRemindersDocumentPath(oldPath, newPath, map);
    Reload();
}

bool Store::OpenAppointment(CcvReminderData& reminder)
{
    return m_manager->OpenOutlookAppointment(&reminder);
}

bool Store::AwaitOutlook(const CTimeSpan& patience) const
{
    constexpr std::int64_t kMillisecondsInSecond = 1000;
    return m_manager->WaitForOutlookCommands(
        static_cast<DWORD>(patience.GetTimeSpan() * kMillisecondsInSecond));
}

void Store::AbandonOutlook()
{
    hosts::Abandon(std::move(m_manager));
}

} // namespace ts::console
