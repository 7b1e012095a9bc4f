#include "tests/dialogs/ListHarness.h"

#include "collection/SynchronizationMessage.h"
#include "dialogs/HostApplication.h"
#include "module/InterfaceLanguage.h"
#include "module/RegistryPaths.h"
#include "tests/support/RawRegistry.h"

#include <bit>
#include <stdexcept>

namespace ts::test
{
namespace
{

constexpr wchar_t kParentClass[] = L"ListTestParent";
constexpr UINT kListId = 1030;

void RegisterWindowClass(const wchar_t* name, WNDPROC procedure)
{
    WNDCLASSW description{};
    description.lpszClassName = name;
    description.lpfnWndProc = procedure;
    description.hInstance = GetModuleHandleW(nullptr);
    // It may be registered already.
    RegisterClassW(&description);
}

CString Numbered(const wchar_t* text, int number)
{
    wchar_t digits[8];
    swprintf(digits, std::size(digits), L"%05d", number);
    return CString(text) + digits;
}

} // namespace

// --- The window around ---

BEGIN_MESSAGE_MAP(ListParent, CWnd)
ON_MESSAGE(WM_REMINDER_SELCHANGED, OnSelectionChanged)
END_MESSAGE_MAP()

ListParent::ListParent()
{
    RegisterWindowClass(kParentClass, ::DefWindowProcW);
    const BOOL created = CreateEx(0, kParentClass, L"Reminders", WS_OVERLAPPEDWINDOW | WS_VISIBLE,
                                  CRect(20, 20, 720, 620), nullptr, 0);
    if (created == FALSE)
    {
        throw std::runtime_error("no window");
    }
}

LRESULT ListParent::OnSelectionChanged(WPARAM wParam, LPARAM lParam)
{
    EXPECT_EQ(0u, wParam);
    m_selections.push_back(static_cast<int>(lParam));
    if (onSelectionChanged)
    {
        onSelectionChanged();
    }
    return 0;
}

// --- The store ---

ReminderStore::ReminderStore()
{
    DeleteKeyTree(kRemindersPath);
}

ReminderStore::~ReminderStore()
{
    DeleteKeyTree(kRemindersPath);
}

int ReminderStore::Add(const CcvReminderData& reminder)
{
    const int number = static_cast<int>(m_keys.size());
    CcvReminderData stored = WithoutKey(reminder);
    stored.SetDocumentPath(Numbered(L"C:\\Maps\\Map ", number));
    stored.SetMapGuid(Numbered(L"{map ", number) + L"}");
    stored.SetObjectGuid(L"{topic}");
    if (!stored.SaveDataToRegistry(kRemindersPath))
    {
        throw std::runtime_error("a reminder cannot be stored");
    }
    m_keys.push_back(stored.GetReminderKey());
    return number;
}

int ReminderStore::Add(const wchar_t* subject, CTime due, const wchar_t* documentTitle)
{
    CcvReminderData reminder = DueAt(due);
    reminder.SetSubject(subject);
    reminder.SetDocumentTitle(documentTitle);
    return Add(reminder);
}

void ReminderStore::Remove(int number)
{
    CcvReminderData(m_keys.at(static_cast<std::size_t>(number))).DeleteDataFromRegistry(kRemindersPath);
}

std::optional<CcvReminderData> ReminderStore::Load(int number) const
{
    CcvReminderData reminder(m_keys.at(static_cast<std::size_t>(number)));
    return reminder.LoadDataFromRegistry(kRemindersPath) ? std::optional(reminder) : std::nullopt;
}

// --- The list ---

ListTest::ListTest()
{
    SetInterfaceLanguage(L"en");
}

ListTest::~ListTest()
{
    m_list.reset();
    m_parent.DestroyWindow();
    SetInterfaceLanguage(nullptr);
}

void ListTest::Open(unsigned columns, int width, int height)
{
    m_list.reset();
    m_manager = std::make_unique<CcvReminderDataCollectionManager>(m_mirrors);
    m_list = std::make_unique<CcvMfcRemindersListControl>(m_manager.get());
    constexpr DWORD kStyle =
        WS_CHILD | WS_VISIBLE | LVS_REPORT | LVS_OWNERDRAWFIXED | LVS_SINGLESEL | LVS_SHOWSELALWAYS;
    // As from a dialog's template: the window is there first.
    CreateWindowExW(0, WC_LISTVIEWW, L"", kStyle, 10, 10, width, height, m_parent.m_hWnd,
                    std::bit_cast<HMENU>(UINT_PTR{kListId}), GetModuleHandleW(nullptr), nullptr);
    ASSERT_TRUE(List().SubclassDlgItem(kListId, &m_parent));
    List().InitializeColumns(columns);
}

void ListTest::Show(ReminderListFilter filter, int height)
{
    Open(kAllColumns, 500, height);
    List().SetFilter(filter);
    List().Refresh();
    m_parent.TakeSelections();
}

std::wstring ListTest::Text(int row, int column)
{
    return List().GetItemText(row, column).GetString();
}

Texts ListTest::Column(int column)
{
    Texts texts;
    for (int row = 0; row < Count(); ++row)
    {
        texts.push_back(Text(row, column));
    }
    return texts;
}

void ListTest::Press(UINT key)
{
    List().SendMessage(WM_KEYDOWN, key, 1);
}

void ListTest::ClickHeader(int column)
{
    CRect rect;
    const HWND header = List().GetHeaderCtrl();
    ::SendMessageW(header, HDM_GETITEMRECT, static_cast<WPARAM>(column), std::bit_cast<LPARAM>(&rect));
    const CPoint middle = rect.CenterPoint();
    DragInHeader(middle, middle);
}

void ListTest::DragInHeader(POINT from, POINT to)
{
    const HWND header = List().GetHeaderCtrl();
    ::SendMessageW(header, WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(from.x, from.y));
    if (from.x != to.x)
    {
        ::SendMessageW(header, WM_MOUSEMOVE, MK_LBUTTON, MAKELPARAM((from.x + to.x) / 2, from.y));
        ::SendMessageW(header, WM_MOUSEMOVE, MK_LBUTTON, MAKELPARAM(to.x, to.y));
    }
    ::SendMessageW(header, WM_LBUTTONUP, 0, MAKELPARAM(to.x, to.y));
}

POINT ListTest::PointOn(int row)
{
    constexpr int kBehindTheImage = 40;
    CRect rect;
    List().GetItemRect(row, &rect, LVIR_BOUNDS);
    return {kBehindTheImage, (rect.top + rect.bottom) / 2};
}

void ListTest::Click(POINT point, UINT message)
{
    const LPARAM position = MAKELPARAM(point.x, point.y);
    const bool isRight = message == WM_RBUTTONDOWN;
    // The list waits for the button to be released or the mouse to be dragged.
    List().PostMessage(isRight ? WM_RBUTTONUP : WM_LBUTTONUP, 0, position);
    List().SendMessage(message, isRight ? MK_RBUTTON : MK_LBUTTON, position);
    PumpMessages();
}

void ListTest::PassMinute()
{
    constexpr WPARAM kMinuteTimer = 1001;
    List().SendMessage(WM_TIMER, kMinuteTimer);
}

void ListTest::AddNumbered(int count)
{
    for (int number = 0; number < count; ++number)
    {
        m_store.Add(std::to_wstring(number).c_str(), Noon() + CTimeSpan(60 * number + 60));
    }
}

CString ListTest::SelectedSubject()
{
    const CcvReminderData* const reminder = List().GetSelectedReminder();
    return reminder == nullptr ? CString() : reminder->GetSubject();
}

LVITEMW ListTest::Item(int row)
{
    LVITEMW item{};
    item.mask = LVIF_IMAGE | LVIF_PARAM;
    item.iItem = row;
    EXPECT_NE(FALSE, List().GetItem(&item));
    return item;
}

// --- The application ---

ApplicationWindow::ApplicationWindow(const wchar_t* windowClass)
{
    RegisterWindowClass(windowClass, Procedure);
    m_window = CreateWindowExW(0, windowClass, L"Application", WS_OVERLAPPEDWINDOW, 0, 0, 200, 200, nullptr,
                               nullptr, GetModuleHandleW(nullptr), nullptr);
    SetWindowLongPtrW(m_window, GWLP_USERDATA, std::bit_cast<LONG_PTR>(this));
}

ApplicationWindow::~ApplicationWindow()
{
    DestroyWindow(m_window);
}

LRESULT CALLBACK ApplicationWindow::Procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam)
{
    auto* const self = std::bit_cast<ApplicationWindow*>(GetWindowLongPtrW(window, GWLP_USERDATA));
    if (self != nullptr && message == kOpenReminderMessage)
    {
        EXPECT_EQ(0u, wParam);
        self->m_opened.push_back(static_cast<int>(lParam));
        return 0;
    }
    if (self != nullptr && message == kSynchronizationMessage && self->onSynchronize)
    {
        self->onSynchronize();
        return 0;
    }
    return DefWindowProcW(window, message, wParam, lParam);
}

} // namespace ts::test
