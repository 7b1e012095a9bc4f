#include "tests/collection_outlook/WorkerTest.h"

namespace ts::test
{
namespace
{

constexpr wchar_t kProduct[] = L"Software\\Corvane";
constexpr wchar_t kStore[] = L"Software\\Corvane\\Tessaly\\25\\Current";
constexpr wchar_t kSettings[] = L"Software\\Corvane\\Tessaly\\25\\Settings";

// Far longer than anything takes.
constexpr DWORD kPatienceMilliseconds = 30'000;

} // namespace

bool BecomesTrue(const std::function<bool()>& holds)
{
    const ULONGLONG end = GetTickCount64() + kPatienceMilliseconds;
    while (!holds())
    {
        if (GetTickCount64() > end)
        {
            return false;
        }
        MSG message{};
        PeekMessageW(&message, nullptr, 0, 0, PM_NOREMOVE);
        Sleep(1);
    }
    return true;
}

WorkerTest::WorkerTest()
{
    DeleteKeyTree(kProduct);
    const RawKey settings(kSettings);
    m_manager = std::make_unique<CcvReminderDataCollectionManager>(true);
}

WorkerTest::~WorkerTest()
{
    m_manager.reset();
    DeleteKeyTree(kProduct);
}

void WorkerTest::Finish()
{
    EXPECT_TRUE(m_manager->WaitForOutlookCommands(kPatienceMilliseconds));
}

CcvReminderData* WorkerTest::AddAndFinish(CcvReminderData& record)
{
    EXPECT_TRUE(m_manager->AddReminder(&record, true));
    Finish();
    return Only();
}

CcvReminderData* WorkerTest::Only()
{
    EXPECT_TRUE(m_manager->UpdateReminderCollection());
    EXPECT_EQ(1, m_manager->GetRemindersCount());
    return m_manager->GetReminderByIndex(0);
}

std::size_t WorkerTest::StoredReminders()
{
    return KeyExists(kStore) ? RawKey(kStore).Subkeys().size() : 0;
}

std::optional<RawValue> WorkerTest::Stored(const std::wstring& name)
{
    return RawKey(std::wstring(kStore) + L"\\" + RawKey(kStore).Subkeys().at(0)).Read(name);
}

} // namespace ts::test
