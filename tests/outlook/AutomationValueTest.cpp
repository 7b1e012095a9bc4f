#include "outlook/AutomationValue.h"

#include "module/CcvComException.h"
#include "tests/support/TextOutput.h"

#include <array>
#include <gtest/gtest.h>

namespace ts::test
{
namespace
{

template <typename Convert>
HRESULT FailureOf(const Convert& convert, const _variant_t& value)
{
    try
    {
        static_cast<void>(convert(value));
    }
    catch (const CcvComException& error)
    {
        return error.GetCode();
    }
    return S_OK;
}

_variant_t OfType(VARTYPE type)
{
    _variant_t value;
    value.vt = type;
    return value;
}

/// What Outlook's keyword properties hold.
_variant_t TextArray()
{
    _variant_t value;
    value.parray = SafeArrayCreateVector(VT_BSTR, 0, 2);
    value.vt = VT_ARRAY | VT_BSTR;
    return value;
}

} // namespace

TEST(AutomationValueTest, Text_KeepsEmbeddedZerosAndEveryCharacter)
{
    // With a zero, a surrogate pair and half of one.
    constexpr wchar_t kText[] = {0x00E4, 0, 0xD83D, 0xDD14, 0xD800, L'x', 0};
    const CString text(kText, static_cast<int>(std::size(kText)));
    const _variant_t value = TextValue(text);
    EXPECT_EQ(VT_BSTR, value.vt);
    EXPECT_EQ(static_cast<UINT>(text.GetLength()), SysStringLen(value.bstrVal));
    EXPECT_EQ(text, ToText(value));
}

TEST(AutomationValueTest, Text_ThatIsEmpty_IsATextAllTheSame)
{
    const _variant_t value = TextValue(CString());
    EXPECT_EQ(VT_BSTR, value.vt);
    ASSERT_NE(nullptr, value.bstrVal);
    EXPECT_EQ(0u, SysStringLen(value.bstrVal));
    EXPECT_EQ(CString(), ToText(value));
    EXPECT_EQ(CString(), ToText(OfType(VT_BSTR))) << "a null text is an empty one";
    EXPECT_EQ(CString(), ToText(_variant_t())) << "so is no value at all";
}

TEST(AutomationValueTest, Numbers_AreOfFourBytes)
{
    for (const long number : {0L, 1L, -1L, LONG_MAX, LONG_MIN})
    {
        EXPECT_EQ(VT_I4, LongValue(number).vt);
        EXPECT_EQ(number, LongValue(number).lVal);
        EXPECT_EQ(number, ToLong(LongValue(number)));
    }
}

TEST(AutomationValueTest, Truths_AreOfAutomationsOwnValues)
{
    EXPECT_EQ(VT_BOOL, BoolValue(true).vt);
    EXPECT_EQ(VARIANT_TRUE, BoolValue(true).boolVal);
    EXPECT_EQ(VARIANT_FALSE, BoolValue(false).boolVal);
    EXPECT_TRUE(ToBool(BoolValue(true)));
    EXPECT_FALSE(ToBool(BoolValue(false)));
}

TEST(AutomationValueTest, Dates_AreNoMereNumbers)
{
    EXPECT_EQ(VT_DATE, DateValue(39845.375).vt);
    EXPECT_EQ(39845.375, DateValue(39845.375).date);
    EXPECT_EQ(39845.375, ToDate(DateValue(39845.375)));
}

TEST(AutomationValueTest, ToText_ConvertsNumbers)
{
    EXPECT_EQ(L"-12", ToText(LongValue(-12)));
    EXPECT_EQ(L"7", ToText(_variant_t(static_cast<short>(7))));
}

TEST(AutomationValueTest, ToText_ThatCannotBe_Raises)
{
    for (const _variant_t& value : {OfType(VT_NULL), TextArray(), OfType(VT_UNKNOWN)})
    {
        EXPECT_EQ(DISP_E_TYPEMISMATCH, FailureOf(ToText, value)) << value.vt;
    }
}

TEST(AutomationValueTest, ToLong_ConvertsOtherNumbersAndDigits)
{
    EXPECT_EQ(7, ToLong(_variant_t(static_cast<short>(7))));
    EXPECT_EQ(42, ToLong(TextValue(L"42")));
    EXPECT_EQ(-1, ToLong(BoolValue(true)));
    EXPECT_EQ(0, ToLong(_variant_t()));
    EXPECT_EQ(2, ToLong(_variant_t(2.4)));
}

TEST(AutomationValueTest, ToLong_ThatCannotBe_Raises)
{
    EXPECT_EQ(DISP_E_OVERFLOW, FailureOf(ToLong, _variant_t(1e10)));
    EXPECT_EQ(DISP_E_TYPEMISMATCH, FailureOf(ToLong, TextValue(L"one")));
    EXPECT_EQ(DISP_E_TYPEMISMATCH, FailureOf(ToLong, OfType(VT_NULL)));
}

TEST(AutomationValueTest, ToBool_TakesWhateverIsNotZeroForTrue)
{
    EXPECT_TRUE(ToBool(LongValue(1)));
    EXPECT_TRUE(ToBool(LongValue(-1)));
    EXPECT_FALSE(ToBool(LongValue(0)));
    EXPECT_FALSE(ToBool(_variant_t()));
    _variant_t odd(true);
    odd.boolVal = 1;
    EXPECT_TRUE(ToBool(odd)) << "some servers say true their own way";
}

TEST(AutomationValueTest, ToBool_ThatCannotBe_Raises)
{
    EXPECT_EQ(DISP_E_TYPEMISMATCH, FailureOf(ToBool, OfType(VT_NULL)));
    EXPECT_EQ(DISP_E_TYPEMISMATCH, FailureOf(ToBool, TextValue(L"perhaps")));
}

TEST(AutomationValueTest, ToDate_ConvertsNumbers)
{
    EXPECT_EQ(2.5, ToDate(_variant_t(2.5)));
    EXPECT_EQ(3.0, ToDate(LongValue(3)));
    EXPECT_EQ(0.0, ToDate(_variant_t()));
}

TEST(AutomationValueTest, ToDate_ThatCannotBe_Raises)
{
    EXPECT_EQ(DISP_E_TYPEMISMATCH, FailureOf(ToDate, OfType(VT_NULL)));
    EXPECT_EQ(DISP_E_TYPEMISMATCH, FailureOf(ToDate, TextValue(L"one day")));
}

} // namespace ts::test
