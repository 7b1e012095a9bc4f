#pragma once

#include "dialogs/TimePickerFields.h"
#include "dialogs/TimePickerLocale.h"

/// Users of several places, and what their time pickers show.
namespace ts::test
{

struct TimePickerUser
{
    const char* title;
    bool is24Hour;
    const wchar_t* am;
    const wchar_t* pm;
    const wchar_t* picture;
    const wchar_t* separator;
};

inline constexpr TimePickerUser kAmerican{"American", false, L"AM", L"PM", L"h:mm:ss tt", L":"};
inline constexpr TimePickerUser kGerman{"German", true, L"", L"", L"HH:mm:ss", L":"};
inline constexpr TimePickerUser kKorean{"Korean",        false,         L"\uC624\uC804",
                                        L"\uC624\uD6C4", L"tt h:mm:ss", L":"};

/// The fields as that user sees them. Stays where it is made: the fields refer to its locale.
struct UsersFields
{
    explicit UsersFields(const TimePickerUser& user, CTime time = CTime(2026, 3, 17, 10, 50, 37))
        : locale(MakeTimePickerLocale(user.is24Hour, user.am, user.pm)), fields(locale)
    {
        fields.SetFormat({user.picture, user.separator});
        fields.SetTime(time);
    }
    UsersFields(const UsersFields&) = delete;
    UsersFields& operator=(const UsersFields&) = delete;
    ~UsersFields() = default;

    TimePickerLocale locale;
    TimePickerFields fields;
};

} // namespace ts::test
