#pragma once

#include "hosts/service/ReminderService.h"
#include "tests/dialogs/reminders/RemindersDialogHarness.h"

#include <algorithm>

namespace ts::test
{

/// A service in the test's own process and thread, with the clock replaced: instead of waiting, the test sets
/// the clock to the time at which the service wakes up.
class ServiceTest : public RemindersDialogTest
{
  protected:
    ServiceTest() { RawKey(kSettingsPath).Write(L"SynchronizeOutlookAppoints", RawDword(0)); }
    ~ServiceTest() override { m_service.reset(); }

    [[nodiscard]] HWND Dialog() const override
    {
        return m_service == nullptr ? nullptr : m_service->GetAlert().GetWindow();
    }
    void Start()
    {
        m_service = std::make_unique<ts::service::ReminderService>();
        Work();
    }
    void Work() { EXPECT_TRUE(m_service->Work()); }
    /// As if the service had slept until then, or until the clock was set.
    void WakeAt(CTime now)
    {
        m_clock.Set(now);
        m_service->WakeUp();
        Work();
    }
    /// Lets the time pass until the service wakes up by itself.
    void WakeNext()
    {
        ASSERT_TRUE(m_service->GetWakeTime());
        WakeAt(*m_service->GetWakeTime());
    }
    /// A key for the window that has the focus, through the service's own loop.
    void Press(UINT key)
    {
        PostMessageW(GetFocus(), WM_KEYDOWN, key, 1);
        Work();
    }
    /// Posted as by another process.
    void Post(UINT message, WPARAM wParam = 0)
    {
        PostMessageW(ServiceWindow(), message, wParam, 0);
        Work();
    }
    [[nodiscard]] static HWND ServiceWindow() { return FindWindowW(kServiceWindowClass, nullptr); }
    /// Seconds from the clock's noon; -1 when it will not wake up.
    [[nodiscard]] std::int64_t WakeTime() const
    {
        const std::optional<CTime> time = m_service->GetWakeTime();
        return time ? (*time - Noon()).GetTimeSpan() : -1;
    }
    [[nodiscard]] static CTime At(std::int64_t seconds) { return Noon() + CTimeSpan(seconds); }
    void SelectSubject(const std::wstring& subject)
    {
        const Texts subjects = Subjects();
        const auto found = std::ranges::find(subjects, subject);
        ASSERT_NE(subjects.end(), found);
        List().SelectRow(static_cast<int>(found - subjects.begin()));
    }

    std::unique_ptr<ts::service::ReminderService> m_service;
};

} // namespace ts::test
