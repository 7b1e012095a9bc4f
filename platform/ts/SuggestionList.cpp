#include "platform/ts/SuggestionList.h"

#include <algorithm>
#include <cstring>
#include <new>

namespace
{

/// A copy in the memory that COM's callers free; null when there is none.
LPOLESTR CopyForCaller(const CString& text) noexcept
{
    const std::size_t size = (static_cast<std::size_t>(text.GetLength()) + 1) * sizeof(wchar_t);
    void* const copy = CoTaskMemAlloc(size);
    if (copy != nullptr)
    {
        std::memcpy(copy, text.GetString(), size);
    }
    return static_cast<LPOLESTR>(copy);
}

} // namespace

HRESULT ts::SuggestionList::QueryInterface(REFIID id, void** object) noexcept
{
    if (object == nullptr)
    {
        return E_POINTER;
    }
    const bool known = IsEqualIID(id, __uuidof(IUnknown)) || IsEqualIID(id, __uuidof(IEnumString));
    *object = known ? static_cast<IEnumString*>(this) : nullptr;
    if (known)
    {
        AddRef();
    }
    return known ? S_OK : E_NOINTERFACE;
}

ULONG ts::SuggestionList::AddRef() noexcept
{
    return ++m_references;
}

ULONG ts::SuggestionList::Release() noexcept
{
    const ULONG left = --m_references;
    if (left == 0)
    {
        delete this; // NOLINT(cppcoreguidelines-owning-memory): the last reference owns the object
    }
    return left;
}

HRESULT ts::SuggestionList::Next(ULONG count, LPOLESTR* texts, ULONG* fetched) noexcept
{
    if (texts == nullptr)
    {
        return E_POINTER;
    }
    ULONG given = 0;
    for (; given < count && m_next < m_texts->size(); ++given, ++m_next)
    {
        texts[given] = CopyForCaller((*m_texts)[m_next]);
        if (texts[given] == nullptr)
        {
            break;
        }
    }
    if (fetched != nullptr)
    {
        *fetched = given;
    }
    return given == count ? S_OK : S_FALSE;
}

HRESULT ts::SuggestionList::Skip(ULONG count) noexcept
{
    const std::size_t skipped = std::min<std::size_t>(count, m_texts->size() - m_next);
    m_next += skipped;
    return skipped == count ? S_OK : S_FALSE;
}

HRESULT ts::SuggestionList::Reset() noexcept
{
    m_next = 0;
    return S_OK;
}

HRESULT ts::SuggestionList::Clone(IEnumString** copy) noexcept
{
    if (copy == nullptr)
    {
        return E_POINTER;
    }
    auto* const other = new (std::nothrow) SuggestionList(m_texts); // NOLINT(cppcoreguidelines-owning-memory)
    if (other != nullptr)
    {
        other->m_next = m_next;
    }
    *copy = other;
    return other != nullptr ? S_OK : E_OUTOFMEMORY;
}
