#pragma once

#include <algorithm>

namespace ts::test
{

/// Whether this program was linked with the guard-page heap, where an allocation costs some 200 times more.
[[nodiscard]] bool UsesGuardPageHeap() noexcept;

/// How often a test that counts in thousands goes round: `rounds`, and a twentieth of it over guard pages.
[[nodiscard]] inline int Rounds(int rounds) noexcept
{
    return UsesGuardPageHeap() ? std::max(1, rounds / 20) : rounds;
}

} // namespace ts::test
