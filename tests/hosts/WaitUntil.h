#pragma once

#include <functional>

/// Looks again and again whether `condition` holds, answering messages meanwhile. False when it still does
/// not after a time that is long even on a busy machine.
[[nodiscard]] bool WaitUntil(const std::function<bool()>& condition);
