#pragma once

#include "outlook/AutomationMember.h"
#include "outlook/AutomationValue.h"

#include <initializer_list>

namespace ts
{

using DispatchPtr = _com_ptr_t<_com_IIID<IDispatch, &IID_IDispatch>>;

/// A share in an automation object, never null, whose members are reached by name.
///
/// Whatever fails raises CcvComException: with the HRESULT of the call, or with the error that the server
/// reports in its own words. An answer of another type than asked for is such a failure too.
class AutomationObject
{
  public:
    /// Raises CcvComException(E_POINTER) when `object` is null.
    explicit AutomationObject(const DispatchPtr& object);

    /// The same object by another of its interfaces, one that is derived from IDispatch.
    [[nodiscard]] AutomationObject Query(REFIID interfaceId) const;

    [[nodiscard]] _variant_t Get(const AutomationMember& property) const;
    [[nodiscard]] CString GetText(const AutomationMember& property) const { return ToText(Get(property)); }
    [[nodiscard]] long GetLong(const AutomationMember& property) const { return ToLong(Get(property)); }
    [[nodiscard]] bool GetBool(const AutomationMember& property) const { return ToBool(Get(property)); }
    [[nodiscard]] DATE GetDate(const AutomationMember& property) const { return ToDate(Get(property)); }
    [[nodiscard]] AutomationObject GetChild(const AutomationMember& property) const;

    void Put(const AutomationMember& property, const _variant_t& value) const;

    /// Arguments in the order of the method's declaration; those at its end may be left out.
    using Arguments = std::initializer_list<_variant_t>;
    void Call(const AutomationMember& method, Arguments arguments = {}) const;
    [[nodiscard]] AutomationObject CallForObject(const AutomationMember& method,
                                                 Arguments arguments = {}) const;

  private:
    [[nodiscard]] DISPID LookUp(const AutomationMember& member) const;
    _variant_t Invoke(const AutomationMember& member, WORD kind, DISPPARAMS parameters) const;
    _variant_t InvokeMethod(const AutomationMember& method, Arguments arguments) const;

    DispatchPtr m_object;
};

} // namespace ts
