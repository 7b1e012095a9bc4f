#include "module/CcvResourceManager.h"

#include "platform/ts/ResourceDLL.h"

CcvResourceManager g_resourceManager;

CcvResourceManager::~CcvResourceManager() = default;

HMODULE CcvResourceManager::GetResourceHandle() const
{
    return m_loaded ? m_resources : ResourceDLL::LoadLanguageResource(L"TsServiceUtilities", nullptr);
}
