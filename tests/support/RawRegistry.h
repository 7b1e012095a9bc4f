#pragma once

#include "platform/WindowsHeaders.h"

#include <cstdint>
#include <initializer_list>
#include <iosfwd>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <vector>

/// Looks at the registry with nothing of the library between.
namespace ts::test
{

using Bytes = std::vector<std::uint8_t>;

/// The UTF-16 bytes of `text`, without a terminator.
[[nodiscard]] Bytes BytesOf(const std::wstring& text);
/// The `size` low bytes of `value`, little-endian.
[[nodiscard]] Bytes BytesOf(std::uint64_t value, std::size_t size);

/// A value exactly as it is stored.
struct RawValue
{
    DWORD type;
    Bytes bytes;

    bool operator==(const RawValue&) const = default;
};

void PrintTo(const RawValue& value, std::ostream* out);

[[nodiscard]] RawValue RawText(const std::wstring& text);
[[nodiscard]] RawValue RawDword(std::uint32_t value);
[[nodiscard]] RawValue RawInt64(std::int64_t value);

using RawValues = std::map<std::wstring, RawValue>;

/// An open key below HKEY_CURRENT_USER or another root.
class RawKey
{
  public:
    /// Opens the key with all rights and creates it with its parents when it is missing. Throws
    /// std::runtime_error when that cannot be.
    explicit RawKey(const std::wstring& path, HKEY root = HKEY_CURRENT_USER);

    [[nodiscard]] HKEY Get() const noexcept { return m_key.get(); }
    [[nodiscard]] std::optional<RawValue> Read(const std::wstring& name) const;
    /// All values by name.
    [[nodiscard]] RawValues Values() const;
    /// The names of the subkeys in the order of enumeration.
    [[nodiscard]] std::vector<std::wstring> Subkeys() const;

    /// Stores exactly these bytes. Throws std::runtime_error when the registry refuses them.
    void Write(const std::wstring& name, const RawValue& value) const;
    void Delete(const std::wstring& name) const;

  private:
    struct Closer
    {
        void operator()(HKEY key) const noexcept { RegCloseKey(key); }
    };

    std::unique_ptr<HKEY__, Closer> m_key;
};

[[nodiscard]] bool KeyExists(const std::wstring& path, HKEY root = HKEY_CURRENT_USER);
/// Deletes the key with everything below it, if there is one.
void DeleteKeyTree(const std::wstring& path, HKEY root = HKEY_CURRENT_USER);

} // namespace ts::test
