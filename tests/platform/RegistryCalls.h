#pragma once

#include <memory>
#include <string>
#include <vector>

namespace ts::test
{

/// While it lives, writes down what this program asks of the registry, in order:
///   "open HKCU\path 20019"    with the access rights as a hexadecimal number
///   "create HKCU\path"
///   "query name"  "set name 4" (its size in bytes)
///   "enum 0"  "delete name"  "close"
/// One at a time, for calls of one thread.
class RegistryCalls
{
  public:
    RegistryCalls();
    RegistryCalls(const RegistryCalls&) = delete;
    RegistryCalls& operator=(const RegistryCalls&) = delete;
    ~RegistryCalls();

    /// From now on every call whose line begins like that fails with "access denied".
    void Refuse(const std::wstring& start);

    /// The lines since the last time, which are forgotten.
    [[nodiscard]] std::vector<std::wstring> Take();

  private:
    struct Patches;

    std::unique_ptr<Patches> m_patches;
};

} // namespace ts::test
