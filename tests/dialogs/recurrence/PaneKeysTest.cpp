// A pane and the dialog around it are used like one dialog, whoever runs the message loop.

#include "dialogs/CcvMfcRecurrenceDailyDialog.h"
#include "dialogs/CcvMfcRecurrenceMonthlyDialog.h"
#include "dialogs/CcvMfcRecurrenceWeeklyDialog.h"
#include "dialogs/CcvMfcRecurrenceYearlyDialog.h"
#include "module/ResourceScope.h"
#include "tests/dialogs/recurrence/PaneHarness.h"
#include "tests/support/HeapKind.h"
#include "tests/support/ManyRounds.h"

#include <algorithm>
#include <bit>

namespace
{

using namespace ts::test;
using Stops = std::vector<int>;

/// A message loop that knows nothing of dialogs.
void PumpPlainly()
{
    MSG message;
    while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE) != FALSE)
    {
        TranslateMessage(&message);
        DispatchMessageW(&message);
    }
}

/// Whether a panel takes the Tab key of the window that has the focus from a loop that knows no dialogs.
bool IsTabConsumed()
{
    PostMessageW(GetFocus(), WM_KEYDOWN, VK_TAB, 1);
    MSG message{};
    EXPECT_NE(FALSE, PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE));
    return message.message == WM_NULL;
}

template <typename Pane, UINT kTemplate>
struct Kind
{
    using Open = Opened<Pane, kTemplate>;
    static constexpr UINT kId = kTemplate;
};

template <typename PaneKind>
class PaneKeysTest : public PaneTest
{
  protected:
    using Open = typename PaneKind::Open;

    /// The stops of Tab in the pane.
    static Stops Expected(const wchar_t* language)
    {
        const bool isDayFirst = !IsEnglish(language);
        switch (PaneKind::kId)
        {
        case IDD_RECURRENCE_DAILY:
            return {IDC_DAILY_EVERY_N_DAYS, IDC_DAILY_NUMBER};
        case IDD_RECURRENCE_WEEKLY:
            return {1011, 1012, 1013, 1014, 1015, 1016, 1017, 1018};
        case IDD_RECURRENCE_MONTHLY:
            return {IDC_MONTHLY_ON_DAY,  IDC_MONTHLY_DAY,      IDC_MONTHLY_DAY_MONTHS,
                    IDC_MONTHLY_ORDINAL, IDC_MONTHLY_DAY_TYPE, IDC_MONTHLY_DAY_TYPE_MONTHS};
        default:
            return {IDC_YEARLY_ON_DAY,
                    isDayFirst ? IDC_YEARLY_DAY : IDC_YEARLY_DAY_MONTH,
                    isDayFirst ? IDC_YEARLY_DAY_MONTH : IDC_YEARLY_DAY,
                    IDC_YEARLY_ORDINAL,
                    IDC_YEARLY_DAY_TYPE,
                    IDC_YEARLY_DAY_TYPE_MONTH};
        }
    }

    /// All stops of dialog and pane, from the first to the first again.
    static Stops AllStops(const wchar_t* language)
    {
        Stops stops = Expected(language);
        stops.insert(stops.begin(), IDC_OUTER_BEFORE);
        for (const int id : {IDC_OUTER_AFTER, IDC_OUTER_DATE, IDOK, IDCANCEL, IDC_OUTER_BEFORE})
        {
            stops.push_back(id);
        }
        return stops;
    }

    static void FocusOn(const Open& open, int id) { ::SetFocus(::GetDlgItem(open.pane.m_hWnd, id)); }
};

using Kinds = testing::Types<Kind<CcvMfcRecurrenceDailyDialog, IDD_RECURRENCE_DAILY>,
                             Kind<CcvMfcRecurrenceWeeklyDialog, IDD_RECURRENCE_WEEKLY>,
                             Kind<CcvMfcRecurrenceMonthlyDialog, IDD_RECURRENCE_MONTHLY>,
                             Kind<CcvMfcRecurrenceYearlyDialog, IDD_RECURRENCE_YEARLY>>;

} // namespace

TYPED_TEST_SUITE(PaneKeysTest, Kinds);

TYPED_TEST(PaneKeysTest, Tab_GoesThroughDialogAndPaneAndBack)
{
    for (const wchar_t* const language : kAllLanguages)
    {
        TestFixture::SetLanguage(language);
        const typename TestFixture::Open open([](auto&) {});
        Stops expected = TestFixture::AllStops(language);
        Stops forwards{OuterDialog::Focus()};
        while (forwards.size() < expected.size())
        {
            PressKey(VK_TAB);
            forwards.push_back(OuterDialog::Focus());
        }
        EXPECT_EQ(expected, forwards);

        const KeyHeld shift(VK_SHIFT);
        Stops backwards{OuterDialog::Focus()};
        while (backwards.size() < expected.size())
        {
            PressKey(VK_TAB);
            backwards.push_back(OuterDialog::Focus());
        }
        std::ranges::reverse(expected);
        EXPECT_EQ(expected, backwards);
    }
}

TYPED_TEST(PaneKeysTest, EnterAndEscape_BelongToTheDialogFromEverywhere)
{
    for (const wchar_t* const language : kAllLanguages)
    {
        TestFixture::SetLanguage(language);
        const typename TestFixture::Open open([](auto&) {});
        int times = 0;
        for (const int id : TestFixture::Expected(language))
        {
            TestFixture::FocusOn(open, id);
            PressKey(VK_RETURN);
            ++times;
            EXPECT_EQ(times, open.outer.m_oks) << id;
            EXPECT_EQ(times, open.outer.m_accepted) << id;
            PressKey(VK_ESCAPE);
            EXPECT_EQ(times, open.outer.m_cancels) << id;
            EXPECT_NE(FALSE, ::IsWindow(open.pane.m_hWnd));
        }
    }
}

TYPED_TEST(PaneKeysTest, LoopThatKnowsNoDialogs_MovesThroughThePaneToo)
{
    const typename TestFixture::Open open([](auto&) {});
    const Stops stops = TestFixture::Expected(L"en");
    TestFixture::FocusOn(open, stops.front());
    for (std::size_t next = 1; next < stops.size(); ++next)
    {
        PostMessageW(GetFocus(), WM_KEYDOWN, VK_TAB, 1);
        PumpPlainly();
        EXPECT_EQ(stops[next], OuterDialog::Focus());
    }
    PostMessageW(GetFocus(), WM_KEYDOWN, VK_RETURN, 1);
    PumpPlainly();
    EXPECT_EQ(1, open.outer.m_oks);
}

TYPED_TEST(PaneKeysTest, PaneIsToldOkOrCancel_PassesItOn)
{
    typename TestFixture::Open open([](auto&) {});
    open.pane.SendMessage(WM_COMMAND, IDOK);
    EXPECT_EQ(1, open.outer.m_oks);
    open.pane.SendMessage(WM_COMMAND, IDCANCEL);
    EXPECT_EQ(1, open.outer.m_cancels);
    EXPECT_NE(FALSE, ::IsWindow(open.pane.m_hWnd));
    EXPECT_NE(FALSE, open.pane.IsWindowVisible());
    // It has no hook of its own any more, and the dialog goes on to work its keys.
    TestFixture::FocusOn(open, TestFixture::Expected(L"en").front());
    PressKey(VK_RETURN);
    EXPECT_EQ(2, open.outer.m_oks);
}

TYPED_TEST(PaneKeysTest, Ok_EndsTheHookOnceTheDialogHasAnswered)
{
    typename TestFixture::Open open([](auto&) {});
    PumpMessages();
    TestFixture::FocusOn(open, TestFixture::Expected(L"en").front());
    PumpMessages();
    bool consumedMeanwhile = false;
    open.outer.m_duringOk = [&] { consumedMeanwhile = IsTabConsumed(); };
    open.pane.SendMessage(WM_COMMAND, IDOK);
    EXPECT_EQ(1, open.outer.m_oks);
    EXPECT_TRUE(consumedMeanwhile);
    EXPECT_FALSE(IsTabConsumed());
}

TYPED_TEST(PaneKeysTest, DialogThatDestroysThePaneInItsOk_IsSurvived)
{
    auto open = std::make_unique<typename TestFixture::Open>([](auto&) {});
    const HWND pane = open->pane.m_hWnd;
    open->outer.m_duringOk = [&open] { open->pane.DestroyWindow(); };
    ::SendMessageW(pane, WM_COMMAND, IDOK, 0);
    EXPECT_FALSE(::IsWindow(pane));
}

/// A dialog that ends its pane, window and object, when the pane tells it OK.
template <typename Open>
class BriefDialog : public CDialog
{
  public:
    ~BriefDialog() override { DestroyWindow(); }

    BOOL OnInitDialog() override
    {
        CDialog::OnInitDialog();
        const ts::ResourceScope scope;
        return m_pane->Create(Open::kPaneTemplate, this);
    }
    std::unique_ptr<typename Open::Kind> m_pane = std::make_unique<typename Open::Kind>();

  protected:
    void OnOK() override { m_pane.reset(); }
};

TYPED_TEST(PaneKeysTest, DialogThatDeletesThePaneInItsOk_IsSurvived)
{
    BriefDialog<typename TestFixture::Open> dialog;
    ASSERT_NE(FALSE, dialog.Create(IDD_OUTER));
    const HWND pane = dialog.m_pane->m_hWnd;
    ASSERT_NE(FALSE, ::IsWindow(pane));
    ::SendMessageW(pane, WM_COMMAND, IDOK, 0);
    EXPECT_FALSE(::IsWindow(pane));
    EXPECT_EQ(nullptr, dialog.m_pane);
}

TYPED_TEST(PaneKeysTest, Mnemonics_LeadFromTheDialogToThePane)
{
    struct Row
    {
        const wchar_t* letters;
        Stops controls;
    };
    const auto rowOf = [](std::size_t language) -> Row
    {
        switch (TypeParam::kId)
        {
        case IDD_RECURRENCE_DAILY:
            return {std::vector{L"ve", L"er", L"uv"}[language], {1041, 1042}};
        case IDD_RECURRENCE_WEEKLY:
            return {std::vector{L"vnoedhfu", L"esoihrfa", L"unlicjvs"}[language],
                    {1011, 1012, 1013, 1014, 1015, 1016, 1017, 1018}};
        case IDD_RECURRENCE_MONTHLY:
            return {std::vector{L"dhov", L"aies", L"leus"}[language], {1044, 1045, 1046, 1043}};
        default:
            return {std::vector{L"nhf", L"asi", L"len"}[language], {1036, 1037, 1044}};
        }
    };
    for (std::size_t language = 0; language < std::size(kAllLanguages); ++language)
    {
        TestFixture::SetLanguage(kAllLanguages[language]);
        const Row row = rowOf(language);
        for (std::size_t index = 0; index < row.controls.size(); ++index)
        {
            const typename TestFixture::Open open([](auto&) {});
            PressMnemonic(row.letters[index]);
            EXPECT_EQ(row.controls[index], OuterDialog::Focus()) << index << " in language " << language;
        }
    }
}

TYPED_TEST(PaneKeysTest, ManyRounds_LeaveNothingBehind)
{
    ExpectRoundsLeaveNothing(Rounds(20), [] { const typename TestFixture::Open open([](auto&) {}); });
}

namespace
{

using Daily = Opened<CcvMfcRecurrenceDailyDialog, IDD_RECURRENCE_DAILY>;
using Weekly = Opened<CcvMfcRecurrenceWeeklyDialog, IDD_RECURRENCE_WEEKLY>;

class PaneHookTest : public PaneTest
{
};

} // namespace

TEST_F(PaneHookTest, Arrows_GoThroughTheRadioButtons)
{
    const Daily open([](auto&) {});
    ::SetFocus(::GetDlgItem(open.pane.m_hWnd, IDC_DAILY_EVERY_N_DAYS));
    for (const UINT key : {VK_DOWN, VK_UP, VK_RIGHT, VK_LEFT})
    {
        PressKey(key);
        const bool isSecond = key == VK_DOWN || key == VK_RIGHT;
        EXPECT_EQ(isSecond ? IDC_DAILY_EVERY_WEEKDAY : IDC_DAILY_EVERY_N_DAYS, OuterDialog::Focus());
        EXPECT_EQ(isSecond, IsChecked(open.pane, IDC_DAILY_EVERY_WEEKDAY));
        EXPECT_EQ(!isSecond, IsChecked(open.pane, IDC_DAILY_EVERY_N_DAYS));
    }
}

TEST_F(PaneHookTest, Tab_StopsAtTheChosenRadioButton)
{
    const Daily open([](auto& pane) { pane.SetDailyOccurenceType(EcvReminderDailyOccurence::EveryWeekday); });
    PressKey(VK_TAB);
    EXPECT_EQ(IDC_DAILY_EVERY_WEEKDAY, OuterDialog::Focus());
}

TEST_F(PaneHookTest, TypedText_ArrivesOnce)
{
    Daily open([](auto&) {});
    PressKey(VK_TAB);
    PressKey(VK_TAB);
    ASSERT_EQ(IDC_DAILY_NUMBER, OuterDialog::Focus());
    TypeText(L"37");
    EXPECT_EQ(L"37", ShownText(open.pane, IDC_DAILY_NUMBER));
    PressKey(VK_RETURN);
    EXPECT_EQ(37, open.pane.GetDailyNumber());
}

TEST_F(PaneHookTest, Space_TicksADay)
{
    const Weekly open([](auto&) {});
    const HWND sunday = ::GetDlgItem(open.pane.m_hWnd, IDC_WEEKLY_SUNDAY);
    ::SetFocus(sunday);
    PressKey(VK_SPACE);
    EXPECT_TRUE(IsChecked(open.pane, IDC_WEEKLY_SUNDAY));
}

TEST_F(PaneHookTest, PastedLineBreak_NeverPassesForANumber)
{
    Daily open([](auto&) {});
    const std::wstring pasted = L"12\r\n34";
    ASSERT_NE(FALSE, OpenClipboard(open.outer.m_hWnd));
    EmptyClipboard();
    const HGLOBAL memory = GlobalAlloc(GMEM_MOVEABLE, (pasted.size() + 1) * sizeof(wchar_t));
    ASSERT_NE(nullptr, memory);
    std::ranges::copy(pasted.c_str(), pasted.c_str() + pasted.size() + 1,
                      static_cast<wchar_t*>(GlobalLock(memory)));
    GlobalUnlock(memory);
    ASSERT_NE(nullptr, SetClipboardData(CF_UNICODETEXT, memory));
    CloseClipboard();
    const HWND edit = ::GetDlgItem(open.pane.m_hWnd, IDC_DAILY_NUMBER);
    ::SendMessageW(edit, EM_SETSEL, 0, -1);
    ::SendMessageW(edit, WM_PASTE, 0, 0);
    // The system may cut the text at the line break.
    if (ShownText(open.pane, IDC_DAILY_NUMBER) == L"12")
    {
        ExpectAccepted(open.pane);
        EXPECT_EQ(12, open.pane.GetDailyNumber());
    }
    else
    {
        ExpectRefused(open.pane, ts::LoadText(IDS_NOT_A_WHOLE_NUMBER), IDC_DAILY_NUMBER);
    }
}

TEST_F(PaneHookTest, ConsumedKey_BecomesANullMessage)
{
    const Daily open([](auto&) {});
    PumpMessages();
    ::SetFocus(::GetDlgItem(open.pane.m_hWnd, IDC_DAILY_EVERY_N_DAYS));
    PumpMessages();
    PostMessageW(GetFocus(), WM_KEYDOWN, VK_TAB, 1);
    MSG message{};
    ASSERT_NE(FALSE, PeekMessageW(&message, nullptr, WM_KEYFIRST, WM_KEYLAST, PM_NOREMOVE));
    EXPECT_EQ(UINT{WM_KEYDOWN}, message.message);
    EXPECT_EQ(IDC_DAILY_EVERY_N_DAYS, OuterDialog::Focus()) << "a look at the queue moves nothing";
    ASSERT_NE(FALSE, PeekMessageW(&message, nullptr, WM_KEYFIRST, WM_KEYLAST, PM_REMOVE));
    EXPECT_EQ(UINT{WM_NULL}, message.message);
    EXPECT_EQ(nullptr, message.hwnd);
    EXPECT_EQ(0u, message.wParam);
    EXPECT_EQ(IDC_DAILY_NUMBER, OuterDialog::Focus());
}

TEST_F(PaneHookTest, KeysOfOtherWindows_PassUnchanged)
{
    const Daily open([](auto&) {});
    PumpMessages();
    PostMessageW(::GetDlgItem(open.outer.m_hWnd, IDC_OUTER_AFTER), WM_KEYDOWN, VK_TAB, 1);
    MSG message{};
    ASSERT_NE(FALSE, PeekMessageW(&message, nullptr, WM_KEYFIRST, WM_KEYLAST, PM_REMOVE));
    EXPECT_EQ(UINT{WM_KEYDOWN}, message.message);
    EXPECT_EQ(WPARAM{VK_TAB}, message.wParam);
}

TEST_F(PaneHookTest, RefusalInsideTheKey_ShowsItsMessageAndGoesOn)
{
    Weekly open([](auto&) {});
    Enter(open.pane, IDC_WEEKLY_NUMBER, L"0");
    ::SetFocus(::GetDlgItem(open.pane.m_hWnd, IDC_WEEKLY_FRIDAY));
    std::wstring text;
    const WhenShown shown(L"#32770",
                          [&text](HWND box)
                          {
                              text = TextOf(::GetDlgItem(box, 0xFFFF));
                              PostMessageW(::GetFocus(), WM_KEYDOWN, VK_RETURN, 1);
                          });
    PressKey(VK_RETURN);
    EXPECT_EQ(ts::LoadText(IDS_NUMBER_BELOW_ONE).GetString(), text);
    EXPECT_EQ(1, open.outer.m_oks);
    EXPECT_EQ(0, open.outer.m_accepted);
    EXPECT_EQ(IDC_WEEKLY_NUMBER, OuterDialog::Focus());
    TypeText(L"4");
    PressKey(VK_RETURN);
    EXPECT_EQ(1, open.outer.m_accepted);
    EXPECT_EQ(4, open.pane.GetWeeklyNumber());
}

TEST_F(PaneHookTest, Registration_TwiceAndForADeadWindow_IsHarmless)
{
    const Daily open([](auto&) {});
    {
        ts::DialogMessageRegistration twice;
        EXPECT_EQ(S_OK, twice.Register(open.pane.m_hWnd));
        EXPECT_EQ(S_OK, twice.Register(open.pane.m_hWnd));
        ts::DialogMessageRegistration dead;
        const HWND window = CreateWindowExW(0, L"Static", L"", WS_POPUP, 0, 0, 10, 10, nullptr, nullptr,
                                            GetModuleHandleW(nullptr), nullptr);
        EXPECT_EQ(S_OK, dead.Register(window));
        DestroyWindow(window);
        PressKey(VK_TAB);
        EXPECT_EQ(IDC_DAILY_EVERY_N_DAYS, OuterDialog::Focus());
    }
    PressKey(VK_TAB);
    EXPECT_EQ(IDC_DAILY_NUMBER, OuterDialog::Focus());
}

TEST_F(PaneHookTest, EntriesOfComboBoxes_FitInEveryLanguage)
{
    for (const wchar_t* const language : kAllLanguages)
    {
        SetLanguage(language);
        const Opened<CcvMfcRecurrenceMonthlyDialog, IDD_RECURRENCE_MONTHLY> monthly([](auto&) {});
        const Opened<CcvMfcRecurrenceYearlyDialog, IDD_RECURRENCE_YEARLY> yearly([](auto&) {});
        for (const auto& [pane, combo] :
             std::vector<std::pair<const CWnd*, int>>{{&monthly.pane, IDC_MONTHLY_ORDINAL},
                                                      {&monthly.pane, IDC_MONTHLY_DAY_TYPE},
                                                      {&yearly.pane, IDC_YEARLY_DAY_MONTH},
                                                      {&yearly.pane, IDC_YEARLY_ORDINAL},
                                                      {&yearly.pane, IDC_YEARLY_DAY_TYPE},
                                                      {&yearly.pane, IDC_YEARLY_DAY_TYPE_MONTH}})
        {
            const HWND window = ::GetDlgItem(pane->m_hWnd, combo);
            COMBOBOXINFO info{};
            info.cbSize = sizeof info;
            ASSERT_NE(FALSE, GetComboBoxInfo(window, &info));
            const HDC dc = GetDC(window);
            const HGDIOBJ font = std::bit_cast<HGDIOBJ>(::SendMessageW(window, WM_GETFONT, 0, 0));
            const HGDIOBJ former = SelectObject(dc, font);
            for (const std::wstring& entry : Entries(*pane, combo))
            {
                SIZE size{};
                GetTextExtentPoint32W(dc, entry.c_str(), static_cast<int>(entry.size()), &size);
                EXPECT_LE(size.cx + 4, info.rcItem.right - info.rcItem.left) << testing::PrintToString(entry);
            }
            SelectObject(dc, former);
            ReleaseDC(window, dc);
        }
    }
}
