#include "tests/hosts/desktop/DesktopProgramTest.h"

#include "ApplicationIds.h"
#include "ResourceIds.h"
#include "platform/ComApartment.h"
#include "tests/support/WindowDriver.h"

#include <filesystem>
#include <oleauto.h>
#include <set>
#include <shlobj.h>

// How the program is started, by hand and through COM.

namespace
{

using namespace ts::test;
using namespace ts::desktop;

constexpr int kOpenButton = 1023;

std::wstring TypeLibraryPath()
{
    wchar_t folder[MAX_PATH] = L"";
    SHGetFolderPathW(nullptr, CSIDL_LOCAL_APPDATA, nullptr, 0, folder);
    return std::wstring(folder) + L"\\Corvane\\Tessaly\\25\\TessalyHost.tlb";
}

/// The names of all classes, interfaces and type libraries of the user and of the machine.
std::set<std::wstring> Classes()
{
    std::set<std::wstring> names;
    for (const HKEY root : {HKEY_CURRENT_USER, HKEY_LOCAL_MACHINE})
    {
        for (const std::wstring path : {L"", L"\\CLSID", L"\\Interface", L"\\TypeLib"})
        {
            HKEY key = nullptr;
            if (RegOpenKeyExW(root, (L"Software\\Classes" + path).c_str(), 0, KEY_READ, &key) !=
                ERROR_SUCCESS)
            {
                continue;
            }
            wchar_t name[256];
            for (DWORD index = 0; RegEnumKeyW(key, index, name, 256) == ERROR_SUCCESS; ++index)
            {
                names.insert((root == HKEY_CURRENT_USER ? L"user" : L"machine") + path + L"\\" + name);
            }
            RegCloseKey(key);
        }
    }
    return names;
}

std::wstring ServerCommand(HKEY root)
{
    wchar_t text[MAX_PATH] = L"";
    DWORD size = sizeof text;
    const std::wstring key =
        std::wstring(L"Software\\Classes\\CLSID\\") + kApplicationClassText + L"\\LocalServer32";
    RegGetValueW(root, key.c_str(), nullptr, RRF_RT_REG_SZ, nullptr, text, &size);
    return text;
}

struct Releaser
{
    void operator()(IUnknown* object) const noexcept { object->Release(); }
};
using DispatchPtr = std::unique_ptr<IDispatch, Releaser>;

DispatchPtr Activate(HRESULT* result = nullptr)
{
    void* object = nullptr;
    CLSID id{};
    HRESULT status = CLSIDFromProgID(L"Tessaly.Application.25", &id);
    if (SUCCEEDED(status))
    {
        status = CoCreateInstance(id, nullptr, CLSCTX_ALL, kApplicationInterface, &object);
    }
    if (result != nullptr)
    {
        *result = status;
    }
    return DispatchPtr(static_cast<IDispatch*>(object));
}

HRESULT Put(IDispatch& object, bool visible)
{
    wchar_t name[] = L"Visible";
    wchar_t* names = name;
    DISPID id = 0;
    EXPECT_EQ(S_OK, object.GetIDsOfNames(IID_NULL, &names, 1, 0, &id));
    VARIANT value{};
    value.vt = VT_BOOL;
    value.boolVal = visible ? VARIANT_TRUE : VARIANT_FALSE;
    DISPID named = DISPID_PROPERTYPUT;
    DISPPARAMS parameters = {&value, &named, 1, 1};
    return object.Invoke(id, IID_NULL, 0, DISPATCH_PROPERTYPUT, &parameters, nullptr, nullptr, nullptr);
}

/// The library's window of all reminders, in this process.
class ManageWindow
{
  public:
    ManageWindow() : m_dialog(&m_manager, nullptr)
    {
        EXPECT_TRUE(m_dialog.Create(CcvMfcManageRemindersDialog::kTemplate, nullptr));
        ShowWindow(m_dialog.GetSafeHwnd(), SW_SHOW);
    }
    ManageWindow(const ManageWindow&) = delete;
    ManageWindow& operator=(const ManageWindow&) = delete;
    ~ManageWindow() { DestroyWindow(m_dialog.GetSafeHwnd()); }

    /// Opens the topic of the selected reminder.
    void Open() const { SendMessageW(m_dialog.GetSafeHwnd(), WM_COMMAND, kOpenButton, 0); }
    void Select(int row) const
    {
        constexpr int kList = 1030;
        const HWND list = GetDlgItem(m_dialog.GetSafeHwnd(), kList);
        SendMessageW(list, WM_KEYDOWN, VK_HOME, 1);
        for (int step = 0; step < row; ++step)
        {
            SendMessageW(list, WM_KEYDOWN, VK_DOWN, 1);
        }
    }

  private:
    CcvReminderDataCollectionManager m_manager{false};
    CcvMfcManageRemindersDialog m_dialog;
};

class StartTest : public DesktopProgramTest
{
  protected:
    ~StartTest() override
    {
        PostMessageW(MainWindowHandle(), WM_CLOSE, 0, 0);
        EXPECT_TRUE(WaitUntil([] { return MainWindowHandle() == nullptr; }));
        EXPECT_EQ(0u, Program(L"--unregister", L"TessalyHost.exe").ExitCode());
    }

    static void Register() { ASSERT_EQ(0u, Program(L"--register", L"TessalyHost.exe").ExitCode()); }

    ts::ComApartment m_com;
};

TEST_F(StartTest, Register_CanBeDoneTwiceAndIsTakenBackCompletely)
{
    const auto before = Classes();
    Register();
    const auto registered = Classes();
    EXPECT_NE(before, registered);
    Register();
    EXPECT_EQ(registered, Classes());
    const std::wstring command = ServerCommand(HKEY_CURRENT_USER);
    EXPECT_TRUE(command.starts_with(L"\"")) << command.size();
    EXPECT_TRUE(command.ends_with(L"\\TessalyHost.exe\"")) << command.size();
    EXPECT_TRUE(std::filesystem::exists(TypeLibraryPath()));
    EXPECT_EQ(0u, Program(L"--unregister", L"TessalyHost.exe").ExitCode());
    EXPECT_EQ(before, Classes());
    EXPECT_FALSE(std::filesystem::exists(TypeLibraryPath()));
    EXPECT_EQ(0u, Program(L"--unregister", L"TessalyHost.exe").ExitCode());
    HRESULT result = S_OK;
    EXPECT_EQ(nullptr, Activate(&result));
    EXPECT_EQ(CO_E_CLASSSTRING, result);
}

TEST_F(StartTest, Unregister_LeavesWhatAnotherProgramEntered)
{
    const wchar_t kKey[] = L"Software\\Classes\\Tessaly.Application.25\\CLSID";
    const wchar_t kOther[] = L"{00000000-1111-2222-3333-444444444444}";
    Register();
    RegSetKeyValueW(HKEY_CURRENT_USER, kKey, nullptr, REG_SZ, kOther, sizeof kOther);
    EXPECT_EQ(0u, Program(L"--unregister", L"TessalyHost.exe").ExitCode());
    wchar_t text[100] = L"";
    DWORD size = sizeof text;
    EXPECT_EQ(ERROR_SUCCESS,
              RegGetValueW(HKEY_CURRENT_USER, kKey, nullptr, RRF_RT_REG_SZ, nullptr, text, &size));
    EXPECT_STREQ(kOther, text);
    EXPECT_EQ(L"", ServerCommand(HKEY_CURRENT_USER));
    RegDeleteTreeW(HKEY_CURRENT_USER, L"Software\\Classes\\Tessaly.Application.25");
}

TEST_F(StartTest, HelpVersionAndMistakes_AreWrittenWithTheirExitCodes)
{
    const HostProcess help(L"--help");
    EXPECT_EQ(0u, help.ExitCode());
    EXPECT_NE(std::string::npos, help.ReadAll().find("--register"));
    const HostProcess version(L"--version");
    EXPECT_EQ(0u, version.ExitCode());
    EXPECT_EQ("TessalyHost 25.0.0\n", version.ReadAll());
    const HostProcess wrong(L"--no-such-option");
    EXPECT_EQ(2u, wrong.ExitCode());
    EXPECT_TRUE(wrong.ReadAll().starts_with("TessalyHost: "));
}

TEST_F(StartTest, OpenWithoutTheProgram_StartsItAndShowsTheTopic)
{
    Add(L"First");
    Add(L"Second");
    Register();
    const ManageWindow manage;
    manage.Select(1);
    manage.Open();
    ASSERT_TRUE(WaitUntil([] { return IsWindowVisible(MainWindowHandle()) != FALSE; }));
    EXPECT_TRUE(WaitUntil([] { return SelectedSubject() == L"Second"; }));
    EXPECT_TRUE(WaitUntil([] { return GetForegroundWindow() == MainWindowHandle(); }));
    // It goes on when the client has released it, and serves the next one.
    manage.Select(0);
    manage.Open();
    EXPECT_TRUE(WaitUntil([] { return SelectedSubject() == L"First"; }));
}

TEST_F(StartTest, OpenWithoutRegistration_TellsTheUser)
{
    Add(L"First");
    const ManageWindow manage;
    const MessageBoxAnswer answer(IDOK);
    manage.Open();
    EXPECT_TRUE(answer.WasShown());
    EXPECT_EQ(nullptr, MainWindowHandle());
}

TEST_F(StartTest, ActivatedProgram_IsInvisibleAndEndsWithItsLastClient)
{
    Register();
    DispatchPtr first = Activate();
    ASSERT_NE(nullptr, first);
    const DWORD process = MainWindowProcess();
    ASSERT_NE(0u, process);
    EXPECT_FALSE(IsWindowVisible(MainWindowHandle()));
    DispatchPtr second = Activate();
    ASSERT_NE(nullptr, second);
    EXPECT_EQ(process, MainWindowProcess());
    first.reset();
    EXPECT_EQ(S_OK, Put(*second, true));
    EXPECT_TRUE(IsWindowVisible(MainWindowHandle()));
    EXPECT_EQ(S_OK, Put(*second, false));
    EXPECT_FALSE(IsWindowVisible(MainWindowHandle()));
    second.reset();
    EXPECT_TRUE(WaitUntil([] { return MainWindowHandle() == nullptr; }));
}

TEST_F(StartTest, ProgramThatTheUserStarted_ServesClientsAndStays)
{
    Register();
    const HostProcess host;
    ASSERT_TRUE(host.ShowsWindow());
    DispatchPtr object = Activate();
    ASSERT_NE(nullptr, object);
    EXPECT_EQ(host.ProcessId(), MainWindowProcess());
    EXPECT_EQ(S_OK, Put(*object, false));
    EXPECT_FALSE(IsWindowVisible(MainWindowHandle()));
    object.reset();
    EXPECT_TRUE(host.ShowsWindow());
    PostMessageW(MainWindowHandle(), WM_CLOSE, 0, 0);
    EXPECT_EQ(0u, host.ExitCode());
}

TEST_F(StartTest, SecondStart_BringsTheFirstToTheFrontAndEnds)
{
    const HostProcess first;
    ASSERT_TRUE(first.ShowsWindow());
    ShowWindow(MainWindowHandle(), SW_MINIMIZE);
    const HostProcess second;
    EXPECT_EQ(0u, second.ExitCode());
    EXPECT_TRUE(first.IsRunning());
    EXPECT_TRUE(WaitUntil([] { return IsIconic(MainWindowHandle()) == FALSE; }));
    EXPECT_TRUE(WaitUntil([] { return GetForegroundWindow() == MainWindowHandle(); }));
}

TEST_F(StartTest, StartByHandOfAnInvisibleProgram_ShowsIt)
{
    Register();
    DispatchPtr object = Activate();
    ASSERT_NE(nullptr, object);
    const DWORD process = MainWindowProcess();
    const HostProcess second;
    EXPECT_EQ(0u, second.ExitCode());
    EXPECT_TRUE(WaitUntil([] { return IsWindowVisible(MainWindowHandle()) != FALSE; }));
    object.reset();
    EXPECT_EQ(process, MainWindowProcess());
    EXPECT_TRUE(IsWindowVisible(MainWindowHandle()));
}

} // namespace
