#include "module/ResourceScope.h"
#include "platform/LoadedLibrary.h"

#include <gtest/gtest.h>
#include <stdexcept>
#include <string>
#include <thread>

namespace
{

HINSTANCE HostModule()
{
    return GetModuleHandleW(L"kernel32.dll");
}

/// The host's own resource module while a test runs.
class HostResources
{
  public:
    HostResources() { AfxSetResourceHandle(HostModule()); }
    HostResources(const HostResources&) = delete;
    HostResources& operator=(const HostResources&) = delete;
    ~HostResources() { AfxSetResourceHandle(nullptr); }
};

} // namespace

TEST(ResourceHandleTest, NothingSet_IsTheModuleItself)
{
    EXPECT_EQ(AfxGetInstanceHandle(), AfxGetResourceHandle());
    EXPECT_EQ(GetModuleHandleW(nullptr), AfxGetInstanceHandle())
        << "this program holds the library's code itself";
}

TEST(ResourceHandleTest, Find_OfAResource_PrefersTheResourceModuleToTheModuleItself)
{
    // A copy of this program, which has a manifest for its controls, like this program itself.
    wchar_t program[MAX_PATH];
    GetModuleFileNameW(nullptr, program, MAX_PATH);
    const std::wstring copy = program + std::wstring(L".copy");
    ASSERT_NE(FALSE, CopyFileW(program, copy.c_str(), FALSE));
    const ts::LoadedLibrary library(LoadLibraryExW(copy.c_str(), nullptr, LOAD_LIBRARY_AS_DATAFILE));
    ASSERT_NE(nullptr, library);
    const wchar_t* const manifest = MAKEINTRESOURCEW(2);
    AfxSetResourceHandle(library.get());
    EXPECT_EQ(library.get(), AfxFindResourceHandle(manifest, RT_MANIFEST)) << "both have it";
    AfxSetResourceHandle(g_resourceManager.GetResourceHandle());
    EXPECT_EQ(AfxGetInstanceHandle(), AfxFindResourceHandle(manifest, RT_MANIFEST))
        << "only the module has it";
    EXPECT_EQ(g_resourceManager.GetResourceHandle(), AfxFindResourceHandle(L"NONE", RT_MANIFEST))
        << "neither has it";
    AfxSetResourceHandle(nullptr);
}

TEST(ResourceScopeTest, WhileItLives_TheLanguageLibraryIsTheResourceModule)
{
    const HostResources host;
    {
        const ts::ResourceScope scope;
        EXPECT_EQ(g_resourceManager.GetResourceHandle(), AfxGetResourceHandle());
        EXPECT_NE(HostModule(), AfxGetResourceHandle());
    }
    EXPECT_EQ(HostModule(), AfxGetResourceHandle());
}

TEST(ResourceScopeTest, Nested_EachRestoresWhatItFound)
{
    const HostResources host;
    {
        const ts::ResourceScope outer;
        AfxSetResourceHandle(GetModuleHandleW(L"ntdll.dll"));
        {
            const ts::ResourceScope inner;
            EXPECT_EQ(g_resourceManager.GetResourceHandle(), AfxGetResourceHandle());
        }
        EXPECT_EQ(GetModuleHandleW(L"ntdll.dll"), AfxGetResourceHandle());
    }
    EXPECT_EQ(HostModule(), AfxGetResourceHandle());
}

TEST(ResourceScopeTest, Exception_RestoresTheHostsModule)
{
    const HostResources host;
    EXPECT_THROW(
        {
            const ts::ResourceScope scope;
            throw std::runtime_error("on the way");
        },
        std::runtime_error);
    EXPECT_EQ(HostModule(), AfxGetResourceHandle());
}

TEST(ResourceScopeTest, OnAWorkerThread_LeavesOtherThreadsAlone)
{
    const HostResources host;
    HINSTANCE before = nullptr;
    HINSTANCE inside = nullptr;
    HINSTANCE hostMeanwhile = nullptr;
    std::thread(
        [&]
        {
            before = AfxGetResourceHandle();
            const ts::ResourceScope scope;
            inside = AfxGetResourceHandle();
        })
        .join();
    hostMeanwhile = AfxGetResourceHandle();
    EXPECT_EQ(AfxGetInstanceHandle(), before) << "each thread has a resource module of its own";
    EXPECT_EQ(g_resourceManager.GetResourceHandle(), inside);
    EXPECT_EQ(HostModule(), hostMeanwhile);
}

TEST(ResourceManagerTest, EveryRequest_GivesTheSameHandle)
{
    const HMODULE first = g_resourceManager.GetResourceHandle();
    ASSERT_NE(nullptr, first);
    for (int round = 0; round < 100; ++round)
    {
        EXPECT_EQ(first, g_resourceManager.GetResourceHandle());
    }
}
