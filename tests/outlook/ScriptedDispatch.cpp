#include "tests/outlook/ScriptedDispatch.h"

#include <comdef.h>

namespace ts::test
{
namespace
{

std::wstring Describe(const VARIANT& value)
{
    VARIANT text{};
    VARIANT borrowed = value;
    std::wstring described = std::to_wstring(value.vt) + L":";
    if (SUCCEEDED(VariantChangeTypeEx(&text, &borrowed, LOCALE_INVARIANT, 0, VT_BSTR)))
    {
        described.append(text.bstrVal, SysStringLen(text.bstrVal));
    }
    VariantClear(&text);
    return described;
}

} // namespace

HRESULT ScriptedDispatch::QueryInterface(REFIID interfaceId, void** object)
{
    queried.push_back(interfaceId);
    *object = nullptr;
    if (SUCCEEDED(queryResult) && !queryAnswersNull)
    {
        *object = static_cast<IDispatch*>(this);
        AddRef();
    }
    return queryResult;
}

HRESULT ScriptedDispatch::GetIDsOfNames(REFIID, LPOLESTR* names, UINT count, LCID, DISPID* found)
{
    const std::lock_guard guard(m_mutex);
    askedNames.emplace_back(names[0]);
    const auto known = ids.find(names[0]);
    if (FAILED(idsResult) || count != 1 || known == ids.end())
    {
        *found = DISPID_UNKNOWN;
        return FAILED(idsResult) ? idsResult : DISP_E_UNKNOWNNAME;
    }
    *found = known->second;
    return S_OK;
}

HRESULT ScriptedDispatch::Invoke(DISPID id, REFIID interfaceId, LCID, WORD kind, DISPPARAMS* parameters,
                                 VARIANT* result, EXCEPINFO* error, UINT*)
{
    const std::lock_guard guard(m_mutex);
    Invocation invocation{id, interfaceId, kind, {}, {}, result != nullptr};
    for (UINT index = 0; index < parameters->cArgs; ++index)
    {
        invocation.arguments.push_back(Describe(parameters->rgvarg[index]));
    }
    for (UINT index = 0; index < parameters->cNamedArgs; ++index)
    {
        invocation.named.push_back(parameters->rgdispidNamedArgs[index]);
    }
    invocations.push_back(std::move(invocation));
    return onInvoke ? onInvoke(id, result, error) : S_OK;
}

} // namespace ts::test
