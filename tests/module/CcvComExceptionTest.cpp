#include "module/CcvComException.h"
#include "tests/platform/ImportPatch.h"

#include <gtest/gtest.h>
#include <oleauto.h>
#include <string>
#include <utility>

extern "C"
{
    extern decltype(&SysAllocString) __imp_SysAllocString;
    extern decltype(&SysFreeString) __imp_SysFreeString;
}

namespace
{

/// While it lives, counts the texts that this program has allocated and not freed.
class LiveTexts
{
  public:
    LiveTexts() { s_present = this; }
    LiveTexts(const LiveTexts&) = delete;
    LiveTexts& operator=(const LiveTexts&) = delete;
    ~LiveTexts() = default;

    [[nodiscard]] int Count() const noexcept { return m_count; }

  private:
    static BSTR WINAPI Allocate(const OLECHAR* text)
    {
        const BSTR allocated = s_present->m_allocate.Original()(text);
        s_present->m_count += allocated != nullptr ? 1 : 0;
        return allocated;
    }
    static void WINAPI Free(BSTR text)
    {
        s_present->m_count -= text != nullptr ? 1 : 0;
        s_present->m_free.Original()(text);
    }

    static inline LiveTexts* s_present = nullptr;

    int m_count = 0;
    ts::test::ImportPatch<decltype(&SysAllocString)> m_allocate{&__imp_SysAllocString, Allocate};
    ts::test::ImportPatch<decltype(&SysFreeString)> m_free{&__imp_SysFreeString, Free};
};

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

TEST(CcvComExceptionTest, CopiesAndAssignments_LeaveNoText)
{
    const LiveTexts texts;
    {
        const CcvComException first(E_FAIL, nullptr, L"first");
        EXPECT_EQ(1, texts.Count());
        CcvComException second(first);
        EXPECT_EQ(2, texts.Count());
        second = CcvComException(E_ABORT, nullptr, L"second");
        EXPECT_EQ(L"second", Take(second.GetDescription()));
        EXPECT_EQ(2, texts.Count());
    }
    EXPECT_EQ(0, texts.Count());
}
