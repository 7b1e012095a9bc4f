// Hosts answer the message by loading their collection again, and the message comes inside the call that
// changed something: every record that was handed in is freed then. What the manager does with it afterwards
// shows over the guard-page heap.

#include "tests/collection/CollectionTest.h"

namespace ts::test
{
namespace
{

class ReloadInTheCallTest : public CollectionTest
{
  protected:
    /// A manager of two reminders, the second of them recurring, and a window that loads it again and again.
    struct Host
    {
        explicit Host(bool withOutlookQueue) : manager(withOutlookQueue) {}

        [[nodiscard]] CcvReminderData* OneTime() const { return manager.GetReminderByIndex(0); }
        [[nodiscard]] CcvReminderData* Recurring() const { return manager.GetReminderByIndex(1); }

        Manager manager;
        HostWindow window{kMainClass, [this] { manager.UpdateReminderCollection(); }};
        HostWindow service{kServiceClass, [this] { manager.UpdateReminderCollection(); }};
    };

    ReloadInTheCallTest()
    {
        Store(NewReminder(L"first"));
        Store(NewDailyReminder(L"second"));
    }
};

constexpr bool kBothKinds[] = {false, true};

} // namespace

TEST_F(ReloadInTheCallTest, Add_OfAnElement_AnswersForTheWrite)
{
    for (const bool withOutlookQueue : kBothKinds)
    {
        Host host(withOutlookQueue);
        EXPECT_TRUE(host.manager.AddReminder(host.OneTime(), true));
        EXPECT_TRUE(Finish(host.manager));
        EXPECT_EQ(2, host.manager.GetRemindersCount());
        EXPECT_EQ(withOutlookQueue ? 2 : 1, host.window.Count());
    }
}

TEST_F(ReloadInTheCallTest, Add_OfANewRecord_IsLoadedWhenTheCallReturns)
{
    Host host(false);
    CcvReminderData record = NewReminder(L"new");
    EXPECT_TRUE(host.manager.AddReminder(&record, false));
    EXPECT_EQ(3, host.manager.GetRemindersCount());
}

TEST_F(ReloadInTheCallTest, Modify_OfAnElement_Succeeds)
{
    for (const bool withOutlookQueue : kBothKinds)
    {
        Host host(withOutlookQueue);
        host.OneTime()->SetSubject(withOutlookQueue ? L"one" : L"two");
        EXPECT_TRUE(host.manager.ModifyReminder(host.OneTime(), true));
        EXPECT_EQ(withOutlookQueue ? L"one" : L"two", host.OneTime()->GetSubject());
        EXPECT_TRUE(Finish(host.manager));
        EXPECT_EQ(withOutlookQueue ? 2 : 1, host.window.Count());
    }
}

TEST_F(ReloadInTheCallTest, Delete_OfAnElement_AnswersForTheDeletion)
{
    for (const bool withOutlookQueue : kBothKinds)
    {
        Host host(withOutlookQueue);
        const int before = host.manager.GetRemindersCount();
        EXPECT_TRUE(host.manager.DeleteReminder(host.OneTime(), true));
        EXPECT_EQ(before - 1, host.manager.GetRemindersCount());
        EXPECT_TRUE(Finish(host.manager));
    }
    EXPECT_TRUE(RawKey(kStore).Subkeys().empty());
}

TEST_F(ReloadInTheCallTest, Delete_ThatFails_AnswersSo)
{
    Host host(true);
    const LockedKey locked(L"{M-0}");
    EXPECT_FALSE(host.manager.DeleteReminder(host.OneTime(), true));
    EXPECT_EQ(1, host.window.Count());
    EXPECT_TRUE(Finish(host.manager));
    EXPECT_EQ(2, host.window.Count());
}

TEST_F(ReloadInTheCallTest, Dismiss_OfAnElement_AnswersForTheWrite)
{
    for (const bool withOutlookQueue : kBothKinds)
    {
        Host host(withOutlookQueue);
        EXPECT_TRUE(host.manager.DismissReminder(host.OneTime()));
        EXPECT_TRUE(host.OneTime()->IsDimissed());
        EXPECT_TRUE(host.manager.DismissReminder(host.Recurring()));
        EXPECT_TRUE(Finish(host.manager));
    }
    EXPECT_EQ(CTime(1'700'000'000 + 2 * 86'400), Load(L"{M-1}").GetNextDueDate());
}

TEST_F(ReloadInTheCallTest, Snooze_OfAnElement_AnswersForTheWrite)
{
    Host host(true);
    EXPECT_TRUE(host.manager.SnoozeReminder(host.OneTime(), CTimeSpan(60)));
    EXPECT_TRUE(host.OneTime()->IsSnoozed());
    EXPECT_EQ(1, host.window.Count());
}

TEST_F(ReloadInTheCallTest, End_OfElements_AnswersForWhatItDid)
{
    Host host(true);
    EXPECT_TRUE(host.manager.EndReminder(host.Recurring()));
    EXPECT_TRUE(host.manager.EndReminder(host.OneTime()));
    EXPECT_EQ(1, host.manager.GetRemindersCount());
    EXPECT_TRUE(Finish(host.manager));
}

TEST_F(ReloadInTheCallTest, UpdateReminderPath_OfAnElement_AnswersForTheWrite)
{
    Host host(true);
    EXPECT_TRUE(host.manager.UpdateReminderPath(host.OneTime(), L"D:\\new"));
    EXPECT_EQ(L"D:\\new", host.OneTime()->GetDocumentPath());
    const LockedKey locked(L"{M-0}");
    EXPECT_FALSE(host.manager.UpdateReminderPath(host.OneTime(), L"E:\\newer"));
    EXPECT_EQ(2, host.window.Count());
}

TEST_F(ReloadInTheCallTest, UpdateRemindersDocumentPath_Succeeds)
{
    Host host(true);
    EXPECT_TRUE(host.manager.UpdateRemindersDocumentPath(L"C:\\maps\\a", L"D:\\new", L"M"));
    EXPECT_EQ(L"D:\\new", host.OneTime()->GetDocumentPath());
    EXPECT_EQ(L"D:\\new", host.Recurring()->GetDocumentPath());
}

TEST_F(ReloadInTheCallTest, OpenOutlookAppointment_OfAnElement_Fails)
{
    Host host(true);
    EXPECT_FALSE(host.manager.OpenOutlookAppointment(host.OneTime()));
}

TEST_F(ReloadInTheCallTest, Change_InsideTheMessageOfAChange_IsDone)
{
    Manager manager(true);
    int depth = 0;
    const HostWindow window(kServiceClass,
                            [&]
                            {
                                manager.UpdateReminderCollection();
                                if (++depth <= 5)
                                {
                                    EXPECT_TRUE(
                                        manager.SnoozeReminder(manager.GetReminderByIndex(0), CTimeSpan(60)));
                                    EXPECT_TRUE(manager.ModifyReminder(manager.GetReminderByIndex(1), true));
                                }
                            });
    EXPECT_TRUE(manager.ModifyReminder(manager.GetReminderByIndex(0), true));
    EXPECT_TRUE(Finish(manager));
    EXPECT_NE(CTime(0), manager.GetReminderByIndex(0)->GetSnoozeTime());
    EXPECT_EQ(17, window.Count()) << "11 changes and 6 commands";
}

} // namespace ts::test
