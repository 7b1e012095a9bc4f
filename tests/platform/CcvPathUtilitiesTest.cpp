#include "platform/ts/CcvPathUtilities.h"
#include "tests/support/TextOutput.h"

#include <gtest/gtest.h>

TEST(CcvPathUtilitiesTest, AppendToPath_AnyEndings_JoinsWithOneBackslash)
{
    struct Row
    {
        const wchar_t* base;
        const wchar_t* part;
        const wchar_t* expected;
    };
    const Row rows[] = {
        {L"a", L"b", L"a\\b"},
        {L"a\\", L"b", L"a\\b"},
        {L"a", L"\\b", L"a\\b"},
        {L"a\\", L"\\b", L"a\\b"},
        {L"a\\b", L"c\\d", L"a\\b\\c\\d"},
        {L"a\\\\", L"b", L"a\\\\b"},
        {L"\\", L"\\", L"\\"},
        {L"\\", L"b", L"\\b"},
        {L"a", L"\\", L"a\\"},
        {L"a/", L"b", L"a/\\b"},
    };
    for (const Row& row : rows)
    {
        EXPECT_EQ(row.expected, CcvPathUtilities::AppendToPath(row.base, row.part));
    }
}

TEST(CcvPathUtilitiesTest, AppendToPath_OneSideEmpty_GivesTheOther)
{
    EXPECT_EQ(L"", CcvPathUtilities::AppendToPath(L"", L""));
    EXPECT_EQ(L"a", CcvPathUtilities::AppendToPath(L"a", L""));
    EXPECT_EQ(L"a\\", CcvPathUtilities::AppendToPath(L"a\\", L""));
    EXPECT_EQ(L"b", CcvPathUtilities::AppendToPath(L"", L"b"));
    EXPECT_EQ(L"\\b", CcvPathUtilities::AppendToPath(L"", L"\\b"));
}

TEST(CcvPathUtilitiesTest, AppendToPath_TheSameStringTwice_LeavesIt)
{
    const CString path(L"a\\");
    EXPECT_EQ(L"a\\a\\", CcvPathUtilities::AppendToPath(path, path));
    EXPECT_EQ(L"a\\", path);
}
