// The reminder list beside the list view's own calls.

#include "bench/Sandbox.h"
#include "bench/Suites.h"
#include "collection/CcvReminderDataCollectionManager.h"
#include "dialogs/CcvMfcRemindersListControl.h"
#include "dialogs/ReminderOrder.h"
#include "dialogs/ReminderTimes.h"
#include "module/RegistryPaths.h"
#include "platform/Clock.h"
#include "platform/ts/RegistryValues.h"

#include <algorithm>
#include <bit>
#include <stdexcept>
#include <string>

namespace ts::bench
{
namespace
{

constexpr char kGroup[] = "list";
constexpr char kRefresh[] = "refresh 10,000 rows, per row";
constexpr char kRefreshQuietly[] = "refresh 10,000 rows, redrawing off on both sides, per row";
constexpr char kSortByDue[] = "sort 10,000 rows by due time, per row";
constexpr char kSortBySubject[] = "sort 10,000 rows by subject, per row";
constexpr char kMinute[] = "minute timer over 10,000 rows, per row";
constexpr char kOpen[] = "open and close an empty list";
constexpr const char* kNames[] = {kRefresh, kRefreshQuietly, kSortByDue, kSortBySubject, kMinute, kOpen};

constexpr std::size_t kRows = 10'000;
constexpr unsigned kAllColumns = 15;
constexpr std::int64_t kNow = 1'800'000'000;
constexpr DWORD kStyle = WS_CHILD | WS_VISIBLE | LVS_REPORT | LVS_OWNERDRAWFIXED | LVS_SINGLESEL;

std::int64_t StoppedClock() noexcept
{
    return kNow;
}

/// The library's clock stands still while it lives.
class ClockStop
{
  public:
    ClockStop() noexcept { ReplaceClock(StoppedClock); }
    ClockStop(const ClockStop&) = delete;
    ClockStop& operator=(const ClockStop&) = delete;
    ~ClockStop() { ReplaceClock(nullptr); }
};

/// Three of four reminders are due in the weeks to come; every fourth recurs.
void StoreReminders()
{
    for (std::size_t index = 0; index < kRows; ++index)
    {
        const std::wstring number = std::to_wstring(100'000 + index);
        CcvReminderData record{CString((L"{{bench}-" + number + L"}").c_str())};
        record.SetDocumentPath((L"C:\\Maps\\Plan " + number).c_str());
        record.SetMapGuid(L"{5F3C1A90-27B4-4E6D-9C58-100000000000}");
        record.SetObjectGuid((L"{5F3C1A90-27B4-4E6D-9C58-200000" + number + L"}").c_str());
        record.SetDocumentTitle((L"Plan " + number).c_str());
        record.SetSubject((L"Review the figures with the team, part " + number).c_str());
        const auto shuffled = static_cast<std::int64_t>(index * 7919 % kRows);
        record.SetNextDueDate(CTime(kNow + shuffled * 240 - 600'000));
        record.SetReminderTimeSpan(900);
        if (index % 4 == 0)
        {
            record.SetRecurrenceType(EcvReminderRecurrenceType::Weekly);
            record.SetWeeklyRecurrenceNumber(1);
            record.SetWeeklyRecurrenceFlag(127);
        }
        record.SaveDataToRegistry(kRemindersPath);
    }
}

HWND MakeListView(const CWnd& parent)
{
    const HWND window = CreateWindowExW(0, WC_LISTVIEWW, L"", kStyle, 0, 0, 500, 300, parent.m_hWnd, nullptr,
                                        GetModuleHandleW(nullptr), nullptr);
    if (window == nullptr)
    {
        throw std::runtime_error("no list view");
    }
    return window;
}

/// Texts as the list shows them.
struct BareRow
{
    bool isRecurrent;
    CString texts[3];
};

/// A list view that nothing but its own calls is made to.
class BareList
{
  public:
    BareList(const CWnd& parent, CcvReminderDataCollectionManager& manager) : m_window(MakeListView(parent))
    {
        for (int column = 0; column < 4; ++column)
        {
            LVCOLUMNW description{};
            description.mask = LVCF_WIDTH;
            description.cx = 100;
            Send(LVM_INSERTCOLUMNW, static_cast<WPARAM>(column), &description);
        }
        for (int index = 0; index < manager.GetRemindersCount(); ++index)
        {
            CcvReminderData* const reminder = manager.GetReminderByIndex(index);
            m_rows.push_back(
                {reminder->IsRecurrent(),
                 {reminder->GetSubject(), reminder->GetDocumentTitle(), DueInText(*reminder, CTime(kNow))}});
        }
    }

    /// While it redraws, it moves its scroll bar with each row, which costs more than all else.
    void Fill(bool redraws)
    {
        SendMessageW(m_window, WM_SETREDRAW, redraws ? TRUE : FALSE, 0);
        SendMessageW(m_window, LVM_DELETEALLITEMS, 0, 0);
        for (std::size_t index = 0; index < m_rows.size(); ++index)
        {
            const BareRow& row = m_rows[index];
            wchar_t noText[] = L"";
            LVITEMW item{};
            item.mask = LVIF_TEXT | LVIF_IMAGE | LVIF_PARAM;
            item.iItem = static_cast<int>(index);
            item.pszText = noText;
            item.iImage = row.isRecurrent ? 0 : -1;
            item.lParam = static_cast<LPARAM>(index);
            Send(LVM_INSERTITEMW, 0, &item);
            SetTexts(index);
        }
        Sort();
        SendMessageW(m_window, WM_SETREDRAW, TRUE, 0);
    }

    void SetDueIns()
    {
        for (std::size_t index = 0; index < m_rows.size(); ++index)
        {
            SetText(index, 3, m_rows[index].texts[2]);
        }
    }

    void Sort() { SendMessageW(m_window, LVM_SORTITEMS, 0, std::bit_cast<LPARAM>(&CompareData)); }

  private:
    static int CALLBACK CompareData(LPARAM left, LPARAM right, LPARAM) noexcept
    {
        constexpr LPARAM kCount = kRows;
        return static_cast<int>(left * 7919 % kCount - right * 7919 % kCount);
    }

    void SetTexts(std::size_t index)
    {
        for (int column = 1; column < 4; ++column)
        {
            SetText(index, column, m_rows[index].texts[column - 1]);
        }
    }

    void SetText(std::size_t index, int column, const CString& text)
    {
        LVITEMW item{};
        item.iSubItem = column;
        item.pszText = std::bit_cast<wchar_t*>(text.GetString());
        Send(LVM_SETITEMTEXTW, index, &item);
    }

    void Send(UINT message, WPARAM wParam, const void* data)
    {
        SendMessageW(m_window, message, wParam, std::bit_cast<LPARAM>(data));
    }

    HWND m_window;
    std::vector<BareRow> m_rows;
};

/// The window around the lists.
class Frame : public CWnd
{
  public:
    Frame()
    {
        WNDCLASSW description{};
        description.lpszClassName = L"RemindersListBench";
        description.lpfnWndProc = ::DefWindowProcW;
        description.hInstance = GetModuleHandleW(nullptr);
        RegisterClassW(&description);
        if (CreateEx(0, description.lpszClassName, L"", WS_OVERLAPPEDWINDOW, CRect(0, 0, 600, 400), nullptr,
                     0) == FALSE)
        {
            throw std::runtime_error("no window");
        }
    }
    Frame(const Frame&) = delete;
    Frame& operator=(const Frame&) = delete;
    ~Frame() override { DestroyWindow(); }
};

void Compare(Harness& harness, const char* name, const char* baselineIs, const char* expectation,
             std::size_t operations, const Work& subject, const Work& baseline, int mostRuns = 9)
{
    Comparison comparison{kGroup, name, baselineIs, expectation, operations, subject, baseline};
    comparison.mostRuns = mostRuns;
    Result* const result = harness.Measure(comparison);
    if (result != nullptr)
    {
        result->notes.push_back(
            {"ms for all", result->subject.median * static_cast<double>(operations) / 1e6});
    }
}

void MeasureRows(Harness& harness, CWnd& frame, CcvReminderDataCollectionManager& manager)
{
    CcvMfcRemindersListControl list(&manager);
    list.SubclassWindow(MakeListView(frame));
    list.InitializeColumns(kAllColumns);
    BareList bare(frame, manager);
    const auto refresh = [&](std::size_t) { list.Refresh(); };
    constexpr int kFew = 3;
    Compare(
        harness, kRefresh, "the list view's own inserts and texts", "ratio <= 1.3", kRows, refresh,
        [&](std::size_t) { bare.Fill(true); }, kFew);
    Compare(harness, kRefreshQuietly, "the same with redrawing off", "", kRows, refresh,
            [&](std::size_t) { bare.Fill(false); });
    list.Refresh();
    bare.Fill(false);
    const auto clickHeader = [&](int column)
    {
        NMLISTVIEW click{};
        click.hdr = {list.m_hWnd, 0, static_cast<UINT>(LVN_COLUMNCLICK)};
        click.iSubItem = column;
        frame.SendMessage(WM_NOTIFY, 0, std::bit_cast<LPARAM>(&click));
    };
    const auto sortBare = [&](std::size_t) { bare.Sort(); };
    Compare(
        harness, kSortByDue, "the list view's sort by a number", "", kRows,
        [&](std::size_t) { clickHeader(3); }, sortBare);
    Compare(
        harness, kSortBySubject, "the list view's sort by a number", "", kRows,
        [&](std::size_t) { clickHeader(1); }, sortBare);
    constexpr WPARAM kMinuteTimer = 1001;
    Compare(
        harness, kMinute, "setting the same texts", "", kRows,
        [&](std::size_t) { list.SendMessage(WM_TIMER, kMinuteTimer); },
        [&](std::size_t) { bare.SetDueIns(); });
}

void MeasureOpening(Harness& harness, CWnd& frame, CcvReminderDataCollectionManager& manager)
{
    const auto open = [&](std::size_t)
    {
        CcvMfcRemindersListControl list(&manager);
        list.SubclassWindow(MakeListView(frame));
        list.InitializeColumns(kAllColumns);
    };
    const auto openBare = [&](std::size_t) { DestroyWindow(MakeListView(frame)); };
    Compare(harness, kOpen, "a list view without columns", "", 1, open, openBare);
}

} // namespace

void MeasureList(Harness& harness)
{
    if (std::none_of(std::begin(kNames), std::end(kNames),
                     [&](const char* name) { return harness.Wants(kGroup, name); }))
    {
        return;
    }
    const Sandbox sandbox;
    const ClockStop clock;
    StoreReminders();
    CcvReminderDataCollectionManager manager(false);
    Frame frame;
    MeasureOpening(harness, frame, manager);
    MeasureRows(harness, frame, manager);
}

} // namespace ts::bench
