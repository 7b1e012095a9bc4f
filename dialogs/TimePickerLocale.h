#pragma once

#include "platform/mfc/afxstr.h"

namespace ts
{

/// What a time picker takes from the user's locale when the module starts.
struct TimePickerLocale
{
    bool is24Hour = true;
    int maximumHour = 23;        ///< the largest hour that can be typed
    CString amDesignator = L"0"; ///< never empty
    CString pmDesignator = L"0"; ///< never empty; may be the same as the other
    wchar_t amKey = L'0';        ///< the key that types the designator
    wchar_t pmKey = L'0';
};

/// The locale of a user with these settings. An empty designator becomes "0".
[[nodiscard]] TimePickerLocale MakeTimePickerLocale(bool is24Hour, const CString& am, const CString& pm);

/// As the user's default locale says now.
[[nodiscard]] TimePickerLocale ReadTimePickerLocale();

/// As the user's default locale said when the module was loaded.
[[nodiscard]] const TimePickerLocale& StartUpTimePickerLocale() noexcept;

/// How the user writes times: such as "HH:mm:ss" and ":".
struct TimeFormat
{
    CString picture;
    CString separator;
};

/// As the user's default locale says now.
[[nodiscard]] TimeFormat ReadTimeFormat();

} // namespace ts
