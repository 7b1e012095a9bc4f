// Loading and saving reminders beside a loop that makes the same registry calls and nothing else: open the
// key, one call per value, close the key.

#include "bench/Allocations.h"
#include "bench/Sandbox.h"
#include "bench/StoredReminders.h"
#include "bench/Suites.h"
#include "module/RegistryPaths.h"

namespace ts::bench
{
namespace
{

constexpr char kGroup[] = "store";
constexpr std::size_t kReminders = 1000;
constexpr std::size_t kParts = 20;
constexpr std::size_t kPerPart = kReminders / kParts;

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
    std::vector<CcvReminderData> reminders = MakeReminders(kReminders);
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
