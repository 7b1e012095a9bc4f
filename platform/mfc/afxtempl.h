#pragma once

#include <array>
#include <cstddef>
#include <memory>
#include <type_traits>
#include <utility>
#include <vector>

/// A doubly linked list of plain values. Its nodes come in blocks of 10 and are used again; the blocks are
/// freed with the list.
template <typename TYPE>
class CList
{
    static_assert(std::is_trivially_copyable_v<TYPE>);

  public:
    CList() = default;
    CList(const CList&) = delete;
    CList& operator=(const CList&) = delete;
    ~CList() = default;

    [[nodiscard]] bool IsEmpty() const noexcept { return m_head == nullptr; }

    /// Leaves the list as it is when there is no memory for another block.
    void AddTail(TYPE value)
    {
        if (m_free == nullptr)
        {
            AddBlock();
        }
        Node* const node = std::exchange(m_free, m_free->next);
        *node = {value, nullptr, m_tail};
        (m_tail != nullptr ? m_tail->next : m_head) = node;
        m_tail = node;
    }

    /// The list must not be empty.
    TYPE RemoveHead() noexcept
    {
        Node* const node = std::exchange(m_head, m_head->next);
        (m_head != nullptr ? m_head->previous : m_tail) = nullptr;
        node->next = std::exchange(m_free, node);
        return node->value;
    }

  private:
    static constexpr std::size_t kBlockSize = 10;

    struct Node
    {
        TYPE value;
        Node* next;
        Node* previous;
    };
    using Block = std::array<Node, kBlockSize>;

    void AddBlock()
    {
        m_blocks.push_back(std::make_unique<Block>());
        for (Node& node : *m_blocks.back())
        {
            node.next = std::exchange(m_free, &node);
        }
    }

    Node* m_head = nullptr;
    Node* m_tail = nullptr;
    Node* m_free = nullptr;
    std::vector<std::unique_ptr<Block>> m_blocks;
};
