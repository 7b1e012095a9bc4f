#pragma once

#include <cstdint>
#include <string>

/// What stress_child does, each for one test.
namespace ts::test
{

inline constexpr int kChildDone = 0;
inline constexpr int kChildFailed = 1;

/// Changes the store through a manager for that time, with a host window of its own: writer A has the main
/// window, any other the service's. Keeps what it has found out as values of the key kReports. kChildFailed,
/// after a line on stderr, when it has met a record of its own that is not whole.
int ChangeStore(wchar_t writer, unsigned seconds, std::uint64_t seed);

/// Below HKEY_CURRENT_USER: per writer, "A changes" and "A messages", what the other process has sent to it.
inline constexpr wchar_t kReports[] = L"Software\\StressReports";

/// The map of the writer's own reminders.
[[nodiscard]] inline std::wstring OwnMap(wchar_t writer)
{
    return std::wstring(L"map ") + writer;
}

/// The map whose reminders all writers change.
inline constexpr wchar_t kSharedMap[] = L"map shared";
inline constexpr int kSharedTopics = 4;

/// Who saves until it is killed; the key that it saves again and again; the map to which it adds.
inline constexpr wchar_t kSaver = L'S';
inline constexpr wchar_t kSavedKey[] = L"{saved}";
inline constexpr wchar_t kSavedMap[] = L"saved";
inline constexpr wchar_t kAddedMap[] = L"added";

} // namespace ts::test
