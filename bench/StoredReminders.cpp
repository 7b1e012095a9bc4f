#include "bench/StoredReminders.h"

#include "bench/Patterns.h"
#include "module/RegistryPaths.h"
#include "platform/ts/RegistryValues.h"

#include <array>
#include <stdexcept>

namespace ts::bench
{
namespace
{

/// The largest value that the bare loop can take; longer ones do not occur in these records.
constexpr DWORD kBufferSize = 2048;

constexpr std::array<const wchar_t*, 20> kValueNames = {
    L"DocumentPath",      L"MapGuid",           L"ObjectGuid",        L"OutlookObjectGuid",
    L"OutlookEntryId",    L"DocumentTitle",     L"ObjectTitle",       L"Flags",
    L"Subject",           L"Reminder",          L"SnoozeTime",        L"InitialDueDate",
    L"RecurrenceType",    L"RecurrenceOption1", L"RecurrenceOption2", L"RecurrenceOption3",
    L"RecurrenceOption4", L"RecurrenceOption5", L"RecurrenceOption6", L"NextRecurrentDueDate"};

CString Text(const wchar_t* text, std::size_t index)
{
    return CString(text) + std::to_wstring(index).c_str();
}

CString Guid(std::size_t index)
{
    const std::wstring digits = std::to_wstring(100'000'000'000 + index);
    return CString((L"{5F3C1A90-27B4-4E6D-9C58-" + digits + L"}").c_str());
}

HKEY OpenBare(const Stored& stored, REGSAM access)
{
    HKEY key = nullptr;
    Require(RegOpenKeyExW(HKEY_CURRENT_USER, stored.path.c_str(), 0, access, &key) == ERROR_SUCCESS,
            "a reminder's key is gone");
    return key;
}

} // namespace

void Require(bool condition, const char* what)
{
    if (!condition)
    {
        throw std::runtime_error(what);
    }
}

std::vector<CcvReminderData> MakeReminders(std::size_t count)
{
    const std::vector<Pattern> patterns = PatternsOfEachKind();
    const std::vector<CTime> times = RandomTimes(count, 2020, 2030);
    std::vector<CcvReminderData> reminders;
    for (std::size_t index = 0; index < count; ++index)
    {
        const std::size_t kind = index % (patterns.size() + 1);
        CcvReminderData record = kind < patterns.size() ? patterns[kind].record : CcvReminderData(CString());
        record.SetDocumentPath(
            Text(L"C:\\Users\\Someone\\Documents\\Maps\\Projects\\Plan ", index / kRemindersPerMap));
        record.SetMapGuid(Guid(index / kRemindersPerMap));
        record.SetObjectGuid(Guid(index));
        record.SetDocumentTitle(Text(L"Plan ", index / kRemindersPerMap));
        record.SetObjectTitle(Text(L"Ask for the figures of the quarter ", index));
        record.SetSubject(Text(L"Review the figures with the team, part ", index));
        if (index % 2 == 0)
        {
            constexpr int kEntryIdLength = 140;
            record.SetOutlookObjectGuid(Guid(index));
            record.SetOutlookEntryId(CString(std::wstring(kEntryIdLength, L'A').c_str()));
        }
        record.SetInitialDueDate(times[index]);
        record.SetNextDueDate(times[index]);
        record.SetReminderTimeSpan(900);
        reminders.push_back(record);
    }
    return reminders;
}

Stored ReadBack(const CcvReminderData& reminder)
{
    Stored stored{std::wstring(kRemindersPath) + L"\\" + reminder.GetReminderKey().GetString(), {}};
    const RegistryKey key = RegistryKey::TryOpen(HKEY_CURRENT_USER, stored.path.c_str(), KEY_READ);
    DWORD count = 0;
    RegQueryInfoKeyW(key.Get(), nullptr, nullptr, nullptr, nullptr, nullptr, nullptr, &count, nullptr,
                     nullptr, nullptr, nullptr);
    for (const wchar_t* name : kValueNames)
    {
        Value value{name, REG_NONE, kBufferSize, std::vector<BYTE>(kBufferSize, '.')};
        if (RegQueryValueExW(key.Get(), name, nullptr, &value.type, value.bytes.data(), &value.size) ==
            ERROR_SUCCESS)
        {
            value.bytes[value.size] = '.';
            value.bytes.resize(value.size + sizeof(wchar_t));
            stored.values.push_back(std::move(value));
        }
    }
    Require(stored.values.size() == count, "the library stores values that the bare loop does not know");
    return stored;
}

void LoadBare(const Stored& stored)
{
    const HKEY key = OpenBare(stored, KEY_READ);
    for (const Value& value : stored.values)
    {
        std::array<BYTE, kBufferSize> buffer;
        DWORD size = kBufferSize;
        DWORD type = REG_NONE;
        Keep(RegQueryValueExW(key, value.name, nullptr, &type, buffer.data(), &size));
    }
    RegCloseKey(key);
}

void WriteBare(HKEY key, const std::vector<Value>& values)
{
    for (const Value& value : values)
    {
        Keep(RegSetValueExW(key, value.name, 0, value.type, value.bytes.data(), value.size));
    }
}

void SaveBare(const Stored& stored)
{
    const HKEY key = OpenBare(stored, KEY_WRITE);
    WriteBare(key, stored.values);
    RegCloseKey(key);
}

} // namespace ts::bench
