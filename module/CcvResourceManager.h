#pragma once

#include "platform/WindowsHeaders.h"

/// Knows the language library that holds all texts, dialog templates, icons and bitmaps of this library.
class CcvResourceManager
{
  public:
    virtual ~CcvResourceManager();

    /// The language library's handle, which stays its loader's; null when there is none. The loader is asked
    /// at every request and answers with the library that it has loaded already. Any thread.
    [[nodiscard]] HMODULE GetResourceHandle() const;

  private:
    bool m_loaded = false;
    HMODULE m_resources = nullptr;
};

/// The only instance.
extern CcvResourceManager g_resourceManager;
