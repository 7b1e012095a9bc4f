// The runtime applies one rule to all years, such as "the first Sunday of September at 0:00". So the day that
// it gives depends only on the weekday of 1 January and on whether the year is a leap year: fourteen kinds of
// years, and each needs to be searched once per zone.

#include "reminders/SkippedMidnights.h"

#include "platform/mfc/atltime.h"
#include "reminders/LocalCalendar.h"

#include <array>
#include <atomic>
#include <chrono>
#include <mutex>
#include <optional>

namespace
{

using ts::SkippedMidnight;

SkippedMidnight Search(int year)
{
    for (int month = 1; month <= 12; ++month)
    {
        for (int day = 1; day <= ts::DaysInMonth(month, year); ++day)
        {
            if (CTime(year, month, day, 0, 0, 0).GetDay() != day)
            {
                return {month, day};
            }
        }
    }
    return {};
}

/// 0 to 13.
std::size_t KindOf(int year)
{
    using namespace std::chrono;
    const auto civilYear = std::chrono::year(year);
    return weekday(sys_days(civilYear / January / 1)).c_encoding() * 2U + (civilYear.is_leap() ? 1U : 0U);
}

/// A number that changes when the runtime takes on another zone. Never 0.
std::uint64_t ZoneSignature()
{
    constexpr std::uint64_t kPrime = 0x100000001B3;
    auto signature = static_cast<std::uint64_t>(_timezone) * kPrime ^ static_cast<std::uint64_t>(_dstbias);
    for (const char* name = _tzname[0]; *name != '\0'; ++name)
    {
        signature = (signature ^ static_cast<unsigned char>(*name)) * kPrime;
    }
    return signature | 1;
}

/// The answers for the zone that was asked for last.
class ZoneMidnights
{
  public:
    SkippedMidnight Of(int year, std::uint64_t zone)
    {
        const std::lock_guard lock(m_mutex);
        if (zone != m_zone)
        {
            m_zone = zone;
            m_known.fill(std::nullopt);
        }
        std::optional<SkippedMidnight>& known = m_known[KindOf(year)];
        if (!known)
        {
            known = Search(year);
        }
        return *known;
    }

  private:
    std::mutex m_mutex;
    std::uint64_t m_zone = 0;
    std::array<std::optional<SkippedMidnight>, 14> m_known;
};

ZoneMidnights g_midnights;

// The zone last found to skip no midnight at all, which nearly all are: no lock is needed to know it again.
std::atomic<std::uint64_t> g_zoneWithAllMidnights{0};

} // namespace

SkippedMidnight ts::SkippedMidnightOf(int year)
{
    if (_daylight == 0)
    {
        return {};
    }
    const std::uint64_t zone = ZoneSignature();
    if (g_zoneWithAllMidnights.load(std::memory_order_relaxed) == zone)
    {
        return {};
    }
    const SkippedMidnight skipped = g_midnights.Of(year, zone);
    if (skipped.month == 0)
    {
        g_zoneWithAllMidnights.store(zone, std::memory_order_relaxed);
    }
    return skipped;
}
