#pragma once

#include "TsServiceUtilities.h"

#include <string>

namespace ts::desktop
{

/// A text of the program, by its number in ResourceIds.h; empty when there is none.
[[nodiscard]] std::wstring Text(UINT id);
/// The text with the numbers or texts in it that it leaves room for, as %1 or %1!d!.
[[nodiscard]] std::wstring FormatText(UINT id, DWORD_PTR first, DWORD_PTR second = 0);

/// The local time in the user's short date and time format; empty for "no time" and outside the calendar.
[[nodiscard]] std::wstring ShortTime(CTime time);

} // namespace ts::desktop
