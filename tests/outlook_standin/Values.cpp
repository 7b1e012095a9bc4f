#include "tests/outlook_standin/Values.h"

#include "tests/outlook_standin/Faults.h"

#include <array>
#include <cwchar>
#include <new>

namespace
{

using ts::standin::CallError;
using ts::standin::ErrorForm;

_variant_t Convert(const VARIANT& value, VARTYPE type)
{
    _variant_t converted;
    VARIANT borrowed = value;
    if (FAILED(VariantChangeType(&converted, &borrowed, 0, type)))
    {
        throw CallError(DISP_E_TYPEMISMATCH, "The value has a wrong type.", ErrorForm::Direct);
    }
    return converted;
}

std::wstring DescribeDate(double date)
{
    SYSTEMTIME fields{};
    if (VariantTimeToSystemTime(date, &fields) == FALSE)
    {
        return L"date " + std::to_wstring(date);
    }
    std::array<wchar_t, 32> text{};
    std::swprintf(text.data(), text.size(), L"%04u-%02u-%02u %02u:%02u:%02u", fields.wYear, fields.wMonth,
                  fields.wDay, fields.wHour, fields.wMinute, fields.wSecond);
    return text.data();
}

bool IsLeftOut(const VARIANT& value)
{
    return value.vt == VT_ERROR && value.scode == DISP_E_PARAMNOTFOUND;
}

std::wstring DescribeValue(const VARIANT& value)
{
    switch (value.vt)
    {
    case VT_BSTR:
        return L"\"" + ts::standin::TextOf(value) + L"\"";
    case VT_BOOL:
        return value.boolVal != VARIANT_FALSE ? L"true" : L"false";
    case VT_DATE:
        return DescribeDate(value.date);
    case VT_DISPATCH:
        return L"object";
    case VT_EMPTY:
        return L"empty";
    case VT_ERROR:
        return IsLeftOut(value) ? L"" : L"error " + std::to_wstring(value.scode);
    default:
        return ts::standin::TextOf(value);
    }
}

} // namespace

ts::standin::Arguments::Arguments(const DISPPARAMS& parameters)
{
    // Automation passes arguments from the last to the first, some behind a reference.
    for (UINT index = parameters.cArgs; index > 0; --index)
    {
        const VARIANT* const value = &parameters.rgvarg[index - 1];
        m_values.push_back(value->vt == (VT_BYREF | VT_VARIANT) ? value->pvarVal : value);
    }
}

bool ts::standin::Arguments::Has(std::size_t index) const noexcept
{
    return index < m_values.size() && !IsLeftOut(*m_values[index]);
}

const VARIANT& ts::standin::Arguments::operator[](std::size_t index) const
{
    if (!Has(index))
    {
        throw CallError(DISP_E_PARAMNOTOPTIONAL, "An argument is missing.", ErrorForm::Direct);
    }
    return *m_values[index];
}

std::wstring ts::standin::Arguments::Describe() const
{
    std::wstring text;
    for (const VARIANT* const value : m_values)
    {
        text += (text.empty() ? L"" : L", ") + DescribeValue(*value);
    }
    return text;
}

std::wstring ts::standin::TextOf(const VARIANT& value)
{
    const _variant_t text = Convert(value, VT_BSTR);
    return {text.bstrVal, SysStringLen(text.bstrVal)};
}

long ts::standin::LongOf(const VARIANT& value)
{
    return Convert(value, VT_I4).lVal;
}

bool ts::standin::BoolOf(const VARIANT& value)
{
    return Convert(value, VT_BOOL).boolVal != VARIANT_FALSE;
}

double ts::standin::DateOf(const VARIANT& value)
{
    return Convert(value, VT_DATE).date;
}

double ts::standin::DoubleOf(const VARIANT& value)
{
    return Convert(value, VT_R8).dblVal;
}

_variant_t ts::standin::FromText(const std::wstring& text)
{
    _variant_t value;
    value.bstrVal = SysAllocStringLen(text.data(), static_cast<UINT>(text.size()));
    if (value.bstrVal == nullptr)
    {
        throw std::bad_alloc();
    }
    value.vt = VT_BSTR;
    return value;
}
