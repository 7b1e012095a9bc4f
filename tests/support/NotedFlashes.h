#pragma once

#include "tests/platform/ImportPatch.h"

#include <utility>
#include <vector>

extern "C"
{
    extern decltype(&FlashWindowEx) __imp_FlashWindowEx;
}

namespace ts::test
{

/// While one lives, this program's requests to flash a window are written down instead of carried out.
class NotedFlashes
{
  public:
    NotedFlashes() { s_flashes.clear(); }

    /// Those since the last call.
    static std::vector<FLASHWINFO> Take() { return std::exchange(s_flashes, {}); }

  private:
    static BOOL WINAPI Note(FLASHWINFO* flash)
    {
        s_flashes.push_back(*flash);
        return FALSE;
    }

    inline static std::vector<FLASHWINFO> s_flashes;

    ImportPatch<decltype(&FlashWindowEx)> m_patch{&__imp_FlashWindowEx, Note};
};

} // namespace ts::test
