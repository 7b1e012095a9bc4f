#include "tests/support/RawRegistry.h"

#include <cstring>
#include <iomanip>
#include <ostream>
#include <stdexcept>

namespace ts::test
{
namespace
{

void RequireSuccess(LSTATUS status, const char* what)
{
    if (status != ERROR_SUCCESS)
    {
        throw std::runtime_error(std::string(what) + " failed with " + std::to_string(status));
    }
}

} // namespace

Bytes BytesOf(const std::wstring& text)
{
    Bytes bytes(text.size() * sizeof(wchar_t));
    if (!bytes.empty())
    {
        std::memcpy(bytes.data(), text.data(), bytes.size());
    }
    return bytes;
}

Bytes BytesOf(std::uint64_t value, std::size_t size)
{
    Bytes bytes;
    for (std::size_t index = 0; index < size; ++index)
    {
        bytes.push_back(static_cast<std::uint8_t>(value >> 8 * index));
    }
    return bytes;
}

void PrintTo(const RawValue& value, std::ostream* out)
{
    constexpr std::size_t kShown = 64;
    *out << "type " << value.type << ", " << value.bytes.size() << " bytes:" << std::hex << std::setfill('0');
    for (std::size_t index = 0; index < value.bytes.size() && index < kShown; ++index)
    {
        *out << ' ' << std::setw(2) << unsigned{value.bytes[index]};
    }
    *out << std::dec << (value.bytes.size() > kShown ? " ..." : "");
}

RawValue RawText(const std::wstring& text)
{
    return {REG_SZ, BytesOf(text)};
}

RawValue RawDword(std::uint32_t value)
{
    return {REG_DWORD, BytesOf(value, sizeof value)};
}

RawValue RawInt64(std::int64_t value)
{
    return {REG_BINARY, BytesOf(static_cast<std::uint64_t>(value), sizeof value)};
}

RawKey::RawKey(const std::wstring& path, HKEY root)
{
    HKEY key = nullptr;
    RequireSuccess(RegCreateKeyExW(root, path.c_str(), 0, nullptr, 0, KEY_ALL_ACCESS, nullptr, &key, nullptr),
                   "creating a key");
    m_key.reset(key);
}

std::optional<RawValue> RawKey::Read(const std::wstring& name) const
{
    RawValue value{};
    DWORD size = 0;
    if (RegQueryValueExW(Get(), name.c_str(), nullptr, &value.type, nullptr, &size) != ERROR_SUCCESS)
    {
        return std::nullopt;
    }
    // The reported size is the stored one, whatever room there is.
    Bytes buffer(size + sizeof(wchar_t));
    DWORD read = static_cast<DWORD>(buffer.size());
    RequireSuccess(RegQueryValueExW(Get(), name.c_str(), nullptr, &value.type, buffer.data(), &read),
                   "reading a value");
    value.bytes.assign(buffer.begin(), buffer.begin() + read);
    return value;
}

RawValues RawKey::Values() const
{
    // Names in the registry have at most 16,383 characters; those of these tests far fewer.
    constexpr DWORD kNameRoom = 300;
    RawValues values;
    wchar_t name[kNameRoom];
    DWORD length = kNameRoom;
    for (DWORD index = 0;
         RegEnumValueW(Get(), index, name, &length, nullptr, nullptr, nullptr, nullptr) == ERROR_SUCCESS;
         ++index, length = kNameRoom)
    {
        const std::wstring found(name, length);
        values.emplace(found, Read(found).value());
    }
    return values;
}

std::vector<std::wstring> RawKey::Subkeys() const
{
    constexpr DWORD kNameRoom = 256;
    std::vector<std::wstring> names;
    wchar_t name[kNameRoom];
    DWORD length = kNameRoom;
    for (DWORD index = 0;
         RegEnumKeyExW(Get(), index, name, &length, nullptr, nullptr, nullptr, nullptr) == ERROR_SUCCESS;
         ++index, length = kNameRoom)
    {
        names.emplace_back(name, length);
    }
    return names;
}

void RawKey::Write(const std::wstring& name, const RawValue& value) const
{
    // RegSetValueExW looks at the characters around the end of a text and adds a terminator where it finds
    // a zero behind one: the bytes stand between a zero and something else.
    Bytes buffer(2 * sizeof(wchar_t));
    buffer.insert(buffer.end(), value.bytes.begin(), value.bytes.end());
    buffer.insert(buffer.end(), 2 * sizeof(wchar_t), 0xFF);
    RequireSuccess(RegSetValueExW(Get(), name.c_str(), 0, value.type, buffer.data() + 2 * sizeof(wchar_t),
                                  static_cast<DWORD>(value.bytes.size())),
                   "writing a value");
}

void RawKey::Delete(const std::wstring& name) const
{
    RegDeleteValueW(Get(), name.c_str());
}

bool KeyExists(const std::wstring& path, HKEY root)
{
    HKEY key = nullptr;
    if (RegOpenKeyExW(root, path.c_str(), 0, KEY_READ, &key) != ERROR_SUCCESS)
    {
        return false;
    }
    RegCloseKey(key);
    return true;
}

void DeleteKeyTree(const std::wstring& path, HKEY root)
{
    RegDeleteTreeW(root, path.c_str());
}

} // namespace ts::test
