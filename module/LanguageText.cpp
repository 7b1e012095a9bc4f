#include "module/LanguageText.h"

#include "module/ResourceScope.h"

#include <bit>
#include <initializer_list>
#include <string>
#include <string_view>

namespace
{

std::wstring_view View(const CString& text)
{
    return {text.GetString(), static_cast<std::size_t>(text.GetLength())};
}

/// `text` with each of `values` in the place of one `placeholder`, in their order; what finds no place is
/// left out. No formatting function sees the text, so a damaged language library can spoil a text, but
/// nothing else.
CString Fill(const CString& text, std::wstring_view placeholder,
             std::initializer_list<std::wstring_view> values)
{
    std::wstring_view rest = View(text);
    std::wstring filled;
    for (const std::wstring_view value : values)
    {
        const std::size_t position = rest.find(placeholder);
        if (position == std::wstring_view::npos)
        {
            break;
        }
        filled += rest.substr(0, position);
        filled += value;
        rest.remove_prefix(position + placeholder.size());
    }
    filled += rest;
    return {filled.data(), static_cast<int>(filled.size())};
}

} // namespace

CString ts::LoadText(unsigned id)
{
    const ResourceScope scope;
    // Without a buffer the call hands out the text where it stands in the library, unterminated.
    const wchar_t* text = nullptr;
    const int length = LoadStringW(AfxGetResourceHandle(), id, std::bit_cast<LPWSTR>(&text), 0);
    return CString(text, length);
}

CString ts::FormatText(unsigned id, std::int64_t count)
{
    return Fill(LoadText(id), L"%d", {std::to_wstring(count)});
}

CString ts::FormatText(unsigned id, const CString& inserted)
{
    return Fill(LoadText(id), L"%s", {View(inserted)});
}

CString ts::FormatText(unsigned id, const CString& first, const CString& second)
{
    return Fill(LoadText(id), L"%s", {View(first), View(second)});
}
