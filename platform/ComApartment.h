#pragma once

#include "platform/WindowsHeaders.h"

#include <objbase.h>

namespace ts
{

/// COM for the calling thread, as an apartment of its own, for as long as it lives; a thread that already has
/// COM in another way keeps it. Lives and dies on one thread.
class ComApartment
{
  public:
    ComApartment() noexcept : m_result(CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED)) {}
    ComApartment(const ComApartment&) = delete;
    ComApartment& operator=(const ComApartment&) = delete;
    ~ComApartment()
    {
        if (SUCCEEDED(m_result))
        {
            CoUninitialize();
        }
    }

  private:
    HRESULT m_result;
};

} // namespace ts
