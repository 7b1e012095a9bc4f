#pragma once

#include "platform/WindowsHeaders.h"
#include "platform/mfc/afxstr.h"

#include <atomic>
#include <memory>
#include <objidl.h>
#include <vector>

namespace ts
{

// COM's interfaces have no virtual destructor: their objects end in Release.
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wnon-virtual-dtor"

/// Hands out texts to the shell's auto-completion. Counts its references; born with one.
class SuggestionList final : public IEnumString
{
  public:
    using Texts = std::shared_ptr<const std::vector<CString>>;

    explicit SuggestionList(Texts texts) noexcept : m_texts(std::move(texts)) {}
    SuggestionList(const SuggestionList&) = delete;
    SuggestionList& operator=(const SuggestionList&) = delete;

    STDMETHODIMP QueryInterface(REFIID id, void** object) noexcept override;
    STDMETHODIMP_(ULONG) AddRef() noexcept override;
    STDMETHODIMP_(ULONG) Release() noexcept override;
    /// The texts belong to the caller, who frees them with CoTaskMemFree.
    STDMETHODIMP Next(ULONG count, LPOLESTR* texts, ULONG* fetched) noexcept override;
    STDMETHODIMP Skip(ULONG count) noexcept override;
    STDMETHODIMP Reset() noexcept override;
    STDMETHODIMP Clone(IEnumString** copy) noexcept override;

    virtual ~SuggestionList() = default;

  private:
    std::atomic<ULONG> m_references{1};
    Texts m_texts;
    std::size_t m_next = 0;
};

#pragma GCC diagnostic pop

} // namespace ts
