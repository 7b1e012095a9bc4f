#include "outlook/AutomationValue.h"

#include "module/CcvComException.h"
#include "platform/mfc/atlexcept.h"

namespace
{

/// Writes `value` as a value of `type` to `converted`.
void Convert(const _variant_t& value, VARTYPE type, _variant_t& converted)
{
    VARIANT borrowed = value;
    const HRESULT result = VariantChangeType(&converted, &borrowed, 0, type);
    if (result == E_OUTOFMEMORY)
    {
        AtlThrow(result);
    }
    if (FAILED(result))
    {
        throw CcvComException(result);
    }
}

} // namespace

_variant_t ts::TextValue(const CString& text)
{
    _variant_t value;
    value.bstrVal = SysAllocStringLen(text.GetString(), static_cast<UINT>(text.GetLength()));
    if (value.bstrVal == nullptr)
    {
        AtlThrow(E_OUTOFMEMORY);
    }
    value.vt = VT_BSTR;
    return value;
}

_variant_t ts::LongValue(long value) noexcept
{
    return {value, VT_I4};
}

_variant_t ts::BoolValue(bool value) noexcept
{
    return {value};
}

_variant_t ts::DateValue(DATE value) noexcept
{
    return {value, VT_DATE};
}

CString ts::ToText(const _variant_t& value)
{
    _variant_t text;
    Convert(value, VT_BSTR, text);
    return {text.bstrVal, static_cast<int>(SysStringLen(text.bstrVal))};
}

long ts::ToLong(const _variant_t& value)
{
    _variant_t number;
    Convert(value, VT_I4, number);
    return number.lVal;
}

bool ts::ToBool(const _variant_t& value)
{
    _variant_t truth;
    Convert(value, VT_BOOL, truth);
    return truth.boolVal != VARIANT_FALSE;
}

DATE ts::ToDate(const _variant_t& value)
{
    _variant_t date;
    Convert(value, VT_DATE, date);
    return date.date;
}
