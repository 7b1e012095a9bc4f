#pragma once

#include "platform/WindowsHeaders.h"
#include "platform/mfc/afxstr.h"

// Its classes only hold what they are given. Their own ways to fail are never taken, because these raise an
// exception of the headers' own.
#include <comdef.h>

/// The values that travel to an automation server and back.
namespace ts
{

/// Raises CMemoryException when there is no memory for the text.
[[nodiscard]] _variant_t TextValue(const CString& text);
[[nodiscard]] _variant_t LongValue(long value) noexcept;
[[nodiscard]] _variant_t BoolValue(bool value) noexcept;
[[nodiscard]] _variant_t DateValue(DATE value) noexcept;

// Conversions by the rules of automation. A value that cannot be converted raises CcvComException, exhausted
// memory CMemoryException.
[[nodiscard]] CString ToText(const _variant_t& value);
[[nodiscard]] long ToLong(const _variant_t& value);
[[nodiscard]] bool ToBool(const _variant_t& value);
[[nodiscard]] DATE ToDate(const _variant_t& value);

} // namespace ts
