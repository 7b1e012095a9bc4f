#include "outlook/AutomationObject.h"

#include "module/CcvComException.h"

#include <string>
#include <vector>

namespace
{

void Check(HRESULT result)
{
    if (FAILED(result))
    {
        throw CcvComException(result);
    }
}

/// What a server says about a call that failed. Owns its texts.
class ServerError
{
  public:
    ServerError() = default;
    ServerError(const ServerError&) = delete;
    ServerError& operator=(const ServerError&) = delete;
    ~ServerError() { Clear(); }

    /// Empties it, for a call to fill.
    EXCEPINFO* Put() noexcept
    {
        Clear();
        return &m_info;
    }

    [[noreturn]] void Throw(HRESULT result)
    {
        if (result == DISP_E_EXCEPTION && m_info.pfnDeferredFillIn != nullptr)
        {
            m_info.pfnDeferredFillIn(&m_info);
        }
        const bool isOwnCode = result == DISP_E_EXCEPTION && FAILED(m_info.scode);
        throw CcvComException(isOwnCode ? m_info.scode : result, nullptr, m_info.bstrDescription);
    }

  private:
    void Clear() noexcept
    {
        SysFreeString(m_info.bstrSource);
        SysFreeString(m_info.bstrDescription);
        SysFreeString(m_info.bstrHelpFile);
        m_info = {};
    }

    EXCEPINFO m_info{};
};

/// The object in `value`, which a call answered.
ts::AutomationObject ObjectIn(const _variant_t& value)
{
    if (value.vt != VT_DISPATCH)
    {
        throw CcvComException(DISP_E_TYPEMISMATCH);
    }
    return ts::AutomationObject(ts::DispatchPtr(value.pdispVal));
}

} // namespace

ts::AutomationObject::AutomationObject(const DispatchPtr& object) : m_object(object)
{
    // Compared as it is: the pointer's own comparison would ask the object for its identity.
    if (m_object.GetInterfacePtr() == nullptr)
    {
        throw CcvComException(E_POINTER);
    }
}

ts::AutomationObject ts::AutomationObject::Query(REFIID interfaceId) const
{
    void* queried = nullptr;
    Check(m_object->QueryInterface(interfaceId, &queried));
    return AutomationObject(DispatchPtr(static_cast<IDispatch*>(queried), false));
}

_variant_t ts::AutomationObject::Get(const AutomationMember& property) const
{
    return Invoke(property, DISPATCH_PROPERTYGET, {});
}

ts::AutomationObject ts::AutomationObject::GetChild(const AutomationMember& property) const
{
    return ObjectIn(Get(property));
}

void ts::AutomationObject::Put(const AutomationMember& property, const _variant_t& value) const
{
    VARIANT borrowed = value;
    DISPID put = DISPID_PROPERTYPUT;
    Invoke(property, DISPATCH_PROPERTYPUT, {&borrowed, &put, 1, 1});
}

void ts::AutomationObject::Call(const AutomationMember& method, Arguments arguments) const
{
    InvokeMethod(method, arguments);
}

ts::AutomationObject ts::AutomationObject::CallForObject(const AutomationMember& method,
                                                         Arguments arguments) const
{
    return ObjectIn(InvokeMethod(method, arguments));
}

DISPID ts::AutomationObject::LookUp(const AutomationMember& member) const
{
    std::wstring name(member.GetName());
    LPOLESTR names = name.data();
    DISPID id = DISPID_UNKNOWN;
    Check(m_object->GetIDsOfNames(IID_NULL, &names, 1, LOCALE_USER_DEFAULT, &id));
    member.RememberId(id);
    return id;
}

_variant_t ts::AutomationObject::Invoke(const AutomationMember& member, WORD kind,
                                        DISPPARAMS parameters) const
{
    _variant_t answer;
    ServerError error;
    const auto invoke = [&](DISPID id)
    {
        UINT badArgument = 0;
        VARIANT* const result = (kind & DISPATCH_PROPERTYPUT) != 0 ? nullptr : &answer;
        return m_object->Invoke(id, IID_NULL, LOCALE_USER_DEFAULT, kind, &parameters, result, error.Put(),
                                &badArgument);
    };
    const DISPID known = member.GetId();
    HRESULT result = invoke(known == DISPID_UNKNOWN ? LookUp(member) : known);
    if (result == DISP_E_MEMBERNOTFOUND && known != DISPID_UNKNOWN)
    {
        // Nothing was done yet. The id may be that of a server that is no longer the one that answers.
        VariantClear(&answer);
        result = invoke(LookUp(member));
    }
    if (FAILED(result))
    {
        error.Throw(result);
    }
    return answer;
}

_variant_t ts::AutomationObject::InvokeMethod(const AutomationMember& method, Arguments arguments) const
{
    // Automation takes arguments from the last to the first. They stay the caller's.
    std::vector<VARIANT> reversed(std::rbegin(arguments), std::rend(arguments));
    return Invoke(method, DISPATCH_METHOD, {reversed.data(), nullptr, static_cast<UINT>(reversed.size()), 0});
}
