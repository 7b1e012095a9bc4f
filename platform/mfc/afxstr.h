#pragma once

#include "platform/Export.h"

#include <string>

/// A wide (UTF-16) string value.
///
/// Copies are deep. Its memory is managed inside the library, so strings may cross the DLL boundary
/// whatever allocator the host uses. Null pointers count as empty strings. Growing may throw
/// std::bad_alloc. Not synchronised: one thread at a time for one object.
class TS_API CString
{
  public:
    CString() noexcept;
    CString(const CString& other);
    CString(CString&& other) noexcept;
    /// Implicit, as in the class library: text literals are passed wherever a CString is asked for.
    CString(const wchar_t* text);
    /// The first `length` characters at `text`, which may contain zeros.
    CString(const wchar_t* text, int length);
    ~CString();

    CString& operator=(const CString& other);
    CString& operator=(CString&& other) noexcept;
    CString& operator=(const wchar_t* text);

    [[nodiscard]] int GetLength() const noexcept;
    [[nodiscard]] bool IsEmpty() const noexcept;
    /// The characters, terminated by a zero; valid until the string is changed or destroyed.
    [[nodiscard]] const wchar_t* GetString() const noexcept;
    operator const wchar_t*() const noexcept;
    /// The character at `index`, 0 <= index <= GetLength(); the last is the terminating zero.
    [[nodiscard]] wchar_t operator[](int index) const noexcept;

    void Empty() noexcept;
    CString& operator+=(const CString& other);
    CString& operator+=(const wchar_t* text);
    CString& operator+=(wchar_t character);

    /// Removes every occurrence of `character`; the number removed.
    int Remove(wchar_t character);

    /// Exact comparison by UTF-16 code units: negative, 0 or positive.
    [[nodiscard]] int Compare(const wchar_t* other) const noexcept;

  private:
    std::wstring m_text;
};

TS_API CString operator+(const CString& left, const CString& right);
TS_API CString operator+(const CString& left, const wchar_t* right);
TS_API CString operator+(const wchar_t* left, const CString& right);

/// Equality is exact and case-sensitive and compares whole strings, embedded zeros included.
TS_API bool operator==(const CString& left, const CString& right) noexcept;
TS_API bool operator==(const CString& left, const wchar_t* right) noexcept;
