#pragma once

#include "tests/outlook_standin/Calendar.h"

#include <filesystem>
#include <nlohmann/json.hpp>

namespace ts::standin
{

/// The calendar in `folder`, or a new one when there is none. Throws std::runtime_error when it cannot be
/// read, nlohmann::json::exception when it is damaged.
[[nodiscard]] Calendar LoadCalendar(const std::filesystem::path& folder);

/// Throws std::runtime_error.
void SaveCalendar(const std::filesystem::path& folder, const Calendar& calendar);

// Under these names the library for JSON finds them.
void to_json(nlohmann::json& json, const Item& item);
void from_json(const nlohmann::json& json, Item& item);

} // namespace ts::standin
