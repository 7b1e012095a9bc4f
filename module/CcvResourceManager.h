#pragma once

#include "platform/WindowsHeaders.h"

#include <atomic>

/// Knows the language library that holds all texts, dialog templates, icons and bitmaps of this library.
class CcvResourceManager
{
  public:
    CcvResourceManager() = default;
    CcvResourceManager(const CcvResourceManager&) = delete;
    CcvResourceManager& operator=(const CcvResourceManager&) = delete;
    virtual ~CcvResourceManager();

    /// The language library's handle, which stays its loader's; null when there is none. The loader is asked
    /// at every request and answers with the library that it has loaded already, so the language may change
    /// meanwhile. Any thread.
    [[nodiscard]] HMODULE GetResourceHandle();

  private:
    bool m_loaded = false; ///< stays so: the loader knows better
    std::atomic<HMODULE> m_resources = nullptr;
};

/// The only instance.
extern CcvResourceManager g_resourceManager;
