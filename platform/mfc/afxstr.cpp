#include "platform/mfc/afxstr.h"

#include <string_view>

namespace
{

std::wstring_view View(const wchar_t* text) noexcept
{
    return text == nullptr ? std::wstring_view() : std::wstring_view(text);
}

std::wstring_view View(const CString& text) noexcept
{
    return {text.GetString(), static_cast<std::size_t>(text.GetLength())};
}

} // namespace

CString::CString() noexcept = default;
CString::CString(const CString& other) = default;
CString::CString(CString&& other) noexcept = default;
CString::~CString() = default;
CString& CString::operator=(const CString& other) = default;
CString& CString::operator=(CString&& other) noexcept = default;

CString::CString(const wchar_t* text) : m_text(View(text))
{
}

CString::CString(const wchar_t* text, int length)
    : m_text(text == nullptr || length <= 0 ? std::wstring()
                                            : std::wstring(text, static_cast<std::size_t>(length)))
{
}

CString& CString::operator=(const wchar_t* text)
{
    m_text = View(text);
    return *this;
}

int CString::GetLength() const noexcept
{
    return static_cast<int>(m_text.size());
}

bool CString::IsEmpty() const noexcept
{
    return m_text.empty();
}

const wchar_t* CString::GetString() const noexcept
{
    return m_text.c_str();
}

CString::operator const wchar_t*() const noexcept
{
    return m_text.c_str();
}

wchar_t CString::operator[](int index) const noexcept
{
    return m_text.c_str()[index];
}

void CString::Empty() noexcept
{
    m_text.clear();
}

CString& CString::operator+=(const CString& other)
{
    m_text += other.m_text;
    return *this;
}

CString& CString::operator+=(const wchar_t* text)
{
    m_text += View(text);
    return *this;
}

CString& CString::operator+=(wchar_t character)
{
    m_text += character;
    return *this;
}

int CString::Remove(wchar_t character)
{
    return static_cast<int>(std::erase(m_text, character));
}

int CString::Compare(const wchar_t* other) const noexcept
{
    return View(*this).compare(View(other));
}

CString operator+(const CString& left, const CString& right)
{
    CString sum(left);
    sum += right;
    return sum;
}

CString operator+(const CString& left, const wchar_t* right)
{
    CString sum(left);
    sum += right;
    return sum;
}

CString operator+(const wchar_t* left, const CString& right)
{
    CString sum(left);
    sum += right;
    return sum;
}

bool operator==(const CString& left, const CString& right) noexcept
{
    return View(left) == View(right);
}

bool operator==(const CString& left, const wchar_t* right) noexcept
{
    return View(left) == View(right);
}
