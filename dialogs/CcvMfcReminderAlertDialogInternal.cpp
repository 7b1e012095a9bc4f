#include "dialogs/CcvMfcReminderAlertDialogInternal.h"

#include "dialogs/CcvMfcRemindersListControl.h"
#include "dialogs/SeenReminder.h"
#include "module/CcvReminderOptionUtilities.h"
#include "module/LanguageText.h"
#include "module/ResourceScope.h"
#include "platform/ts/CcvSoundUtilities.h"
#include "resources/RemindersControls.h"
#include "resources/StringIds.h"

#include <algorithm>
#include <array>
#include <bit>
#include <mmsystem.h>
#include <vector>

namespace
{

struct SnoozeTime
{
    UINT command;
    UINT textId; ///< in the menu; 0 for a command that is in none
    std::int64_t seconds;
};

constexpr std::int64_t kMinute = 60;
constexpr std::int64_t kHour = 60 * kMinute;
constexpr std::int64_t kDay = 24 * kHour;

// In the order of the menu.
constexpr std::array<SnoozeTime, 18> kSnoozeTimes = {{
    {IDC_SNOOZE_FIRST, IDS_SNOOZE_5_MINUTES, 5 * kMinute},
    {40002, 0, 10 * kMinute},
    {40003, IDS_SNOOZE_15_MINUTES, 15 * kMinute},
    {40004, 0, 20 * kMinute},
    {40005, IDS_SNOOZE_30_MINUTES, 30 * kMinute},
    {40006, IDS_SNOOZE_45_MINUTES, 45 * kMinute},
    {40007, IDS_SNOOZE_1_HOUR, kHour},
    {40008, IDS_SNOOZE_2_HOURS, 2 * kHour},
    {40009, 0, 3 * kHour},
    {40010, IDS_SNOOZE_4_HOURS, 4 * kHour},
    {40011, IDS_SNOOZE_8_HOURS, 8 * kHour},
    {40012, IDS_SNOOZE_12_HOURS, 12 * kHour},
    {40013, IDS_SNOOZE_1_DAY, kDay},
    {40014, IDS_SNOOZE_2_DAYS, 2 * kDay},
    {40015, 0, 3 * kDay},
    {40016, IDS_SNOOZE_4_DAYS, 4 * kDay},
    {40017, IDS_SNOOZE_1_WEEK, 7 * kDay},
    {IDC_SNOOZE_LAST, 0, 14 * kDay},
}};

/// With the alert's own order to close, which counts only while the list is empty. No mouse is ever there.
constexpr LPARAM kListIsEmpty = MAKELPARAM(0x8000, 0x8000);

} // namespace

BEGIN_MESSAGE_MAP(CcvMfcReminderAlertDialogInternal, CcvMfcRemindersDialogInternal)
ON_BN_CLICKED(IDC_END_REMINDER, OnEnd)
ON_COMMAND_RANGE(IDC_SNOOZE_FIRST, IDC_SNOOZE_LAST, OnSnooze)
ON_UPDATE_COMMAND_UI_RANGE(IDC_SNOOZE_FIRST, IDC_SNOOZE_LAST, OnUpdateSnooze)
ON_MESSAGE(WM_REMINDER_ALERT_SHOWN, OnShown)
END_MESSAGE_MAP()

CcvMfcReminderAlertDialogInternal::CcvMfcReminderAlertDialogInternal(
    CcvReminderDataCollectionManager* manager, CWnd* pParentWnd)
    : CcvMfcRemindersDialogInternal(IDD_REMINDER_ALERT, manager, pParentWnd)
{
}

// --- Start ---

void CcvMfcReminderAlertDialogInternal::DoDataExchange(CDataExchange* exchange)
{
    CcvMfcRemindersDialogInternal::DoDataExchange(exchange);
    List().SetFilter(ReminderListFilter::Due);
}

BOOL CcvMfcReminderAlertDialogInternal::OnInitDialog()
{
    using enum ts::Follow;
    const BOOL result = CcvMfcRemindersDialogInternal::OnInitDialog();
    const ts::ResourceScope scope;
    m_isClosing = false;
    CreateSnoozeButton();
    FollowSize(IDC_END_REMINDER, MoveDown);
    FollowSize(IDCANCEL, MoveRight | MoveDown);
    FollowSize(IDC_SNOOZE_PLACE, MoveRight | MoveDown);
    FollowSize(IDC_SNOOZE_FIRST, MoveRight | MoveDown);
    if (List().GetItemCount() > 0)
    {
        List().SelectRow(0);
        UpdateControls();
    }
    ModifyStyleEx(0, WS_EX_APPWINDOW);
    PostMessage(WM_REMINDER_ALERT_SHOWN);
    UpdateControls();
    return result;
}

void CcvMfcReminderAlertDialogInternal::CreateSnoozeButton()
{
    m_snoozeButton = std::make_unique<CcvSplitMenuButton>();
    m_snoozeButton->Create(ts::LoadText(IDS_SNOOZE), WS_CHILD | WS_TABSTOP | BS_DEFPUSHBUTTON, CRect(), this,
                           IDC_SNOOZE_FIRST);
    m_snoozeButton->SendMessage(WM_SETFONT, std::bit_cast<WPARAM>(GetFont()));
    for (const SnoozeTime& time : kSnoozeTimes)
    {
        if (time.textId != 0)
        {
            m_snoozeButton->AddMenuItem(time.command, ts::LoadText(time.textId), 0);
        }
    }
    m_snoozeButton->EnableWindow(FALSE);
    CRect place;
    GetDlgItem(IDC_SNOOZE_PLACE)->GetWindowRect(&place);
    ScreenToClient(&place);
    m_snoozeButton->SetWindowPos(nullptr, place.left, place.top, place.Width(), place.Height(), SWP_NOZORDER);
    m_snoozeButton->ShowWindow(SW_SHOW);
    // It looks like the default button, so the Enter key is to press it.
    SendMessage(DM_SETDEFID, IDC_SNOOZE_FIRST);
}

LRESULT CcvMfcReminderAlertDialogInternal::OnShown(WPARAM, LPARAM)
{
    if (::GetForegroundWindow() != m_hWnd)
    {
        FLASHWINFO flash = {sizeof flash, m_hWnd, FLASHW_TRAY | FLASHW_TIMERNOFG, 0, 0};
        FlashWindowEx(&flash);
    }
    if (CcvReminderOptionUtilities::GetPlaySoundWithTickler())
    {
        PlayAlertSound();
    }
    return 0;
}

void CcvMfcReminderAlertDialogInternal::PlayAlertSound()
{
    CcvSoundUtilities::PlaySoundHelper(L"MailBeep", nullptr, SND_ALIAS | SND_NODEFAULT);
}

// --- The selected reminder ---

void CcvMfcReminderAlertDialogInternal::UpdateControls()
{
    CcvMfcRemindersDialogInternal::UpdateControls();
    if (m_snoozeButton != nullptr && m_snoozeButton->m_hWnd != nullptr)
    {
        const bool isSelected = List().GetSelectedReminder() != nullptr;
        EnableControl(IDC_SNOOZE_FIRST, isSelected);
        EnableControl(IDC_END_REMINDER, isSelected);
    }
}

void CcvMfcReminderAlertDialogInternal::OnEnd()
{
    CcvReminderData* const reminder = List().GetSelectedReminder();
    if (reminder != nullptr)
    {
        ts::EndOccurrence(Manager(), *reminder);
    }
}

void CcvMfcReminderAlertDialogInternal::OnSnooze(UINT command)
{
    const auto* const time =
        std::find_if(kSnoozeTimes.begin(), kSnoozeTimes.end(),
                     [command](const SnoozeTime& each) { return each.command == command; });
    if (time != kSnoozeTimes.end())
    {
        List().SnoozeReminder(List().GetSelectedIndex(), CTimeSpan(time->seconds));
    }
}

void CcvMfcReminderAlertDialogInternal::OnUpdateSnooze(CCmdUI* command)
{
    if (List().GetSelectedReminder() != nullptr)
    {
        command->Enable();
    }
}

// --- The end ---

void CcvMfcReminderAlertDialogInternal::RefreshReminders()
{
    CcvMfcRemindersDialogInternal::RefreshReminders();
    if (List().m_hWnd != nullptr && List().GetItemCount() == 0 && !m_isClosing)
    {
        PostMessage(WM_SYSCOMMAND, SC_CLOSE, kListIsEmpty);
    }
}

void CcvMfcReminderAlertDialogInternal::HandleSysCommand(UINT nID, LPARAM lParam)
{
    // Something may have become due since the order was posted; the user has not seen it yet.
    const bool isOutdated = nID == SC_CLOSE && lParam == kListIsEmpty && List().GetItemCount() > 0;
    if (!isOutdated)
    {
        CcvMfcRemindersDialogInternal::HandleSysCommand(nID, lParam);
    }
}

void CcvMfcReminderAlertDialogInternal::OnOK()
{
    CcvMfcRemindersDialogInternal::OnOK();
}

void CcvMfcReminderAlertDialogInternal::OnCancel()
{
    // A host that handles messages inside a change may bring a second click.
    if (m_isClosing)
    {
        return;
    }
    m_isClosing = true;
    const HWND window = m_hWnd;
    DismissListedReminders();
    if (IsWindow(window) != FALSE)
    {
        List().DeleteAllItems();
        CcvMfcRemindersDialogInternal::OnCancel();
    }
}

void CcvMfcReminderAlertDialogInternal::DismissListedReminders()
{
    // Each dismissal may fill the list with other rows, and even end the dialog.
    const CTime now = CTime::GetCurrentTime();
    std::vector<ts::SeenReminder> listed;
    for (int row = 0; row < List().GetItemCount(); ++row)
    {
        CcvReminderData* const reminder = List().GetReminder(row);
        if (reminder != nullptr)
        {
            listed.emplace_back(*reminder, now);
        }
    }
    CcvReminderDataCollectionManager& manager = Manager();
    for (const ts::SeenReminder& each : listed)
    {
        CcvReminderData* const reminder = each.FindOccurrenceIn(manager, CTime::GetCurrentTime());
        if (reminder != nullptr)
        {
            ts::DismissOccurrence(manager, *reminder);
        }
    }
}
