#include "module/ResourceScope.h"

#include <gtest/gtest.h>
#include <stdexcept>
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
