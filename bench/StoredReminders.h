#pragma once

#include "bench/Harness.h"
#include "platform/WindowsHeaders.h"
#include "reminders/CcvReminderData.h"

#include <string>
#include <vector>

/// Reminders as they lie in the registry, and the bare registry calls that read and write one.
namespace ts::bench
{

/// Throws std::runtime_error unless `condition` holds.
void Require(bool condition, const char* what);

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
    std::wstring path; ///< below HKEY_CURRENT_USER
    std::vector<Value> values;
};

/// Ten reminders share a map.
inline constexpr std::size_t kRemindersPerMap = 10;

/// Reminders of every pattern and of none; every second one mirrors an Outlook appointment.
[[nodiscard]] std::vector<CcvReminderData> MakeReminders(std::size_t count);

/// Reads what the library stored for a reminder, and makes sure that there are no values but the known ones.
[[nodiscard]] Stored ReadBack(const CcvReminderData& reminder);

/// Opens the key, reads each value with one call, closes the key.
void LoadBare(const Stored& stored);
/// Writes each value into the open key with one call.
void WriteBare(HKEY key, const std::vector<Value>& values);
/// Opens the key, writes each value with one call, closes the key.
void SaveBare(const Stored& stored);

} // namespace ts::bench
