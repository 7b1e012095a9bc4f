#pragma once

#include "dialogs/CcvTimePickerControl.h"
#include "tests/dialogs/controls/HostWindow.h"
#include "tests/dialogs/controls/LocaleSettings.h"
#include "tests/dialogs/controls/TimePickerUsers.h"
#include "tests/support/WindowDriver.h"

#include <memory>
#include <ostream>
#include <string>

/// A time picker in a window, as a user of some place has it.
namespace ts::test
{

constexpr int kLabelId = 2003;
constexpr int kEditId = 1003;
constexpr int kOtherId = 1004;
constexpr int kSpinId = 1001;

struct Selection
{
    int first;
    int end;

    bool operator==(const Selection&) const = default;
    friend void PrintTo(const Selection& selection, std::ostream* out)
    {
        *out << selection.first << " to " << selection.end;
    }
};

class PickerHarness
{
  public:
    explicit PickerHarness(const TimePickerUser& user, const CRect& rect = CRect(20, 20, 120, 43),
                           DWORD style = ES_AUTOHSCROLL, HFONT font = nullptr)
        : m_locale(MakeTimePickerLocale(user.is24Hour, user.am, user.pm))
    {
        m_settings.Set(LOCALE_STIMEFORMAT, user.picture);
        m_settings.Set(LOCALE_STIME, user.separator);
        m_host.Add(L"STATIC", L"&Time:", 0, CRect(0, 20, 20, 43), kLabelId);
        edit = m_host.Add(L"EDIT", L"", WS_TABSTOP | style, rect, kEditId, WS_EX_CLIENTEDGE);
        other = m_host.Add(L"EDIT", L"other", WS_TABSTOP, CRect(20, 60, 120, 83), kOtherId);
        SendMessageW(edit, WM_SETFONT, reinterpret_cast<WPARAM>(font), 0);
        picker = std::make_unique<CcvTimePickerControl>(m_locale);
        EXPECT_TRUE(picker->Attach(kEditId, &m_host));
        picker->SetTime(CTime(2026, 3, 17, 10, 50, 37));
    }

    [[nodiscard]] HostWindow& Host() { return m_host; }
    [[nodiscard]] std::wstring Text() const { return TextOf(edit); }
    [[nodiscard]] HWND Spin() const { return GetDlgItem(edit, kSpinId); }
    [[nodiscard]] Selection Selected() const
    {
        Selection selection{};
        picker->GetSel(selection.first, selection.end);
        return selection;
    }
    void Select(Selection selection) { picker->SetSel(selection.first, selection.end); }
    /// The left edge of a character, or the right edge of the last one.
    [[nodiscard]] int LeftOf(int character) const
    {
        const auto text = Text();
        if (character == std::ssize(text))
        {
            CClientDC dc(edit);
            const ts::SelectedObject font(dc, picker->GetFont());
            return LeftOf(character - 1) + dc.GetTextExtent(text.substr(text.size() - 1).c_str()).cx;
        }
        return static_cast<short>(
            LOWORD(SendMessageW(edit, EM_POSFROMCHAR, static_cast<WPARAM>(character), 0)));
    }

  private:
    TimePickerLocale m_locale;
    LocaleSettings m_settings;
    HostWindow m_host;

  public:
    HWND edit = nullptr;
    HWND other = nullptr;
    std::unique_ptr<CcvTimePickerControl> picker;
};

} // namespace ts::test
