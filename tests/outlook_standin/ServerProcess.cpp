#include "tests/outlook_standin/ServerProcess.h"

#include "platform/KernelHandle.h"
#include "tests/outlook_standin/ClassFactory.h"
#include "tests/outlook_standin/ControlFile.h"

#include <atomic>
#include <chrono>
#include <optional>
#include <thread>

namespace
{

using namespace ts::standin;
using Clock = std::chrono::steady_clock;
using namespace std::chrono_literals;

// Activation that finds nobody after the start was given up.
constexpr auto kPatienceAtStart = 10s;
// After the class was revoked, somebody may still hold on to it.
constexpr auto kFarewell = 50ms;
constexpr auto kLongestSilence = 120s;
constexpr DWORD kTick = 20;
constexpr DWORD kTimeToEnd = 5000;
constexpr UINT kExitCodeOfDeath = 70;
constexpr UINT kExitCodeOfWatchdog = 71;

/// What happened last, as the server's threads see it.
struct Activity
{
    std::atomic<Clock::time_point> last{Clock::now()};
    std::atomic<bool> wasActivated{false};

    void Note() { last = Clock::now(); }
    [[nodiscard]] Clock::duration Silence() const { return Clock::now() - last.load(); }
};

/// Answers calls for at most one tick. False when the process is to end. Whatever arrives may be the
/// beginning of an activation, which must not meet a server that is just ending.
bool PumpMessages(Activity& activity)
{
    MsgWaitForMultipleObjects(0, nullptr, FALSE, kTick, QS_ALLINPUT);
    MSG message{};
    while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE) != FALSE)
    {
        if (message.message == WM_QUIT)
        {
            return false;
        }
        activity.Note();
        DispatchMessageW(&message);
    }
    return true;
}

bool IsUnused(const Server& server, const Activity& activity, Clock::duration linger)
{
    const Clock::duration patience = activity.wasActivated ? linger : kPatienceAtStart;
    return server.GetLiveObjects() <= 0 && activity.Silence() > patience;
}

/// Ends the process when its owner is gone or nobody calls any more.
class Watchdog
{
  public:
    Watchdog(unsigned long owner, const Activity& activity)
        : m_owner(owner != 0 ? OpenProcess(SYNCHRONIZE, FALSE, owner) : nullptr),
          m_isOrphan(owner != 0 && m_owner == nullptr), m_activity(&activity),
          m_serverThread(GetCurrentThreadId()), m_thread([this] { Watch(); })
    {
    }
    Watchdog(const Watchdog&) = delete;
    Watchdog& operator=(const Watchdog&) = delete;
    ~Watchdog()
    {
        m_isDone = true;
        m_thread.join();
    }

  private:
    bool IsTimeToEnd()
    {
        const bool ownerEnded = m_owner != nullptr && WaitForSingleObject(m_owner.get(), 0) == WAIT_OBJECT_0;
        return ownerEnded || m_isOrphan || m_activity->Silence() > kLongestSilence;
    }

    void Watch() noexcept
    {
        while (!IsTimeToEnd())
        {
            Sleep(kTick);
            if (m_isDone)
            {
                return;
            }
        }
        PostThreadMessageW(m_serverThread, WM_QUIT, 0, 0);
        for (DWORD waited = 0; waited < kTimeToEnd && !m_isDone; waited += kTick)
        {
            Sleep(kTick);
        }
        if (!m_isDone)
        {
            TerminateProcess(GetCurrentProcess(), kExitCodeOfWatchdog);
        }
    }

    ts::KernelHandle m_owner;
    bool m_isOrphan;
    const Activity* m_activity;
    DWORD m_serverThread;
    std::atomic<bool> m_isDone{false};
    std::thread m_thread;
};

Server::Hooks MakeHooks(Server& server, ControlFile& control, Activity& activity,
                        std::optional<ClassRegistration>& registration)
{
    Server::Hooks hooks;
    hooks.beforeCall = [&]
    {
        activity.Note();
        control.Follow(server);
    };
    hooks.onCall = [&](const Call& call)
    {
        activity.wasActivated = true;
        control.WriteDown(call);
    };
    hooks.onLiveObjects = [&](long count)
    {
        activity.Note();
        control.WriteLiveObjects(count);
    };
    hooks.die = [&]
    {
        // A class that is left behind would break every later activation, until Wine's server is restarted.
        registration->Revoke();
        TerminateProcess(GetCurrentProcess(), kExitCodeOfDeath);
    };
    return hooks;
}

/// Until nobody needs the server any more, or it is told to end.
void ServeClients(Server& server, ControlFile& control, Activity& activity, ClassRegistration& registration)
{
    while (!IsUnused(server, activity, control.GetLinger()))
    {
        if (!PumpMessages(activity))
        {
            return;
        }
        control.Follow(server);
    }
    registration.Revoke();
    activity.Note();
    while (!IsUnused(server, activity, kFarewell) && PumpMessages(activity))
    {
    }
}

} // namespace

int ts::standin::Serve(const std::filesystem::path& folder, unsigned long owner)
{
    const auto server = std::make_shared<Server>(folder);
    ControlFile control(folder);
    Activity activity;
    const Watchdog watchdog(owner, activity);
    std::optional<ClassRegistration> registration;
    server->SetHooks(MakeHooks(*server, control, activity, registration));
    registration.emplace(server);
    ServeClients(*server, control, activity, *registration);
    registration.reset();
    // Objects that nobody released outlive what the hooks refer to.
    server->SetHooks({});
    return 0;
}
