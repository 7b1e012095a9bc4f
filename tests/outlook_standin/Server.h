#pragma once

#include "tests/outlook_standin/Calendar.h"
#include "tests/outlook_standin/Call.h"
#include "tests/outlook_standin/Faults.h"

#include <atomic>
#include <filesystem>
#include <functional>
#include <memory>
#include <mutex>
#include <vector>

namespace ts::standin
{

/// What all objects of one stand-in share: the calendar, the log of calls, the faults, and the count of
/// objects that clients hold. Safe to use from several threads.
class Server
{
  public:
    /// With a folder the calendar is kept in a file there, else in memory only. Throws like LoadCalendar.
    explicit Server(std::filesystem::path folder);

    /// What `look` makes of the calendar, which nobody changes meanwhile.
    template <typename Look>
    auto Read(const Look& look)
    {
        const std::scoped_lock lock(m_mutex);
        return look(m_calendar);
    }

    /// Like Read, and saves what `change` did.
    template <typename Change>
    auto Write(const Change& change)
    {
        const std::scoped_lock lock(m_mutex);
        const SaveAtEnd save(*this);
        return change(m_calendar);
    }

    void SetFaults(const Faults& faults);
    [[nodiscard]] std::vector<Call> GetCalls() const;
    void ClearCalls();
    [[nodiscard]] long GetLiveObjects() const noexcept { return m_liveObjects; }

    // For the program that serves other processes; set before the first call.
    struct Hooks
    {
        std::function<void()> beforeCall;
        std::function<void(const Call&)> onCall;
        std::function<void(long)> onLiveObjects;
        std::function<void()> die;
    };
    void SetHooks(Hooks hooks) { m_hooks = std::move(hooks); }

    // For the objects.
    void Activate();
    /// Writes the call down, waits as long as a call is to take, and throws CallError when it is to fail.
    /// What is to happen once the call's work is done is the result.
    [[nodiscard]] std::function<void()> BeginCall(const Call& call);
    void CheckLookUp(const std::wstring& kind, const std::wstring& member) const;
    [[nodiscard]] bool HasInterface(const std::wstring& kind) const;
    void CountObject(long difference) noexcept;

  private:
    class SaveAtEnd
    {
      public:
        explicit SaveAtEnd(Server& server) noexcept : m_server(&server) {}
        SaveAtEnd(const SaveAtEnd&) = delete;
        SaveAtEnd& operator=(const SaveAtEnd&) = delete;
        // What cannot be saved must be seen: the test or the server ends with it.
        ~SaveAtEnd() noexcept { m_server->Save(); }

      private:
        Server* m_server;
    };

    void Save() const;
    void WriteDown(const Call& call);
    std::optional<CallFailure> CountDownFailure();
    std::optional<Death> CountDownDeath();
    void Die();

    mutable std::mutex m_mutex;
    std::filesystem::path m_folder;
    Calendar m_calendar;
    Faults m_faults;
    std::vector<Call> m_calls;
    std::atomic<long> m_liveObjects{0};
    bool m_dead = false;
    Hooks m_hooks;
};

} // namespace ts::standin
