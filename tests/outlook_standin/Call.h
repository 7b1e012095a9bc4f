#pragma once

#include <string>
#include <vector>

namespace ts::standin
{

/// One call that reached the stand-in.
struct Call
{
    std::wstring object;    // "Appointment"
    std::wstring access;    // "get", "put" or "call"; "activate" for the creation of the application
    std::wstring member;    // "Subject"
    std::wstring arguments; // "\"Text\", 1, true, 2026-11-26 10:00:00"; one that was left out is empty

    bool operator==(const Call&) const = default;
};

/// "get Items.Count", "put Appointment.Subject \"Text\"", "call Folders.Item 1".
[[nodiscard]] inline std::wstring ToText(const Call& call)
{
    const std::wstring text = call.access + L" " + call.object + L"." + call.member;
    return call.arguments.empty() ? text : text + L" " + call.arguments;
}

/// Without the activations.
[[nodiscard]] inline std::vector<std::wstring> TextsOf(const std::vector<Call>& calls)
{
    std::vector<std::wstring> texts;
    for (const Call& call : calls)
    {
        if (call.access != L"activate")
        {
            texts.push_back(ToText(call));
        }
    }
    return texts;
}

} // namespace ts::standin
