#include "dialogs/LeadTimeText.h"

#include "module/LanguageText.h"
#include "resources/StringIds.h"

#include <algorithm>
#include <cstdint>
#include <cwchar>
#include <cwctype>
#include <limits>
#include <string>
#include <string_view>

namespace
{

constexpr std::int64_t kMinute = 60;
constexpr std::int64_t kHour = 60 * kMinute;
constexpr std::int64_t kDay = 24 * kHour;
constexpr std::int64_t kDaysOfWeek = 7;
constexpr std::int64_t kWeek = kDaysOfWeek * kDay;

/// The words of a unit, singular first.
struct Unit
{
    std::int64_t seconds;
    unsigned oneId;
    unsigned severalId;
};

// In the order in which the words are compared.
constexpr Unit kWeeks{kWeek, IDS_LEAD_WEEK, IDS_LEAD_WEEKS};
constexpr Unit kDays{kDay, IDS_LEAD_DAY, IDS_LEAD_DAYS};
constexpr Unit kHours{kHour, IDS_LEAD_HOUR, IDS_LEAD_HOURS};
constexpr Unit kMinutes{kMinute, IDS_LEAD_MINUTE, IDS_LEAD_MINUTES};
constexpr Unit kUnits[] = {kWeeks, kDays, kHours, kMinutes};

struct Initial
{
    std::int64_t seconds;
    unsigned letterId;
};

constexpr Initial kInitials[] = {
    {kWeek, IDS_LEAD_WEEK_INITIAL}, {kDay, IDS_LEAD_DAY_INITIAL}, {kHour, IDS_LEAD_HOUR_INITIAL}};

CString Text(std::int64_t count, unsigned wordId)
{
    return CString((std::to_wstring(count) + L' ').c_str()) + ts::LoadText(wordId);
}

CString Counted(std::int64_t count, const Unit& unit)
{
    return Text(count, count > 1 ? unit.severalId : unit.oneId);
}

std::wstring Lower(std::wstring_view text)
{
    std::wstring lower(text);
    std::ranges::transform(lower, lower.begin(),
                           [](wchar_t character) { return static_cast<wchar_t>(std::towlower(character)); });
    return lower;
}

std::wstring LowerWord(unsigned id)
{
    return Lower(ts::LoadText(id).GetString());
}

std::wstring_view Trimmed(std::wstring_view text)
{
    while (!text.empty() && std::iswspace(text.front()) != 0)
    {
        text.remove_prefix(1);
    }
    while (!text.empty() && std::iswspace(text.back()) != 0)
    {
        text.remove_suffix(1);
    }
    return text;
}

/// The number that the text begins with, 0 when there is none. Numbers beyond 32 bits become the nearest
/// limit, whatever the runtime's _wtoi makes of them.
std::int32_t LeadingNumber(const CString& text)
{
    using Limits = std::numeric_limits<std::int32_t>;
    const std::int64_t number = std::wcstoll(text, nullptr, 10);
    return static_cast<std::int32_t>(std::clamp<std::int64_t>(number, Limits::min(), Limits::max()));
}

std::int64_t SecondsOf(const std::wstring& word)
{
    for (const Unit& unit : kUnits)
    {
        if (word == LowerWord(unit.oneId) || word == LowerWord(unit.severalId))
        {
            return unit.seconds;
        }
    }
    for (const Initial& initial : kInitials)
    {
        if (!word.empty() && word.substr(0, 1) == LowerWord(initial.letterId).substr(0, 1))
        {
            return initial.seconds;
        }
    }
    return kMinute;
}

} // namespace

CString ts::ShowLeadTime(CTimeSpan span)
{
    const std::int64_t seconds = span.GetTimeSpan();
    const std::int64_t days = seconds / kDay;
    const std::int64_t hoursOfDay = seconds / kHour - days * (kDay / kHour);
    const std::int64_t minutes = seconds / kMinute % (kHour / kMinute);
    const std::int64_t weeks = days % kDaysOfWeek == 0 ? days / kDaysOfWeek : 0;
    if (minutes == 0 && hoursOfDay == 0 && days >= 1)
    {
        return weeks >= 1 ? Counted(weeks, kWeeks) : Counted(days, kDays);
    }
    if (minutes == 0 && hoursOfDay >= 1)
    {
        return Counted(hoursOfDay, kHours);
    }
    const std::int64_t shown = hoursOfDay * (kHour / kMinute) + minutes;
    return Counted(std::max<std::int64_t>(shown, 0), kMinutes);
}

std::optional<CTimeSpan> ts::ParseLeadTime(const CString& text)
{
    const std::int32_t number = LeadingNumber(text);
    const std::wstring_view whole(text, static_cast<std::size_t>(text.GetLength()));
    const std::wstring digits = std::to_wstring(number);
    const std::size_t position = whole.find(digits);
    if (position == std::wstring_view::npos)
    {
        return std::nullopt;
    }
    // Carrying minutes into hours and hours into days would not change the sum.
    const std::wstring_view word = Trimmed(whole.substr(position + digits.size()));
    return CTimeSpan(number * SecondsOf(Lower(word)));
}
