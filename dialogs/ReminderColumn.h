#pragma once

#include <cstdint>

/// A column of the reminder lists; the values are bits of the mask that chooses the columns of a list.
enum class ReminderColumn : std::uint32_t
{
    Icon = 1,     ///< whether the reminder recurs, as an image
    Subject = 2,  ///< the reminder's subject
    Document = 4, ///< the title of the map document
    DueIn = 8     ///< how far away the due time is
};
