#include "tests/hosts/desktop/DesktopProgramTest.h"

DesktopProgramTest::DesktopProgramTest()
{
    RegOverridePredefKey(HKEY_CURRENT_USER, nullptr);
    RegOverridePredefKey(HKEY_LOCAL_MACHINE, nullptr);
    RegDeleteTreeW(HKEY_CURRENT_USER, ts::kRemindersPath);
    EXPECT_EQ(nullptr, MainWindowHandle());
}

DesktopProgramTest::~DesktopProgramTest()
{
    RegDeleteTreeW(HKEY_CURRENT_USER, ts::kRemindersPath);
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
    EXPECT_TRUE(reminder.SaveDataToRegistry(ts::kRemindersPath));
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
