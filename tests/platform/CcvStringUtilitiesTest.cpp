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
