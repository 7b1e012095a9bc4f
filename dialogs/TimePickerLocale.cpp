#include "dialogs/TimePickerLocale.h"

#include "platform/WindowsHeaders.h"

namespace
{

/// A text of the user's locale; empty when it does not fit in `Size` characters, its terminator included.
template <int Size>
CString LocaleText(LCTYPE type)
{
    wchar_t text[Size] = {};
    return GetLocaleInfoW(LOCALE_USER_DEFAULT, type, text, Size) == 0 ? CString() : CString(text);
}

CString DesignatorOrZero(const CString& designator)
{
    return designator.IsEmpty() ? CString(L"0") : designator;
}

} // namespace

ts::TimePickerLocale ts::MakeTimePickerLocale(bool is24Hour, const CString& am, const CString& pm)
{
    TimePickerLocale locale;
    locale.is24Hour = is24Hour;
    locale.maximumHour = is24Hour ? 23 : 12;
    locale.amDesignator = DesignatorOrZero(am);
    locale.pmDesignator = DesignatorOrZero(pm);
    locale.amKey = locale.amDesignator[0];
    locale.pmKey = locale.pmDesignator[0];
    return locale;
}

ts::TimePickerLocale ts::ReadTimePickerLocale()
{
    // A designator that is longer than its buffer counts as none.
    return MakeTimePickerLocale(LocaleText<2>(LOCALE_ITIME)[0] != L'0', LocaleText<9>(LOCALE_S1159),
                                LocaleText<10>(LOCALE_S2359));
}

namespace
{

const ts::TimePickerLocale kStartUpLocale = ts::ReadTimePickerLocale();

} // namespace

const ts::TimePickerLocale& ts::StartUpTimePickerLocale() noexcept
{
    return kStartUpLocale;
}

ts::TimeFormat ts::ReadTimeFormat()
{
    return {LocaleText<80>(LOCALE_STIMEFORMAT), LocaleText<80>(LOCALE_STIME)};
}
