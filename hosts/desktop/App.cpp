#include "App.h"

#include "MainWindow.h"
#include "Registration.h"
#include "SingleInstance.h"
#include "UserOutput.h"

#include "platform/ComApartment.h"

#include <filesystem>
#include <stdexcept>

namespace ts::desktop
{
namespace
{

/// How long the program stays at its end for Outlook to get the changes.
constexpr DWORD kOutlookPatience = 10'000;

std::filesystem::path ThisProgram()
{
    std::wstring path(MAX_PATH, L'\0');
    for (;;)
    {
        const DWORD length = GetModuleFileNameW(nullptr, path.data(), static_cast<DWORD>(path.size()));
        if (length < path.size())
        {
            return path.substr(0, length);
        }
        path.resize(path.size() * 2);
    }
}

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
            // To destroy the collection is to wait for its worker. That ends with the process, and then
            // cannot take its mark away itself.
            static_cast<void>(m_manager.release());
            CcvReminderOptionUtilities::SetSynchronizeInProgress(false);
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

void RunApplication(Task task)
{
    const ComApartment com;
    const SingleInstance instance;
    switch (instance.GetOutcome())
    {
    case SingleInstance::Outcome::First:
        ShowReminders(task);
        break;
    case SingleInstance::Outcome::Second:
        if (task == Task::Run)
        {
            SingleInstance::ShowOther();
        }
        break;
    case SingleInstance::Outcome::Refused:
        throw std::runtime_error("the application that ran before has not ended yet");
    }
}

void Execute(const CommandLine& commandLine)
{
    switch (commandLine.task)
    {
    case Task::Register:
        Register(ThisProgram());
        break;
    case Task::Unregister:
        Unregister();
        break;
    case Task::Tell:
        Tell(commandLine.text);
        break;
    default:
        RunApplication(commandLine.task);
    }
}

} // namespace

int Run(const CommandLine& commandLine)
{
    if (commandLine.task == Task::Complain)
    {
        Complain(commandLine.text);
        return kWrongUse;
    }
    try
    {
        Execute(commandLine);
        return kDone;
    }
    catch (const std::exception& error)
    {
        Complain(error.what());
        return kFailed;
    }
}

} // namespace ts::desktop
