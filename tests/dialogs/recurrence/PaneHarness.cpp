#include "tests/dialogs/recurrence/PaneHarness.h"

#include "module/InterfaceLanguage.h"
#include "module/ResourceScope.h"
#include "tests/dialogs/MessageBoxIcon.h"

#include <bit>

namespace ts::test
{
namespace
{

int ButtonsOf(HWND box)
{
    int count = 0;
    for (HWND child = ::GetWindow(box, GW_CHILD); child != nullptr; child = ::GetWindow(child, GW_HWNDNEXT))
    {
        count += ClassOf(child) == L"Button" && ::IsWindowVisible(child) != FALSE ? 1 : 0;
    }
    return count;
}

} // namespace

OuterDialog::OuterDialog(CcvMfcDialogBaseInternal& pane, UINT paneTemplate)
    : m_pane(pane), m_paneTemplate(paneTemplate)
{
}

BOOL OuterDialog::OnInitDialog()
{
    m_date.SubclassDlgItem(IDC_OUTER_DATE, this);
    m_date.SetTime(PaneNow());
    const ResourceScope scope;
    EXPECT_NE(FALSE, m_pane.Create(m_paneTemplate, this));
    m_pane.SetWindowPos(::GetDlgItem(m_hWnd, IDC_OUTER_BEFORE), 10, 40, 0, 0, SWP_NOSIZE | SWP_SHOWWINDOW);
    ::SetFocus(::GetDlgItem(m_hWnd, IDC_OUTER_BEFORE));
    return FALSE;
}

void OuterDialog::OnOK()
{
    ++m_oks;
    if (m_duringOk)
    {
        m_duringOk();
    }
    m_accepted += m_pane.UpdateData(TRUE) != FALSE ? 1 : 0;
}

PaneTest::~PaneTest()
{
    SetInterfaceLanguage(nullptr);
}

void PaneTest::SetLanguage(const wchar_t* language)
{
    SetInterfaceLanguage(language);
}

Exchange PaneTest::Save(CcvMfcDialogBaseInternal& pane, int button)
{
    ::SetFocus(nullptr);
    Exchange exchange;
    const WhenShown shown(L"#32770",
                          [&exchange, button](HWND box)
                          {
                              exchange.asked = true;
                              exchange.message = TextOf(::GetDlgItem(box, 0xFFFF));
                              exchange.icon = IconOfMessageBox(box);
                              exchange.buttons = ButtonsOf(box);
                              EXPECT_TRUE(exchange.buttons == 1 || ::GetDlgItem(box, button) != nullptr);
                              ::SendMessageW(box, WM_COMMAND, static_cast<WPARAM>(button), 0);
                          });
    exchange.accepted = pane.UpdateData(TRUE) != FALSE;
    exchange.focus = OuterDialog::Focus();
    return exchange;
}

void PaneTest::Enter(const CWnd& pane, int edit, const wchar_t* text)
{
    ASSERT_NE(FALSE, ::SetDlgItemTextW(pane.m_hWnd, edit, text));
}

void PaneTest::Choose(const CWnd& pane, int radioButton)
{
    ::SendMessageW(::GetDlgItem(pane.m_hWnd, radioButton), BM_CLICK, 0, 0);
}

void PaneTest::Select(const CWnd& pane, int combo, int index)
{
    const HWND window = ::GetDlgItem(pane.m_hWnd, combo);
    ASSERT_EQ(index, ::SendMessageW(window, CB_SETCURSEL, static_cast<WPARAM>(index), 0));
}

std::wstring PaneTest::ShownText(const CWnd& pane, int control)
{
    return TextOf(::GetDlgItem(pane.m_hWnd, control));
}

int PaneTest::ShownIndex(const CWnd& pane, int combo)
{
    return static_cast<int>(::SendMessageW(::GetDlgItem(pane.m_hWnd, combo), CB_GETCURSEL, 0, 0));
}

bool PaneTest::IsChecked(const CWnd& pane, int button)
{
    return ::IsDlgButtonChecked(pane.m_hWnd, button) == BST_CHECKED;
}

std::vector<std::wstring> PaneTest::Entries(const CWnd& pane, int combo)
{
    std::vector<std::wstring> entries;
    const HWND window = ::GetDlgItem(pane.m_hWnd, combo);
    const LRESULT count = ::SendMessageW(window, CB_GETCOUNT, 0, 0);
    for (LRESULT index = 0; index < count; ++index)
    {
        wchar_t text[100] = L"";
        ::SendMessageW(window, CB_GETLBTEXT, static_cast<WPARAM>(index), std::bit_cast<LPARAM>(&text[0]));
        entries.emplace_back(text);
    }
    return entries;
}

std::vector<int> PaneTest::EntryData(const CWnd& pane, int combo)
{
    std::vector<int> data;
    const HWND window = ::GetDlgItem(pane.m_hWnd, combo);
    const LRESULT count = ::SendMessageW(window, CB_GETCOUNT, 0, 0);
    for (LRESULT index = 0; index < count; ++index)
    {
        data.push_back(
            static_cast<int>(::SendMessageW(window, CB_GETITEMDATA, static_cast<WPARAM>(index), 0)));
    }
    return data;
}

void PaneTest::ExpectRefused(CcvMfcDialogBaseInternal& pane, const CString& message, int focus)
{
    const Exchange exchange = Save(pane);
    EXPECT_FALSE(exchange.accepted);
    EXPECT_EQ(message.GetString(), exchange.message);
    EXPECT_EQ(1, exchange.buttons);
    EXPECT_EQ(ExclamationIcon(), exchange.icon);
    EXPECT_EQ(focus, exchange.focus);
}

void PaneTest::ExpectAccepted(CcvMfcDialogBaseInternal& pane)
{
    const Exchange exchange = Save(pane);
    EXPECT_TRUE(exchange.accepted);
    EXPECT_EQ(std::wstring(), exchange.message);
}

void PaneTest::ExpectAsked(CcvMfcDialogBaseInternal& pane, const CString& question, int focus)
{
    const Exchange cancelled = Save(pane, IDCANCEL);
    EXPECT_FALSE(cancelled.accepted);
    EXPECT_EQ(question.GetString(), cancelled.message);
    EXPECT_EQ(2, cancelled.buttons);
    EXPECT_EQ(ExclamationIcon(), cancelled.icon);
    EXPECT_EQ(focus, cancelled.focus);
    const Exchange agreed = Save(pane, IDOK);
    EXPECT_TRUE(agreed.accepted);
    EXPECT_EQ(question.GetString(), agreed.message);
}

void PaneTest::ExpectRubbishRefused(CcvMfcDialogBaseInternal& pane, int edit)
{
    const std::wstring former = ShownText(pane, edit);
    for (const wchar_t* const rubbish : {L"", L" ", L"abc", L"1a", L"1.5", L"0x10", L"2147483648",
                                         L"-2147483649", L"99999999999999999999999", L"1\r\n2", L"1 2"})
    {
        SCOPED_TRACE(testing::PrintToString(std::wstring(rubbish)));
        Enter(pane, edit, rubbish);
        ExpectRefused(pane, LoadText(IDS_NOT_A_WHOLE_NUMBER), edit);
    }
    Enter(pane, edit, former.c_str());
}

} // namespace ts::test
