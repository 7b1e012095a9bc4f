#include "Store.h"

#include "Errors.h"
#include "PatternText.h"
#include "RegistryHandle.h"
#include "Strings.h"

#include <array>

namespace ts::console
{
namespace
{

/// The longest name of a registry key, without the terminator.
constexpr std::size_t kLongestKeyName = 255;

[[noreturn]] void ThrowUnreadable(LSTATUS error)
{
    throw OperationError("cannot read the reminders below HKEY_CURRENT_USER\\" + FromLibrary(kRemindersPath) +
                         ": Windows error " + std::to_string(error));
}

[[noreturn]] void ThrowUnknown(std::string_view key)
{
    throw OperationError("there is no reminder " + Quoted(key));
}

/// Opens the key of all reminders; false when there is none.
bool OpenStore(RegistryHandle& root)
{
    const LSTATUS error = root.Open(HKEY_CURRENT_USER, kRemindersPath, KEY_READ);
    if (error != ERROR_SUCCESS && error != ERROR_FILE_NOT_FOUND)
    {
        ThrowUnreadable(error);
    }
    return error == ERROR_SUCCESS;
}

std::vector<CString> ReminderKeys()
{
    RegistryHandle root;
    if (!OpenStore(root))
    {
        return {};
    }
    std::vector<CString> keys;
    for (DWORD index = 0;; ++index)
    {
        std::array<wchar_t, kLongestKeyName + 1> name{};
        DWORD length = name.size();
        const LSTATUS error =
            RegEnumKeyExW(root.Get(), index, name.data(), &length, nullptr, nullptr, nullptr, nullptr);
        if (error == ERROR_NO_MORE_ITEMS)
        {
            return keys;
        }
        if (error != ERROR_SUCCESS)
        {
            ThrowUnreadable(error);
        }
        keys.emplace_back(name.data(), static_cast<int>(length));
    }
}

bool HaveSameTexts(const CcvReminderData& left, const CcvReminderData& right)
{
    return left.GetDocumentPath() == right.GetDocumentPath() && left.GetMapGuid() == right.GetMapGuid() &&
           left.GetObjectGuid() == right.GetObjectGuid() &&
           left.GetOutlookObjectGuid() == right.GetOutlookObjectGuid() &&
           left.GetOutlookEntryId() == right.GetOutlookEntryId() &&
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

/// Whether the store holds the reminder exactly as it is.
bool IsStored(const CcvReminderData& reminder)
{
    CcvReminderData stored(reminder.GetReminderKey());
    return stored.LoadDataFromRegistry(kRemindersPath) && HaveSameTexts(stored, reminder) &&
           HaveSameTimesAndStates(stored, reminder) &&
           stored.GetRecurrenceType() == reminder.GetRecurrenceType() &&
           RecurrenceOptions(stored) == RecurrenceOptions(reminder);
}

} // namespace

void CheckStoreReadable()
{
    RegistryHandle root;
    OpenStore(root);
}

std::vector<CcvReminderData> LoadReminders()
{
    std::vector<CcvReminderData> reminders;
    for (const CString& key : ReminderKeys())
    {
        CcvReminderData reminder(key);
        if (reminder.LoadDataFromRegistry(kRemindersPath))
        {
            reminders.push_back(reminder);
        }
    }
    return reminders;
}

CcvReminderData LoadReminder(std::string_view key)
{
    const CString name = ToLibrary(key);
    // A backslash would reach into a key below a reminder.
    if (key.empty() || key.find('\\') != std::string_view::npos ||
        static_cast<std::size_t>(name.GetLength()) > kLongestKeyName)
    {
        ThrowUnknown(key);
    }
    CcvReminderData reminder(name);
    if (!reminder.LoadDataFromRegistry(kRemindersPath))
    {
        RegistryHandle handle;
        const CString path = CString(kRemindersPath) + L"\\" + name;
        const LSTATUS error = handle.Open(HKEY_CURRENT_USER, path, KEY_READ);
        if (error != ERROR_SUCCESS && error != ERROR_FILE_NOT_FOUND)
        {
            ThrowUnreadable(error);
        }
        ThrowUnknown(key);
    }
    return reminder;
}

void SaveReminder(CcvReminderData& reminder)
{
    if (!reminder.SaveDataToRegistry(kRemindersPath) || !IsStored(reminder))
    {
        throw OperationError("the reminder " + Quoted(FromLibrary(reminder.GetReminderKey())) +
                             " could not be written");
    }
}

void SaveNewReminder(CcvReminderData& reminder)
{
    try
    {
        SaveReminder(reminder);
    }
    catch (const OperationError&)
    {
        reminder.DeleteDataFromRegistry(kRemindersPath);
        throw;
    }
}

void DeleteReminder(CcvReminderData& reminder)
{
    if (!reminder.DeleteDataFromRegistry(kRemindersPath))
    {
        throw OperationError("the reminder " + Quoted(FromLibrary(reminder.GetReminderKey())) +
                             " could not be deleted");
    }
}

} // namespace ts::console
