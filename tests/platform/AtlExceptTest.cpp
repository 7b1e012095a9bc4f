#include "platform/mfc/atlexcept.h"

#include <exception>
#include <gtest/gtest.h>
#include <string>
#include <type_traits>

static_assert(std::is_base_of_v<std::exception, CException>);
static_assert(std::is_base_of_v<CException, CMemoryException>);
static_assert(std::is_base_of_v<CException, COleException>);
static_assert(std::is_nothrow_copy_constructible_v<COleException>);

namespace
{

/// The text of the exception that the code raises, caught as the standard library's base.
std::string TextOf(HRESULT code)
{
    try
    {
        AtlThrow(code);
    }
    catch (const std::exception& error)
    {
        return error.what();
    }
}

} // namespace

TEST(AtlExceptTest, AtlThrow_OutOfMemory_RaisesAMemoryException)
{
    EXPECT_THROW(AtlThrow(E_OUTOFMEMORY), CMemoryException);
    EXPECT_THROW(AtlThrow(E_OUTOFMEMORY), CException);
    EXPECT_THROW(AfxThrowMemoryException(), CMemoryException);
    EXPECT_EQ("out of memory", TextOf(E_OUTOFMEMORY));
}

TEST(AtlExceptTest, AtlThrow_AnyOtherCode_RaisesAnOleExceptionWithIt)
{
    for (const HRESULT code :
         {E_FAIL, E_INVALIDARG, E_UNEXPECTED, E_NOINTERFACE, S_FALSE, HRESULT{0}, HRESULT{-1}})
    {
        try
        {
            AtlThrow(code);
        }
        catch (const COleException& error)
        {
            EXPECT_EQ(code, error.m_sc);
        }
        EXPECT_THROW(AtlThrow(code), CException) << code;
    }
    EXPECT_THROW(AfxThrowOleException(E_FAIL), COleException);
}

TEST(AtlExceptTest, What_OfAnOleException_NamesTheCode)
{
    EXPECT_EQ("HRESULT 0x80004005", TextOf(E_FAIL));
    EXPECT_EQ("HRESULT 0x80070057", TextOf(E_INVALIDARG));
    EXPECT_EQ("HRESULT 0x00000001", TextOf(S_FALSE));
    EXPECT_EQ("HRESULT 0xFFFFFFFF", TextOf(HRESULT{-1}));
    EXPECT_NE(std::string(), CException().what());
}

TEST(AtlExceptTest, What_OfACopy_OutlivesTheOriginal)
{
    COleException copy(S_FALSE);
    {
        const COleException original(E_FAIL);
        copy = original;
    }
    EXPECT_EQ(E_FAIL, copy.m_sc);
    EXPECT_STREQ("HRESULT 0x80004005", copy.what());
}
