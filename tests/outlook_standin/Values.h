#pragma once

#include "platform/WindowsHeaders.h"

#include <comdef.h>
#include <string>
#include <vector>

/// Values that arrive from a client and those that go back.
namespace ts::standin
{

/// The arguments of one call in the order of the method's declaration. They stay the client's.
class Arguments
{
  public:
    explicit Arguments(const DISPPARAMS& parameters);

    [[nodiscard]] std::size_t GetCount() const noexcept { return m_values.size(); }
    /// An argument at the end may be missing in the call, and any may be marked as left out.
    [[nodiscard]] bool Has(std::size_t index) const noexcept;
    /// Throws CallError(DISP_E_PARAMNOTOPTIONAL) when it was left out.
    [[nodiscard]] const VARIANT& operator[](std::size_t index) const;
    [[nodiscard]] std::wstring Describe() const;

  private:
    std::vector<const VARIANT*> m_values;
};

// Conversions by the rules of automation. What cannot be converted throws CallError(DISP_E_TYPEMISMATCH).
[[nodiscard]] std::wstring TextOf(const VARIANT& value);
[[nodiscard]] long LongOf(const VARIANT& value);
[[nodiscard]] bool BoolOf(const VARIANT& value);
[[nodiscard]] double DateOf(const VARIANT& value);
[[nodiscard]] double DoubleOf(const VARIANT& value);

[[nodiscard]] _variant_t FromText(const std::wstring& text);
[[nodiscard]] inline _variant_t FromLong(long value) noexcept
{
    return {value, VT_I4};
}
[[nodiscard]] inline _variant_t FromBool(bool value) noexcept
{
    return {value};
}
[[nodiscard]] inline _variant_t FromDate(double value) noexcept
{
    return {value, VT_DATE};
}

} // namespace ts::standin
