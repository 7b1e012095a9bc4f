#include "tests/outlook/MeddlingOutlook.h"

#include "outlook/OutlookMembers.h"

#include <atomic>
#include <comdef.h>
#include <gtest/gtest.h>

namespace ts::test
{

struct MeddlingOutlook::State
{
    CreateApplication createApplication;
    Meddling meddling = Meddling::Nothing;
    long request = 0;
    long requests = 0;
    long live = 0;
    DISPID idOffset = 0;

    /// Counts a request that `kind` can spoil; whether it is to be spoilt.
    bool IsSpoilt(Meddling kind) { return meddling == kind && ++requests == request; }
};

namespace
{

using State = std::shared_ptr<MeddlingOutlook::State>;

// COM objects are destroyed by Release, never through an interface.
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wnon-virtual-dtor"

/// Passes on what it is asked to an object of the Outlook behind it.
class MeddlingObject final : public IDispatch
{
  public:
    /// Takes over the reference.
    MeddlingObject(State state, IDispatch* inner) : m_state(std::move(state)), m_inner(inner)
    {
        ++m_state->live;
    }
    MeddlingObject(const MeddlingObject&) = delete;
    MeddlingObject& operator=(const MeddlingObject&) = delete;
    ~MeddlingObject()
    {
        m_inner->Release();
        --m_state->live;
    }

    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID interfaceId, void** object) noexcept override
    {
        *object = nullptr;
        if (interfaceId != IID_IUnknown && interfaceId != IID_IDispatch)
        {
            if (m_state->IsSpoilt(Meddling::FailQuery))
            {
                return E_NOINTERFACE;
            }
            if (m_state->IsSpoilt(Meddling::QueryAnswersNull))
            {
                return S_OK;
            }
            void* other = nullptr;
            const HRESULT result = m_inner->QueryInterface(interfaceId, &other);
            if (FAILED(result))
            {
                return result;
            }
            static_cast<IUnknown*>(other)->Release();
        }
        AddRef();
        *object = static_cast<IDispatch*>(this);
        return S_OK;
    }
    ULONG STDMETHODCALLTYPE AddRef() noexcept override { return ++m_references; }
    ULONG STDMETHODCALLTYPE Release() noexcept override
    {
        const ULONG left = --m_references;
        if (left == 0)
        {
            const std::unique_ptr<MeddlingObject> last(this);
        }
        return left;
    }
    HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT* count) noexcept override
    {
        *count = 0;
        return S_OK;
    }
    HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT, LCID, ITypeInfo**) noexcept override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID interfaceId, LPOLESTR* names, UINT count, LCID locale,
                                            DISPID* ids) noexcept override
    {
        if (m_state->IsSpoilt(Meddling::FailLookUp))
        {
            return DISP_E_UNKNOWNNAME;
        }
        const HRESULT result = m_inner->GetIDsOfNames(interfaceId, names, count, locale, ids);
        *ids += m_state->idOffset;
        return result;
    }
    HRESULT STDMETHODCALLTYPE Invoke(DISPID id, REFIID interfaceId, LCID locale, WORD kind,
                                     DISPPARAMS* parameters, VARIANT* result, EXCEPINFO* error,
                                     UINT* badArgument) noexcept override
    {
        const HRESULT done = m_inner->Invoke(id - m_state->idOffset, interfaceId, locale, kind, parameters,
                                             result, error, badArgument);
        if (SUCCEEDED(done) && result != nullptr)
        {
            Spoil(*result);
            if (result->vt == VT_DISPATCH && result->pdispVal != nullptr)
            {
                result->pdispVal = std::make_unique<MeddlingObject>(m_state, result->pdispVal).release();
            }
        }
        return done;
    }

  private:
    void Spoil(VARIANT& answer) const
    {
        const bool isObject = answer.vt == VT_DISPATCH;
        if (m_state->IsSpoilt(Meddling::AnswerNothing))
        {
            VariantClear(&answer);
        }
        else if (m_state->IsSpoilt(Meddling::AnswerText))
        {
            VariantClear(&answer);
            answer.vt = VT_BSTR;
            answer.bstrVal = SysAllocString(L"odd");
        }
        else if (m_state->IsSpoilt(Meddling::AnswerNumber))
        {
            VariantClear(&answer);
            answer.vt = VT_I4;
            answer.lVal = -1;
        }
        else if (m_state->IsSpoilt(Meddling::AnswerNull))
        {
            VariantClear(&answer);
            answer.vt = VT_NULL;
        }
        else if (isObject && m_state->IsSpoilt(Meddling::AnswerNullObject))
        {
            answer.pdispVal->Release();
            answer.pdispVal = nullptr;
        }
        else if (isObject && m_state->IsSpoilt(Meddling::AnswerUnknown))
        {
            answer.vt = VT_UNKNOWN;
        }
    }

    State m_state;
    IDispatch* m_inner;
    std::atomic<ULONG> m_references{1};
};

class MeddlingFactory final : public IClassFactory
{
  public:
    explicit MeddlingFactory(State state) : m_state(std::move(state)) {}

    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID interfaceId, void** object) noexcept override
    {
        *object = nullptr;
        if (interfaceId != IID_IUnknown && interfaceId != IID_IClassFactory)
        {
            return E_NOINTERFACE;
        }
        AddRef();
        *object = static_cast<IClassFactory*>(this);
        return S_OK;
    }
    ULONG STDMETHODCALLTYPE AddRef() noexcept override { return ++m_references; }
    ULONG STDMETHODCALLTYPE Release() noexcept override
    {
        const ULONG left = --m_references;
        if (left == 0)
        {
            const std::unique_ptr<MeddlingFactory> last(this);
        }
        return left;
    }
    HRESULT STDMETHODCALLTYPE CreateInstance(IUnknown*, REFIID interfaceId, void** object) noexcept override
    {
        *object = nullptr;
        IDispatch* inner = nullptr;
        const HRESULT created = m_state->createApplication(&inner);
        if (FAILED(created))
        {
            return created;
        }
        IDispatch* const application = std::make_unique<MeddlingObject>(m_state, inner).release();
        const HRESULT queried = application->QueryInterface(interfaceId, object);
        application->Release();
        return queried;
    }
    HRESULT STDMETHODCALLTYPE LockServer(BOOL) noexcept override { return S_OK; }

  private:
    State m_state;
    std::atomic<ULONG> m_references{1};
};

#pragma GCC diagnostic pop

} // namespace

void PrintTo(Meddling meddling, std::ostream* out)
{
    constexpr const char* kNames[] = {
        "nothing",      "failing look-up", "failing query",   "query answers null", "answers nothing",
        "answers text", "answers -1",      "answers VT_NULL", "answers null",       "answers IUnknown"};
    *out << kNames[static_cast<int>(meddling)];
}

MeddlingOutlook::MeddlingOutlook(CreateApplication createApplication) : m_state(std::make_shared<State>())
{
    m_state->createApplication = std::move(createApplication);
    CoInitialize(nullptr);
    IClassFactory* const factory = std::make_unique<MeddlingFactory>(m_state).release();
    EXPECT_EQ(S_OK, CoRegisterClassObject(outlook::kApplicationClass, factory, CLSCTX_LOCAL_SERVER,
                                          REGCLS_MULTIPLEUSE, &m_registration));
    factory->Release();
}

MeddlingOutlook::~MeddlingOutlook()
{
    CoRevokeClassObject(m_registration);
    EXPECT_EQ(0, m_state->live);
}

void MeddlingOutlook::BeginRound(Meddling meddling, long request)
{
    m_state->meddling = meddling;
    m_state->request = request;
    m_state->requests = 0;
    m_state->idOffset += 100'000;
}

bool MeddlingOutlook::WasReached() const
{
    return m_state->requests >= m_state->request;
}

long MeddlingOutlook::GetLiveObjects() const
{
    return m_state->live;
}

} // namespace ts::test
