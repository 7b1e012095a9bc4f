#include "App.h"

#include "MainWindow.h"
#include "Registration.h"
#include "hosts/common/Collection.h"
#include "hosts/common/Console.h"
#include "hosts/common/ExitCode.h"
#include "hosts/common/Output.h"
#include "hosts/common/SingleInstance.h"

#include "platform/ComApartment.h"

#include <memory>
#include <stdexcept>

namespace ts::desktop
{
namespace
{

/// How long the program stays at its end for Outlook to get the changes.
constexpr DWORD kOutlookPatience = 10'000;

constexpr wchar_t kTitle[] = L"Tessaly";

void RunMessageLoop()
{
    MSG message{};
    while (GetMessageW(&message, nullptr, 0, 0) > 0)
    {
        if (AfxPreTranslateMessage(&message) == FALSE)
        {
            TranslateMessage(&message);
            DispatchMessageW(&message);
        }
    }
}

/// The collection, which the program does not let wait for Outlook without end.
class Collection
{
  public:
    Collection() = default;
    Collection(const Collection&) = delete;
    Collection& operator=(const Collection&) = delete;
    ~Collection()
    {
        if (!m_manager->WaitForOutlookCommands(kOutlookPatience))
        {
            hosts::Abandon(std::move(m_manager));
        }
    }

    [[nodiscard]] CcvReminderDataCollectionManager& Get() const noexcept { return *m_manager; }

  private:
    std::unique_ptr<CcvReminderDataCollectionManager> m_manager =
        std::make_unique<CcvReminderDataCollectionManager>(true);
};

void ShowReminders(Task task)
{
    const Collection collection;
    MainWindow window(collection.Get());
    window.Open();
    task == Task::Serve ? window.AwaitClient() : window.ShowToUser();
    RunMessageLoop();
}

HWND FindMainWindow()
{
    return FindWindowW(kMainWindowClass, nullptr);
}

void RunApplication(Task task)
{
    const ComApartment com;
    hosts::SingleInstance instance(L"Tessaly25Host");
    if (const HWND other = instance.Compete(FindMainWindow); other == nullptr)
    {
        ShowReminders(task);
    }
    else if (task == Task::Run)
    {
        hosts::HandOver(other, kShowMessage);
    }
}

void Execute(const CommandLine& commandLine)
{
    switch (commandLine.task)
    {
    case Task::Register:
        Register(hosts::ProgramPath());
        break;
    case Task::Unregister:
        Unregister();
        break;
    case Task::Tell:
        hosts::Tell(commandLine.text, false, kTitle);
        break;
    default:
        RunApplication(commandLine.task);
    }
}

void Complain(const std::string& reason)
{
    hosts::Tell("TessalyHost: " + reason + "\n", true, kTitle);
}

} // namespace

int Run(const CommandLine& commandLine)
{
    if (commandLine.task == Task::Complain)
    {
        Complain(commandLine.text);
        return hosts::kWrongUse;
    }
    try
    {
        Execute(commandLine);
        return hosts::kDone;
    }
    catch (const std::exception& error)
    {
        Complain(error.what());
        return hosts::kFailed;
    }
}

} // namespace ts::desktop
