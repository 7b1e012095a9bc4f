#pragma once

#include "Evaluation.h"

#include <nlohmann/json.hpp>

namespace ts::console
{

using Json = nlohmann::ordered_json;

/// The reminder with all its fields and what holds for it at the time of the evaluation.
[[nodiscard]] Json ReminderJson(const CcvReminderData& reminder, const Evaluation& evaluation);

/// ISO 8601 with offset; null for no time and for one that cannot be converted.
[[nodiscard]] Json TimeJson(std::optional<CTime> time);

/// The document as text that ends with a line feed and holds no control character but line feeds.
[[nodiscard]] std::string JsonText(const Json& document);

} // namespace ts::console
