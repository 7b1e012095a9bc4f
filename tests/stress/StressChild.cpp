// The process that the tests start beside themselves. Arguments:
//   change USER-KEY WRITER SECONDS SEED     see ChangeStore
//   overwrite USER-KEY READY-EVENT          saves one reminder for ever, under its key
//   add USER-KEY READY-EVENT                saves new reminders for ever, each under a new key
// USER-KEY and READY-EVENT are inherited handles.

#include "tests/stress/StressChild.h"

#include "module/RegistryPaths.h"
#include "tests/stress/SharedStore.h"
#include "tests/stress/StampedRecord.h"

#include <exception>
#include <iostream>
#include <string>
#include <vector>

namespace ts::test
{
namespace
{

/// Saves record after record, from 1 on, until the process is terminated. The parent has saved number 0.
template <typename RecordOf>
[[noreturn]] void SaveForEver(std::uintptr_t ready, const RecordOf& recordOf)
{
    SetEvent(HandleOf(ready));
    for (int number = 1;; ++number)
    {
        CcvReminderData record = recordOf(number);
        record.SaveDataToRegistry(kRemindersPath);
    }
}

int Change(const std::vector<std::string>& arguments)
{
    return ChangeStore(static_cast<wchar_t>(arguments.at(2).at(0)), std::stoul(arguments.at(3)),
                       std::stoull(arguments.at(4)));
}

int Run(const std::vector<std::string>& arguments)
{
    UseInheritedUserKey(std::stoull(arguments.at(1)));
    if (arguments.at(0) == "change")
    {
        return Change(arguments);
    }
    const std::uintptr_t ready = std::stoull(arguments.at(2));
    if (arguments.at(0) == "overwrite")
    {
        SaveForEver(ready,
                    [](int number) {
                        return StampedRecord(kSavedKey, kSavedMap, 0, {kSaver, number});
                    });
    }
    SaveForEver(ready, [](int number) { return StampedRecord(CString(), kAddedMap, 0, {kSaver, number}); });
}

} // namespace
} // namespace ts::test

int main(int count, char** arguments)
{
    SetErrorMode(SEM_FAILCRITICALERRORS | SEM_NOGPFAULTERRORBOX);
    try
    {
        return ts::test::Run({arguments + 1, arguments + count});
    }
    catch (const std::exception& error)
    {
        std::cerr << "stress_child: " << error.what() << std::endl;
        return ts::test::kChildFailed;
    }
}
