#pragma once

#include <string>
#include <string_view>

/// Conversions that never fail: what is no valid text becomes U+FFFD.
namespace ts::hosts
{

inline constexpr char32_t kReplacement = 0xFFFD;

/// UTF-16 to UTF-8; each surrogate without its partner becomes U+FFFD.
[[nodiscard]] std::string ToUtf8(std::wstring_view text);
/// UTF-8 to UTF-16; each byte that belongs to no character becomes U+FFFD.
[[nodiscard]] std::wstring ToWide(std::string_view text);

/// The character at the front of `rest`, which is not empty, and takes it away.
[[nodiscard]] char32_t TakeCharacter(std::string_view& rest) noexcept;
/// Appends the character as UTF-8. It is a scalar value.
void AppendUtf8(std::string& text, char32_t character);

} // namespace ts::hosts
