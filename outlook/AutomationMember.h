#pragma once

#include "platform/WindowsHeaders.h"

#include <atomic>
#include <oaidl.h>

namespace ts
{

/// A property or method of one kind of automation object, with the dispatch id under which the server knows
/// it.
///
/// To ask for an id costs as much as the call itself, and the ids of one kind of object never change, so each
/// is asked for once per process. Two threads may both ask for the first time; they get the same answer.
class AutomationMember
{
  public:
    explicit constexpr AutomationMember(const wchar_t* name) noexcept : m_name(name) {}
    AutomationMember(const AutomationMember&) = delete;
    AutomationMember& operator=(const AutomationMember&) = delete;
    ~AutomationMember() = default;

    [[nodiscard]] const wchar_t* GetName() const noexcept { return m_name; }

    /// DISPID_UNKNOWN until an id was remembered.
    [[nodiscard]] DISPID GetId() const noexcept { return m_id.load(std::memory_order_relaxed); }
    void RememberId(DISPID id) const noexcept { m_id.store(id, std::memory_order_relaxed); }

  private:
    const wchar_t* m_name;
    mutable std::atomic<DISPID> m_id{DISPID_UNKNOWN};
};

} // namespace ts
