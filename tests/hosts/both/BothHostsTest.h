#pragma once

#include "tests/hosts/ConsoleHarness.h"
#include "tests/hosts/desktop/HostProcess.h"
#include "tests/hosts/service/ServiceProgram.h"

/// Both hosts run, on the store of the Wine prefix.
class BothHostsTest : public ServiceProgramTest
{
  protected:
    static constexpr std::int64_t kDay = 86'400;

    /// Starts both and waits until one alerts and the other lists the reminders.
    void AwaitHosts(std::size_t reminders)
    {
        ASSERT_TRUE(m_host.ShowsWindow());
        ASSERT_TRUE(WaitUntil([&] { return ListedSubjects().size() == reminders; }));
        ASSERT_TRUE(m_service.Alerts());
    }
    static std::wstring Wide(const std::string& ascii) { return {ascii.begin(), ascii.end()}; }

    // Ends before the service, as its class is asked for by name.
    ServiceProcess m_service;
    HostProcess m_host;
};
