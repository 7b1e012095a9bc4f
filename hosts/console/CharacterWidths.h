#pragma once

namespace ts::console
{

/// How many columns of a terminal the character takes: 0 for marks on the character before it, 2 for wide
/// East Asian characters and emoji, else 1.
[[nodiscard]] int CharacterWidth(char32_t character) noexcept;

} // namespace ts::console
