#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

/// Text for a terminal. Widths are columns. What a reader sees as one character (a letter with its marks, a
/// joined emoji, a flag) is never taken apart.
namespace ts::console
{

/// UTF-8 in which every control character, and every character that would turn the direction of what
/// follows, is U+FFFD: nothing of it steers the terminal, and it holds no line break.
[[nodiscard]] std::string Printable(std::string_view text);

/// The columns that printable text takes.
[[nodiscard]] std::size_t DisplayWidth(std::string_view text) noexcept;

/// `text` if it fits into `width` columns, else as much of it as fits before an ellipsis. Empty for width 0.
[[nodiscard]] std::string CutToWidth(std::string_view text, std::size_t width);

/// `text` in lines of at most `width` columns, broken after spaces where possible. A single character that
/// is wider than `width` has a line of its own. At least one line.
[[nodiscard]] std::vector<std::string> WrapToWidth(std::string_view text, std::size_t width);

/// Escapes every control character from U+007F on within a JSON document, which leaves its meaning as it is
/// and keeps such characters off the terminal.
[[nodiscard]] std::string EscapeJsonControls(std::string_view document);

} // namespace ts::console
