#pragma once

#include "platform/mfc/atlexcept.h"

#include <cstdlib>
#include <type_traits>

/// A growable array of plain values. Its memory comes from the C runtime that all modules of a process
/// share, so the library may fill an array that the host owns. Growing raises E_OUTOFMEMORY.
template <typename E>
class CAtlArray
{
    static_assert(std::is_trivially_copyable_v<E>);

  public:
    CAtlArray() = default;
    CAtlArray(const CAtlArray&) = delete;
    CAtlArray& operator=(const CAtlArray&) = delete;
    ~CAtlArray() { std::free(m_elements); }

    [[nodiscard]] std::size_t GetCount() const noexcept { return m_count; }
    /// Raises E_INVALIDARG for an index outside the array.
    [[nodiscard]] const E& operator[](std::size_t index) const
    {
        if (index >= m_count)
        {
            AtlThrow(E_INVALIDARG);
        }
        return m_elements[index];
    }

    /// Forgets all elements and frees their memory.
    void RemoveAll() noexcept
    {
        std::free(m_elements);
        m_elements = nullptr;
        m_count = 0;
        m_capacity = 0;
    }

    /// Appends a copy of `element`, which may be one of the array's own; its index.
    std::size_t Add(const E& element)
    {
        const E copy = element;
        if (m_count == m_capacity)
        {
            Grow();
        }
        m_elements[m_count] = copy;
        return m_count++;
    }

  private:
    void Grow()
    {
        const std::size_t capacity = m_capacity == 0 ? 16 : 2 * m_capacity;
        void* grown = std::realloc(m_elements, capacity * sizeof(E));
        if (grown == nullptr)
        {
            AtlThrow(E_OUTOFMEMORY);
        }
        m_elements = static_cast<E*>(grown);
        m_capacity = capacity;
    }

    E* m_elements = nullptr;
    std::size_t m_count = 0;
    std::size_t m_capacity = 0;
};
