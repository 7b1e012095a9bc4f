#pragma once

#include "platform/WindowsHeaders.h"

#include <memory>
#include <type_traits>

namespace ts
{

struct LibraryFreer
{
    void operator()(HMODULE library) const noexcept { FreeLibrary(library); }
};

/// Owns a library that was loaded; null when loading it failed.
using LoadedLibrary = std::unique_ptr<std::remove_pointer_t<HMODULE>, LibraryFreer>;

} // namespace ts
