#pragma once

#include <string_view>

namespace ts::gallery
{

/// When the gallery's pictures are taken: the library's clock stands still at a local noon.
void StopClock() noexcept;

/// Stores the reminders of the pictures, with texts in that language ("en", "de", "fr").
void FillStore(std::string_view language);

} // namespace ts::gallery
