#pragma once

#include "tests/resources/LanguageModule.h"

#include <memory>
#include <string>
#include <type_traits>
#include <vector>

/// Dialog templates as the windows that the system makes of them.
namespace ts::test
{

struct WindowDestroyer
{
    void operator()(HWND window) const noexcept { DestroyWindow(window); }
};
using WindowHandle = std::unique_ptr<std::remove_pointer_t<HWND>, WindowDestroyer>;

enum class ControlKind
{
    kText,
    kPushButton,
    kChoice, ///< radio button or check box
    kFrame,  ///< may stand around other controls
    kField,  ///< something to fill in, which needs a label
    kOther
};

/// A control as its template describes it.
struct Control
{
    HWND window = nullptr;
    int id = 0;
    std::wstring windowClass;
    std::wstring text;
    DWORD style = 0; ///< of the template
    RECT rect{};     ///< within the dialog
    ControlKind kind = ControlKind::kOther;

    [[nodiscard]] bool IsVisible() const { return (style & WS_VISIBLE) != 0; }
    [[nodiscard]] bool IsTabStop() const { return (style & WS_TABSTOP) != 0; }
    [[nodiscard]] bool IsRadioButton() const;
    [[nodiscard]] bool BeginsGroup() const { return (style & WS_GROUP) != 0; }
};

/// A dialog of one language, not shown, with its controls in the order of Tab.
class TemplateWindow
{
  public:
    TemplateWindow(const Language& language, UINT id);

    [[nodiscard]] HWND Get() const { return m_window.get(); }
    [[nodiscard]] const std::vector<Control>& Controls() const { return m_controls; }
    [[nodiscard]] SIZE ClientSize() const;
    /// "template 108 in de: ", for messages.
    [[nodiscard]] std::string Name() const;
    [[nodiscard]] std::string Name(const Control& control) const;

  private:
    void ReadControls();

    const Language& m_language;
    UINT m_id;
    ModuleHandle m_module;
    WindowHandle m_parent;
    WindowHandle m_window;
    std::vector<Control> m_controls;
};

/// The numbers of all dialog templates in the language DLL.
[[nodiscard]] std::vector<UINT> TemplatesOf(const Language& language);

/// The small letter behind the "&" of a text, 0 for none.
[[nodiscard]] wchar_t MnemonicOf(const std::wstring& text);

/// Whether both stand in one row.
[[nodiscard]] bool AreInOneRow(const RECT& left, const RECT& right);

} // namespace ts::test
