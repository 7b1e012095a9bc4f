#include "dialogs/CcvMfcAddReminderDialogInternal.h"

#include "dialogs/AddReminderLayout.h"
#include "dialogs/FieldHeight.h"
#include "dialogs/LeadTimeText.h"
#include "module/LanguageText.h"
#include "module/ResourceScope.h"
#include "reminders/CcvReminderDataUtilities.h"
#include "resources/AddReminderControls.h"
#include "resources/StringIds.h"

#include <utility>

IMPLEMENT_DYNAMIC(CcvMfcAddReminderDialogInternal, CcvMfcDialogBaseInternal)

BEGIN_MESSAGE_MAP(CcvMfcAddReminderDialogInternal, CcvMfcDialogBaseInternal)
ON_BN_CLICKED(IDC_ADD_TOGGLE_RECURRENCE, OnToggleRecurrence)
ON_CONTROL(CBN_SETFOCUS, IDC_ADD_LEAD_TIME, OnLeadTimeEntered)
ON_CONTROL(CBN_KILLFOCUS, IDC_ADD_LEAD_TIME, OnLeadTimeLeft)
ON_BN_CLICKED(IDC_ADD_DAILY, OnKindChosen)
ON_BN_CLICKED(IDC_ADD_WEEKLY, OnKindChosen)
ON_BN_CLICKED(IDC_ADD_MONTHLY, OnKindChosen)
ON_BN_CLICKED(IDC_ADD_YEARLY, OnKindChosen)
END_MESSAGE_MAP()

namespace
{

constexpr int kKindButtons[] = {IDC_ADD_DAILY, IDC_ADD_WEEKLY, IDC_ADD_MONTHLY, IDC_ADD_YEARLY};

constexpr int KindOf(EcvReminderRecurrenceType type)
{
    return static_cast<int>(type) - 1;
}

/// The due time that a new reminder suggests. The record's own cannot be had in the last quarter of an hour
/// of a day.
CTime SuggestedDueTime()
{
    try
    {
        return CcvReminderData().GetInitialDueDate();
    }
    catch (const COleException&)
    {
        constexpr std::int64_t kQuarter = 900;
        const std::int64_t later = CTime::GetCurrentTime().GetTime() + kQuarter;
        return later - later % kQuarter;
    }
}

/// The last time that the picker offers.
CTime LastDueTime()
{
    try
    {
        return CTime(3000, 12, 31, 23, 59, 59);
    }
    catch (const COleException&)
    {
        // West of Greenwich the runtime's calendar ends some hours earlier.
        return CTime(3000, 12, 31, 12, 0, 0);
    }
}

/// Noon, which exists on every date. A time without a local date stays as it is.
CTime NoonOf(const CTime& time)
{
    constexpr int kNoon = 12;
    return time.GetYear() == 0 ? time : CTime(time.GetYear(), time.GetMonth(), time.GetDay(), kNoon, 0, 0);
}

void SetFirstDueTimes(CcvReminderData& record, const CTime& due)
{
    using Utilities = CcvReminderDataUtilities;
    struct Rules
    {
        CTime (*initial)(const CTime&, const CcvReminderData*);
        CTime (*upcoming)(const CTime&, const CcvReminderData*);
    };
    static constexpr Rules kRules[] = {{Utilities::CalculateInitialDailyRecurrentDueTime,
                                        Utilities::CalculateInitialUpcomingDailyRecurrentDueTime},
                                       {Utilities::CalculateInitialWeeklyRecurrentDueTime,
                                        Utilities::CalculateInitialUpcomingWeeklyRecurrentDueTime},
                                       {Utilities::CalculateInitialMonthlyRecurrentDueTime,
                                        Utilities::CalculateInitialUpcomingMonthlyRecurrentDueTime},
                                       {Utilities::CalculateInitialYearlyRecurrentDueTime,
                                        Utilities::CalculateInitialUpcomingYearlyRecurrentDueTime}};
    const Rules& rules = kRules[KindOf(record.GetRecurrenceType())];
    record.SetInitialDueDate(rules.initial(due, &record));
    record.SetNextDueDate(rules.upcoming(record.GetInitialDueDate(), &record));
}

/// Sets a flag for as long as it lives.
class TrueScope
{
  public:
    explicit TrueScope(bool& flag) noexcept : m_flag(flag) { m_flag = true; }
    TrueScope(const TrueScope&) = delete;
    TrueScope& operator=(const TrueScope&) = delete;
    ~TrueScope() { m_flag = false; }

  private:
    bool& m_flag;
};

} // namespace

CcvMfcAddReminderDialogInternal::CcvMfcAddReminderDialogInternal(CWnd* parent)
    : CcvMfcDialogBaseInternal(IDD_ADD_REMINDER, parent), m_date(SuggestedDueTime()), m_time(m_date),
      m_kind(KindOf(EcvReminderRecurrenceType::Weekly))
{
}

void CcvMfcAddReminderDialogInternal::UpdateReminderData(const CcvReminderData& record)
{
    m_record = std::make_unique<CcvReminderData>(record);
    m_subject = record.GetSubject();
    m_leadTime = record.GetReminderTimeSpan();
    const bool hasFirst = record.GetInitialDueDate() != 0;
    m_date = hasFirst ? record.GetInitialDueDate() : record.GetNextDueDate();
    m_time = m_date;
    const int kind = KindOf(record.GetRecurrenceType());
    m_sectionShown = kind >= 0 && kind < ts::RecurrencePanes::kCount;
    if (m_sectionShown)
    {
        m_kind = kind;
        m_panes.Load(record);
    }
    if (m_hWnd != nullptr)
    {
        UpdateData(FALSE);
        LayOut();
    }
}

CcvReminderData* CcvMfcAddReminderDialogInternal::GetReminderData()
{
    if (m_record == nullptr)
    {
        // The default record has due times of its own, which cannot always be had.
        m_record = std::make_unique<CcvReminderData>(CString());
    }
    if (m_sectionShown)
    {
        // A pane that refuses keeps what it accepted last.
        (void)m_panes.Accept(m_kind);
    }
    Fill(*m_record);
    return m_record.get();
}

void CcvMfcAddReminderDialogInternal::Fill(CcvReminderData& record) const
{
    const CTime due(m_date.GetYear(), m_date.GetMonth(), m_date.GetDay(), m_time.GetHour(),
                    m_time.GetMinute(), m_time.GetSecond());
    record.SetSubject(m_subject);
    record.SetReminderTimeSpan(m_leadTime);
    record.SetInitialDueDate(due);
    record.SetNextDueDate(due);
    record.ResetRecurrenceOptions();
    record.SetRecurrenceType(EcvReminderRecurrenceType::None);
    if (m_sectionShown)
    {
        m_panes.Store(m_kind, record);
        SetFirstDueTimes(record, due);
    }
}

void CcvMfcAddReminderDialogInternal::SetDialogCaption(const CString& caption)
{
    m_caption = caption;
    if (m_hWnd != nullptr)
    {
        ApplyCaption();
    }
}

void CcvMfcAddReminderDialogInternal::ApplyCaption()
{
    SetWindowText(m_caption);
    SetScreenView(m_caption, EcvFeedbackType::ScreenView, EcvSendFeedback::AsUserAllows);
}

BOOL CcvMfcAddReminderDialogInternal::OnInitDialog()
{
    const ts::ResourceScope scope;
    const BOOL result = CcvMfcDialogBaseInternal::OnInitDialog();
    if (!m_caption.IsEmpty())
    {
        ApplyCaption();
    }
    AttachControls();
    CreatePanes();
    UpdateData(FALSE);
    // Centred at its full height, so that there is room when the section opens.
    CenterWindow();
    LayOut();
    SetForegroundWindow();
    return result;
}

void CcvMfcAddReminderDialogInternal::AttachControls()
{
    m_dateControl.SubclassDlgItem(IDC_ADD_DATE, this);
    m_dateControl.SetRange(CTime(0), LastDueTime());
    m_timeControl.Attach(IDC_ADD_TIME, this);
    m_subjectControl.SubclassDlgItem(IDC_ADD_SUBJECT, this);
    std::vector<CString> subjects;
    for (unsigned id = IDS_SUGGESTED_SUBJECT_1; id <= IDS_SUGGESTED_SUBJECT_6; ++id)
    {
        subjects.push_back(ts::LoadText(id));
    }
    m_subjectControl.SetSuggestions(std::move(subjects));
    m_leadTimeControl.SubclassDlgItem(IDC_ADD_LEAD_TIME, this);
    for (unsigned id = IDS_LEAD_TIME_0_MINUTES; id <= IDS_LEAD_TIME_2_WEEKS; ++id)
    {
        m_leadTimeControl.AddString(ts::LoadText(id));
    }
    ts::FitComboBoxes(*this);
}

void CcvMfcAddReminderDialogInternal::CreatePanes()
{
    m_panes.Create(*this);
    for (int kind = 0; kind < ts::RecurrencePanes::kCount; ++kind)
    {
        ts::PlacePane(*this, m_panes.Pane(kind));
    }
}

void CcvMfcAddReminderDialogInternal::LayOut()
{
    std::array<HWND, ts::RecurrencePanes::kCount> panes{};
    for (std::size_t kind = 0; kind < panes.size(); ++kind)
    {
        panes.at(kind) = m_panes.Pane(static_cast<int>(kind)).m_hWnd;
    }
    const HWND shown = m_sectionShown ? m_panes.Pane(ChosenKind()).m_hWnd : nullptr;
    ts::LayOutAddReminder(*this, panes, shown);
    SetDlgItemText(IDC_ADD_TOGGLE_RECURRENCE,
                   ts::LoadText(m_sectionShown ? IDS_REMOVE_RECURRENCE : IDS_ADD_RECURRENCE));
}

int CcvMfcAddReminderDialogInternal::ChosenKind() const
{
    for (int kind = 0; kind < ts::RecurrencePanes::kCount; ++kind)
    {
        if (IsDlgButtonChecked(kKindButtons[kind]) == BST_CHECKED)
        {
            return kind;
        }
    }
    return m_kind;
}

void CcvMfcAddReminderDialogInternal::OnToggleRecurrence()
{
    m_sectionShown = !m_sectionShown;
    LayOut();
    const HWND focus = ::GetFocus();
    if (focus != nullptr && ::IsWindowVisible(focus) == FALSE)
    {
        GotoDlgCtrl(GetDlgItem(IDC_ADD_TOGGLE_RECURRENCE));
    }
}

void CcvMfcAddReminderDialogInternal::OnKindChosen()
{
    LayOut();
}

// As in edit controls, what is typed replaces the text, and only the focus shows a selection. Some systems'
// combo boxes see to neither.
void CcvMfcAddReminderDialogInternal::OnLeadTimeEntered()
{
    constexpr WORD kToTheEnd = 0xFFFF;
    m_leadTimeControl.SendMessage(CB_SETEDITSEL, 0, MAKELPARAM(0, kToTheEnd));
}

void CcvMfcAddReminderDialogInternal::OnLeadTimeLeft()
{
    m_leadTimeControl.SendMessage(CB_SETEDITSEL, 0, MAKELPARAM(0, 0));
}

void CcvMfcAddReminderDialogInternal::OnOK()
{
    const ts::ResourceScope scope;
    if (m_sectionShown && !m_panes.Accept(ChosenKind()))
    {
        return;
    }
    // The pane may have asked the user something: once is enough.
    const TrueScope accepted(m_paneAccepted);
    CcvMfcDialogBaseInternal::OnOK();
}

void CcvMfcAddReminderDialogInternal::DoDataExchange(CDataExchange* exchange)
{
    const ts::ResourceScope scope;
    CcvMfcDialogBaseInternal::DoDataExchange(exchange);
    DDX_Text(exchange, IDC_ADD_SUBJECT, m_subject);
    DDX_Radio(exchange, IDC_ADD_DAILY, m_kind);
    ExchangeLeadTime(exchange);
    ExchangeRecurrence(exchange);
    ExchangeDueTime(exchange);
}

void CcvMfcAddReminderDialogInternal::ExchangeLeadTime(CDataExchange* exchange)
{
    exchange->PrepareCtrl(IDC_ADD_LEAD_TIME);
    if (exchange->m_bSaveAndValidate != FALSE)
    {
        CString text;
        GetDlgItemText(IDC_ADD_LEAD_TIME, text);
        const auto leadTime = ts::ParseLeadTime(text);
        if (!leadTime)
        {
            SetDlgItemText(IDC_ADD_LEAD_TIME, ts::ShowLeadTime(0));
            exchange->Fail();
        }
        m_leadTime = *leadTime;
    }
    SetDlgItemText(IDC_ADD_LEAD_TIME, ts::ShowLeadTime(m_leadTime));
}

void CcvMfcAddReminderDialogInternal::ExchangeRecurrence(CDataExchange* exchange)
{
    if (exchange->m_bSaveAndValidate != FALSE && m_sectionShown && !m_paneAccepted && !m_panes.Accept(m_kind))
    {
        exchange->Fail();
    }
}

void CcvMfcAddReminderDialogInternal::ExchangeDueTime(CDataExchange* exchange)
{
    if (m_dateControl.m_hWnd == nullptr)
    {
        // The base's start exchanges once before the controls are attached.
        return;
    }
    exchange->PrepareCtrl(IDC_ADD_DATE);
    if (exchange->m_bSaveAndValidate == FALSE)
    {
        m_dateControl.SetTime(NoonOf(m_date));
        m_timeControl.SetTime(m_time);
        return;
    }
    m_time = m_timeControl.GetTime();
    if (m_dateControl.GetTime(m_date) == FALSE)
    {
        exchange->Fail();
    }
    try
    {
        CcvReminderData probe{CString()};
        Fill(probe);
    }
    catch (const COleException&)
    {
        exchange->Fail();
    }
}
