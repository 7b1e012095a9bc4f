#include "tests/resources/templates/TemplateWindow.h"

#include "platform/ControlsTheme.h"

#include <bit>
#include <commctrl.h>
#include <gtest/gtest.h>
#include <set>

namespace ts::test
{
namespace
{

ControlKind StaticKind(DWORD style)
{
    switch (style & SS_TYPEMASK)
    {
    case SS_LEFT:
    case SS_CENTER:
    case SS_RIGHT:
    case SS_SIMPLE:
    case SS_LEFTNOWORDWRAP:
        return ControlKind::kText;
    case SS_BLACKFRAME:
    case SS_GRAYFRAME:
    case SS_WHITEFRAME:
    case SS_ETCHEDFRAME:
        return ControlKind::kFrame;
    default:
        return ControlKind::kOther;
    }
}

ControlKind ButtonKind(DWORD style)
{
    switch (style & BS_TYPEMASK)
    {
    case BS_GROUPBOX:
        return ControlKind::kFrame;
    case BS_CHECKBOX:
    case BS_AUTOCHECKBOX:
    case BS_3STATE:
    case BS_AUTO3STATE:
    case BS_RADIOBUTTON:
    case BS_AUTORADIOBUTTON:
        return ControlKind::kChoice;
    default:
        return ControlKind::kPushButton;
    }
}

ControlKind KindOf(const std::wstring& windowClass, DWORD style)
{
    static const std::set<std::wstring> fields = {L"Edit", L"ComboBox", DATETIMEPICK_CLASSW};
    if (windowClass == L"Static")
    {
        return StaticKind(style);
    }
    if (windowClass == L"Button")
    {
        return ButtonKind(style);
    }
    return fields.contains(windowClass) ? ControlKind::kField : ControlKind::kOther;
}

std::wstring TextOfWindow(HWND window)
{
    std::wstring text(static_cast<std::size_t>(GetWindowTextLengthW(window)) + 1, L'\0');
    text.resize(static_cast<std::size_t>(GetWindowTextW(window, text.data(), static_cast<int>(text.size()))));
    return text;
}

Control ReadControl(HWND dialog, HWND window)
{
    wchar_t name[100]{};
    GetClassNameW(window, name, static_cast<int>(std::size(name)));
    Control control;
    control.window = window;
    control.id = GetDlgCtrlID(window);
    control.windowClass = name;
    control.text = TextOfWindow(window);
    control.style = static_cast<DWORD>(GetWindowLongPtrW(window, GWL_STYLE));
    GetWindowRect(window, &control.rect);
    MapWindowPoints(nullptr, dialog, std::bit_cast<POINT*>(&control.rect), 2);
    control.kind = KindOf(control.windowClass, control.style);
    return control;
}

INT_PTR CALLBACK NoDialogProcedure(HWND, UINT, WPARAM, LPARAM) noexcept
{
    return FALSE;
}

} // namespace

bool Control::IsRadioButton() const
{
    const DWORD type = style & BS_TYPEMASK;
    return kind == ControlKind::kChoice && (type == BS_RADIOBUTTON || type == BS_AUTORADIOBUTTON);
}

TemplateWindow::TemplateWindow(const Language& language, UINT id)
    : m_language(language), m_id(id), m_module(OpenLanguageModule(language)),
      m_parent(CreateWindowExW(0, L"Static", L"", WS_POPUP, 0, 0, 800, 600, nullptr, nullptr,
                               GetModuleHandleW(nullptr), nullptr))
{
    const ControlsThemeScope theme;
    m_window.reset(
        CreateDialogParamW(m_module.get(), MAKEINTRESOURCEW(id), m_parent.get(), NoDialogProcedure, 0));
    EXPECT_NE(nullptr, m_window) << Name() << "error " << GetLastError();
    if (m_window)
    {
        ReadControls();
    }
}

void TemplateWindow::ReadControls()
{
    for (HWND window = GetWindow(m_window.get(), GW_CHILD); window != nullptr;
         window = GetWindow(window, GW_HWNDNEXT))
    {
        m_controls.push_back(ReadControl(m_window.get(), window));
    }
}

SIZE TemplateWindow::ClientSize() const
{
    RECT client{};
    GetClientRect(m_window.get(), &client);
    return {client.right, client.bottom};
}

std::string TemplateWindow::Name() const
{
    return "template " + std::to_string(m_id) + " in " + m_language.code + ": ";
}

std::string TemplateWindow::Name(const Control& control) const
{
    return Name() + "control " + std::to_string(control.id) + " \"" + Utf8(control.text) + "\" ";
}

std::vector<UINT> TemplatesOf(const Language& language)
{
    std::vector<UINT> ids;
    const ModuleHandle module = OpenLanguageModule(language);
    EnumResourceNamesW(
        module.get(), RT_DIALOG,
        [](HMODULE, LPCWSTR, LPWSTR name, LONG_PTR list) -> BOOL
        {
            EXPECT_TRUE(IS_INTRESOURCE(name));
            std::bit_cast<std::vector<UINT>*>(list)->push_back(
                static_cast<UINT>(std::bit_cast<ULONG_PTR>(name)));
            return TRUE;
        },
        std::bit_cast<LONG_PTR>(&ids));
    return ids;
}

wchar_t MnemonicOf(const std::wstring& text)
{
    for (std::size_t index = 0; index + 1 < text.size(); ++index)
    {
        if (text[index] == L'&' && text[index + 1] != L'&')
        {
            return static_cast<wchar_t>(
                std::bit_cast<ULONG_PTR>(CharLowerW(std::bit_cast<LPWSTR>(ULONG_PTR{text[index + 1]}))));
        }
        index += text[index] == L'&' ? 1 : 0;
    }
    return 0;
}

bool AreInOneRow(const RECT& left, const RECT& right)
{
    return left.top < right.bottom && right.top < left.bottom;
}

} // namespace ts::test
