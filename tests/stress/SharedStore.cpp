#include "tests/stress/SharedStore.h"

#include <bit>
#include <stdexcept>

namespace ts::test
{
namespace
{

void UseUserKey(HKEY key)
{
    if (RegOverridePredefKey(HKEY_CURRENT_USER, key) != ERROR_SUCCESS)
    {
        throw std::runtime_error("the user's key cannot be redirected");
    }
}

} // namespace

InheritedKey UserKeyForChildren()
{
    HKEY created = nullptr;
    if (RegCreateKeyExW(HKEY_CURRENT_USER, L"Shared", 0, nullptr, 0, KEY_ALL_ACCESS, nullptr, &created,
                        nullptr) != ERROR_SUCCESS)
    {
        throw std::runtime_error("the shared key cannot be created");
    }
    const InheritedKey own(created);
    // A key is not created inheritable, whatever its attributes say.
    HANDLE inherited = nullptr;
    if (!DuplicateHandle(GetCurrentProcess(), own.get(), GetCurrentProcess(), &inherited, 0, TRUE,
                         DUPLICATE_SAME_ACCESS))
    {
        throw std::runtime_error("the shared key cannot be inherited");
    }
    UseUserKey(own.get());
    return InheritedKey(static_cast<HKEY>(inherited));
}

std::uintptr_t NumberOf(const void* handle) noexcept
{
    return std::bit_cast<std::uintptr_t>(handle);
}

HANDLE HandleOf(std::uintptr_t number) noexcept
{
    return std::bit_cast<HANDLE>(number);
}

void UseInheritedUserKey(std::uintptr_t number)
{
    UseUserKey(static_cast<HKEY>(HandleOf(number)));
}

} // namespace ts::test
