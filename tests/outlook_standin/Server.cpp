#include "tests/outlook_standin/Server.h"

#include "tests/outlook_standin/CalendarFile.h"

#include <thread>

namespace
{

using ts::standin::CallError;
using ts::standin::ErrorForm;

// RPC_S_SERVER_UNAVAILABLE as an HRESULT: what calls to a process that has ended answer.
constexpr HRESULT kServerUnavailable = MAKE_HRESULT(SEVERITY_ERROR, FACILITY_WIN32, RPC_S_SERVER_UNAVAILABLE);

/// Whether this is the call at which the fault strikes.
template <typename Fault>
bool CountDown(std::optional<Fault>& fault)
{
    return fault && --fault->call <= 0;
}

[[noreturn]] void Fail(const ts::standin::CallFailure& failure)
{
    throw CallError(failure.error, "The stand-in was told to fail.", failure.form);
}

} // namespace

ts::standin::Server::Server(std::filesystem::path folder) : m_folder(std::move(folder))
{
    if (!m_folder.empty())
    {
        m_calendar = LoadCalendar(m_folder);
    }
}

void ts::standin::Server::SetFaults(const Faults& faults)
{
    const std::scoped_lock lock(m_mutex);
    m_faults = faults;
    m_dead = false;
}

std::vector<ts::standin::Call> ts::standin::Server::GetCalls() const
{
    const std::scoped_lock lock(m_mutex);
    return m_calls;
}

void ts::standin::Server::ClearCalls()
{
    const std::scoped_lock lock(m_mutex);
    m_calls.clear();
}

void ts::standin::Server::Activate()
{
    if (m_hooks.beforeCall)
    {
        m_hooks.beforeCall();
    }
    const std::scoped_lock lock(m_mutex);
    if (m_dead)
    {
        throw CallError(kServerUnavailable, "The stand-in has ended.", ErrorForm::Direct);
    }
    WriteDown({L"Application", L"activate", L"", L""});
    if (m_faults.refuseActivation)
    {
        throw CallError(*m_faults.refuseActivation, "Activation is refused.", ErrorForm::Direct);
    }
}

std::function<void()> ts::standin::Server::BeginCall(const Call& call)
{
    if (m_hooks.beforeCall)
    {
        m_hooks.beforeCall();
    }
    std::unique_lock lock(m_mutex);
    if (m_dead)
    {
        throw CallError(kServerUnavailable, "The stand-in has ended.", ErrorForm::Direct);
    }
    WriteDown(call);
    const auto delay = m_faults.delayPerCall;
    const std::optional<CallFailure> failure = CountDownFailure();
    const std::optional<Death> death = CountDownDeath();
    lock.unlock();
    std::this_thread::sleep_for(delay);
    if (death && death->moment == Moment::BeforeWork)
    {
        Die();
    }
    if (failure && failure->moment == Moment::BeforeWork)
    {
        Fail(*failure);
    }
    return [this, failure, death]
    {
        if (death)
        {
            Die();
        }
        if (failure)
        {
            Fail(*failure);
        }
    };
}

void ts::standin::Server::CheckLookUp(const std::wstring& kind, const std::wstring& member) const
{
    const std::scoped_lock lock(m_mutex);
    if (m_dead)
    {
        throw CallError(kServerUnavailable, "The stand-in has ended.", ErrorForm::Direct);
    }
    if (m_faults.unknownMember == kind + L"." + member)
    {
        throw CallError(DISP_E_UNKNOWNNAME, "This name is not to be found.", ErrorForm::Direct);
    }
}

bool ts::standin::Server::HasInterface(const std::wstring& kind) const
{
    const std::scoped_lock lock(m_mutex);
    return m_faults.withoutInterface != kind;
}

void ts::standin::Server::CountObject(long difference) noexcept
{
    const long count = m_liveObjects += difference;
    if (m_hooks.onLiveObjects)
    {
        m_hooks.onLiveObjects(count);
    }
}

void ts::standin::Server::Save() const
{
    if (!m_folder.empty())
    {
        SaveCalendar(m_folder, m_calendar);
    }
}

void ts::standin::Server::WriteDown(const Call& call)
{
    m_calls.push_back(call);
    if (m_hooks.onCall)
    {
        m_hooks.onCall(call);
    }
}

std::optional<ts::standin::CallFailure> ts::standin::Server::CountDownFailure()
{
    if (!CountDown(m_faults.failure))
    {
        return std::nullopt;
    }
    const CallFailure failure = *m_faults.failure;
    if (!failure.andAllLater)
    {
        m_faults.failure.reset();
    }
    return failure;
}

std::optional<ts::standin::Death> ts::standin::Server::CountDownDeath()
{
    if (!CountDown(m_faults.death))
    {
        return std::nullopt;
    }
    return std::exchange(m_faults.death, std::nullopt);
}

void ts::standin::Server::Die()
{
    if (m_hooks.die)
    {
        m_hooks.die();
    }
    const std::scoped_lock lock(m_mutex);
    m_dead = true;
    throw CallError(kServerUnavailable, "The stand-in ends in the middle of a call.", ErrorForm::Direct);
}
