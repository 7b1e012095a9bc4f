#include "tests/dialogs/add/AddDialogHarness.h"

#include "dialogs/CcvTimePickerControl.h"
#include "module/InterfaceLanguage.h"
#include "reminders/CcvReminderDataUtilities.h"
#include "resources/AddReminderControls.h"

#include <bit>
#include <commctrl.h>

namespace ts::test
{
namespace
{

constexpr UINT kPatience = 20'000;

/// Closes a dialog that nobody closes.
class Watchdog
{
  public:
    explicit Watchdog(HWND window) : m_timer(SetTimer(nullptr, 0, kPatience, Bite)) { s_window = window; }
    Watchdog(const Watchdog&) = delete;
    Watchdog& operator=(const Watchdog&) = delete;
    ~Watchdog() { KillTimer(nullptr, m_timer); }

  private:
    static void CALLBACK Bite(HWND, UINT, UINT_PTR id, DWORD) noexcept
    {
        KillTimer(nullptr, id);
        ADD_FAILURE() << "the dialog stayed open";
        PostMessageW(s_window, WM_COMMAND, IDCANCEL, 0);
    }

    static inline HWND s_window = nullptr;
    UINT_PTR m_timer;
};

} // namespace

CTime Noon()
{
    return CTime(2026, 11, 21, 12, 0, 0);
}

bool ShownDialog::IsSectionShown() const
{
    return IsWindowVisible(Item(IDC_ADD_DAILY)) != FALSE;
}

HWND ShownDialog::Pane() const
{
    HWND shown = nullptr;
    for (HWND child = GetWindow(m_window, GW_CHILD); child != nullptr; child = GetWindow(child, GW_HWNDNEXT))
    {
        if (ClassOf(child) == L"#32770" && IsWindowVisible(child) != FALSE)
        {
            EXPECT_EQ(nullptr, shown) << "two panes are shown";
            shown = child;
        }
    }
    return shown;
}

bool ShownDialog::HasFocus(HWND control)
{
    return GetFocus() == control || GetParent(GetFocus()) == control;
}

void ShownDialog::ClickOn(HWND control)
{
    ASSERT_NE(nullptr, control);
    ASSERT_NE(FALSE, IsWindowVisible(control));
    RECT area;
    GetClientRect(control, &area);
    Click(control, 3, area.bottom / 2);
}

void ShownDialog::TypeOver(HWND edit, const std::wstring& text)
{
    SetFocus(edit);
    SendMessageW(edit, EM_SETSEL, 0, -1);
    SendMessageW(edit, WM_CLEAR, 0, 0);
    TypeText(text);
}

void ShownDialog::Choose(HWND combo, int index)
{
    SetFocus(combo);
    SendMessageW(combo, CB_SETCURSEL, 0, 0);
    for (int step = 0; step < index; ++step)
    {
        PressKey(VK_DOWN);
    }
    ASSERT_EQ(index, SendMessageW(combo, CB_GETCURSEL, 0, 0));
}

void ShownDialog::TypeSubject(const std::wstring& text) const
{
    TypeOver(Item(IDC_ADD_SUBJECT), text);
}

void ShownDialog::TypeLeadTime(const std::wstring& text) const
{
    const HWND edit = GetWindow(Item(IDC_ADD_LEAD_TIME), GW_CHILD);
    TypeOver(edit, text);
}

void ShownDialog::SetDate(int year, int month, int day) const
{
    SYSTEMTIME date = Date();
    date.wYear = static_cast<WORD>(year);
    date.wMonth = static_cast<WORD>(month);
    date.wDay = static_cast<WORD>(day);
    EXPECT_NE(0,
              SendMessageW(Item(IDC_ADD_DATE), DTM_SETSYSTEMTIME, GDT_VALID, std::bit_cast<LPARAM>(&date)));
}

SYSTEMTIME ShownDialog::Date() const
{
    SYSTEMTIME date{};
    SendMessageW(Item(IDC_ADD_DATE), DTM_GETSYSTEMTIME, 0, std::bit_cast<LPARAM>(&date));
    return date;
}

void ShownDialog::SetTime(int hour, int minute) const
{
    auto& picker = dynamic_cast<CcvTimePickerControl&>(*CWnd::FromHandlePermanent(Item(IDC_ADD_TIME)));
    picker.SetTime(CTime(2026, 1, 1, hour, minute, 0));
}

CTime ShownDialog::Time() const
{
    return dynamic_cast<CcvTimePickerControl&>(*CWnd::FromHandlePermanent(Item(IDC_ADD_TIME))).GetTime();
}

void ShownDialog::ChooseKind(int buttonId) const
{
    if (!IsSectionShown())
    {
        ClickOn(Item(IDC_ADD_TOGGLE_RECURRENCE));
    }
    ClickOn(Item(buttonId));
}

int ShownDialog::ChosenKind() const
{
    for (const int id : {IDC_ADD_DAILY, IDC_ADD_WEEKLY, IDC_ADD_MONTHLY, IDC_ADD_YEARLY})
    {
        if (IsDlgButtonChecked(m_window, id) == BST_CHECKED)
        {
            return id;
        }
    }
    return 0;
}

std::wstring ShownDialog::OkWithMessage(int answer) const
{
    const MessageBoxAnswer box(answer);
    Ok();
    EXPECT_TRUE(box.WasShown()) << "no message";
    return box.Text();
}

INT_PTR RunModal(CcvMfcAddReminderDialog& dialog, const std::function<void(const ShownDialog&)>& use)
{
    std::unique_ptr<Watchdog> watchdog;
    const WhenShown shown(L"#32770",
                          [&](HWND window)
                          {
                              watchdog = std::make_unique<Watchdog>(window);
                              EXPECT_EQ(window, dialog.GetSafeHwnd());
                              use(ShownDialog(window));
                          });
    const INT_PTR result = dialog.DoModal();
    EXPECT_TRUE(shown.Happened());
    EXPECT_EQ(nullptr, dialog.GetSafeHwnd());
    return result;
}

void SetDue(CcvReminderData& record, const CTime& due)
{
    using Utilities = CcvReminderDataUtilities;
    CTime first = due;
    CTime next = due;
    switch (record.GetRecurrenceType())
    {
    case EcvReminderRecurrenceType::Daily:
        first = Utilities::CalculateInitialDailyRecurrentDueTime(due, &record);
        next = Utilities::CalculateInitialUpcomingDailyRecurrentDueTime(first, &record);
        break;
    case EcvReminderRecurrenceType::Weekly:
        first = Utilities::CalculateInitialWeeklyRecurrentDueTime(due, &record);
        next = Utilities::CalculateInitialUpcomingWeeklyRecurrentDueTime(first, &record);
        break;
    case EcvReminderRecurrenceType::Monthly:
        first = Utilities::CalculateInitialMonthlyRecurrentDueTime(due, &record);
        next = Utilities::CalculateInitialUpcomingMonthlyRecurrentDueTime(first, &record);
        break;
    case EcvReminderRecurrenceType::Yearly:
        first = Utilities::CalculateInitialYearlyRecurrentDueTime(due, &record);
        next = Utilities::CalculateInitialUpcomingYearlyRecurrentDueTime(first, &record);
        break;
    default:
        break;
    }
    record.SetInitialDueDate(first);
    record.SetNextDueDate(next);
}

CcvReminderData SampleOf(const CcvReminderData& pattern)
{
    CcvReminderData record = pattern;
    record.SetDocumentPath(L"C:\\maps\\plan.map");
    record.SetMapGuid(L"{map}");
    record.SetObjectGuid(L"{topic}");
    record.SetOutlookObjectGuid(L"{outlook}");
    record.SetOutlookEntryId(L"entry");
    record.SetDocumentTitle(L"Plan");
    record.SetObjectTitle(L"Topic");
    record.SetSubject(L"Send the report");
    record.SetReminderTimeSpan(2 * 3600);
    record.SetSnoozeTime(300);
    SetDue(record, CTime(2027, 1, 20, 14, 30, 0));
    return record;
}

AddDialogTest::AddDialogTest()
{
    SetInterfaceLanguage(GetParam());
}

AddDialogTest::~AddDialogTest()
{
    SetInterfaceLanguage(nullptr);
}

} // namespace ts::test
