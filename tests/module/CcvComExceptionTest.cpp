#include "module/CcvComException.h"

#include <gtest/gtest.h>
#include <oleauto.h>
#include <string>
#include <utility>

namespace
{

// COM objects are destroyed by Release, never through an interface.
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wnon-virtual-dtor"

/// Error information that counts its references.
class FakeErrorInfo final : public IErrorInfo
{
  public:
    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID, void** object) override
    {
        *object = nullptr;
        return E_NOINTERFACE;
    }
    ULONG STDMETHODCALLTYPE AddRef() override { return ++references; }
    ULONG STDMETHODCALLTYPE Release() override { return --references; }
    HRESULT STDMETHODCALLTYPE GetGUID(GUID*) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetSource(BSTR* text) override { return Give(L"Calendar", text); }
    HRESULT STDMETHODCALLTYPE GetDescription(BSTR* text) override { return Give(description, text); }
    HRESULT STDMETHODCALLTYPE GetHelpFile(BSTR* text) override { return Give(nullptr, text); }
    HRESULT STDMETHODCALLTYPE GetHelpContext(DWORD*) override { return E_NOTIMPL; }

    ULONG references = 1;
    const wchar_t* description = L"The folder is gone.";

  private:
    static HRESULT Give(const wchar_t* value, BSTR* text)
    {
        *text = value == nullptr ? nullptr : SysAllocString(value);
        return value == nullptr ? E_FAIL : S_OK;
    }
};

#pragma GCC diagnostic pop

/// The text of a BSTR, which is freed; "(null)" for none.
std::wstring Take(BSTR text)
{
    const std::wstring taken = text == nullptr ? L"(null)" : text;
    SysFreeString(text);
    return taken;
}

} // namespace

TEST(CcvComExceptionTest, CodeOnly_HasNoTexts)
{
    const CcvComException error(E_ACCESSDENIED);
    EXPECT_EQ(E_ACCESSDENIED, error.GetCode());
    EXPECT_EQ(L"(null)", Take(error.GetDescription()));
    EXPECT_EQ(L"(null)", Take(error.GetSource()));
    EXPECT_EQ(L"(null)", Take(error.GetHelpFile()));
}

TEST(CcvComExceptionTest, WithErrorInformation_TellsItsTexts)
{
    FakeErrorInfo info;
    const CcvComException error(E_FAIL, &info, L"message");
    EXPECT_EQ(L"The folder is gone.", Take(error.GetDescription()));
    EXPECT_EQ(L"Calendar", Take(error.GetSource()));
    EXPECT_EQ(L"(null)", Take(error.GetHelpFile()));
    info.description = nullptr;
    EXPECT_EQ(L"message", Take(error.GetDescription())) << "the message stands in";
}

TEST(CcvComExceptionTest, CopiesAndThrows_BalanceReferencesAndOwnTheirText)
{
    FakeErrorInfo info;
    {
        CcvComException first(E_FAIL, &info, L"first");
        const CcvComException copy(first);
        EXPECT_EQ(3u, info.references);
        CcvComException assigned(E_ABORT, nullptr, L"other");
        assigned = copy;
        assigned = *&assigned;
        EXPECT_EQ(E_FAIL, assigned.GetCode());
        EXPECT_EQ(4u, info.references);
        info.description = nullptr;
        first = CcvComException(S_OK);
        EXPECT_EQ(3u, info.references);
        EXPECT_EQ(L"first", Take(assigned.GetDescription()));
        try
        {
            throw CcvComException(copy);
        }
        catch (const CcvComException& caught)
        {
            EXPECT_EQ(L"first", Take(caught.GetDescription()));
        }
    }
    EXPECT_EQ(1u, info.references);
}
