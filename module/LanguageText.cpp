#include "module/LanguageText.h"

#include "module/ResourceScope.h"

#include <bit>
#include <string>
#include <string_view>

namespace
{

/// `text` with its first `placeholder` replaced. No formatting function sees the text, so a damaged language
/// library can spoil a text, but nothing else.
CString Fill(const CString& text, std::wstring_view placeholder, std::wstring_view value)
{
    const std::wstring_view whole(text.GetString(), static_cast<std::size_t>(text.GetLength()));
    const std::size_t position = whole.find(placeholder);
    if (position == std::wstring_view::npos)
    {
        return text;
    }
    std::wstring filled(whole.substr(0, position));
    filled += value;
    filled += whole.substr(position + placeholder.size());
    return CString(filled.c_str());
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
    return Fill(LoadText(id), L"%d", std::to_wstring(count));
}

CString ts::FormatText(unsigned id, const CString& inserted)
{
    return Fill(LoadText(id), L"%s",
                std::wstring_view(inserted.GetString(), static_cast<std::size_t>(inserted.GetLength())));
}
