#include "CommandLine.h"
#include "Commands.h"
#include "DisplayText.h"
#include "InterruptEvent.h"
#include "Store.h"
#include "Strings.h"
#include "TimeText.h"
#include "WatchWindow.h"
#include "hosts/common/DueWatch.h"

#include <algorithm>

namespace ts::console
{
namespace
{

/// So long at most it sleeps: what no message tells of, such as another clock, shows after it.
constexpr DWORD kLongestSleepMilliseconds = 60'000;

std::string CountText(std::size_t count)
{
    return std::to_string(count) + (count == 1 ? " reminder" : " reminders");
}

void PrintDue(const hosts::DueReminder& due, const Session& session)
{
    const CcvReminderData& reminder = due.reminder;
    session.out << "Due " << ShortTime(due.due.value_or(CTime())) << "  "
                << Printable(FromLibrary(reminder.GetSubject())) << "  "
                << Printable(FromLibrary(reminder.GetReminderKey())) << "\n";
}

DWORD SleepUntilNext(const std::vector<CcvReminderData>& reminders, CTime now)
{
    constexpr std::int64_t kMillisecondsInSecond = 1000;
    const auto next = hosts::DueWatch::NextTime(reminders, now);
    const std::int64_t seconds = next ? (*next - now).GetTimeSpan() : kLongestSleepMilliseconds;
    return static_cast<DWORD>(std::min<std::int64_t>(
        std::min<std::int64_t>(seconds, kLongestSleepMilliseconds) * kMillisecondsInSecond,
        kLongestSleepMilliseconds));
}

void TellStart(const std::vector<CcvReminderData>& reminders, std::size_t due, const WatchWindow& window,
               const Session& session)
{
    if (window.IsBehindAnother())
    {
        session.err
            << "reminders: another reminder service runs and is told of changes instead; here they show "
               "within a minute\n";
        session.err.flush();
    }
    session.out << "Watching " << CountText(reminders.size()) << ", " << due
                << " due already. Ctrl+C ends.\n";
    session.out.flush();
}

void RunWatch(const Session& session)
{
    const InterruptEvent interrupt;
    // Before the reminders are loaded, so that no change is missed.
    WatchWindow window;
    Store store;
    hosts::DueWatch watch;
    std::vector<CcvReminderData> reminders = store.All();
    CTime now = CTime::GetCurrentTime();
    TellStart(reminders, watch.Look(reminders, now).size(), window, session);
    // An output that nobody reads any more ends it, too.
    while (session.out && window.Wait(interrupt.Get(), SleepUntilNext(reminders, now)))
    {
        store.Reload();
        reminders = store.All();
        now = CTime::GetCurrentTime();
        for (int changes = window.TakeChanges(); changes > 0; --changes)
        {
            session.out << "Changed " << ShortTime(now) << "  " << CountText(reminders.size()) << "\n";
        }
        for (const hosts::DueReminder& due : watch.Look(reminders, now))
        {
            PrintDue(due, session);
        }
        session.out.flush();
    }
}

} // namespace

void AddWatchCommand(CLI::App& app, Session& session)
{
    CLI::App* watch = AddCommand(
        app, "watch", "Print reminders as they become due, and changes of other programs", "reminders watch");
    watch->callback([&session] { RunWatch(session); });
}

} // namespace ts::console
