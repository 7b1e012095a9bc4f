#pragma once

#include <string_view>

namespace ts::gallery
{

/// When the gallery's pictures are taken: the library's clock stands still at a local noon.
void StopClock() noexcept;

/// What the reminders of the pictures are like.
struct Contents
{
    std::string_view language = "en"; ///< of their texts: "en", "de" or "fr"
    int count = 8;                    ///< more than eight repeat the texts, and are due
    bool longTexts = false;           ///< of 500 characters, without spaces, from right to left and the like
};

/// Stores the reminders of the pictures.
void FillStore(const Contents& contents);

} // namespace ts::gallery
