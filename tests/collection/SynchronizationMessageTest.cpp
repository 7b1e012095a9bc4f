// Who hears of a change.

#include "collection/SynchronizationMessage.h"
#include "collection/SynchronizationSender.h"
#include "tests/collection/CollectionTest.h"
#include "tests/support/HandleCount.h"

#include <string>

namespace ts::test
{
namespace
{

class SynchronizationMessageTest : public CollectionTest
{
  protected:
    /// Each kind of change once, with a success of its own.
    static void ChangeEverything(Manager& manager)
    {
        CcvReminderData record = NewDailyReminder(L"first");
        EXPECT_TRUE(manager.AddReminder(&record, true));
        manager.UpdateReminderCollection();
        EXPECT_TRUE(manager.ModifyReminder(&record, true));
        EXPECT_TRUE(manager.DismissReminder(&record));
        EXPECT_TRUE(manager.SnoozeReminder(&record, CTimeSpan(60)));
        EXPECT_TRUE(manager.EndReminder(&record));
        EXPECT_TRUE(manager.UpdateReminderPath(&record, L"D:\\new"));
        EXPECT_TRUE(manager.UpdateRemindersDocumentPath(L"a", L"b", L"c"));
        manager.UpdateReminderCollection();
        EXPECT_TRUE(manager.DeleteReminder(&record, true));
    }
    static constexpr int kChanges = 8;
};

} // namespace

TEST_F(SynchronizationMessageTest, Names_OfTheInterface_AreThese)
{
    EXPECT_EQ(0x8078u, kSynchronizationMessage);
    EXPECT_STREQ(kMainClass, kMainWindowClass);
    EXPECT_STREQ(kServiceClass, kServiceWindowClass);
}

TEST_F(SynchronizationMessageTest, Changes_WithoutAnyWindow_Succeed)
{
    Manager manager(true);
    ChangeEverything(manager);
    EXPECT_TRUE(Finish(manager));
    EXPECT_TRUE(RawKey(kStore).Subkeys().empty());
}

TEST_F(SynchronizationMessageTest, Changes_WithOneWindow_ReachIt)
{
    for (const wchar_t* windowClass : {kMainClass, kServiceClass})
    {
        Manager manager(false);
        const HostWindow window(windowClass);
        ChangeEverything(manager);
        EXPECT_EQ(kChanges, window.Count());
        EXPECT_EQ(0, window.StrangeCount());
    }
}

TEST_F(SynchronizationMessageTest, Changes_WithBothWindows_ReachTheMainWindowFirst)
{
    std::string order;
    const HostWindow service(kServiceClass, [&] { order += 's'; });
    const HostWindow main(kMainClass, [&] { order += 'm'; });
    Manager manager(false);
    ChangeEverything(manager);
    EXPECT_EQ("msmsmsmsmsmsmsms", order);
    EXPECT_EQ(0, main.StrangeCount() + service.StrangeCount());
}

TEST_F(SynchronizationMessageTest, Changes_WithWindowsOfOtherThreads_ReachThemBeforeTheyReturn)
{
    const OtherHost main(kMainClass);
    const OtherHost service(kServiceClass);
    Manager manager(false);
    CcvReminderData record = NewReminder(L"first");
    for (int change = 1; change <= 20; ++change)
    {
        EXPECT_TRUE(manager.SnoozeReminder(&record, CTimeSpan(change)));
        ASSERT_EQ(change, main.Count());
        ASSERT_EQ(change, service.Count());
    }
    EXPECT_EQ(0, main.Window().StrangeCount() + service.Window().StrangeCount());
}

TEST_F(SynchronizationMessageTest, Changes_WithSeveralWindowsOfAClass_ReachTheFirstOnly)
{
    const HostWindow one(kMainClass);
    const HostWindow two(kMainClass);
    const HostWindow three(kMainClass);
    const HostWindow service(kServiceClass);
    const HWND first = FindWindowW(kMainClass, nullptr);
    SendSynchronizationMessage();
    for (const HostWindow* window : {&one, &two, &three})
    {
        EXPECT_EQ(window->Get() == first ? 1 : 0, window->Count());
    }
    EXPECT_EQ(1, service.Count());
}

TEST_F(SynchronizationMessageTest, Send_ToWindowsThatHideOrHaveNoTitle_ReachesThem)
{
    const HostWindow window(kMainClass);
    SetWindowTextW(window.Get(), L"");
    EXPECT_FALSE(IsWindowVisible(window.Get()));
    SendSynchronizationMessage();
    EXPECT_EQ(1, window.Count());
    ShowWindow(window.Get(), SW_SHOWMINNOACTIVE);
    SendSynchronizationMessage();
    EXPECT_EQ(2, window.Count());
}

TEST_F(SynchronizationMessageTest, Send_WhenTheMainWindowIsClosedInside_StillReachesTheService)
{
    const HostWindow service(kServiceClass);
    std::unique_ptr<HostWindow> main;
    HWND closed = nullptr;
    main = std::make_unique<HostWindow>(kMainClass, [&] { closed = main->Get(); });
    SendSynchronizationMessage();
    EXPECT_EQ(main->Get(), closed);
    EXPECT_EQ(1, service.Count());
    main.reset();
    SendSynchronizationMessage();
    EXPECT_EQ(2, service.Count());
}

TEST_F(SynchronizationMessageTest, Send_ManyTimes_LeavesNoHandles)
{
    const HostWindow main(kMainClass);
    const OtherHost service(kServiceClass);
    SendSynchronizationMessage();
    const std::size_t before = HandleCount();
    for (int round = 0; round < 500; ++round)
    {
        SendSynchronizationMessage();
    }
    EXPECT_GT(before + kNoise, HandleCount());
    EXPECT_EQ(501, main.Count());
    EXPECT_EQ(501, service.Count());
}

TEST_F(SynchronizationMessageTest, Store_WhenTheMessageComes_HoldsTheChangeAlready)
{
    std::vector<std::size_t> keys;
    const HostWindow window(kMainClass, [&] { keys.push_back(RawKey(kStore).Subkeys().size()); });
    Manager manager(false);
    CcvReminderData record = NewReminder(L"first");
    manager.AddReminder(&record, false);
    manager.UpdateReminderCollection();
    manager.DeleteReminder(&record, false);
    EXPECT_EQ((std::vector<std::size_t>{1, 0}), keys);
}

} // namespace ts::test
