#include "tests/hosts/desktop/HostProcess.h"

#include "ResourceIds.h"
#include "TsServiceUtilities.h"

namespace
{

constexpr int kSubjectColumn = 0;

HWND MainList()
{
    return GetDlgItem(MainWindowHandle(), IDC_REMINDER_LIST);
}

} // namespace

HWND MainWindowHandle()
{
    return FindWindowW(ts::kMainWindowClass, nullptr);
}

DWORD MainWindowProcess()
{
    return ProcessOf(MainWindowHandle());
}

std::vector<std::wstring> ListedSubjects()
{
    return ColumnTexts(MainList(), kSubjectColumn);
}

std::wstring SelectedSubject()
{
    const int row = SelectedRow(MainList());
    return row >= 0 ? CellText(MainList(), row, kSubjectColumn) : std::wstring();
}

HostProcess::HostProcess(const std::wstring& arguments) : Program(arguments, L"TessalyHost.exe")
{
}

HostProcess::~HostProcess()
{
    if (IsRunning() && MainWindowProcess() == ProcessId() && FindDialog(ProcessId()) == nullptr)
    {
        PostMessageW(MainWindowHandle(), WM_CLOSE, 0, 0);
        static_cast<void>(ExitCode());
    }
}

bool HostProcess::ShowsWindow() const
{
    return WaitUntil([this]
                     { return MainWindowProcess() == ProcessId() && IsWindowVisible(MainWindowHandle()); });
}
