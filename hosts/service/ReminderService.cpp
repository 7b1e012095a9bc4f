#include "ReminderService.h"

#include "hosts/common/Collection.h"

#include <algorithm>
#include <utility>

namespace ts::service
{
namespace
{

/// How long Outlook is waited for at the end. Windows grants a closing session little more.
constexpr DWORD kOutlookPatience = 4'000;

/// When to try again to show an alert that could not be shown.
constexpr CTimeSpan kRetry(60);

} // namespace

ReminderService::ReminderService()
    : m_window(std::make_unique<hosts::ServiceWindow>(kWindowTitle,
                                                      [this](hosts::ServiceEvent event) { Take(event); })),
      m_manager(std::make_unique<CcvReminderDataCollectionManager>(true)),
      m_alert(std::make_unique<Alert>(*m_manager))
{
    Reload();
}

ReminderService::~ReminderService()
{
    m_alert.reset();
    m_window.reset();
    if (!m_manager->WaitForOutlookCommands(kOutlookPatience))
    {
        hosts::Abandon(std::move(m_manager));
    }
}

void ReminderService::Run()
{
    while (Work())
    {
        const HANDLE timer = m_timer.GetHandle();
        const DWORD reason =
            MsgWaitForMultipleObjectsEx(1, &timer, INFINITE, QS_ALLINPUT, MWMO_INPUTAVAILABLE);
        if (reason == WAIT_OBJECT_0)
        {
            WakeUp();
        }
    }
}

bool ReminderService::Work()
{
    HandleMessages();
    // An alert that was closed has changed what is due, or was not meant to be closed by what came late.
    m_mustLook = m_alert->Release() || m_mustLook;
    // Opening the alert may let further changes of other processes through.
    while (!m_ends && (m_mustReload || m_mustLook))
    {
        Look();
        if (std::exchange(m_mustBringToFront, false))
        {
            m_alert->BringToFront();
        }
    }
    return !m_ends;
}

void ReminderService::HandleMessages()
{
    MSG message{};
    while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE) != FALSE)
    {
        m_ends = m_ends || message.message == WM_QUIT;
        if (!m_alert->Translate(message))
        {
            TranslateMessage(&message);
            DispatchMessageW(&message);
        }
        // A next alert must not take the closed one's messages.
        m_mustLook = m_alert->Release() || m_mustLook;
    }
}

void ReminderService::Look()
{
    m_mustLook = false;
    if (std::exchange(m_mustReload, false))
    {
        Reload();
    }
    const CTime now = CTime::GetCurrentTime();
    const std::vector<CcvReminderData> reminders = LoadedReminders();
    std::optional<CTime> next = hosts::DueWatch::NextTime(reminders, now);
    if (!m_watch.Look(reminders, now).empty() && !m_alert->Show())
    {
        m_watch.Forget();
        next = next ? std::min(*next, now + kRetry) : now + kRetry;
    }
    m_timer.Set(next);
}

void ReminderService::Reload()
{
    m_manager->UpdateReminderCollection();
    for (int index = 0; index < m_manager->GetRemindersCount(); ++index)
    {
        hosts::EnsureLoaded(*m_manager->GetReminderByIndex(index));
    }
    // It still shows records that are gone now.
    m_alert->Refresh();
}

std::vector<CcvReminderData> ReminderService::LoadedReminders() const
{
    std::vector<CcvReminderData> reminders;
    reminders.reserve(static_cast<std::size_t>(m_manager->GetRemindersCount()));
    for (int index = 0; index < m_manager->GetRemindersCount(); ++index)
    {
        reminders.push_back(*m_manager->GetReminderByIndex(index));
    }
    return reminders;
}

void ReminderService::Take(hosts::ServiceEvent event)
{
    using enum hosts::ServiceEvent;
    switch (event)
    {
    case StoreChanged:
        if (m_alert != nullptr)
        {
            Reload();
        }
        m_mustLook = true;
        break;
    case TimeChanged:
        m_mustReload = true;
        break;
    case ShowRequested:
        m_watch.Forget();
        m_mustLook = true;
        m_mustBringToFront = true;
        break;
    case SessionEnds:
        if (m_manager != nullptr)
        {
            m_manager->WaitForOutlookCommands(kOutlookPatience);
        }
        [[fallthrough]];
    case CloseRequested:
        m_ends = true;
        // Loops inside, of a message box for example, end with it.
        PostQuitMessage(0);
        break;
    }
}

} // namespace ts::service
