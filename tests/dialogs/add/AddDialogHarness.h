#pragma once

#include "dialogs/CcvMfcAddReminderDialog.h"
#include "reminders/CcvReminderData.h"
#include "tests/support/FixedClock.h"
#include "tests/support/WindowDriver.h"

#include <functional>
#include <gtest/gtest.h>
#include <string>

namespace ts::test
{

/// The present time of these tests: Saturday, 21 November 2026, 12:00 local time.
[[nodiscard]] CTime Noon();

/// An add-reminder dialog on the screen, used as a user would.
class ShownDialog
{
  public:
    explicit ShownDialog(HWND window) : m_window(window) {}

    [[nodiscard]] HWND Window() const noexcept { return m_window; }
    [[nodiscard]] HWND Item(int id) const { return GetDlgItem(m_window, id); }
    [[nodiscard]] std::wstring Text(int id) const { return TextOf(Item(id)); }
    [[nodiscard]] bool IsSectionShown() const;
    /// The pane that is shown, null when the section is closed; fails the test when there are several.
    [[nodiscard]] HWND Pane() const;
    [[nodiscard]] HWND PaneItem(int id) const { return GetDlgItem(Pane(), id); }
    /// Whether the focus is on the control or, as with combo boxes, inside it.
    [[nodiscard]] static bool HasFocus(HWND control);

    static void ClickOn(HWND control);
    /// Types over what stands in an edit control.
    static void TypeOver(HWND edit, const std::wstring& text);
    static void Choose(HWND combo, int index);
    void TypeSubject(const std::wstring& text) const;
    void TypeLeadTime(const std::wstring& text) const;
    void SetDate(int year, int month, int day) const;
    [[nodiscard]] SYSTEMTIME Date() const;
    void SetTime(int hour, int minute) const;
    [[nodiscard]] CTime Time() const;
    /// Opens the recurrence section if need be, and chooses a kind by its button.
    void ChooseKind(int buttonId) const;
    [[nodiscard]] int ChosenKind() const;

    /// Presses OK and answers the message box that comes; its text. Empty, and a failure, without one.
    [[nodiscard]] std::wstring OkWithMessage(int answer = IDOK) const;
    void Ok() const { ClickOn(Item(IDOK)); }
    void Cancel() const { ClickOn(Item(IDCANCEL)); }

  private:
    HWND m_window;
};

/// Shows the dialog modally and uses it. Its result; a failure when `use` left it open.
INT_PTR RunModal(CcvMfcAddReminderDialog& dialog, const std::function<void(const ShownDialog&)>& use);

/// Gives the record the first due times of its pattern, counted from a local time.
void SetDue(CcvReminderData& record, const CTime& due);

/// A reminder of that pattern with distinct fields that is due on 20 January 2027, 14:30.
[[nodiscard]] CcvReminderData SampleOf(const CcvReminderData& pattern);

/// Runs in each language.
class AddDialogTest : public testing::TestWithParam<const wchar_t*>
{
  protected:
    AddDialogTest();
    ~AddDialogTest() override;

    [[nodiscard]] static bool IsEnglish() { return GetParam()[0] == L'e'; }

    FixedClock m_clock{Noon()};
};

} // namespace ts::test
