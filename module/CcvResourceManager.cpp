#include "module/CcvResourceManager.h"

#include "platform/ts/ResourceDLL.h"

CcvResourceManager g_resourceManager;

CcvResourceManager::~CcvResourceManager() = default;

HMODULE CcvResourceManager::GetResourceHandle()
{
    if (!m_loaded)
    {
        m_resources.store(ResourceDLL::LoadLanguageResource(L"TsServiceUtilities", nullptr),
                          std::memory_order_relaxed);
    }
    return m_resources.load(std::memory_order_relaxed);
}
