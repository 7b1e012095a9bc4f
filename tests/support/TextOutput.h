#pragma once

#include "platform/mfc/afxstr.h"
#include "platform/mfc/atltime.h"

#include <ostream>

// How GoogleTest shows the library's values in messages. Found by argument-dependent lookup.

inline void PrintTo(const CTime& time, std::ostream* out)
{
    std::tm local;
    *out << time.GetTime();
    if (time.GetLocalTm(&local) != nullptr)
    {
        char text[40];
        std::strftime(text, sizeof text, " (%a %Y-%m-%d %H:%M:%S local)", &local);
        *out << text;
    }
}

inline std::ostream& operator<<(std::ostream& out, const CTime& time)
{
    PrintTo(time, &out);
    return out;
}

inline void PrintTo(const CTimeSpan& span, std::ostream* out)
{
    *out << span.GetTimeSpan() << " s";
}

inline void PrintTo(const CString& text, std::ostream* out)
{
    *out << '"';
    for (int index = 0; index < text.GetLength(); ++index)
    {
        const wchar_t character = text[index];
        if (character >= L' ' && character < 0x7F)
        {
            *out << static_cast<char>(character);
        }
        else
        {
            *out << "\\x" << std::hex << static_cast<unsigned>(character) << std::dec;
        }
    }
    *out << '"';
}
