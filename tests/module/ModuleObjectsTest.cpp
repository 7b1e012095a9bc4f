// The objects that a module has once, and the layout of those that others look into.

#include "module/CTsServiceUtilitiesApp.h"
#include "module/CcvComException.h"
#include "module/CcvResourceManager.h"
#include "module/InterfaceLanguage.h"
#include "platform/mfc/atlexcept.h"
#include "platform/ts/ResourceDLL.h"

#include <array>
#include <bit>
#include <cstring>
#include <gtest/gtest.h>
#include <type_traits>

static_assert(std::is_base_of_v<CWinApp, CTsServiceUtilitiesApp>);
static_assert(sizeof(CTsServiceUtilitiesApp) == sizeof(CWinApp), "it adds no data");
static_assert(std::has_virtual_destructor_v<CcvResourceManager>);
static_assert(std::has_virtual_destructor_v<CcvComException>);

namespace
{

/// Chooses the language of the texts, and the user's again at its end.
class InterfaceLanguage
{
  public:
    explicit InterfaceLanguage(const wchar_t* language) { ts::SetInterfaceLanguage(language); }
    InterfaceLanguage(const InterfaceLanguage&) = delete;
    InterfaceLanguage& operator=(const InterfaceLanguage&) = delete;
    ~InterfaceLanguage() { ts::SetInterfaceLanguage(nullptr); }
};

/// A resource manager's fields: what stands behind its table of virtual functions.
struct ManagerFields
{
    void* virtualFunctions;
    bool loaded;
    HMODULE resources;
};

static_assert(sizeof(ManagerFields) == sizeof(CcvResourceManager));

ManagerFields FieldsOf(const CcvResourceManager& manager)
{
    ManagerFields fields{};
    std::memcpy(&fields, &manager, sizeof fields);
    return fields;
}

/// The place of a virtual member in its class's table of functions, by the compiler's pointer to it.
template <typename Member>
std::size_t SlotOf(Member member)
{
    const auto words = std::bit_cast<std::array<std::size_t, 2>>(member);
    EXPECT_EQ(1u, words[0] % sizeof(void*)) << "virtual";
    return words[0] / sizeof(void*);
}

} // namespace

TEST(ApplicationObjectTest, Construction_OfTheModules_HasNoName)
{
    const CTsServiceUtilitiesApp application;
    EXPECT_EQ(nullptr, application.m_pszAppName);
}

TEST(ResourceManagerTest, Construction_Default_HasLoadedNothing)
{
    const ManagerFields fields = FieldsOf(CcvResourceManager());
    EXPECT_FALSE(fields.loaded);
    EXPECT_EQ(nullptr, fields.resources);
}

TEST(ResourceManagerTest, EveryRequest_AsksTheLoaderAndKeepsItsAnswer)
{
    CcvResourceManager manager;
    for (const wchar_t* language : {L"de", L"fr", L"de"})
    {
        const InterfaceLanguage chosen(language);
        const HMODULE library = ResourceDLL::LoadLanguageResource(L"TsServiceUtilities", language);
        ASSERT_NE(nullptr, library);
        EXPECT_EQ(library, ResourceDLL::LoadLanguageResource(L"TsServiceUtilities", nullptr));
        EXPECT_EQ(library, manager.GetResourceHandle());
        EXPECT_EQ(library, FieldsOf(manager).resources);
        EXPECT_FALSE(FieldsOf(manager).loaded) << "or it would never ask again";
    }
}

TEST(CcvComExceptionTest, Accessors_InTheTableOfFunctions_StandBehindTheDestructor)
{
    // This compiler gives a destructor two places.
    EXPECT_EQ(2u, SlotOf(&CcvComException::GetDescription));
    EXPECT_EQ(3u, SlotOf(&CcvComException::GetSource));
    EXPECT_EQ(4u, SlotOf(&CcvComException::GetHelpFile));
}

TEST(ErrorCodesTest, CodesOfTheLibrary_AreRaisedByTheirNumbers)
{
    EXPECT_THROW(AtlThrow(static_cast<HRESULT>(0x8007000E)), CMemoryException);
    for (const unsigned code : {0x80004005U, 0x80070057U})
    {
        try
        {
            AtlThrow(static_cast<HRESULT>(code));
        }
        catch (const COleException& error)
        {
            EXPECT_EQ(code, static_cast<unsigned>(error.m_sc));
        }
        EXPECT_THROW(AtlThrow(static_cast<HRESULT>(code)), COleException);
    }
}
