// The collection manager: loading all reminders, finding one, changing one. Loading and changing are measured
// beside loops that make the same registry calls and nothing else, finding beside a loop over plain strings.

#include "bench/Allocations.h"
#include "bench/Sandbox.h"
#include "bench/StoredReminders.h"
#include "bench/Suites.h"
#include "collection/CcvReminderDataCollectionManager.h"
#include "module/RegistryPaths.h"

#include <algorithm>
#include <array>
#include <memory>
#include <numeric>

namespace ts::bench
{
namespace
{

constexpr char kLoadGroup[] = "collection, load";
constexpr char kFindGroup[] = "collection, find";
constexpr char kChangeGroup[] = "collection, change";

/// A topic in plain strings.
struct Topic
{
    std::wstring documentPath;
    std::wstring mapGuid;
    std::wstring objectGuid;
    std::wstring outlookObjectGuid;
};

std::wstring Plain(const CString& text)
{
    return {text.GetString(), static_cast<std::size_t>(text.GetLength())};
}

std::vector<std::unique_ptr<Topic>> TopicsOf(const std::vector<CcvReminderData>& reminders)
{
    std::vector<std::unique_ptr<Topic>> topics;
    topics.reserve(reminders.size());
    for (const CcvReminderData& reminder : reminders)
    {
        topics.push_back(std::make_unique<Topic>(
            Topic{Plain(reminder.GetDocumentPath()), Plain(reminder.GetMapGuid()),
                  Plain(reminder.GetObjectGuid()), Plain(reminder.GetOutlookObjectGuid())}));
    }
    return topics;
}

HKEY OpenStore(REGSAM access)
{
    HKEY store = nullptr;
    Require(RegOpenKeyExW(HKEY_CURRENT_USER, kRemindersPath, 0, access, &store) == ERROR_SUCCESS,
            "the reminders' key is gone");
    return store;
}

/// Enumerates the keys and loads each; `stored` is in the order of the enumeration.
void LoadAllBare(const std::vector<Stored>& stored)
{
    const HKEY store = OpenStore(KEY_READ);
    std::array<wchar_t, 257> name;
    for (DWORD index = 0;; ++index)
    {
        auto length = static_cast<DWORD>(name.size());
        if (RegEnumKeyExW(store, index, name.data(), &length, nullptr, nullptr, nullptr, nullptr) !=
            ERROR_SUCCESS)
        {
            break;
        }
        LoadBare(stored[index]);
    }
    RegCloseKey(store);
}

std::size_t ValuesIn(const std::vector<Stored>& stored)
{
    return std::accumulate(stored.begin(), stored.end(), std::size_t{0},
                           [](std::size_t sum, const Stored& one) { return sum + one.values.size(); });
}

/// The allocations of one call of `work`.
double AllocationsOf(const Work& work)
{
    const std::uint64_t before = AllocationCount();
    work(0);
    return static_cast<double>(AllocationCount() - before);
}

// --- Loading ---

void MeasureLoad(Harness& harness, const std::string& name, const std::vector<Stored>& stored)
{
    const std::size_t count = stored.size();
    Comparison comparison{kLoadGroup,
                          name,
                          "the same registry calls",
                          "ratio <= 1.15",
                          count,
                          [count](std::size_t)
                          {
                              const CcvReminderDataCollectionManager manager(false);
                              Require(manager.GetRemindersCount() == static_cast<int>(count),
                                      "reminders are missing");
                          },
                          [&stored](std::size_t) { LoadAllBare(stored); }};
    // A load cannot be cut into parts that take turns, so more runs must quieten it.
    comparison.mostRuns = count <= 1000 ? 21 : 5;
    if (Result* result = harness.Measure(comparison))
    {
        const auto reminders = static_cast<double>(count);
        result->notes.push_back({"values", static_cast<double>(ValuesIn(stored)) / reminders});
        result->notes.push_back({"allocations", AllocationsOf(comparison.subject) / reminders});
        result->notes.push_back({"ms for all", result->subject.median * reminders / 1e6});
    }
}

// --- Finding ---

/// A lookup that must walk the whole collection, and the same walk over plain strings.
void MeasureFind(Harness& harness, const std::string& name, std::size_t count, const Work& subject,
                 const Work& baseline)
{
    if (Result* result = harness.Measure({kFindGroup, name, "a loop over plain strings",
                                          "no allocation per element", count, subject, baseline}))
    {
        result->notes.push_back({"allocations per lookup", AllocationsOf(subject)});
        result->notes.push_back({"us per lookup", result->subject.median * static_cast<double>(count) / 1e3});
    }
}

/// Looks for reminders that are not there, each in a map that is.
class Lookups
{
  public:
    Lookups(CcvReminderDataCollectionManager& manager, const std::vector<CcvReminderData>& reminders)
        : m_manager(manager), m_topics(TopicsOf(reminders)), m_absent(reminders[reminders.size() / 2]),
          m_documentPath(m_absent.GetDocumentPath()), m_mapGuid(m_absent.GetMapGuid())
    {
        m_absent.SetObjectGuid(m_absentGuid);
        m_plain = {Plain(m_documentPath), Plain(m_mapGuid), Plain(m_absentGuid), Plain(m_absentGuid)};
    }

    void Measure(Harness& harness, const std::string& size)
    {
        const Work byTopic = [this](std::size_t) { Keep(CountByTopic()); };
        MeasureFind(
            harness, "by GUIDs, " + size, m_topics.size(), [this](std::size_t) { FindByGuid(); }, byTopic);
        MeasureFind(
            harness, "index by topic, " + size, m_topics.size(), [this](std::size_t) { FindIndex(); },
            byTopic);
        MeasureFind(
            harness, "by Outlook's GUID, " + size, m_topics.size(),
            [this](std::size_t) { FindByOutlookGuid(); },
            [this](std::size_t) { Keep(CountByOutlookGuid()); });
    }

  private:
    void FindByGuid()
    {
        Require(m_manager.GetReminderByGuid(m_documentPath, m_mapGuid, m_absentGuid) == nullptr,
                "found a reminder that is not there");
    }

    /// Deleting first asks for the index, and ends when there is none.
    void FindIndex()
    {
        Require(!m_manager.DeleteReminder(&m_absent, false), "deleted a reminder that is not there");
    }

    void FindByOutlookGuid()
    {
        Require(m_manager.GetReminderByOutlookObjectGuid(m_absentGuid) == nullptr,
                "found a reminder that is not there");
    }

    [[nodiscard]] std::int64_t CountByTopic() const
    {
        std::int64_t found = 0;
        for (const std::unique_ptr<Topic>& topic : m_topics)
        {
            found += topic->documentPath == m_plain.documentPath && topic->mapGuid == m_plain.mapGuid &&
                             topic->objectGuid == m_plain.objectGuid
                         ? 1
                         : 0;
        }
        return found;
    }

    [[nodiscard]] std::int64_t CountByOutlookGuid() const
    {
        std::int64_t found = 0;
        for (const std::unique_ptr<Topic>& topic : m_topics)
        {
            found += topic->outlookObjectGuid == m_plain.outlookObjectGuid ? 1 : 0;
        }
        return found;
    }

    CcvReminderDataCollectionManager& m_manager;
    std::vector<std::unique_ptr<Topic>> m_topics;
    const CString m_absentGuid = L"{5F3C1A90-27B4-4E6D-9C58-199999999999}";
    CcvReminderData m_absent;
    CString m_documentPath;
    CString m_mapGuid;
    Topic m_plain;
};

// --- A store of many reminders ---

std::vector<CcvReminderData> SaveReminders(std::size_t count)
{
    std::vector<CcvReminderData> reminders = MakeReminders(count);
    for (CcvReminderData& reminder : reminders)
    {
        Require(reminder.SaveDataToRegistry(kRemindersPath), "a reminder cannot be saved");
    }
    return reminders;
}

/// What is stored, in the order in which the manager has loaded it.
std::vector<Stored> StoredInOrder(const CcvReminderDataCollectionManager& manager)
{
    std::vector<Stored> stored;
    stored.reserve(static_cast<std::size_t>(manager.GetRemindersCount()));
    for (int index = 0; index < manager.GetRemindersCount(); ++index)
    {
        stored.push_back(ReadBack(*manager.GetReminderByIndex(index)));
    }
    return stored;
}

void MeasureStoreOf(Harness& harness, std::size_t count, const std::string& size)
{
    const std::string load = size + " reminders, per reminder";
    const bool wantsLoad = harness.Wants(kLoadGroup, load);
    bool wantsFind = false;
    for (const char* what : {"by GUIDs, ", "index by topic, ", "by Outlook's GUID, "})
    {
        wantsFind = wantsFind || harness.Wants(kFindGroup, what + size);
    }
    if (!wantsLoad && !wantsFind)
    {
        return;
    }
    const Sandbox sandbox;
    const std::vector<CcvReminderData> reminders = SaveReminders(count);
    CcvReminderDataCollectionManager manager(false);
    if (wantsLoad)
    {
        MeasureLoad(harness, load, StoredInOrder(manager));
    }
    Lookups(manager, reminders).Measure(harness, size);
}

// --- Changes ---

constexpr std::size_t kChanged = 20;

/// Reminders with a map of their own each, so that a second key of the map is found at the second try.
std::vector<CcvReminderData> RemindersOfManyMaps()
{
    std::vector<CcvReminderData> reminders = MakeReminders(kChanged);
    for (std::size_t index = 0; index < kChanged; ++index)
    {
        reminders[index].SetMapGuid((L"{map " + std::to_wstring(index) + L"}").c_str());
    }
    return reminders;
}

/// Tries the names of the map's first two keys, creates and writes the second, deletes it.
void AddAndDeleteBare(const Stored& first)
{
    std::wstring second = first.path;
    second.replace(second.rfind(L'0'), 1, 1, L'1');
    HKEY key = nullptr;
    Require(RegOpenKeyExW(HKEY_CURRENT_USER, first.path.c_str(), 0, KEY_READ, &key) == ERROR_SUCCESS,
            "a reminder's key is gone");
    RegCloseKey(key);
    Keep(RegOpenKeyExW(HKEY_CURRENT_USER, second.c_str(), 0, KEY_READ, &key));
    Keep(RegOpenKeyExW(HKEY_CURRENT_USER, second.c_str(), 0, KEY_WRITE, &key));
    Require(RegCreateKeyW(HKEY_CURRENT_USER, second.c_str(), &key) == ERROR_SUCCESS,
            "a key cannot be created");
    WriteBare(key, first.values);
    RegCloseKey(key);
    const HKEY store = OpenStore(KEY_ALL_ACCESS);
    Require(RegDeleteTreeW(store, second.substr(second.rfind(L'\\') + 1).c_str()) == ERROR_SUCCESS,
            "a key cannot be deleted");
    RegCloseKey(store);
}

void MeasureChange(Harness& harness, const char* name, const char* baselineIs, const Work& subject,
                   const Work& baseline)
{
    if (Result* result = harness.Measure(
            {kChangeGroup, name, baselineIs, "two searches for a window more", kChanged, subject, baseline}))
    {
        result->notes.push_back({"allocations", AllocationsOf(subject) / static_cast<double>(kChanged)});
    }
}

template <typename Change>
Work ForEach(std::vector<CcvReminderData>& reminders, Change change)
{
    return [&reminders, change](std::size_t)
    {
        for (CcvReminderData& reminder : reminders)
        {
            Require(change(reminder), "a change failed");
        }
    };
}

void MeasureChanges(Harness& harness)
{
    constexpr char kAdd[] = "add and delete, per reminder";
    constexpr char kModify[] = "modify, per reminder";
    constexpr char kSnooze[] = "snooze, per reminder";
    constexpr char kWrites[] = "the same registry writes";
    if (!harness.Wants(kChangeGroup, kAdd) && !harness.Wants(kChangeGroup, kModify) &&
        !harness.Wants(kChangeGroup, kSnooze))
    {
        return;
    }
    const Sandbox sandbox;
    std::vector<CcvReminderData> unsaved = RemindersOfManyMaps();
    std::vector<CcvReminderData> reminders = unsaved;
    std::vector<Stored> stored;
    for (CcvReminderData& reminder : reminders)
    {
        Require(reminder.SaveDataToRegistry(kRemindersPath), "a reminder cannot be saved");
        stored.push_back(ReadBack(reminder));
    }
    CcvReminderDataCollectionManager manager(false);
    const auto saveBare = [&stored](std::size_t) { std::ranges::for_each(stored, SaveBare); };
    const auto addAndDelete = [&manager](const CcvReminderData& reminder)
    {
        CcvReminderData added(reminder);
        return manager.AddReminder(&added, true) && manager.DeleteReminder(&added, true);
    };
    MeasureChange(harness, kModify, kWrites,
                  ForEach(reminders, [&manager](CcvReminderData& reminder)
                          { return manager.ModifyReminder(&reminder, true); }),
                  saveBare);
    MeasureChange(harness, kSnooze, kWrites,
                  ForEach(reminders, [&manager](CcvReminderData& reminder)
                          { return manager.SnoozeReminder(&reminder, CTimeSpan(600)); }),
                  saveBare);
    MeasureChange(harness, kAdd, "the same registry calls", ForEach(unsaved, addAndDelete),
                  [&stored](std::size_t) { std::ranges::for_each(stored, AddAndDeleteBare); });
}

} // namespace

void MeasureCollection(Harness& harness)
{
    MeasureChanges(harness);
    MeasureStoreOf(harness, 1000, "1,000");
    MeasureStoreOf(harness, 10'000, "10,000");
}

} // namespace ts::bench
