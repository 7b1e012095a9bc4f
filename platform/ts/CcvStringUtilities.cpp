#include "platform/ts/CcvStringUtilities.h"

namespace
{

constexpr wchar_t kReplacement = 0xFFFD;

bool IsHighSurrogate(wchar_t character)
{
    return character >= 0xD800 && character <= 0xDBFF;
}

bool IsLowSurrogate(wchar_t character)
{
    return character >= 0xDC00 && character <= 0xDFFF;
}

/// Whether no mark-up may hold that character, not even as a reference.
bool IsForbidden(wchar_t character)
{
    const bool control = character < L' ' && character != L'\t';
    return control || (character >= 0x7F && character <= 0x9F) || character >= 0xFFFE;
}

/// The reference that stands for a character of the mark-up, or null for other characters.
const wchar_t* ReferenceFor(wchar_t character)
{
    switch (character)
    {
    case L'&':
        return L"&amp;";
    case L'<':
        return L"&lt;";
    case L'>':
        return L"&gt;";
    case L'"':
        return L"&quot;";
    default:
        return nullptr;
    }
}

} // namespace

CString CcvStringUtilities::RemoveCRLF(const CString& text)
{
    CString line(text);
    line.Remove(L'\r');
    line.Remove(L'\n');
    return line;
}

void CcvStringUtilities::FixInvalidUnformattedTooltipCharacters(CString& text)
{
    CString safe;
    for (int index = 0; index < text.GetLength(); ++index)
    {
        const wchar_t character = text[index];
        if (IsHighSurrogate(character) && IsLowSurrogate(text[index + 1]))
        {
            safe += character;
            safe += text[++index];
        }
        else if (const wchar_t* reference = ReferenceFor(character))
        {
            safe += reference;
        }
        else
        {
            const bool invalid =
                IsForbidden(character) || IsHighSurrogate(character) || IsLowSurrogate(character);
            safe += invalid ? kReplacement : character;
        }
    }
    text = safe;
}
