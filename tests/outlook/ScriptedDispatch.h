#pragma once

#include "platform/WindowsHeaders.h"

#include <functional>
#include <map>
#include <mutex>
#include <oaidl.h>
#include <string>
#include <vector>

namespace ts::test
{

/// One call of IDispatch::Invoke, as the server sees it.
struct Invocation
{
    DISPID id = DISPID_UNKNOWN;
    IID interfaceId{};
    WORD kind = 0;
    std::vector<std::wstring> arguments; ///< in the order in which they came, each as "type:text"
    std::vector<DISPID> named;
    bool hasResult = false;
};

// COM objects are destroyed by Release, never through an interface.
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wnon-virtual-dtor"

/// An automation object that does what a test tells it. Lives on the test's stack and counts its references,
/// of which the test holds the first.
class ScriptedDispatch final : public IDispatch
{
  public:
    ScriptedDispatch() = default;
    ScriptedDispatch(const ScriptedDispatch&) = delete;
    ScriptedDispatch& operator=(const ScriptedDispatch&) = delete;

    // What it answers.
    std::map<std::wstring, DISPID> ids{{L"Subject", 7}};
    HRESULT idsResult = S_OK; ///< when it fails, no name is known
    /// Nothing: S_OK with an empty answer.
    std::function<HRESULT(DISPID id, VARIANT* result, EXCEPINFO* error)> onInvoke;
    HRESULT queryResult = S_OK;
    bool queryAnswersNull = false;

    // What it was asked.
    std::vector<std::wstring> askedNames;
    std::vector<Invocation> invocations;
    std::vector<IID> queried;
    LONG references = 1;

    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID interfaceId, void** object) override;
    ULONG STDMETHODCALLTYPE AddRef() override { return InterlockedIncrement(&references); }
    ULONG STDMETHODCALLTYPE Release() override { return InterlockedDecrement(&references); }
    HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT*) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT, LCID, ITypeInfo**) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID, LPOLESTR* names, UINT count, LCID,
                                            DISPID* found) override;
    HRESULT STDMETHODCALLTYPE Invoke(DISPID id, REFIID interfaceId, LCID, WORD kind, DISPPARAMS* parameters,
                                     VARIANT* result, EXCEPINFO* error, UINT* badArgument) override;

  private:
    std::mutex m_mutex;
};

#pragma GCC diagnostic pop

} // namespace ts::test
