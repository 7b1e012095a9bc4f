#include "Texts.h"

#include <array>
#include <bit>
#include <memory>

namespace ts::desktop
{
std::wstring Text(UINT id)
{
    // With a size of 0 it gives the place of the resource, which is not terminated.
    const wchar_t* text = nullptr;
    const int length = LoadStringW(GetModuleHandleW(nullptr), id, std::bit_cast<LPWSTR>(&text), 0);
    return length > 0 ? std::wstring(text, static_cast<std::size_t>(length)) : std::wstring();
}

std::wstring FormatText(UINT id, DWORD_PTR first, DWORD_PTR second)
{
    struct Free
    {
        void operator()(wchar_t* memory) const noexcept { LocalFree(memory); }
    };
    const std::wstring pattern = Text(id);
    const std::array<DWORD_PTR, 2> arguments = {first, second};
    wchar_t* formatted = nullptr;
    FormatMessageW(FORMAT_MESSAGE_FROM_STRING | FORMAT_MESSAGE_ARGUMENT_ARRAY |
                       FORMAT_MESSAGE_ALLOCATE_BUFFER,
                   pattern.c_str(), 0, 0, std::bit_cast<LPWSTR>(&formatted), 0,
                   std::bit_cast<va_list*>(arguments.data()));
    const std::unique_ptr<wchar_t, Free> owner(formatted);
    return formatted != nullptr ? formatted : L"";
}

std::wstring ShortTime(CTime time)
{
    SYSTEMTIME fields{};
    if (time == CTime() || !time.GetAsSystemTime(fields))
    {
        return {};
    }
    std::array<wchar_t, 100> date{};
    std::array<wchar_t, 100> clock{};
    constexpr int kSize = 100;
    GetDateFormatEx(LOCALE_NAME_USER_DEFAULT, DATE_SHORTDATE, &fields, nullptr, date.data(), kSize, nullptr);
    GetTimeFormatEx(LOCALE_NAME_USER_DEFAULT, TIME_NOSECONDS, &fields, nullptr, clock.data(), kSize);
    return std::wstring(date.data()) + L" " + clock.data();
}

} // namespace ts::desktop
