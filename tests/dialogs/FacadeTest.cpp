#include "dialogs/CcvMfcAddReminderDialog.h"
#include "dialogs/CcvMfcDialogBase.h"
#include "dialogs/CcvMfcDialogBaseInternal.h"
#include "dialogs/CcvMfcManageRemindersDialog.h"
#include "dialogs/CcvMfcReminderAlertDialog.h"
#include "module/ResourceScope.h"
#include "tests/support/Allocations.h"
#include "tests/support/HeapKind.h"
#include "tests/support/ManyRounds.h"
#include "tests/support/VirtualSlot.h"
#include "tests/support/WindowDriver.h"
#include "tests/windows/TestDialogs.h"

#include <gtest/gtest.h>
#include <memory>
#include <new>
#include <stdexcept>
#include <type_traits>

namespace
{

using namespace ts::test;

/// What happened to the internal dialogs of a test.
struct Events
{
    int alive = 0;
    HINSTANCE resourcesWhileConstructed = nullptr;
    HINSTANCE resourcesWhileCreated = nullptr;
    HINSTANCE resourcesInTheLoop = nullptr;
    HWND shown = nullptr;
    HWND owner = nullptr;
    const CcvMfcDialogBase* facade = nullptr;
    const CcvMfcDialogBaseInternal* ownedAtTheEnd = nullptr; ///< by the facade
};

class TestDialogInternal : public CcvMfcDialogBaseInternal
{
    DECLARE_DYNAMIC(TestDialogInternal)

  public:
    TestDialogInternal(Events& events, CWnd* parent, UINT id = IDD_PLAIN)
        : CcvMfcDialogBaseInternal(id, parent), m_events(events)
    {
        ++m_events.alive;
        m_events.resourcesWhileConstructed = AfxGetResourceHandle();
    }
    ~TestDialogInternal() override
    {
        --m_events.alive;
        if (m_events.facade != nullptr)
        {
            m_events.ownedAtTheEnd = m_events.facade->GetInternalDialog();
        }
    }

    using CcvMfcDialogBaseInternal::Create;
    BOOL Create(UINT id, CWnd* parent) override
    {
        m_events.resourcesWhileCreated = AfxGetResourceHandle();
        if (m_createThrows)
        {
            throw std::runtime_error("cannot be created");
        }
        return CcvMfcDialogBaseInternal::Create(id, parent);
    }
    BOOL OnInitDialog() override
    {
        const BOOL result = CcvMfcDialogBaseInternal::OnInitDialog();
        SetScreenView(L"Test", EcvFeedbackType::ScreenView, EcvSendFeedback::AsUserAllows);
        if (!m_staysOpen)
        {
            PostMessage(WM_COMMAND, IDOK);
        }
        return result;
    }
    void OnScreenView(const CString& name, EcvFeedbackType, EcvSendFeedback) override { m_screen = name; }
    [[nodiscard]] bool HasTemplateName() const { return m_lpszTemplateName != nullptr; }

    bool m_createThrows = false;
    bool m_staysOpen = false;
    CString m_screen;

  protected:
    void OnOK() override
    {
        m_events.resourcesInTheLoop = AfxGetResourceHandle();
        m_events.shown = m_hWnd;
        m_events.owner = ::GetWindow(m_hWnd, GW_OWNER);
        CcvMfcDialogBaseInternal::OnOK();
    }

  private:
    Events& m_events;
};

IMPLEMENT_DYNAMIC(TestDialogInternal, CcvMfcDialogBaseInternal)

/// As the library's own facades are made.
class TestDialog : public CcvMfcDialogBase
{
  public:
    explicit TestDialog(Events& events, CWnd* parent = nullptr, UINT id = IDD_PLAIN)
    {
        const ts::ResourceScope scope;
        SetInternalDialog(std::make_unique<TestDialogInternal>(events, parent, id).release());
    }
    [[nodiscard]] TestDialogInternal& Internal() const
    {
        return dynamic_cast<TestDialogInternal&>(*GetInternalDialog());
    }
};

HINSTANCE HostModule()
{
    return GetModuleHandleW(L"kernel32.dll");
}

class FacadeTest : public testing::Test
{
  protected:
    void SetUp() override { AfxSetResourceHandle(HostModule()); }
    void TearDown() override { AfxSetResourceHandle(nullptr); }

    Events m_events;
};

} // namespace

static_assert(sizeof(CcvMfcDialogBase) == 2 * sizeof(void*),
              "the table of virtual functions and one pointer");
static_assert(std::has_virtual_destructor_v<CcvMfcDialogBase>);
static_assert(std::is_same_v<decltype(&CcvMfcDialogBase::Create), BOOL (CcvMfcDialogBase::*)(UINT, CWnd*)>);
static_assert(std::is_same_v<decltype(&CcvMfcDialogBase::DoModal), INT_PTR (CcvMfcDialogBase::*)()>);
static_assert(std::is_same_v<decltype(&CcvMfcDialogBase::GetSafeHwnd), HWND (CcvMfcDialogBase::*)() const>);
static_assert(std::is_base_of_v<CcvMfcEnhancedDialogBase, CcvMfcEnhancedDialog>);

template <typename Facade>
constexpr bool kAddsNothing =
    std::is_base_of_v<CcvMfcDialogBase, Facade> && sizeof(Facade) == sizeof(CcvMfcDialogBase) &&
    std::is_same_v<decltype(&Facade::DoModal), decltype(&CcvMfcDialogBase::DoModal)>&& std::
        is_same_v<decltype(&Facade::Create), decltype(&CcvMfcDialogBase::Create)>&& std::is_same_v<
            decltype(&Facade::GetSafeHwnd), decltype(&CcvMfcDialogBase::GetSafeHwnd)>;
static_assert(kAddsNothing<CcvMfcAddReminderDialog>);
static_assert(kAddsNothing<CcvMfcManageRemindersDialog>);
static_assert(kAddsNothing<CcvMfcReminderAlertDialog>);

TEST(FacadeInterfaceTest, VirtualFunctions_StandInTheirOrder)
{
    // The destructor takes the first two places.
    EXPECT_EQ(2, VirtualSlotOf(&CcvMfcDialogBase::DoModal));
    EXPECT_EQ(3, VirtualSlotOf(&CcvMfcDialogBase::Create));
    EXPECT_EQ(4, VirtualSlotOf(&CcvMfcDialogBase::GetSafeHwnd));
    EXPECT_EQ(-1, VirtualSlotOf(&CcvMfcDialogBase::GetInternalDialog));
    EXPECT_EQ(-1, VirtualSlotOf(&CcvMfcDialogBase::SetInternalDialog));
}

TEST_F(FacadeTest, Constructed_InternalDialogWithoutAWindow)
{
    {
        const TestDialog dialog(m_events);
        EXPECT_EQ(1, m_events.alive);
        EXPECT_EQ(g_resourceManager.GetResourceHandle(), m_events.resourcesWhileConstructed);
        EXPECT_EQ(nullptr, dialog.GetSafeHwnd());
        EXPECT_EQ(HostModule(), AfxGetResourceHandle());
    }
    EXPECT_EQ(0, m_events.alive) << "the facade destroys it";
}

TEST_F(FacadeTest, NoInternalDialog_NoWindowAndNothingToDestroy)
{
    const CcvMfcDialogBase dialog;
    EXPECT_EQ(nullptr, dialog.GetInternalDialog());
    EXPECT_EQ(nullptr, dialog.GetSafeHwnd());
}

TEST_F(FacadeTest, Modal_WindowWhileItRunsAndResultAfterwards)
{
    TestDialog dialog(m_events);
    EXPECT_EQ(IDOK, dialog.DoModal());
    EXPECT_NE(nullptr, m_events.shown);
    EXPECT_EQ(nullptr, dialog.GetSafeHwnd());
    EXPECT_EQ(HostModule(), m_events.resourcesInTheLoop) << "the loop runs with the host's resources";
    EXPECT_EQ(HostModule(), AfxGetResourceHandle());
    EXPECT_EQ(L"Test", std::wstring(dialog.Internal().m_screen.GetString()));
}

TEST_F(FacadeTest, ModalOverAParent_BelongsToIt)
{
    TestDialog other(m_events);
    other.Internal().m_staysOpen = true;
    ASSERT_NE(FALSE, other.Create(IDD_PLAIN, nullptr));
    TestDialog dialog(m_events, other.GetInternalDialog());
    EXPECT_EQ(IDOK, dialog.DoModal());
    EXPECT_EQ(other.GetSafeHwnd(), m_events.owner);
}

TEST_F(FacadeTest, ModalAgain_TheSameTemplateIsShown)
{
    TestDialog dialog(m_events);
    EXPECT_TRUE(dialog.Internal().HasTemplateName());
    EXPECT_EQ(IDOK, dialog.DoModal());
    EXPECT_FALSE(dialog.Internal().HasTemplateName());
    EXPECT_EQ(IDOK, dialog.DoModal());
}

TEST_F(FacadeTest, ModalWithoutATemplate_FailsEachTime)
{
    TestDialog dialog(m_events, nullptr, 4711);
    EXPECT_EQ(-1, dialog.DoModal());
    EXPECT_EQ(-1, dialog.DoModal());
    EXPECT_EQ(HostModule(), AfxGetResourceHandle());
}

TEST_F(FacadeTest, Created_ModelessInTheLanguageLibrarysScope)
{
    TestDialog dialog(m_events);
    EXPECT_NE(FALSE, dialog.Create(IDD_PLAIN, nullptr));
    EXPECT_EQ(g_resourceManager.GetResourceHandle(), m_events.resourcesWhileCreated);
    EXPECT_NE(FALSE, IsWindow(dialog.GetSafeHwnd()));
    EXPECT_EQ(dialog.Internal().m_hWnd, dialog.GetSafeHwnd());
    EXPECT_EQ(HostModule(), AfxGetResourceHandle());
    PumpMessages();
    EXPECT_EQ(nullptr, dialog.GetSafeHwnd()) << "OK destroys the window";
    EXPECT_EQ(1, m_events.alive) << "the internal dialog survives it";
}

TEST_F(FacadeTest, CreateThrows_HostsResourcesAreBack)
{
    TestDialog dialog(m_events);
    dialog.Internal().m_createThrows = true;
    EXPECT_THROW(dialog.Create(IDD_PLAIN, nullptr), std::runtime_error);
    EXPECT_EQ(HostModule(), AfxGetResourceHandle());
}

TEST_F(FacadeTest, FacadeEndsBeforeItsModelessWindow_BothGo)
{
    HWND window = nullptr;
    {
        TestDialog dialog(m_events);
        ASSERT_NE(FALSE, dialog.Create(IDD_PLAIN, nullptr));
        window = dialog.GetSafeHwnd();
    }
    EXPECT_EQ(FALSE, IsWindow(window));
    EXPECT_EQ(0, m_events.alive);
}

TEST_F(FacadeTest, Destroyed_ItHasItsInternalDialogUntilThatIsGone)
{
    const CcvMfcDialogBaseInternal* internal = nullptr;
    {
        const TestDialog dialog(m_events);
        m_events.facade = &dialog;
        internal = dialog.GetInternalDialog();
    }
    EXPECT_EQ(internal, m_events.ownedAtTheEnd);
}

namespace
{

/// A facade without memory raises and leaves the host's resources, however far it gets.
template <typename Facade, typename... Arguments>
void ExpectToRaiseWithoutMemory(Arguments... arguments)
{
    int spared = 0;
    for (bool constructed = false; !constructed; ++spared)
    {
        try
        {
            const StarvedThread starved(spared);
            const Facade facade(arguments...);
            constructed = true;
        }
        catch (const std::bad_alloc&)
        {
        }
        EXPECT_EQ(HostModule(), AfxGetResourceHandle()) << spared;
    }
    EXPECT_LT(1, spared) << "memory is needed";
}

} // namespace

TEST_F(FacadeTest, ConstructedWithoutMemory_RaisesAndHostsResourcesAreBack)
{
    CcvReminderDataCollectionManager* const noManager = nullptr;
    CWnd* const noParent = nullptr;
    ExpectToRaiseWithoutMemory<CcvMfcManageRemindersDialog>(noManager, noParent);
    ExpectToRaiseWithoutMemory<CcvMfcReminderAlertDialog>(noManager, noParent);
    ExpectToRaiseWithoutMemory<CcvMfcAddReminderDialog>(noParent);
}

TEST_F(FacadeTest, OtherInternalDialogSet_FormerOneIsTheCallersAgain)
{
    std::unique_ptr<CcvMfcDialogBaseInternal> former;
    {
        TestDialog dialog(m_events);
        former.reset(dialog.GetInternalDialog());
        dialog.SetInternalDialog(std::make_unique<TestDialogInternal>(m_events, nullptr).release());
        EXPECT_EQ(2, m_events.alive);
    }
    EXPECT_EQ(1, m_events.alive);
    former.reset();
    EXPECT_EQ(0, m_events.alive);
}

TEST_F(FacadeTest, CopiedOrMoved_SharesTheInternalDialog)
{
    TestDialog dialog(m_events);
    CcvMfcDialogBase copy(dialog);
    CcvMfcDialogBase moved(std::move(copy));
    CcvMfcDialogBase assigned;
    assigned = dialog;
    for (CcvMfcDialogBase* each : {&copy, &moved, &assigned})
    {
        EXPECT_EQ(dialog.GetInternalDialog(), each->GetInternalDialog());
        each->SetInternalDialog(nullptr);
    }
    EXPECT_EQ(1, m_events.alive);
}

TEST_F(FacadeTest, ClassRecord_NamesTheBases)
{
    const CRuntimeClass* const own = CcvMfcDialogBaseInternal::GetThisClass();
    EXPECT_STREQ("CcvMfcDialogBaseInternal", own->m_lpszClassName);
    EXPECT_EQ(CcvMfcEnhancedDialog::GetThisClass(), own->m_pBaseClass);
    EXPECT_STREQ("CBCGPDialog", CcvMfcEnhancedDialog::GetThisClass()->m_pBaseClass->m_lpszClassName);
    EXPECT_EQ(sizeof(CcvMfcEnhancedDialog), sizeof(CcvMfcDialogBaseInternal)) << "it adds no data";
    const TestDialog dialog(m_events);
    EXPECT_EQ(TestDialogInternal::GetThisClass(), dialog.GetInternalDialog()->GetRuntimeClass());
}

TEST_F(FacadeTest, ManyRounds_LeaveNothingBehind)
{
    const auto round = [this]
    {
        TestDialog modal(m_events);
        ASSERT_EQ(IDOK, modal.DoModal());
        TestDialog modeless(m_events);
        ASSERT_NE(FALSE, modeless.Create(IDD_PLAIN, nullptr));
        PumpMessages();
    };
    ExpectRoundsLeaveNothing(Rounds(20), round);
    EXPECT_EQ(0, m_events.alive);
}
