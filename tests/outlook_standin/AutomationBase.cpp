#include "tests/outlook_standin/AutomationBase.h"

#include "tests/outlook_standin/Files.h"

#include <algorithm>
#include <cguid.h>

namespace
{

using ts::standin::Call;
using ts::standin::CallError;
using ts::standin::ErrorForm;

bool SameName(const wchar_t* first, const wchar_t* second)
{
    return CompareStringOrdinal(first, -1, second, -1, TRUE) == CSTR_EQUAL;
}

HRESULT Report(const CallError& error, EXCEPINFO* info)
{
    if (error.GetForm() == ErrorForm::Direct)
    {
        return error.GetError();
    }
    if (info != nullptr)
    {
        *info = {};
        info->scode = error.GetError();
        info->bstrSource = SysAllocString(L"Stand-in Outlook (test double)");
        info->bstrDescription = SysAllocString(ts::standin::FromUtf8(error.what()).c_str());
    }
    return DISP_E_EXCEPTION;
}

/// Turns what `work` throws into the result of a COM method.
template <typename Work>
HRESULT Guard(EXCEPINFO* info, const Work& work) noexcept
{
    try
    {
        work();
        return S_OK;
    }
    catch (const CallError& error)
    {
        return Report(error, info);
    }
    catch (const std::bad_alloc&)
    {
        return E_OUTOFMEMORY;
    }
    catch (const std::exception&)
    {
        return E_UNEXPECTED;
    }
}

/// A client that does not know which of the two it is may ask for both.
bool IsPut(WORD flags)
{
    return (flags & (DISPATCH_PROPERTYPUT | DISPATCH_PROPERTYPUTREF)) != 0;
}

const wchar_t* AccessOf(const ts::standin::Member& member, WORD flags)
{
    if (IsPut(flags))
    {
        return member.put != nullptr ? L"put" : nullptr;
    }
    if ((flags & DISPATCH_METHOD) != 0 && member.call != nullptr)
    {
        return L"call";
    }
    return (flags & DISPATCH_PROPERTYGET) != 0 && member.get != nullptr ? L"get" : nullptr;
}

} // namespace

ts::standin::AutomationBase::AutomationBase(std::shared_ptr<Server> server, const Kind& kind)
    : m_server(std::move(server)), m_kind(&kind)
{
    m_server->CountObject(1);
}

ts::standin::AutomationBase::~AutomationBase()
{
    m_server->CountObject(-1);
}

HRESULT ts::standin::AutomationBase::QueryInterface(REFIID interfaceId, void** object) noexcept
{
    if (object == nullptr)
    {
        return E_POINTER;
    }
    *object = nullptr;
    const bool own = interfaceId == m_kind->interfaceId && m_kind->interfaceId != IID_NULL;
    if (interfaceId != IID_IUnknown && interfaceId != IID_IDispatch &&
        !(own && m_server->HasInterface(m_kind->name)))
    {
        return E_NOINTERFACE;
    }
    AddRef();
    *object = static_cast<IDispatch*>(this);
    return S_OK;
}

ULONG ts::standin::AutomationBase::AddRef() noexcept
{
    return ++m_references;
}

ULONG ts::standin::AutomationBase::Release() noexcept
{
    const ULONG left = --m_references;
    if (left == 0)
    {
        const std::unique_ptr<AutomationBase> last(this);
    }
    return left;
}

HRESULT ts::standin::AutomationBase::GetTypeInfoCount(UINT* count) noexcept
{
    if (count == nullptr)
    {
        return E_POINTER;
    }
    *count = 0;
    return S_OK;
}

HRESULT ts::standin::AutomationBase::GetTypeInfo(UINT, LCID, ITypeInfo**) noexcept
{
    return E_NOTIMPL;
}

HRESULT ts::standin::AutomationBase::GetIDsOfNames(REFIID, LPOLESTR* names, UINT count, LCID,
                                                   DISPID* ids) noexcept
{
    if (names == nullptr || ids == nullptr || count == 0)
    {
        return E_INVALIDARG;
    }
    // Names of arguments are not known.
    std::fill_n(ids, count, DISPID_UNKNOWN);
    const auto& members = m_kind->members;
    const auto found = std::find_if(members.begin(), members.end(),
                                    [&](const Member& member) { return SameName(member.name, names[0]); });
    if (found == members.end())
    {
        return DISP_E_UNKNOWNNAME;
    }
    const HRESULT checked = Guard(nullptr, [&] { m_server->CheckLookUp(m_kind->name, found->name); });
    if (FAILED(checked))
    {
        return checked;
    }
    ids[0] = m_kind->firstId + static_cast<DISPID>(found - members.begin());
    return count == 1 ? S_OK : DISP_E_UNKNOWNNAME;
}

HRESULT ts::standin::AutomationBase::Invoke(DISPID id, REFIID, LCID, WORD flags, DISPPARAMS* parameters,
                                            VARIANT* result, EXCEPINFO* error, UINT*) noexcept
{
    return Guard(error,
                 [&]
                 {
                     const Member& member = FindMember(id);
                     const Arguments arguments(*parameters);
                     const wchar_t* const access = AccessOf(member, flags);
                     if (access == nullptr)
                     {
                         throw CallError(DISP_E_MEMBERNOTFOUND, "The member is of another kind.",
                                         ErrorForm::Direct);
                     }
                     const auto finish =
                         m_server->BeginCall({m_kind->name, access, member.name, arguments.Describe()});
                     _variant_t answer = Perform(member, flags, arguments);
                     finish();
                     if (result != nullptr)
                     {
                         *result = answer.Detach();
                     }
                 });
}

const ts::standin::Member& ts::standin::AutomationBase::FindMember(DISPID id) const
{
    const auto count = static_cast<DISPID>(m_kind->members.size());
    if (id < m_kind->firstId || id >= m_kind->firstId + count)
    {
        throw CallError(DISP_E_MEMBERNOTFOUND, "There is no such member.", ErrorForm::Direct);
    }
    return m_kind->members[static_cast<std::size_t>(id - m_kind->firstId)];
}

_variant_t ts::standin::AutomationBase::Perform(const Member& member, WORD flags, const Arguments& arguments)
{
    if (IsPut(flags))
    {
        member.put(*this, arguments[0]);
        return {};
    }
    const bool isCall = (flags & DISPATCH_METHOD) != 0 && member.call != nullptr;
    return isCall ? member.call(*this, arguments) : member.get(*this, arguments);
}
