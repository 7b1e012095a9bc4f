#include "platform/mfc/atlcoll.h"
#include "tests/platform/ImportPatch.h"

#include <array>
#include <cstdlib>
#include <gtest/gtest.h>
#include <type_traits>

static_assert(!std::is_copy_constructible_v<CAtlArray<int>>);
static_assert(!std::is_copy_assignable_v<CAtlArray<int>>);

extern "C"
{
    extern void* (*__imp_realloc)(void*, std::size_t);
}

TEST(CAtlArrayTest, Add_WithoutMemory_RaisesOutOfMemoryAndLeavesTheArray)
{
    using Realloc = void* (*)(void*, std::size_t);
    static const Realloc s_realloc = __imp_realloc;
    CAtlArray<int> array;
    for (int number = 0; number < 16; ++number)
    {
        array.Add(number);
    }
    {
        // Only the array's next size is refused: raising an exception may need memory, too.
        const ts::test::ImportPatch<Realloc> patch(
            &__imp_realloc, [](void* block, std::size_t size)
            { return size == 32 * sizeof(int) ? nullptr : s_realloc(block, size); });
        EXPECT_THROW(array.Add(16), CMemoryException);
    }
    EXPECT_EQ(16u, array.GetCount());
    EXPECT_EQ(15, array[15]);
    array.Add(16);
    EXPECT_EQ(16, array[16]);
}

TEST(CAtlArrayTest, Construction_Default_IsEmpty)
{
    const CAtlArray<int> array;
    EXPECT_EQ(0u, array.GetCount());
}

TEST(CAtlArrayTest, Add_ManyElements_KeepsThemAllInOrder)
{
    constexpr std::size_t kCount = 10000;
    CAtlArray<std::size_t> array;
    for (std::size_t index = 0; index < kCount; ++index)
    {
        ASSERT_EQ(index, array.Add(index * index));
        ASSERT_EQ(index + 1, array.GetCount());
    }
    for (std::size_t index = 0; index < kCount; ++index)
    {
        ASSERT_EQ(index * index, array[index]);
    }
}

TEST(CAtlArrayTest, Add_AnElementOfItsOwn_CopiesItBeforeTheMemoryMoves)
{
    using Page = std::array<unsigned char, 65536>;
    // Blocks of this size are mapped each by itself, so that what was moved away cannot be read any more.
    CAtlArray<Page> array;
    Page page{};
    page.front() = 1;
    page.back() = 2;
    array.Add(page);
    while (array.GetCount() < 200)
    {
        array.Add(array[0]);
    }
    for (std::size_t index = 0; index < array.GetCount(); ++index)
    {
        ASSERT_EQ(page, array[index]) << index;
    }
}

TEST(CAtlArrayTest, RemoveAll_OfAFilledArray_EmptiesItForNewUse)
{
    CAtlArray<int> array;
    array.RemoveAll();
    EXPECT_EQ(0u, array.GetCount());
    for (int round = 0; round < 3; ++round)
    {
        for (int element = 0; element < 40; ++element)
        {
            array.Add(element);
        }
        EXPECT_EQ(40u, array.GetCount());
        EXPECT_EQ(39, array[39]);
        array.RemoveAll();
        EXPECT_EQ(0u, array.GetCount());
    }
}

TEST(CAtlArrayTest, Index_OutsideTheArray_RaisesInvalidArgument)
{
    const auto codeOf = [](const CAtlArray<int>& array, std::size_t index)
    {
        try
        {
            static_cast<void>(array[index]);
            return S_OK;
        }
        catch (const COleException& raised)
        {
            return raised.m_sc;
        }
    };
    CAtlArray<int> array;
    EXPECT_EQ(E_INVALIDARG, codeOf(array, 0));
    array.Add(1);
    array.Add(2);
    EXPECT_EQ(S_OK, codeOf(array, 1));
    for (const std::size_t index : {std::size_t{2}, std::size_t{15}, ~std::size_t{0}})
    {
        EXPECT_EQ(E_INVALIDARG, codeOf(array, index)) << index;
    }
    array.RemoveAll();
    EXPECT_EQ(E_INVALIDARG, codeOf(array, 0)) << "emptied";
}
