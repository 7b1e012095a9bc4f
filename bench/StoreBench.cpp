// Loading and saving reminders beside a loop that makes the same registry calls and nothing else: open the
// key, one call per value, close the key.

#include "bench/Allocations.h"
#include "bench/Patterns.h"
#include "bench/Sandbox.h"
#include "bench/Suites.h"
#include "module/RegistryPaths.h"

#include <array>
#include <cstring>
#include <stdexcept>

namespace ts::bench
{
namespace
{

constexpr char kGroup[] = "store";
constexpr std::size_t kReminders = 1000;
constexpr std::size_t kParts = 20;
constexpr std::size_t kPerPart = kReminders / kParts;

/// The largest value that the bare loop can take; longer ones do not occur in these records.
constexpr DWORD kBufferSize = 2048;

constexpr std::array<const wchar_t*, 20> kValueNames = {
    L"DocumentPath",      L"MapGuid",           L"ObjectGuid",        L"OutlookObjectGuid",
    L"OutlookEntryId",    L"DocumentTitle",     L"ObjectTitle",       L"Flags",
    L"Subject",           L"Reminder",          L"SnoozeTime",        L"InitialDueDate",
    L"RecurrenceType",    L"RecurrenceOption1", L"RecurrenceOption2", L"RecurrenceOption3",
    L"RecurrenceOption4", L"RecurrenceOption5", L"RecurrenceOption6", L"NextRecurrentDueDate"};

void Require(bool condition, const char* what)
{
    if (!condition)
    {
        throw std::runtime_error(what);
    }
}

/// A value as it is stored. Something else than a zero follows a text, because RegSetValueExW would store
/// that zero too.
struct Value
{
    const wchar_t* name;
    DWORD type;
    DWORD size;
    std::vector<BYTE> bytes;
};

struct Stored
{
    std::wstring path;
    std::vector<Value> values;
};

CString Text(const wchar_t* text, std::size_t index)
{
    return CString(text) + std::to_wstring(index).c_str();
}

CString Guid(std::size_t index)
{
    const std::wstring digits = std::to_wstring(100'000'000'000 + index);
    return CString((L"{5F3C1A90-27B4-4E6D-9C58-" + digits + L"}").c_str());
}

/// Reminders of every pattern and of none; every second one mirrors an Outlook appointment.
std::vector<CcvReminderData> MakeReminders()
{
    constexpr std::size_t kPerMap = 10;
    const std::vector<Pattern> patterns = PatternsOfEachKind();
    const std::vector<CTime> times = RandomTimes(kReminders, 2020, 2030);
    std::vector<CcvReminderData> reminders;
    for (std::size_t index = 0; index < kReminders; ++index)
    {
        const std::size_t kind = index % (patterns.size() + 1);
        CcvReminderData record = kind < patterns.size() ? patterns[kind].record : CcvReminderData(CString());
        record.SetDocumentPath(
            Text(L"C:\\Users\\Someone\\Documents\\Maps\\Projects\\Plan ", index / kPerMap));
        record.SetMapGuid(Guid(index / kPerMap));
        record.SetObjectGuid(Guid(index));
        record.SetDocumentTitle(Text(L"Plan ", index / kPerMap));
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

/// Reads what the library stored for a reminder, and makes sure that there are no values but the known ones.
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

HKEY OpenBare(const Stored& stored, REGSAM access)
{
    HKEY key = nullptr;
    Require(RegOpenKeyExW(HKEY_CURRENT_USER, stored.path.c_str(), 0, access, &key) == ERROR_SUCCESS,
            "a reminder's key is gone");
    return key;
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

void SaveBare(const Stored& stored)
{
    const HKEY key = OpenBare(stored, KEY_WRITE);
    for (const Value& value : stored.values)
    {
        Keep(RegSetValueExW(key, value.name, 0, value.type, value.bytes.data(), value.size));
    }
    RegCloseKey(key);
}

/// Calls `visit` for each item of that part.
template <typename Item, typename Visit>
void ForEachOfPart(std::vector<Item>& items, std::size_t part, Visit visit)
{
    for (std::size_t index = part * kPerPart; index < (part + 1) * kPerPart; ++index)
    {
        visit(items[index]);
    }
}

void Measure(Harness& harness, const char* name, const Work& subject, const Work& baseline,
             const std::vector<Stored>& stored)
{
    std::size_t values = 0;
    for (const Stored& one : stored)
    {
        values += one.values.size();
    }
    Comparison comparison{kGroup,   name,  "the same registry calls", "ratio <= 1.15", kReminders, subject,
                          baseline, kParts};
    comparison.mostRuns = 5;
    Result* result = harness.Measure(comparison);
    if (result == nullptr)
    {
        return;
    }
    result->notes.push_back({"values", static_cast<double>(values) / static_cast<double>(kReminders)});
    const std::uint64_t before = AllocationCount();
    subject(0);
    result->notes.push_back(
        {"allocations", static_cast<double>(AllocationCount() - before) / static_cast<double>(kPerPart)});
    result->notes.push_back({"ms for all", result->subject.median * kReminders / 1e6});
}

} // namespace

void MeasureStore(Harness& harness)
{
    constexpr char kLoad[] = "load 1,000 reminders, per reminder";
    constexpr char kSave[] = "save 1,000 reminders, per reminder";
    if (!harness.Wants(kGroup, kLoad) && !harness.Wants(kGroup, kSave))
    {
        return;
    }
    const Sandbox sandbox;
    const CString path(kRemindersPath);
    std::vector<CcvReminderData> reminders = MakeReminders();
    std::vector<CString> keys;
    std::vector<Stored> stored;
    for (CcvReminderData& reminder : reminders)
    {
        Require(reminder.SaveDataToRegistry(path), "a reminder cannot be saved");
        keys.push_back(reminder.GetReminderKey());
        stored.push_back(ReadBack(reminder));
    }
    const auto load = [&](const CString& key)
    {
        CcvReminderData record(key);
        Require(record.LoadDataFromRegistry(path), "a reminder cannot be loaded");
    };
    const auto save = [&](CcvReminderData& record)
    { Require(record.SaveDataToRegistry(path), "a reminder cannot be saved"); };
    Measure(
        harness, kLoad, [&](std::size_t part) { ForEachOfPart(keys, part, load); },
        [&](std::size_t part) { ForEachOfPart(stored, part, LoadBare); }, stored);
    Measure(
        harness, kSave, [&](std::size_t part) { ForEachOfPart(reminders, part, save); },
        [&](std::size_t part) { ForEachOfPart(stored, part, SaveBare); }, stored);
}

} // namespace ts::bench
