#pragma once

#include "platform/WindowsHeaders.h"

namespace ts::test
{

/// While it lives, this program's calls of one imported function go to another one. The argument is the
/// import's place, which the linker names __imp_<function>; code in other modules is not affected.
template <typename Function>
class ImportPatch
{
  public:
    ImportPatch(Function* import, Function replacement) noexcept : m_import(import), m_original(*import)
    {
        Put(replacement);
    }
    ImportPatch(const ImportPatch&) = delete;
    ImportPatch& operator=(const ImportPatch&) = delete;
    ~ImportPatch() { Put(m_original); }

    [[nodiscard]] Function Original() const noexcept { return m_original; }

  private:
    void Put(Function function) noexcept
    {
        DWORD protection = 0;
        VirtualProtect(m_import, sizeof *m_import, PAGE_READWRITE, &protection);
        *m_import = function;
        VirtualProtect(m_import, sizeof *m_import, protection, &protection);
    }

    Function* m_import;
    Function m_original;
};

} // namespace ts::test
