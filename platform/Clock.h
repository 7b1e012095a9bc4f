#pragma once

#include <cstdint>

namespace ts
{

/// The present time in seconds since 1970-01-01 UTC. Everything in the library that asks what time it is
/// asks here. Any thread.
[[nodiscard]] std::int64_t Now() noexcept;

using ClockFunction = std::int64_t (*)() noexcept;

/// Makes Now() answer with `clock`, or with the system's time again when `clock` is null. For tests only.
void ReplaceClock(ClockFunction clock) noexcept;

} // namespace ts
