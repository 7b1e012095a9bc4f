#include "tests/hosts/OtherWindows.h"

#include "platform/KernelHandle.h"
#include "tests/support/WindowDriver.h"

#include <bit>
#include <commctrl.h>
#include <gtest/gtest.h>
#include <iterator>

namespace
{

class ProcessMemory
{
  public:
    ProcessMemory(HANDLE process, std::size_t size)
        : m_process(process), m_address(VirtualAllocEx(process, nullptr, size, MEM_COMMIT, PAGE_READWRITE))
    {
    }
    ProcessMemory(const ProcessMemory&) = delete;
    ProcessMemory& operator=(const ProcessMemory&) = delete;
    ~ProcessMemory() { VirtualFreeEx(m_process, m_address, 0, MEM_RELEASE); }

    [[nodiscard]] void* Get() const noexcept { return m_address; }

  private:
    HANDLE m_process;
    void* m_address;
};

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

DWORD ProcessOf(HWND window)
{
    DWORD process = 0;
    if (window != nullptr)
    {
        GetWindowThreadProcessId(window, &process);
    }
    return process;
}

HWND FindDialog(DWORD process, const std::wstring& title)
{
    for (HWND window = nullptr; (window = FindWindowExW(nullptr, window, L"#32770", nullptr)) != nullptr;)
    {
        if (ProcessOf(window) == process && IsWindowVisible(window) != FALSE &&
            (title.empty() || ts::test::TextOf(window) == title))
        {
            return window;
        }
    }
    return nullptr;
}

HWND FocusOf(HWND window)
{
    GUITHREADINFO thread{};
    thread.cbSize = sizeof thread;
    const bool isFound = GetGUIThreadInfo(GetWindowThreadProcessId(window, nullptr), &thread) != FALSE;
    return isFound ? thread.hwndFocus : nullptr;
}

int RowCount(HWND list)
{
    return static_cast<int>(SendMessageW(list, LVM_GETITEMCOUNT, 0, 0));
}

int SelectedRow(HWND list)
{
    return static_cast<int>(
        SendMessageW(list, LVM_GETNEXTITEM, static_cast<WPARAM>(-1), MAKELPARAM(LVNI_SELECTED, 0)));
}

/// The list writes the text where its own process can.
std::wstring CellText(HWND list, int row, int column)
{
    constexpr int kLength = 200;
    struct Request
    {
        LVITEMW item;
        wchar_t text[kLength];
    };
    const ts::KernelHandle process(
        OpenProcess(PROCESS_VM_OPERATION | PROCESS_VM_READ | PROCESS_VM_WRITE, FALSE, ProcessOf(list)));
    const ProcessMemory memory(process.get(), sizeof(Request));
    auto* const remote = static_cast<Request*>(memory.Get());
    Request request{};
    request.item.iSubItem = column;
    request.item.cchTextMax = kLength;
    request.item.pszText = remote->text;
    WriteProcessMemory(process.get(), remote, &request, sizeof request, nullptr);
    SendMessageW(list, LVM_GETITEMTEXTW, static_cast<WPARAM>(row), std::bit_cast<LPARAM>(remote));
    ReadProcessMemory(process.get(), remote, &request, sizeof request, nullptr);
    return request.text;
}

std::vector<std::wstring> ColumnTexts(HWND list, int column)
{
    std::vector<std::wstring> texts;
    const int count = RowCount(list);
    for (int row = 0; row < count; ++row)
    {
        texts.push_back(CellText(list, row, column));
    }
    return texts;
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
