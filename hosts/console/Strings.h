#pragma once

#include "TsServiceUtilities.h"

#include <string>
#include <string_view>

namespace ts::console
{

/// The library's text as UTF-8, and back.
[[nodiscard]] std::string FromLibrary(const CString& text);
[[nodiscard]] CString ToLibrary(std::string_view text);

/// ASCII letters in lower case; what else there is stays.
[[nodiscard]] std::string ToLower(std::string_view text);

/// A GUID in braces, from a GUID with or without them. Raises UsageError, which calls it `what`.
[[nodiscard]] CString ParseGuid(std::string_view text, std::string_view what);

/// A whole number from 1 to `last`. Raises UsageError, which calls it `what`.
[[nodiscard]] int ParseNumber(std::string_view text, std::string_view what, int last);

/// The text in quotes for a message.
[[nodiscard]] std::string Quoted(std::string_view text);

} // namespace ts::console
