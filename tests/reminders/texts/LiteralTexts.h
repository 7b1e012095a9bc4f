#pragma once

#include "platform/mfc/afxstr.h"

#include <cstdint>

/// The rules of the texts written down word for word, over the language libraries read by the system's own
/// calls.
namespace ts::test::literal
{

/// The text of that number in the library of that language ("en", "de", "fr").
CString TextOf(const wchar_t* language, unsigned id);

/// The text of that number with an integer in the place of its placeholder, by the system's formatting.
CString Formatted(const wchar_t* language, unsigned id, std::int64_t count);

/// What GetDueInString must say when a reminder is due in `seconds` (negative: overdue by as many).
CString DueIn(const wchar_t* language, std::int64_t seconds);

/// What stands in the tooltip between subject and date when a reminder is due in `seconds` and its reminder
/// time comes in `secondsToReminder`.
CString TooltipStatus(const wchar_t* language, std::int64_t seconds, std::int64_t secondsToReminder);

} // namespace ts::test::literal
