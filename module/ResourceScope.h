#pragma once

#include "module/CcvResourceManager.h"
#include "platform/mfc/afxwin.h"

namespace ts
{

/// While it lives, the calling thread loads its resources from the language library and not from the host's
/// module. Scopes nest; each restores what it found, also when an exception passes.
class ResourceScope
{
  public:
    ResourceScope() : m_former(AfxGetResourceHandle())
    {
        AfxSetResourceHandle(g_resourceManager.GetResourceHandle());
    }
    ResourceScope(const ResourceScope&) = delete;
    ResourceScope& operator=(const ResourceScope&) = delete;
    ~ResourceScope() { AfxSetResourceHandle(m_former); }

  private:
    HINSTANCE m_former;
};

} // namespace ts
