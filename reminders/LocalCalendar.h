#pragma once

#include "platform/mfc/atltime.h"

/// Calendar questions that several sources of this folder ask.
namespace ts
{

/// 28 to 31, or -1 for a month outside 1 to 12.
[[nodiscard]] int DaysInMonth(int month, int year) noexcept;

/// Whether both times fall on the same local date. Times that the runtime cannot convert share one date.
[[nodiscard]] bool IsSameLocalDate(CTime left, CTime right) noexcept;

} // namespace ts
