#include "ApplicationObject.h"

#include <algorithm>
#include <iterator>
#include <oleauto.h>

namespace ts::desktop
{
namespace
{

constexpr DISPID kVisible = 1;
constexpr DISPID kQuit = 2;

struct Member
{
    const wchar_t* name;
    DISPID id;
};
constexpr Member kMembers[] = {{L"Visible", kVisible}, {L"Quit", kQuit}};

/// Automation does not tell upper from lower case.
DISPID FindMember(const wchar_t* name) noexcept
{
    const auto* const found =
        std::ranges::find_if(kMembers, [name](const Member& member)
                             { return CompareStringOrdinal(member.name, -1, name, -1, TRUE) == CSTR_EQUAL; });
    return found != std::end(kMembers) ? found->id : DISPID_UNKNOWN;
}

bool Is(WORD kind, WORD wanted) noexcept
{
    return (kind & wanted) != 0;
}

} // namespace

ApplicationObject::ApplicationObject(ApplicationClass& owner, AutomationTarget& target)
    : m_owner(&owner), m_target(&target)
{
    m_owner->m_objects.insert(this);
    m_owner->AddClient();
}

ApplicationObject::~ApplicationObject()
{
    if (m_owner != nullptr)
    {
        m_owner->m_objects.erase(this);
        m_owner->RemoveClient();
    }
}

void ApplicationObject::CutOff() noexcept
{
    m_owner = nullptr;
    m_target = nullptr;
}

HRESULT ApplicationObject::QueryInterface(REFIID id, void** object) noexcept
{
    if (object == nullptr)
    {
        return E_POINTER;
    }
    const bool known = id == IID_IUnknown || id == IID_IDispatch || id == kApplicationInterface;
    *object = known ? this : nullptr;
    if (known)
    {
        AddRef();
    }
    return known ? S_OK : E_NOINTERFACE;
}

ULONG ApplicationObject::Release() noexcept
{
    const ULONG left = --m_references;
    if (left == 0)
    {
        const std::unique_ptr<ApplicationObject> last(this);
    }
    return left;
}

HRESULT ApplicationObject::GetTypeInfoCount(UINT* count) noexcept
{
    if (count == nullptr)
    {
        return E_POINTER;
    }
    *count = 0;
    return S_OK;
}

HRESULT ApplicationObject::GetTypeInfo(UINT, LCID, ITypeInfo** type) noexcept
{
    if (type != nullptr)
    {
        *type = nullptr;
    }
    return E_NOTIMPL;
}

HRESULT ApplicationObject::GetIDsOfNames(REFIID, LPOLESTR* names, UINT count, LCID, DISPID* ids) noexcept
{
    if (names == nullptr || ids == nullptr)
    {
        return E_POINTER;
    }
    // Names behind the first are those of arguments, of which no member has one.
    std::fill_n(ids, count, DISPID_UNKNOWN);
    if (count > 0)
    {
        *ids = FindMember(*names);
    }
    return count == 1 && *ids != DISPID_UNKNOWN ? S_OK : DISP_E_UNKNOWNNAME;
}

HRESULT ApplicationObject::Invoke(DISPID id, REFIID, LCID, WORD kind, DISPPARAMS* parameters, VARIANT* result,
                                  EXCEPINFO*, UINT* wrongArgument) noexcept
{
    if (m_target == nullptr)
    {
        return CO_E_OBJNOTCONNECTED;
    }
    if (parameters == nullptr)
    {
        return E_POINTER;
    }
    try
    {
        if (id == kVisible && Is(kind, DISPATCH_PROPERTYPUT))
        {
            return PutVisible(*parameters, wrongArgument);
        }
        if (id == kVisible && Is(kind, DISPATCH_PROPERTYGET))
        {
            return GetVisible(*parameters, result);
        }
        if (id != kQuit || !Is(kind, DISPATCH_METHOD))
        {
            return DISP_E_MEMBERNOTFOUND;
        }
        if (parameters->cArgs != 0)
        {
            return DISP_E_BADPARAMCOUNT;
        }
        m_target->Quit();
        return S_OK;
    }
    catch (...)
    {
        return E_UNEXPECTED;
    }
}

HRESULT ApplicationObject::GetVisible(const DISPPARAMS& parameters, VARIANT* result) const
{
    if (parameters.cArgs != 0)
    {
        return DISP_E_BADPARAMCOUNT;
    }
    if (result != nullptr)
    {
        VariantInit(result);
        result->vt = VT_BOOL;
        result->boolVal = m_target->IsVisible() ? VARIANT_TRUE : VARIANT_FALSE;
    }
    return S_OK;
}

HRESULT ApplicationObject::PutVisible(const DISPPARAMS& parameters, UINT* wrongArgument)
{
    if (parameters.cArgs != 1)
    {
        return DISP_E_BADPARAMCOUNT;
    }
    VARIANT visible;
    VariantInit(&visible);
    const HRESULT changed = VariantChangeType(&visible, parameters.rgvarg, 0, VT_BOOL);
    if (FAILED(changed))
    {
        if (wrongArgument != nullptr)
        {
            *wrongArgument = 0;
        }
        return changed;
    }
    m_target->SetVisible(visible.boolVal != VARIANT_FALSE);
    return S_OK;
}

} // namespace ts::desktop
