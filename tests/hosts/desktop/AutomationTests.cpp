#include "hosts/desktop/ApplicationClass.h"
#include "hosts/desktop/ApplicationObject.h"

#include "platform/ComApartment.h"

#include <gtest/gtest.h>
#include <oleauto.h>

namespace
{

using namespace ts::desktop;

class Target final : public AutomationTarget
{
  public:
    bool IsVisible() const override { return visible; }
    void SetVisible(bool shown) override { visible = shown; }
    void Quit() override { ++quits; }
    bool StaysWithoutClients() override
    {
        ++lastClients;
        return stays;
    }

    bool visible = false;
    bool stays = true;
    int quits = 0;
    int lastClients = 0;
};

struct Releaser
{
    void operator()(IUnknown* object) const noexcept { object->Release(); }
};
using DispatchPtr = std::unique_ptr<IDispatch, Releaser>;

DispatchPtr Activate(REFIID id = kApplicationInterface)
{
    void* object = nullptr;
    EXPECT_EQ(S_OK, CoCreateInstance(kApplicationClass, nullptr, CLSCTX_LOCAL_SERVER, id, &object));
    return DispatchPtr(static_cast<IDispatch*>(object));
}

DISPID Find(IDispatch& object, std::wstring name, HRESULT expected = S_OK)
{
    wchar_t* names = name.data();
    DISPID id = 0;
    EXPECT_EQ(expected, object.GetIDsOfNames(IID_NULL, &names, 1, 0, &id)) << name.size();
    return id;
}

HRESULT Put(IDispatch& object, VARIANT value)
{
    DISPID named = DISPID_PROPERTYPUT;
    DISPPARAMS parameters = {&value, &named, 1, 1};
    return object.Invoke(Find(object, L"Visible"), IID_NULL, 0, DISPATCH_PROPERTYPUT, &parameters, nullptr,
                         nullptr, nullptr);
}

VARIANT Bool(bool value)
{
    VARIANT variant{};
    variant.vt = VT_BOOL;
    variant.boolVal = value ? VARIANT_TRUE : VARIANT_FALSE;
    return variant;
}

VARIANT Number(long value)
{
    VARIANT variant{};
    variant.vt = VT_I4;
    variant.lVal = value;
    return variant;
}

/// Gets the property or calls the method.
HRESULT Get(IDispatch& object, const wchar_t* name, VARIANT* result, WORD kind)
{
    DISPPARAMS none{};
    return object.Invoke(Find(object, name), IID_NULL, 0, kind, &none, result, nullptr, nullptr);
}

class AutomationTest : public testing::Test
{
  protected:
    ts::ComApartment m_com;
    Target m_target;
};

TEST_F(AutomationTest, Visible_IsReadAndWrittenInAnyCaseOfItsName)
{
    const ApplicationClass offered(m_target);
    const DispatchPtr object = Activate();
    ASSERT_NE(nullptr, object);
    EXPECT_EQ(Find(*object, L"Visible"), Find(*object, L"VISIBLE"));
    VARIANT visible{};
    EXPECT_EQ(S_OK, Get(*object, L"visible", &visible, DISPATCH_PROPERTYGET | DISPATCH_METHOD));
    EXPECT_EQ(VT_BOOL, visible.vt);
    EXPECT_EQ(VARIANT_FALSE, visible.boolVal);
    EXPECT_EQ(S_OK, Put(*object, Bool(true)));
    EXPECT_TRUE(m_target.visible);
    EXPECT_EQ(S_OK, Put(*object, Number(0)));
    EXPECT_FALSE(m_target.visible);
    EXPECT_EQ(S_OK, Put(*object, Number(-1)));
    EXPECT_EQ(S_OK, Get(*object, L"Visible", &visible, DISPATCH_PROPERTYGET));
    EXPECT_EQ(VARIANT_TRUE, visible.boolVal);
}

TEST_F(AutomationTest, WrongCalls_AreRefusedAndDoNothing)
{
    const ApplicationClass offered(m_target);
    const DispatchPtr object = Activate();
    ASSERT_NE(nullptr, object);
    EXPECT_EQ(DISPID_UNKNOWN, Find(*object, L"Window", DISP_E_UNKNOWNNAME));
    DISPPARAMS none{};
    EXPECT_EQ(DISP_E_MEMBERNOTFOUND,
              object->Invoke(77, IID_NULL, 0, DISPATCH_METHOD, &none, nullptr, nullptr, nullptr));
    EXPECT_EQ(DISP_E_BADPARAMCOUNT, object->Invoke(Find(*object, L"Visible"), IID_NULL, 0,
                                                   DISPATCH_PROPERTYPUT, &none, nullptr, nullptr, nullptr));
    VARIANT object2{};
    object2.vt = VT_UNKNOWN;
    EXPECT_EQ(DISP_E_TYPEMISMATCH, Put(*object, object2));
    EXPECT_FALSE(m_target.visible);
    EXPECT_EQ(0, m_target.quits);
}

TEST_F(AutomationTest, ArgumentThatIsNoTruth_IsNamed)
{
    const ApplicationClass offered(m_target);
    const DispatchPtr object = Activate();
    VARIANT argument{};
    argument.vt = VT_BSTR;
    argument.bstrVal = SysAllocString(L"neither yes nor no");
    DISPID named = DISPID_PROPERTYPUT;
    DISPPARAMS parameters = {&argument, &named, 1, 1};
    UINT wrong = 99;
    EXPECT_EQ(DISP_E_TYPEMISMATCH,
              object->Invoke(Find(*object, L"Visible"), IID_NULL, 0, DISPATCH_PROPERTYPUT, &parameters,
                             nullptr, nullptr, &wrong));
    EXPECT_EQ(0U, wrong);
    VariantClear(&argument);
}

TEST_F(AutomationTest, Quit_ReachesTheApplication)
{
    const ApplicationClass offered(m_target);
    const DispatchPtr object = Activate(IID_IDispatch);
    ASSERT_NE(nullptr, object);
    EXPECT_EQ(S_OK, Get(*object, L"Quit", nullptr, DISPATCH_METHOD));
    EXPECT_EQ(1, m_target.quits);
}

TEST_F(AutomationTest, LastReleasedObject_TellsTheApplicationEachTime)
{
    const ApplicationClass offered(m_target);
    EXPECT_FALSE(offered.WasUsed());
    DispatchPtr first = Activate();
    DispatchPtr second = Activate();
    EXPECT_TRUE(offered.WasUsed());
    first.reset();
    EXPECT_EQ(0, m_target.lastClients);
    second.reset();
    EXPECT_EQ(1, m_target.lastClients);
    // The application stays, so clients may come again.
    Activate().reset();
    EXPECT_EQ(2, m_target.lastClients);
}

TEST_F(AutomationTest, ObjectThatOutlivesTheApplication_Fails)
{
    auto offered = std::make_unique<ApplicationClass>(m_target);
    const DispatchPtr object = Activate();
    ASSERT_NE(nullptr, object);
    offered.reset();
    VARIANT visible{};
    EXPECT_EQ(CO_E_OBJNOTCONNECTED, Get(*object, L"Visible", &visible, DISPATCH_PROPERTYGET));
    EXPECT_EQ(CO_E_OBJNOTCONNECTED, Put(*object, Bool(true)));
    EXPECT_FALSE(m_target.visible);
    EXPECT_EQ(0, m_target.lastClients);
}

TEST_F(AutomationTest, OtherInterfaces_AreRefused)
{
    const ApplicationClass offered(m_target);
    void* object = &m_target;
    EXPECT_EQ(E_NOINTERFACE,
              CoCreateInstance(kApplicationClass, nullptr, CLSCTX_LOCAL_SERVER, IID_IPersistFile, &object));
    EXPECT_EQ(nullptr, object);
}

} // namespace
