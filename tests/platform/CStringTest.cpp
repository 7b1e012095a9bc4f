#include "platform/mfc/afxstr.h"
#include "tests/support/TextOutput.h"

#include <gtest/gtest.h>
#include <string>
#include <type_traits>
#include <utility>

namespace
{

constexpr const wchar_t* kNull = nullptr;

/// Long enough to live outside the string object.
const std::wstring kLong(1000, L'x');

/// "a", a zero, "b".
CString WithZero()
{
    return CString(L"a\0b", 3);
}

int SignOf(int value)
{
    return (value > 0 ? 1 : 0) - (value < 0 ? 1 : 0);
}

} // namespace

static_assert(std::is_nothrow_default_constructible_v<CString>);
static_assert(std::is_nothrow_move_constructible_v<CString>);
static_assert(std::is_nothrow_move_assignable_v<CString>);
static_assert(std::is_copy_constructible_v<CString>);

TEST(CStringTest, Construction_FromNothingOrNull_IsEmpty)
{
    for (const CString& text : {CString(), CString(kNull), CString(kNull, 5), CString(L""),
                                CString(L"abc", 0), CString(L"abc", -1)})
    {
        EXPECT_TRUE(text.IsEmpty());
        EXPECT_EQ(0, text.GetLength());
        EXPECT_EQ(L'\0', text.GetString()[0]);
        EXPECT_EQ(L'\0', text[0]);
        EXPECT_EQ(CString(), text);
    }
}

TEST(CStringTest, Construction_FromText_HoldsItTerminated)
{
    const CString text(L"abc");
    EXPECT_FALSE(text.IsEmpty());
    EXPECT_EQ(3, text.GetLength());
    EXPECT_EQ(std::wstring(L"abc"), text.GetString());
    EXPECT_EQ(L'b', text[1]);
    EXPECT_EQ(L'\0', text[3]);
    EXPECT_EQ(text.GetString(), static_cast<const wchar_t*>(text)) << "the same characters";
}

TEST(CStringTest, Construction_WithALength_KeepsEmbeddedZeros)
{
    const CString text = WithZero();
    EXPECT_EQ(3, text.GetLength());
    EXPECT_EQ(L'\0', text[1]);
    EXPECT_EQ(L'b', text[2]);
    EXPECT_EQ(L'\0', text[3]);
    EXPECT_EQ(2, CString(L"abc", 2).GetLength()) << "a part of a longer text";
}

TEST(CStringTest, Copy_OfAString_IsIndependent)
{
    for (const CString& source : {CString(L"abc"), CString(kLong.c_str()), WithZero()})
    {
        CString original(source);
        CString copy(original);
        CString assigned(L"before");
        assigned = original;
        original += L"more";
        EXPECT_EQ(source, copy);
        EXPECT_EQ(source, assigned);
        copy.Empty();
        EXPECT_EQ(source, assigned);
        EXPECT_TRUE(copy.IsEmpty());
    }
}

TEST(CStringTest, Move_OfAString_CarriesTheText)
{
    for (const CString& source : {CString(L"abc"), CString(kLong.c_str()), WithZero()})
    {
        CString original(source);
        CString moved(std::move(original));
        EXPECT_EQ(source, moved);
        CString assigned(L"before");
        assigned = std::move(moved);
        EXPECT_EQ(source, assigned);
    }
}

TEST(CStringTest, Assignment_OfANullPointer_Empties)
{
    CString text(L"abc");
    text = kNull;
    EXPECT_TRUE(text.IsEmpty());
    text = L"again";
    EXPECT_EQ(L"again", text);
}

TEST(CStringTest, Assignment_OfItselfOrAPartOfItself_IsRight)
{
    for (const std::wstring& content : {std::wstring(L"abcdef"), L"ab" + kLong})
    {
        const CString expected(content.c_str());
        CString text(expected);
        const CString& same = text;
        text = same;
        EXPECT_EQ(expected, text);
        text = text.GetString();
        EXPECT_EQ(expected, text);
        text = text.GetString() + 2;
        EXPECT_EQ(CString(content.substr(2).c_str()), text);
    }
}

TEST(CStringTest, Append_OfEveryKind_GivesTheSum)
{
    CString text;
    text += L"ab";
    text += CString(L"cd");
    text += L'e';
    text += kNull;
    text += L"";
    EXPECT_EQ(L"abcde", text);
    text += L'\0';
    text += WithZero();
    EXPECT_EQ(CString(L"abcde\0a\0b", 9), text);
}

TEST(CStringTest, Append_OfItselfOrAPartOfItself_IsRightAtEveryLength)
{
    for (std::size_t length = 0; length < 70; ++length)
    {
        std::wstring content;
        for (std::size_t index = 0; index < length; ++index)
        {
            content += static_cast<wchar_t>(L'A' + index);
        }
        CString whole(content.c_str());
        whole += whole;
        EXPECT_EQ(content + content, whole.GetString());
        CString raw(content.c_str());
        raw += raw.GetString();
        EXPECT_EQ(content + content, raw.GetString());
        CString part(content.c_str());
        part += part.GetString() + length / 2;
        EXPECT_EQ(content + content.substr(length / 2), part.GetString());
        CString character(content.c_str());
        character += character[0];
        EXPECT_EQ(static_cast<int>(length) + 1, character.GetLength());
    }
}

TEST(CStringTest, Sum_OfEveryKind_LeavesTheOperands)
{
    const CString left(L"left");
    const CString right(L"right");
    EXPECT_EQ(L"leftright", left + right);
    EXPECT_EQ(L"leftright", left + L"right");
    EXPECT_EQ(L"leftright", L"left" + right);
    EXPECT_EQ(L"left", left + kNull);
    EXPECT_EQ(L"right", kNull + right);
    EXPECT_EQ(CString(L"a\0ba\0b", 6), WithZero() + WithZero());
    EXPECT_EQ(L"leftleft", left + left);
    EXPECT_EQ(L"left", left);
    EXPECT_EQ(L"right", right);
}

TEST(CStringTest, Remove_OfACharacter_TakesEveryOccurrence)
{
    struct Row
    {
        CString text;
        wchar_t character;
        int removed;
        CString expected;
    };
    const Row rows[] = {
        {L"", L'a', 0, L""},        {L"bcd", L'a', 0, L"bcd"},
        {L"abaca", L'a', 3, L"bc"}, {L"aaa", L'a', 3, L""},
        {L"aAa", L'A', 1, L"aa"},   {WithZero(), L'\0', 1, L"ab"},
        {L"abc", L'\0', 0, L"abc"}, {WithZero(), L'b', 1, CString(L"a\0", 2)},
    };
    for (const Row& row : rows)
    {
        CString text(row.text);
        EXPECT_EQ(row.removed, text.Remove(row.character)) << row.text.GetLength();
        EXPECT_EQ(row.expected, text);
    }
}

TEST(CStringTest, Compare_OfTwoTexts_GoesByCodeUnits)
{
    struct Row
    {
        CString left;
        const wchar_t* right;
        int sign;
    };
    const Row rows[] = {
        {L"", L"", 0},
        {L"", kNull, 0},
        {L"a", kNull, 1},
        {L"", L"a", -1},
        {L"abc", L"abc", 0},
        {L"abc", L"abd", -1},
        {L"b", L"abc", 1},
        {L"ab", L"abc", -1},
        {L"A", L"a", -1},
        {L"\x00E4", L"z", 1},
        // A surrogate pair stands below the last characters of the plane, whatever it encodes.
        {L"\xD83D\xDE00", L"\xFFEE", -1},
        {L"\xFFFF", L"\x0001", 1},
        {WithZero(), L"a", 1},
    };
    for (const Row& row : rows)
    {
        EXPECT_EQ(row.sign, SignOf(row.left.Compare(row.right))) << testing::PrintToString(row.left);
    }
}

TEST(CStringTest, Equality_OfTwoTexts_IsExact)
{
    EXPECT_TRUE(CString(L"abc") == CString(L"abc"));
    EXPECT_TRUE(CString(L"abc") == L"abc");
    EXPECT_TRUE(L"abc" == CString(L"abc"));
    EXPECT_TRUE(CString() == kNull);
    EXPECT_TRUE(CString(L"abc") != L"ABC");
    EXPECT_TRUE(CString(L"abc") != L"ab");
    EXPECT_TRUE(CString(L"abc") != CString(L"abd"));
    EXPECT_TRUE(WithZero() == WithZero());
    EXPECT_TRUE(WithZero() != CString(L"a")) << "the whole strings count";
    EXPECT_TRUE(WithZero() != L"a");
    EXPECT_TRUE(WithZero() != CString(L"a\0c", 3));
    EXPECT_TRUE(CString(L"a\0", 2) != CString(L"a"));
    EXPECT_TRUE(CString(L"\x00E4") != L"a\x0308") << "no normalisation";
}
