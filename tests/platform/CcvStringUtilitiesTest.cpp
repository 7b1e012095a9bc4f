#include "platform/ts/CcvStringUtilities.h"
#include "tests/support/TextOutput.h"

#include <gtest/gtest.h>

TEST(CcvStringUtilitiesTest, RemoveCRLF_AnyText_TakesOnlyTheTwoCharacters)
{
    struct Row
    {
        CString text;
        CString expected;
    };
    const Row rows[] = {
        {L"", L""},
        {L"plain", L"plain"},
        {L"one\r\ntwo", L"onetwo"},
        {L"one\rtwo\nthree", L"onetwothree"},
        {L"\r\n\n\r", L""},
        {L"\r\nmiddle\r\n", L"middle"},
        {L"tab\tvertical\vform\fnext\x0085line\x2028", L"tab\tvertical\vform\fnext\x0085line\x2028"},
        {L"\xD83D\r\xDE00", L"\xD83D\xDE00"},
        {L"\x0D0A\x0A0D", L"\x0D0A\x0A0D"},
        {CString(L"a\0\r\nb", 5), CString(L"a\0b", 3)},
    };
    for (const Row& row : rows)
    {
        EXPECT_EQ(row.expected, CcvStringUtilities::RemoveCRLF(row.text));
    }
}

TEST(CcvStringUtilitiesTest, RemoveCRLF_OfAText_LeavesTheArgument)
{
    const CString text(L"a\nb");
    EXPECT_EQ(L"ab", CcvStringUtilities::RemoveCRLF(text));
    EXPECT_EQ(L"a\nb", text);
}

TEST(CcvStringUtilitiesTest, FixTooltipCharacters_AtTheEdgesOfWhatIsForbidden_ReplacesTheForbidden)
{
    struct Row
    {
        CString text;
        CString expected;
    };
    const Row rows[] = {
        {L"&<>\"", L"&amp;&lt;&gt;&quot;"},
        {L"a\tb'c", L"a\tb'c"},
        {CString(L"\0", 1), L"\xFFFD"},
        {L"\x0001\r\n\x001F", L"\xFFFD\xFFFD\xFFFD\xFFFD"},
        {L" ~", L" ~"},
        {L"\x007F\x0080\x009F", L"\xFFFD\xFFFD\xFFFD"},
        {L"\x00A0\xD7FF\xE000\xFFFD", L"\x00A0\xD7FF\xE000\xFFFD"},
        {L"\xFFFE\xFFFF", L"\xFFFD\xFFFD"},
        {L"\xD800\xDC00 \xDBFF\xDFFF", L"\xD800\xDC00 \xDBFF\xDFFF"},
        {L"\xD800", L"\xFFFD"},
        {L"\xDBFF!", L"\xFFFD!"},
        {L"\xDC00\xD800", L"\xFFFD\xFFFD"},
        {L"\xD800\xD800\xDC00", L"\xFFFD\xD800\xDC00"},
        {L"\xDFFF", L"\xFFFD"},
    };
    for (const Row& row : rows)
    {
        CString fixed = row.text;
        CcvStringUtilities::FixInvalidUnformattedTooltipCharacters(fixed);
        EXPECT_EQ(row.expected, fixed) << testing::PrintToString(row.text);
    }
}
