#pragma once

#include "platform/mfc/afxstr.h"

#include <cstdint>

/// The library's texts in the interface language, by number. A text that cannot be found is empty. Any
/// thread.
namespace ts
{

[[nodiscard]] CString LoadText(unsigned id);

/// The text with `count` in the place of its "%d".
[[nodiscard]] CString FormatText(unsigned id, std::int64_t count);

/// The text with `inserted` in the place of its "%s".
[[nodiscard]] CString FormatText(unsigned id, const CString& inserted);

/// The text with `first` in the place of its first "%s" and `second` in the place of its second. A "%s"
/// within `first` or `second` is no place.
[[nodiscard]] CString FormatText(unsigned id, const CString& first, const CString& second);

} // namespace ts
