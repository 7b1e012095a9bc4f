#pragma once

#include "dialogs/TimePickerLocale.h"
#include "platform/mfc/atltime.h"

#include <ctime>
#include <optional>
#include <vector>

namespace ts
{

enum class TimePickerField
{
    Hour,
    Minute,
    Designator, ///< AM or PM
    Separator,
    Space
};

/// Characters of the text, from `first` up to but not including `end`.
struct CharacterRange
{
    int first;
    int end;

    bool operator==(const CharacterRange&) const = default;
};

/// The text of a time picker and all that the user can do to it: a time of day as a sequence of fields in the
/// user's format. Knows no window.
///
/// The time is local. Its date stays; whatever changes the hour or the minute sets the seconds to 0. A time
/// that has no local date shows as midnight, and takes today's date when it is changed.
class TimePickerFields
{
  public:
    explicit TimePickerFields(const TimePickerLocale& locale) noexcept : m_locale(locale) {}

    /// Takes the order of the fields and the number of digits from a format of the locale. Seconds never
    /// show.
    void SetFormat(const TimeFormat& format);
    void SetTime(CTime time);
    [[nodiscard]] CTime GetTime() const noexcept { return m_time; }
    [[nodiscard]] CString GetText() const;

    /// Where the field first stands, on demand with the separator directly after it; nothing if it is not
    /// shown.
    [[nodiscard]] std::optional<CharacterRange> RangeOf(TimePickerField field,
                                                        bool withSeparator = false) const;
    /// The hour, minute or designator field, its separator included, that holds this character.
    [[nodiscard]] std::optional<TimePickerField> FieldAt(int character) const;
    /// The hour, minute or designator field of exactly that range.
    [[nodiscard]] std::optional<TimePickerField> FieldOf(CharacterRange range) const;

    /// The next field to the left or right that holds a value: from `selected`, or from the end of the text
    /// that the search begins at.
    [[nodiscard]] std::optional<TimePickerField> Previous(std::optional<TimePickerField> selected) const;
    [[nodiscard]] std::optional<TimePickerField> Next(std::optional<TimePickerField> selected) const;

    /// Steps the selected field, or the minute when there is none; the field that was stepped. Steps over
    /// local times that do not exist because the clocks go forward.
    TimePickerField Step(std::optional<TimePickerField> selected, bool up);
    /// Types a character into the selected field. Whether it was taken; if not, nothing has changed.
    bool Type(TimePickerField selected, wchar_t character);

  private:
    struct ClockTime
    {
        int hour;
        int minute;
    };

    void AddFormatCharacter(wchar_t character, wchar_t previous);
    void Render();
    [[nodiscard]] const CString& TextOf(TimePickerField field) const noexcept;

    [[nodiscard]] bool ShowsAm() const;
    [[nodiscard]] bool IsDesignatorKey(wchar_t character) const;
    [[nodiscard]] int HourOfTexts() const;
    void StoreTexts();
    void StepClock(TimePickerField field, bool up);
    /// The time's local fields, at midnight of today when it has none.
    [[nodiscard]] std::tm LocalFields() const;
    /// Nothing when there is no such time on that date.
    [[nodiscard]] std::optional<CTime> OnSameDate(ClockTime clock) const;

    const TimePickerLocale& m_locale;
    CTime m_time;
    CString m_hourFormat;
    CString m_minuteFormat;
    CString m_hour;
    CString m_minute;
    CString m_designator;
    CString m_separator;
    CString m_space;
    std::vector<TimePickerField> m_order;
};

} // namespace ts
