#include "dialogs/TimePickerFields.h"

#include "platform/WindowsHeaders.h"

#include <algorithm>
#include <cwchar>
#include <initializer_list>
#include <iterator>
#include <string>

namespace
{

using ts::TimePickerField;

constexpr int kMinimumHour = 1;
constexpr int kMinimumMinute = 0;
constexpr int kMaximumMinute = 59;
constexpr int kHours = 24;
constexpr int kMinutes = 60;
constexpr int kStep = 15;
constexpr int kStepsOfADay = kHours * kMinutes / kStep;

std::wstring WithoutAll(std::wstring text, const std::wstring& part)
{
    for (auto at = text.find(part); at != std::wstring::npos; at = text.find(part, at))
    {
        text.erase(at, part.size());
    }
    return text;
}

std::wstring WithoutSeconds(const ts::TimeFormat& format)
{
    const std::wstring separator = format.separator.GetString();
    return WithoutAll(WithoutAll(format.picture.GetString(), separator + L"ss"), separator + L"s");
}

bool IsOneOf(wchar_t character, const wchar_t* characters)
{
    return character != L'\0' && std::wcschr(characters, character) != nullptr;
}

bool IsDigit(wchar_t character)
{
    return character >= L'0' && character <= L'9';
}

bool IsSameText(const wchar_t* left, const wchar_t* right)
{
    return CompareStringOrdinal(left, -1, right, -1, TRUE) == CSTR_EQUAL;
}

bool IsSameCharacter(wchar_t left, wchar_t right)
{
    return CompareStringOrdinal(&left, 1, &right, 1, TRUE) == CSTR_EQUAL;
}

bool HasValue(TimePickerField field)
{
    return field != TimePickerField::Separator && field != TimePickerField::Space;
}

int NumberOf(const std::wstring& text)
{
    return static_cast<int>(std::wcstol(text.c_str(), nullptr, 10));
}

/// The first value other than `selected`. A format may name a field twice, but only the first place can be
/// selected.
template <typename Iterator>
std::optional<TimePickerField> FirstOtherValue(Iterator from, Iterator end,
                                               std::optional<TimePickerField> selected)
{
    const auto found = std::find_if(
        from, end, [selected](TimePickerField field) { return HasValue(field) && field != selected; });
    return found == end ? std::nullopt : std::optional(*found);
}

/// A part of the time as text, at least two characters wide.
CString Formatted(const std::tm& local, const CString& format)
{
    wchar_t text[8] = L"";
    std::wcsftime(text, std::size(text), format, &local);
    return std::wcslen(text) < 2 ? CString(L" ") + text : CString(text);
}

/// The number in `text` after another digit was typed: its last digit moves to the left.
CString AfterDigit(const CString& text, wchar_t digit, int minimum, int maximum)
{
    std::wstring candidate = text.GetString();
    candidate.erase(0, candidate.find_first_not_of(L' '));
    if (candidate.size() >= 2)
    {
        candidate.erase(0, candidate.size() - 1);
    }
    candidate += digit;
    if (NumberOf(candidate) > maximum)
    {
        candidate = {L'0', digit};
    }
    return NumberOf(candidate) < minimum ? text : CString(candidate.c_str());
}

/// The quarter of an hour before or after `minute`: -15 to 60.
int NextQuarter(int minute, bool up)
{
    if (up)
    {
        return (minute / kStep + 1) * kStep;
    }
    return minute % kStep == 0 ? minute - kStep : minute / kStep * kStep;
}

int Wrapped(int hour)
{
    return (hour + kHours) % kHours;
}

bool HasClock(const CTime& time, int hour, int minute)
{
    return time.GetHour() == hour && time.GetMinute() == minute;
}

} // namespace

void ts::TimePickerFields::SetFormat(const TimeFormat& format)
{
    m_hourFormat = m_locale.is24Hour ? L"%#H" : L"%#I";
    m_minuteFormat = L"%#M";
    m_separator = format.separator;
    m_space = L" ";
    m_order.clear();
    wchar_t previous = L'\0';
    for (const wchar_t character : WithoutSeconds(format))
    {
        AddFormatCharacter(character, previous);
        previous = character;
    }
    Render();
}

void ts::TimePickerFields::AddFormatCharacter(wchar_t character, wchar_t previous)
{
    const bool repeated = character == previous;
    switch (character)
    {
    case L'H':
    case L'h':
        if (repeated)
        {
            m_hourFormat = m_locale.is24Hour ? L"%H" : L"%I";
            return;
        }
        return m_order.push_back(TimePickerField::Hour);
    case L'm':
        if (repeated)
        {
            m_minuteFormat = L"%M";
            return;
        }
        return m_order.push_back(TimePickerField::Minute);
    case L't':
        return repeated ? void() : m_order.push_back(TimePickerField::Designator);
    case L' ':
        return repeated ? void() : m_order.push_back(TimePickerField::Space);
    default:
        if (IsOneOf(previous, L"Hhmt"))
        {
            m_order.push_back(TimePickerField::Separator);
        }
    }
}

void ts::TimePickerFields::SetTime(CTime time)
{
    m_time = time;
    Render();
}

void ts::TimePickerFields::Render()
{
    const std::tm local = LocalFields();
    m_hour = Formatted(local, m_hourFormat);
    m_minute = Formatted(local, m_minuteFormat);
    m_designator = local.tm_hour < kHours / 2 ? m_locale.amDesignator : m_locale.pmDesignator;
}

const CString& ts::TimePickerFields::TextOf(TimePickerField field) const noexcept
{
    switch (field)
    {
    case TimePickerField::Hour:
        return m_hour;
    case TimePickerField::Minute:
        return m_minute;
    case TimePickerField::Designator:
        return m_designator;
    case TimePickerField::Separator:
        return m_separator;
    case TimePickerField::Space:
        break;
    }
    return m_space;
}

CString ts::TimePickerFields::GetText() const
{
    CString text;
    for (const TimePickerField field : m_order)
    {
        text += TextOf(field);
    }
    return text;
}

std::optional<ts::CharacterRange> ts::TimePickerFields::RangeOf(TimePickerField field,
                                                                bool withSeparator) const
{
    const auto found = std::ranges::find(m_order, field);
    if (found == m_order.end())
    {
        return std::nullopt;
    }
    int first = 0;
    std::for_each(m_order.begin(), found,
                  [this, &first](TimePickerField before) { first += TextOf(before).GetLength(); });
    int end = first + TextOf(field).GetLength();
    const auto after = std::next(found);
    if (withSeparator && after != m_order.end() && *after == TimePickerField::Separator)
    {
        end += m_separator.GetLength();
    }
    return CharacterRange{first, end};
}

std::optional<ts::TimePickerField> ts::TimePickerFields::FieldAt(int character) const
{
    for (const auto field : {TimePickerField::Hour, TimePickerField::Minute, TimePickerField::Designator})
    {
        const auto range = RangeOf(field, true);
        if (range && character >= range->first && character < range->end)
        {
            return field;
        }
    }
    return std::nullopt;
}

std::optional<ts::TimePickerField> ts::TimePickerFields::FieldOf(CharacterRange range) const
{
    for (const auto field : {TimePickerField::Hour, TimePickerField::Minute, TimePickerField::Designator})
    {
        if (RangeOf(field) == range)
        {
            return field;
        }
    }
    return std::nullopt;
}

std::optional<ts::TimePickerField> ts::TimePickerFields::Previous(
    std::optional<TimePickerField> selected) const
{
    const auto from = selected ? std::ranges::find(m_order, *selected) : m_order.end();
    return FirstOtherValue(std::make_reverse_iterator(from), m_order.rend(), selected);
}

std::optional<ts::TimePickerField> ts::TimePickerFields::Next(std::optional<TimePickerField> selected) const
{
    const auto from = selected ? std::ranges::find(m_order, *selected) : m_order.begin();
    return FirstOtherValue(from, m_order.end(), selected);
}

ts::TimePickerField ts::TimePickerFields::Step(std::optional<TimePickerField> selected, bool up)
{
    const TimePickerField field = selected.value_or(TimePickerField::Minute);
    if (field == TimePickerField::Designator)
    {
        m_designator = ShowsAm() ? m_locale.pmDesignator : m_locale.amDesignator;
        StoreTexts();
    }
    else
    {
        StepClock(field, up);
    }
    return field;
}

void ts::TimePickerFields::StepClock(TimePickerField field, bool up)
{
    const std::tm local = LocalFields();
    ClockTime clock{local.tm_hour, local.tm_min};
    for (int step = 0; step < kStepsOfADay; ++step)
    {
        if (field == TimePickerField::Hour)
        {
            clock.hour = Wrapped(clock.hour + (up ? 1 : -1));
        }
        else
        {
            const int minute = NextQuarter(clock.minute, up);
            clock.hour = Wrapped(clock.hour + (minute > kMaximumMinute ? 1 : minute < 0 ? -1 : 0));
            clock.minute = (minute + kMinutes) % kMinutes;
        }
        const auto time = OnSameDate(clock);
        if (time && HasClock(*time, clock.hour, clock.minute))
        {
            return SetTime(*time);
        }
    }
}

bool ts::TimePickerFields::Type(TimePickerField selected, wchar_t character)
{
    const bool digit = IsDigit(character);
    if (selected == TimePickerField::Hour && digit)
    {
        m_hour = AfterDigit(m_hour, character, kMinimumHour, m_locale.maximumHour);
    }
    else if (selected == TimePickerField::Minute && digit)
    {
        m_minute = AfterDigit(m_minute, character, kMinimumMinute, kMaximumMinute);
    }
    else if (selected == TimePickerField::Designator && !digit && IsDesignatorKey(character))
    {
        m_designator =
            IsSameCharacter(character, m_locale.amKey) ? m_locale.amDesignator : m_locale.pmDesignator;
    }
    else
    {
        return false;
    }
    StoreTexts();
    return true;
}

bool ts::TimePickerFields::IsDesignatorKey(wchar_t character) const
{
    return IsSameCharacter(character, m_locale.amKey) || IsSameCharacter(character, m_locale.pmKey);
}

bool ts::TimePickerFields::ShowsAm() const
{
    return IsSameText(m_designator, m_locale.amDesignator);
}

int ts::TimePickerFields::HourOfTexts() const
{
    const int hour = NumberOf(m_hour.GetString());
    if (m_locale.is24Hour)
    {
        return hour;
    }
    // Where both designators look the same, the text does not tell, and the half of the day stays.
    const bool sameDesignators = IsSameText(m_locale.amDesignator, m_locale.pmDesignator);
    const bool am = sameDesignators ? LocalFields().tm_hour < kHours / 2 : ShowsAm();
    return hour % (kHours / 2) + (am ? 0 : kHours / 2);
}

void ts::TimePickerFields::StoreTexts()
{
    SetTime(OnSameDate({HourOfTexts(), NumberOf(m_minute.GetString())}).value_or(m_time));
}

std::tm ts::TimePickerFields::LocalFields() const
{
    std::tm local{};
    if (m_time.GetLocalTm(&local) == nullptr)
    {
        local = {};
        CTime::GetCurrentTime().GetLocalTm(&local);
        local.tm_hour = 0;
        local.tm_min = 0;
    }
    return local;
}

std::optional<CTime> ts::TimePickerFields::OnSameDate(ClockTime clock) const
{
    const std::tm date = LocalFields();
    std::tm local = date;
    local.tm_hour = clock.hour;
    local.tm_min = clock.minute;
    local.tm_sec = 0;
    local.tm_isdst = -1;
    const std::int64_t seconds = _mktime64(&local);
    // Of a midnight that the clocks skip, the runtime makes an hour of the day before.
    if (seconds == -1 || local.tm_mday != date.tm_mday)
    {
        return std::nullopt;
    }
    return CTime(seconds);
}
