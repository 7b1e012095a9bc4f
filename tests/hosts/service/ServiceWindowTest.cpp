// What the service's window answers and does itself when the system tells of a change.

#include "hosts/common/ServiceWindow.h"
#include "tests/support/WindowDriver.h"

#include <cstdlib>
#include <ctime>
#include <gtest/gtest.h>
#include <vector>

namespace
{

using ts::hosts::ServiceEvent;

class ServiceWindowTest : public testing::Test
{
  protected:
    static LRESULT Send(UINT message, WPARAM wParam)
    {
        return SendMessageW(FindWindowW(nullptr, L"ServiceWindowTest"), message, wParam, 0);
    }

    std::vector<ServiceEvent> m_events;
    ts::hosts::ServiceWindow m_window{L"ServiceWindowTest",
                                      [this](ServiceEvent event) { m_events.push_back(event); }};
};

} // namespace

TEST_F(ServiceWindowTest, PowerEvents_AreGranted)
{
    EXPECT_EQ(TRUE, Send(WM_POWERBROADCAST, PBT_APMRESUMEAUTOMATIC));
    EXPECT_EQ(std::vector{ServiceEvent::TimeChanged}, m_events);
    EXPECT_EQ(0, Send(WM_TIMECHANGE, 0));
}

TEST_F(ServiceWindowTest, EndOfTheSession_IsToldOnlyWhenItEnds)
{
    EXPECT_EQ(0, Send(WM_ENDSESSION, FALSE));
    EXPECT_TRUE(m_events.empty());
    EXPECT_EQ(0, Send(WM_ENDSESSION, TRUE));
    EXPECT_EQ(std::vector{ServiceEvent::SessionEnds}, m_events);
}

TEST_F(ServiceWindowTest, ChangeOfTheTime_TakesOnAnotherZone)
{
    static constexpr __time64_t kNoon = 1'795'262'400;
    const auto localHour = []
    {
        std::tm local{};
        EXPECT_EQ(0, _localtime64_s(&local, &kNoon));
        return local.tm_hour;
    };
    _putenv("TZ=AAA-5");
    _tzset();
    const int before = localHour();
    _putenv("TZ=BBB-7");
    EXPECT_EQ(before, localHour()) << "the runtime keeps the zone that it found";
    Send(WM_TIMECHANGE, 0);
    EXPECT_EQ((before + 2) % 24, localHour());
    _putenv("TZ=");
    _tzset();
}
