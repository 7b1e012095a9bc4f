#include "dialogs/CcvMfcRemindersListControl.h"

#include "collection/CcvReminderDataCollectionManager.h"
#include "dialogs/ListImages.h"
#include "dialogs/ReminderTimes.h"
#include "module/LanguageText.h"
#include "module/ResourceScope.h"
#include "resources/PictureIds.h"
#include "resources/StringIds.h"

#include <algorithm>
#include <bit>

namespace
{

constexpr UINT_PTR kMinuteTimer = 1001;
constexpr UINT kMinuteMilliseconds = 60'000;

/// Stops the minute timer while it lives, so that the minute begins when the work of the last one is done.
class TimerPause
{
  public:
    explicit TimerPause(CWnd& window) noexcept : m_window(window) { m_window.KillTimer(kMinuteTimer); }
    TimerPause(const TimerPause&) = delete;
    TimerPause& operator=(const TimerPause&) = delete;
    ~TimerPause() { m_window.SetTimer(kMinuteTimer, kMinuteMilliseconds); }

  private:
    CWnd& m_window;
};

} // namespace

BEGIN_MESSAGE_MAP(CcvMfcRemindersListControl, CListCtrl)
ON_NOTIFY_REFLECT(LVN_COLUMNCLICK, OnColumnClick)
ON_WM_TIMER()
ON_WM_SIZE()
ON_WM_KEYDOWN()
ON_WM_LBUTTONDOWN()
ON_WM_LBUTTONDBLCLK()
ON_MESSAGE(WM_RBUTTONDOWN, OnRButtonDown)
ON_WM_SYSCOLORCHANGE()
END_MESSAGE_MAP()

CcvMfcRemindersListControl::CcvMfcRemindersListControl(CcvReminderDataCollectionManager* manager)
    : m_manager(manager)
{
}

CcvMfcRemindersListControl::~CcvMfcRemindersListControl()
{
    // While the header and the fonts are still there.
    DestroyWindow();
}

// --- Columns ---

void CcvMfcRemindersListControl::InitializeColumns(unsigned columnMask)
{
    SetExtendedStyle(GetExtendedStyle() | LVS_EX_FULLROWSELECT | LVS_EX_HEADERDRAGDROP);
    m_boldFont.reset();
    m_normalFont.reset();
    InsertColumns(columnMask);
    InitializeImages();
    InitializeHeader();
    UseWindowColour();
    SetTimer(kMinuteTimer, kMinuteMilliseconds);
}

void CcvMfcRemindersListControl::InsertColumns(unsigned columnMask)
{
    constexpr int kIconWidth = 18;
    const auto has = [columnMask](ReminderColumn kind)
    { return (columnMask & static_cast<unsigned>(kind)) != 0; };
    m_columns.clear();
    auto width = static_cast<float>(ClientWidth());
    float subjectShare = has(ReminderColumn::Document) ? 0.7F : 1.0F;
    subjectShare -= has(ReminderColumn::DueIn) ? 0.3F : 0.0F;
    if (has(ReminderColumn::Icon))
    {
        width -= kIconWidth;
        AddColumn(ReminderColumn::Icon, CString(), kIconWidth);
    }
    if (has(ReminderColumn::Subject))
    {
        m_subjectWidth = static_cast<int>(subjectShare * width);
        m_otherWidth = ClientWidth() - m_subjectWidth;
        AddColumn(ReminderColumn::Subject, ts::LoadText(IDS_COLUMN_SUBJECT), m_subjectWidth);
    }
    const int otherWidth = static_cast<int>(0.3F * width);
    if (has(ReminderColumn::Document))
    {
        AddColumn(ReminderColumn::Document, ts::LoadText(IDS_COLUMN_MAP), otherWidth);
    }
    if (has(ReminderColumn::DueIn))
    {
        AddColumn(ReminderColumn::DueIn, ts::LoadText(IDS_COLUMN_DUE), otherWidth);
    }
}

void CcvMfcRemindersListControl::AddColumn(ReminderColumn kind, const CString& heading, int width)
{
    InsertColumn(static_cast<int>(m_columns.size()), heading, LVCFMT_LEFT, width);
    m_columns.push_back(kind);
}

int CcvMfcRemindersListControl::FindColumn(ReminderColumn kind) const
{
    const auto found = std::find(m_columns.begin(), m_columns.end(), kind);
    return found == m_columns.end() ? -1 : static_cast<int>(found - m_columns.begin());
}

int CcvMfcRemindersListControl::ClientWidth() const
{
    CRect client;
    GetClientRect(&client);
    return client.Width();
}

void CcvMfcRemindersListControl::OnSize(UINT type, int width, int height)
{
    CListCtrl::OnSize(type, width, height);
    constexpr int kNarrowest = 40;
    const int subject = FindColumn(ReminderColumn::Subject);
    if (subject < 0 || GetColumnWidth(subject) != m_subjectWidth)
    {
        return;
    }
    // A vertical scroll bar would else bring a horizontal one. That bar's own message comes inside this one,
    // so the width is not the message's.
    m_subjectWidth = std::max(ClientWidth() - m_otherWidth, kNarrowest);
    SetColumnWidth(subject, m_subjectWidth);
}

void CcvMfcRemindersListControl::InitializeImages()
{
    const ts::ResourceScope scope;
    ts::CreateListImages(m_images);
    ts::AddListImage(m_images, IDB_RECURRENCE);
    ts::AddListImage(m_images, IDB_RECURRENCE_SELECTED);
    SetImageList(m_images, LVSIL_SMALL);
}

void CcvMfcRemindersListControl::InitializeHeader()
{
    m_header.SubclassWindow(GetHeaderCtrl());
    ::SendMessageW(m_header.m_hWnd, WM_SETFONT, std::bit_cast<WPARAM>(GetNormalFont()), FALSE);
    m_header.ResetImages();
    for (int column = 0; column < m_header.GetItemCount(); ++column)
    {
        HDITEMW item{};
        item.mask = HDI_FORMAT;
        m_header.GetItem(column, &item);
        item.fmt |= HDF_OWNERDRAW;
        m_header.SetItem(column, &item);
    }
    if (IsColumn(0, ReminderColumn::Icon))
    {
        const ts::ResourceScope scope;
        m_header.SetItemBitmap(0, IDB_RECURRENCE);
    }
}

void CcvMfcRemindersListControl::OnSysColorChange()
{
    CListCtrl::OnSysColorChange();
    UseWindowColour();
}

void CcvMfcRemindersListControl::UseWindowColour()
{
    // Below the rows the list view would keep the colour that was there when its library was loaded.
    SendMessage(LVM_SETBKCOLOR, 0, static_cast<LPARAM>(GetSysColor(COLOR_WINDOW)));
    Invalidate();
}

bool CcvMfcRemindersListControl::IsColumn(int column, ReminderColumn kind) const
{
    return column >= 0 && static_cast<std::size_t>(column) < m_columns.size() &&
           m_columns[static_cast<std::size_t>(column)] == kind;
}

BOOL CcvMfcRemindersListControl::OnNotify(WPARAM wParam, LPARAM lParam, LRESULT* result)
{
    const auto* const notification = std::bit_cast<const NMHEADERW*>(lParam);
    const UINT code = notification->hdr.code;
    if ((code == HDN_BEGINTRACKW || code == HDN_BEGINTRACKA) &&
        IsColumn(notification->iItem, ReminderColumn::Icon))
    {
        *result = TRUE;
        return TRUE;
    }
    return CListCtrl::OnNotify(wParam, lParam, result);
}

// --- Each minute ---

void CcvMfcRemindersListControl::OnTimer(UINT_PTR id)
{
    if (id != kMinuteTimer)
    {
        CListCtrl::OnTimer(id);
        return;
    }
    const TimerPause pause(*this);
    UpdateTimes();
}

void CcvMfcRemindersListControl::UpdateTimes()
{
    FollowCollection();
    const CTime now = CTime::GetCurrentTime();
    const bool added = m_filter == ReminderListFilter::Due && InsertNewlyDue(now);
    UpdateDueInTexts(now);
    if (added)
    {
        SortRows();
        // Of the list's window, which stands for the dialog around it.
        ::SetForegroundWindow(GetAncestor(m_hWnd, GA_ROOT));
    }
}

bool CcvMfcRemindersListControl::InsertNewlyDue(CTime now)
{
    bool added = false;
    for (int index = 0; index < m_manager->GetRemindersCount(); ++index)
    {
        CcvReminderData* const reminder = m_manager->GetReminderByIndex(index);
        if (!m_rows.contains(index) && ts::IsListed(m_filter, *reminder, now))
        {
            added = InsertReminder(index, reminder, now) >= 0 || added;
        }
    }
    return added;
}

void CcvMfcRemindersListControl::UpdateDueInTexts(CTime now)
{
    const int column = FindColumn(ReminderColumn::DueIn);
    if (column < 0)
    {
        return;
    }
    for (int row = 0; row < GetItemCount(); ++row)
    {
        CcvReminderData* const reminder =
            m_manager->GetReminderByIndex(FindCollectionIndex(row).value_or(-1));
        if (reminder != nullptr)
        {
            SetItemText(row, column, ts::DueInText(*reminder, now));
        }
    }
}
