#include "tests/hosts/desktop/HostProcess.h"

#include "ResourceIds.h"
#include "tests/hosts/Program.h"
#include "tests/support/WindowDriver.h"

#include <bit>
#include <commctrl.h>

namespace ts::test
{
namespace
{

constexpr ULONGLONG kPatience = 30'000;

struct ProcessMemory
{
    HANDLE process;
    void* address;

    ProcessMemory(HANDLE owner, std::size_t size)
        : process(owner), address(VirtualAllocEx(owner, nullptr, size, MEM_COMMIT, PAGE_READWRITE))
    {
    }
    ProcessMemory(const ProcessMemory&) = delete;
    ProcessMemory& operator=(const ProcessMemory&) = delete;
    ~ProcessMemory() { VirtualFreeEx(process, address, 0, MEM_RELEASE); }
};

HWND MainList()
{
    return ChildOf(MainWindowHandle(), IDC_REMINDER_LIST);
}

/// The list writes the text where its own process can.
std::wstring RowText(int row)
{
    constexpr int kLength = 200;
    struct Request
    {
        LVITEMW item;
        wchar_t text[kLength];
    };
    const KernelHandle process(
        OpenProcess(PROCESS_VM_OPERATION | PROCESS_VM_READ | PROCESS_VM_WRITE, FALSE, MainWindowProcess()));
    const ProcessMemory memory(process.get(), sizeof(Request));
    auto* const remote = static_cast<Request*>(memory.address);
    Request request{};
    request.item.cchTextMax = kLength;
    request.item.pszText = remote->text;
    WriteProcessMemory(process.get(), remote, &request, sizeof request, nullptr);
    SendMessageW(MainList(), LVM_GETITEMTEXTW, static_cast<WPARAM>(row), std::bit_cast<LPARAM>(remote));
    ReadProcessMemory(process.get(), remote, &request, sizeof request, nullptr);
    return request.text;
}

INPUT KeyInput(WORD key, wchar_t character, DWORD flags)
{
    INPUT input{};
    input.type = INPUT_KEYBOARD;
    input.ki.wVk = key;
    input.ki.wScan = character;
    input.ki.dwFlags = flags;
    return input;
}

} // namespace

// --- The store ---

DesktopProgramTest::DesktopProgramTest()
{
    RegOverridePredefKey(HKEY_CURRENT_USER, nullptr);
    RegOverridePredefKey(HKEY_LOCAL_MACHINE, nullptr);
    RegDeleteTreeW(HKEY_CURRENT_USER, kRemindersPath);
    EXPECT_EQ(nullptr, MainWindowHandle());
}

DesktopProgramTest::~DesktopProgramTest()
{
    RegDeleteTreeW(HKEY_CURRENT_USER, kRemindersPath);
}

CString DesktopProgramTest::Add(const std::wstring& name, CTime due)
{
    CcvReminderData reminder{CString()};
    reminder.SetDocumentPath(L"C:\\Maps\\Plan.map");
    reminder.SetDocumentTitle(L"Plan");
    reminder.SetMapGuid(L"{6B1D7C5E-0F43-4C0B-9A35-3F1B8E6A2D01}");
    reminder.SetObjectGuid((L"{" + name + L"}").c_str());
    reminder.SetObjectTitle(name.c_str());
    reminder.SetSubject(name.c_str());
    reminder.SetInitialDueDate(due);
    reminder.SetNextDueDate(due);
    EXPECT_TRUE(reminder.SaveDataToRegistry(kRemindersPath));
    return reminder.GetReminderKey();
}

std::vector<std::wstring> DesktopProgramTest::StoredSubjects()
{
    const CcvReminderDataCollectionManager manager(false);
    std::vector<std::wstring> subjects;
    for (int index = 0; index < manager.GetRemindersCount(); ++index)
    {
        subjects.emplace_back(manager.GetReminderByIndex(index)->GetSubject().GetString());
    }
    return subjects;
}

// --- Windows ---

bool WaitUntil(const std::function<bool()>& condition)
{
    for (const ULONGLONG begin = GetTickCount64(); GetTickCount64() - begin < kPatience;)
    {
        if (condition())
        {
            return true;
        }
        MsgWaitForMultipleObjects(0, nullptr, FALSE, 20, QS_ALLINPUT);
        PumpMessages();
    }
    return condition();
}

HWND FindDialog(DWORD process, const std::wstring& title)
{
    for (HWND window = nullptr; (window = FindWindowExW(nullptr, window, L"#32770", nullptr)) != nullptr;)
    {
        DWORD owner = 0;
        GetWindowThreadProcessId(window, &owner);
        if (owner == process && IsWindowVisible(window) != FALSE &&
            (title.empty() || TextOf(window) == title))
        {
            return window;
        }
    }
    return nullptr;
}

void PressKeys(std::initializer_list<WORD> keys)
{
    std::vector<INPUT> inputs;
    for (const WORD key : keys)
    {
        inputs.push_back(KeyInput(key, 0, 0));
    }
    for (auto key = std::rbegin(keys); key != std::rend(keys); ++key)
    {
        inputs.push_back(KeyInput(*key, 0, KEYEVENTF_KEYUP));
    }
    EXPECT_EQ(inputs.size(), SendInput(static_cast<UINT>(inputs.size()), inputs.data(), sizeof(INPUT)));
}

void TypeKeys(const std::wstring& text)
{
    for (const wchar_t character : text)
    {
        INPUT inputs[] = {KeyInput(0, character, KEYEVENTF_UNICODE),
                          KeyInput(0, character, KEYEVENTF_UNICODE | KEYEVENTF_KEYUP)};
        EXPECT_EQ(2u, SendInput(2, inputs, sizeof(INPUT)));
    }
}

HWND MainWindowHandle()
{
    return FindWindowW(kMainWindowClass, nullptr);
}

DWORD MainWindowProcess()
{
    DWORD process = 0;
    const HWND window = MainWindowHandle();
    if (window != nullptr)
    {
        GetWindowThreadProcessId(window, &process);
    }
    return process;
}

HWND ChildOf(HWND window, int id)
{
    return GetDlgItem(window, id);
}

std::vector<std::wstring> ListedSubjects()
{
    std::vector<std::wstring> subjects;
    const auto count = static_cast<int>(SendMessageW(MainList(), LVM_GETITEMCOUNT, 0, 0));
    for (int row = 0; row < count; ++row)
    {
        subjects.push_back(RowText(row));
    }
    return subjects;
}

std::wstring SelectedSubject()
{
    const auto row = static_cast<int>(
        SendMessageW(MainList(), LVM_GETNEXTITEM, static_cast<WPARAM>(-1), MAKELPARAM(LVNI_SELECTED, 0)));
    return row >= 0 ? RowText(row) : std::wstring();
}

// --- Programs ---

HostProcess::HostProcess(const std::wstring& arguments)
{
    SECURITY_ATTRIBUTES inheritable = {sizeof inheritable, nullptr, TRUE};
    HANDLE reading = nullptr;
    HANDLE writing = nullptr;
    EXPECT_TRUE(CreatePipe(&reading, &writing, &inheritable, 0));
    m_reading.reset(reading);
    EXPECT_TRUE(SetHandleInformation(reading, HANDLE_FLAG_INHERIT, 0));
    const KernelHandle writingEnd(writing);
    STARTUPINFOW startup{};
    startup.cb = sizeof startup;
    startup.dwFlags = STARTF_USESTDHANDLES;
    startup.hStdOutput = writing;
    startup.hStdError = writing;
    std::wstring commandLine = L"TessalyHost.exe " + arguments;
    PROCESS_INFORMATION process{};
    EXPECT_TRUE(CreateProcessW((TestFolder() + L"TessalyHost.exe").c_str(), commandLine.data(), nullptr,
                               nullptr, TRUE, 0, nullptr, nullptr, &startup, &process));
    m_process.reset(process.hProcess);
    m_id = process.dwProcessId;
    CloseHandle(process.hThread);
}

HostProcess::~HostProcess()
{
    constexpr DWORD kTimeToEnd = 10'000;
    if (IsRunning() && MainWindowProcess() == m_id && FindDialog(m_id) == nullptr)
    {
        PostMessageW(MainWindowHandle(), WM_CLOSE, 0, 0);
        WaitForSingleObject(m_process.get(), kTimeToEnd);
    }
    Kill();
}

bool HostProcess::ShowsWindow() const
{
    return WaitUntil([this] { return MainWindowProcess() == m_id && IsWindowVisible(MainWindowHandle()); });
}

bool HostProcess::IsRunning() const
{
    return WaitForSingleObject(m_process.get(), 0) == WAIT_TIMEOUT;
}

DWORD HostProcess::ExitCode() const
{
    DWORD code = STILL_ACTIVE;
    EXPECT_TRUE(WaitUntil([this] { return !IsRunning(); }));
    GetExitCodeProcess(m_process.get(), &code);
    return code;
}

std::string HostProcess::Output() const
{
    std::string output;
    char buffer[200];
    DWORD read = 0;
    while (ReadFile(m_reading.get(), buffer, sizeof buffer, &read, nullptr) != FALSE && read > 0)
    {
        output.append(buffer, read);
    }
    return output;
}

DWORD RunProgram(const std::wstring& program, const std::wstring& arguments)
{
    STARTUPINFOW startup{};
    startup.cb = sizeof startup;
    std::wstring commandLine = program + L" " + arguments;
    PROCESS_INFORMATION created{};
    EXPECT_TRUE(CreateProcessW((TestFolder() + program).c_str(), commandLine.data(), nullptr, nullptr, FALSE,
                               0, nullptr, nullptr, &startup, &created));
    const KernelHandle process(created.hProcess);
    CloseHandle(created.hThread);
    // The program may send messages to windows of this thread.
    EXPECT_TRUE(WaitUntil([&] { return WaitForSingleObject(process.get(), 0) == WAIT_OBJECT_0; }));
    DWORD code = STILL_ACTIVE;
    GetExitCodeProcess(process.get(), &code);
    return code;
}

} // namespace ts::test
