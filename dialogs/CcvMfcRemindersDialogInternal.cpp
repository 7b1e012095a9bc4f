#include "dialogs/CcvMfcRemindersDialogInternal.h"

#include "dialogs/CcvMfcRemindersListControl.h"
#include "dialogs/ReminderTimes.h"
#include "module/LanguageText.h"
#include "module/ResourceScope.h"
#include "platform/mfc/afxdd_.h"
#include "platform/ts/CcvDateUtilities.h"
#include "platform/ts/CcvGdiUtilities.h"
#include "resources/PictureIds.h"
#include "resources/RemindersControls.h"
#include "resources/StringIds.h"

#include <bit>

namespace
{

constexpr unsigned kAllColumns =
    static_cast<unsigned>(ReminderColumn::Icon) | static_cast<unsigned>(ReminderColumn::Subject) |
    static_cast<unsigned>(ReminderColumn::Document) | static_cast<unsigned>(ReminderColumn::DueIn);

/// The system keeps the lowest four bits of a system command for itself.
constexpr UINT kSystemCommandMask = 0xFFF0;

CString DueText(CcvReminderData& reminder, CTime now)
{
    const std::optional<CTime> due = ts::FindDueTime(reminder, now);
    return due ? ts::LoadText(IDS_DUE_DATE_PREFIX) + CcvDateUtilities::LongDateString(*due) + L" " +
                     CcvDateUtilities::ShortTimeString(*due)
               : CString();
}

void Show(HWND control, bool shown)
{
    ShowWindow(control, shown ? SW_SHOW : SW_HIDE);
}

} // namespace

IMPLEMENT_DYNAMIC(CcvMfcRemindersDialogInternal, CcvMfcDialogBaseInternal)

BEGIN_MESSAGE_MAP(CcvMfcRemindersDialogInternal, CcvMfcDialogBaseInternal)
ON_MESSAGE(WM_REMINDER_SELCHANGED, OnSelectionChanged)
ON_BN_CLICKED(IDC_OPEN_REMINDER, OnOpen)
ON_WM_SYSCOMMAND()
ON_WM_SIZE()
ON_MESSAGE(WM_GETMINMAXINFO, OnGetMinMaxInfo)
ON_WM_DESTROY()
END_MESSAGE_MAP()

CcvMfcRemindersDialogInternal::CcvMfcRemindersDialogInternal(UINT nIDTemplate,
                                                             CcvReminderDataCollectionManager* manager,
                                                             CWnd* pParentWnd)
    : CcvMfcDialogBaseInternal(nIDTemplate, pParentWnd),
      m_list(std::make_unique<CcvMfcRemindersListControl>(manager)), m_manager(manager)
{
}

CcvMfcRemindersDialogInternal::~CcvMfcRemindersDialogInternal()
{
    // While the fonts and pictures that it shows are still there.
    DestroyWindow();
}

// --- Start ---

BOOL CcvMfcRemindersDialogInternal::OnInitDialog()
{
    const BOOL result = CcvMfcDialogBaseInternal::OnInitDialog();
    UpdateData(FALSE);
    const ts::ResourceScope scope;
    InitializeLayout();
    ShowIcons();
    MakeSubjectBold();
    m_list->SubclassDlgItem(IDC_REMINDERS, this);
    m_list->InitializeColumns(GetListColumns());
    m_list->Refresh();
    InitializeImage();
    SetForegroundWindow();
    return result;
}

void CcvMfcRemindersDialogInternal::DoDataExchange(CDataExchange* exchange)
{
    CcvMfcDialogBaseInternal::DoDataExchange(exchange);
    DDX_Text(exchange, IDC_REMINDER_SUBJECT, m_subject);
    DDX_Text(exchange, IDC_REMINDER_DUE, m_due);
}

void CcvMfcRemindersDialogInternal::InitializeLayout()
{
    using enum ts::Follow;
    m_layout.Start(*this);
    m_layout.Add(IDC_REMINDER_SUBJECT, GrowRight);
    m_layout.Add(IDC_REMINDER_DUE, GrowRight);
    m_layout.Add(IDC_NOTHING_SELECTED, GrowRight);
    m_layout.Add(IDC_REMINDERS, GrowRight | GrowDown);
    m_layout.Add(IDC_OPEN_REMINDER, MoveDown);
}

void CcvMfcRemindersDialogInternal::ShowIcons()
{
    m_bigIcon = LoadReminderIcon(SM_CXICON, SM_CYICON);
    m_smallIcon = LoadReminderIcon(SM_CXSMICON, SM_CYSMICON);
    SetIcon(m_bigIcon.get(), TRUE);
    SetIcon(m_smallIcon.get(), FALSE);
}

CcvMfcRemindersDialogInternal::Icon CcvMfcRemindersDialogInternal::LoadReminderIcon(int widthMetric,
                                                                                    int heightMetric)
{
    const HANDLE icon = LoadImageW(AfxGetResourceHandle(), MAKEINTRESOURCEW(IDI_REMINDER), IMAGE_ICON,
                                   GetSystemMetrics(widthMetric), GetSystemMetrics(heightMetric), 0);
    return Icon(static_cast<HICON>(icon));
}

void CcvMfcRemindersDialogInternal::MakeSubjectBold()
{
    CWnd* const subject = GetDlgItem(IDC_REMINDER_SUBJECT);
    LOGFONTW description{};
    if (GetObjectW(subject->GetFont(), sizeof description, &description) == 0)
    {
        return;
    }
    description.lfWeight = FW_BOLD;
    CcvGdiUtilities::CreateSafeFont(m_boldFont, description);
    subject->SetFont(&m_boldFont);
}

void CcvMfcRemindersDialogInternal::InitializeImage()
{
    m_recurrenceImage.SubclassDlgItem(IDC_REMINDER_RECURRENCE, this);
    m_recurrenceBitmap.LoadBitmap(IDB_RECURRENCE);
    m_recurrenceImage.SetImageBitmap(m_recurrenceBitmap.GetHandle());
}

// --- The selected reminder ---

LRESULT CcvMfcRemindersDialogInternal::OnSelectionChanged(WPARAM, LPARAM)
{
    UpdateControls();
    return 0;
}

void CcvMfcRemindersDialogInternal::UpdateControls()
{
    UpdateData(TRUE);
    CcvReminderData* const reminder = m_list->GetSelectedReminder();
    m_subject = reminder == nullptr ? CString() : reminder->GetSubject();
    m_due = reminder == nullptr ? CString() : DueText(*reminder, CTime::GetCurrentTime());
    EnableControl(IDC_OPEN_REMINDER, reminder != nullptr);
    if (m_recurrenceImage.m_hWnd != nullptr)
    {
        ShowDetails(reminder);
    }
    Invalidate();
    UpdateData(FALSE);
}

void CcvMfcRemindersDialogInternal::EnableControl(int controlId, bool enabled)
{
    const HWND control = ::GetDlgItem(m_hWnd, controlId);
    if (!enabled && ::GetFocus() == control)
    {
        GotoDlgCtrl(m_list.get());
    }
    ::EnableWindow(control, enabled ? TRUE : FALSE);
}

void CcvMfcRemindersDialogInternal::ShowDetails(const CcvReminderData* reminder)
{
    const bool isRecurrent = reminder != nullptr && reminder->IsRecurrent();
    PlaceSubject(isRecurrent);
    Show(::GetDlgItem(m_hWnd, IDC_REMINDER_SUBJECT), reminder != nullptr);
    Show(::GetDlgItem(m_hWnd, IDC_REMINDER_DUE), reminder != nullptr);
    Show(m_recurrenceImage.m_hWnd, isRecurrent);
    Show(::GetDlgItem(m_hWnd, IDC_NOTHING_SELECTED), reminder == nullptr);
}

void CcvMfcRemindersDialogInternal::PlaceSubject(bool besideImage)
{
    CRect subject = PlaceOf(IDC_REMINDER_SUBJECT);
    subject.left = besideImage ? PlaceOf(IDC_REMINDER_RECURRENCE).right : PlaceOf(IDC_REMINDER_DUE).left;
    GetDlgItem(IDC_REMINDER_SUBJECT)->MoveWindow(subject);
}

CRect CcvMfcRemindersDialogInternal::PlaceOf(int controlId) const
{
    CRect place;
    ::GetWindowRect(::GetDlgItem(m_hWnd, controlId), &place);
    ScreenToClient(&place);
    return place;
}

// --- What can be done ---

void CcvMfcRemindersDialogInternal::OnOpen()
{
    OpenSelectedReminder();
}

void CcvMfcRemindersDialogInternal::OpenSelectedReminder()
{
    m_list->OpenReminder(m_list->GetSelectedIndex());
}

void CcvMfcRemindersDialogInternal::RefreshReminders()
{
    if (m_list->m_hWnd != nullptr)
    {
        m_list->Refresh();
    }
}

unsigned CcvMfcRemindersDialogInternal::GetListColumns() const
{
    return kAllColumns;
}

void CcvMfcRemindersDialogInternal::OnSysCommand(UINT command, LPARAM lParam)
{
    HandleSysCommand(command, lParam);
}

void CcvMfcRemindersDialogInternal::HandleSysCommand(UINT nID, LPARAM lParam)
{
    switch (nID & kSystemCommandMask)
    {
    case SC_MINIMIZE:
        ShowWindow(SW_MINIMIZE);
        break;
    case SC_CLOSE:
        OnCancel();
        break;
    default:
        CcvMfcDialogBaseInternal::OnSysCommand(nID, lParam);
        break;
    }
}

// --- Size ---

void CcvMfcRemindersDialogInternal::OnSize(UINT type, int width, int height)
{
    CcvMfcDialogBaseInternal::OnSize(type, width, height);
    if (m_list->m_hWnd == nullptr || type == SIZE_MINIMIZED)
    {
        return;
    }
    m_layout.Arrange();
    PlaceSubject((m_recurrenceImage.GetStyle() & WS_VISIBLE) != 0);
}

LRESULT CcvMfcRemindersDialogInternal::OnGetMinMaxInfo(WPARAM, LPARAM lParam)
{
    m_layout.LimitSize(*std::bit_cast<MINMAXINFO*>(lParam));
    return 0;
}

void CcvMfcRemindersDialogInternal::OnDestroy()
{
    m_layout.Reset();
    CcvMfcDialogBaseInternal::OnDestroy();
}
