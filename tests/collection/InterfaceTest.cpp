// What hosts are compiled against: names, arguments, results and who may call what.

#include "tests/collection/CollectionTest.h"
#include "tests/collection/ManagerInside.h"
#include "tests/support/VirtualSlot.h"

#include <type_traits>

namespace ts::test
{
namespace
{

using Record = CcvReminderData;

template <typename Member, typename Expected>
constexpr bool kIs = std::is_same_v<Member, Expected>;

static_assert(std::is_constructible_v<Manager, bool>);
static_assert(!std::is_default_constructible_v<Manager> && !std::is_copy_constructible_v<Manager>);
static_assert(std::has_virtual_destructor_v<Manager>);
static_assert(kIs<decltype(&Manager::AddReminder), bool (Manager::*)(Record*, bool)>);
static_assert(kIs<decltype(&Manager::ModifyReminder), bool (Manager::*)(Record*, bool)>);
static_assert(kIs<decltype(&Manager::DeleteReminder), bool (Manager::*)(Record*, bool)>);
static_assert(kIs<decltype(&Manager::DismissReminder), bool (Manager::*)(Record*)>);
static_assert(kIs<decltype(&Manager::SnoozeReminder), bool (Manager::*)(Record*, const CTimeSpan&)>);
static_assert(kIs<decltype(&Manager::EndReminder), bool (Manager::*)(Record*)>);
static_assert(kIs<decltype(&Manager::UpdateReminderPath), bool (Manager::*)(Record*, const CString&)>);
static_assert(kIs<decltype(&Manager::UpdateRemindersDocumentPath),
                  bool (Manager::*)(const CString&, const CString&, const CString&)>);
static_assert(kIs<decltype(&Manager::UpdateReminderCollection), bool (Manager::*)()>);
static_assert(kIs<decltype(&Manager::OpenOutlookAppointment), bool (Manager::*)(Record*)>);
static_assert(kIs<decltype(&Manager::GetReminderByGuid),
                  Record* (Manager::*)(const CString&, const CString&, const CString&) const>);
static_assert(kIs<decltype(&Manager::GetReminderByIndex), Record* (Manager::*)(int) const>);
static_assert(
    kIs<decltype(&Manager::GetReminderByOutlookObjectGuid), Record* (Manager::*)(const CString&) const>);
static_assert(kIs<decltype(&Manager::GetRemindersCount), int (Manager::*)() const>);

// Only an explicit instantiation may name what is private.
template <typename Function, Function function>
struct Private
{
};
template struct Private<int (Manager::*)(const Record*) const, &Manager::GetReminderIndex>;
template struct Private<bool (Manager::*)(), &Manager::LoadRemindersFromRegistry>;
template struct Private<void (Manager::*)(), &Manager::EmptyReminders>;
template struct Private<void (Manager::*)(const Record*), &Manager::AddOutlookReminder>;
template struct Private<void (Manager::*)(const Record*), &Manager::ModifyOutlookReminder>;
template struct Private<void (Manager::*)(const Record*), &Manager::RemoveOutlookReminder>;
template struct Private<void (Manager::*)(), &Manager::SendSynchornizationMessage>;

template <typename T>
concept OpenToHosts = requires(T& manager, const Record* record)
{
    manager.GetReminderIndex(record);
}
|| requires(T& manager)
{
    manager.LoadRemindersFromRegistry();
}
|| requires(T& manager)
{
    manager.EmptyReminders();
}
|| requires(T& manager, const Record* record)
{
    manager.AddOutlookReminder(record);
}
|| requires(T& manager, const Record* record)
{
    manager.ModifyOutlookReminder(record);
}
|| requires(T& manager, const Record* record)
{
    manager.RemoveOutlookReminder(record);
}
|| requires(T& manager)
{
    manager.SendSynchornizationMessage();
};
static_assert(!OpenToHosts<Manager>);

class InterfaceTest : public CollectionTest
{
};

} // namespace

TEST_F(InterfaceTest, Manager_HasNoVirtualFunctionButItsDestructor)
{
    EXPECT_EQ(-1, VirtualSlotOf(&Manager::AddReminder));
    EXPECT_EQ(-1, VirtualSlotOf(&Manager::ModifyReminder));
    EXPECT_EQ(-1, VirtualSlotOf(&Manager::DeleteReminder));
    EXPECT_EQ(-1, VirtualSlotOf(&Manager::DismissReminder));
    EXPECT_EQ(-1, VirtualSlotOf(&Manager::SnoozeReminder));
    EXPECT_EQ(-1, VirtualSlotOf(&Manager::EndReminder));
    EXPECT_EQ(-1, VirtualSlotOf(&Manager::UpdateReminderPath));
    EXPECT_EQ(-1, VirtualSlotOf(&Manager::UpdateRemindersDocumentPath));
    EXPECT_EQ(-1, VirtualSlotOf(&Manager::UpdateReminderCollection));
    EXPECT_EQ(-1, VirtualSlotOf(&Manager::OpenOutlookAppointment));
    EXPECT_EQ(-1, VirtualSlotOf(&Manager::GetReminderByGuid));
    EXPECT_EQ(-1, VirtualSlotOf(&Manager::GetReminderByIndex));
    EXPECT_EQ(-1, VirtualSlotOf(&Manager::GetReminderByOutlookObjectGuid));
    EXPECT_EQ(-1, VirtualSlotOf(&Manager::GetRemindersCount));
}

TEST_F(InterfaceTest, Manager_HoldsItsQueueItsWorkerAndItsReminders)
{
    const std::vector<std::size_t> expected = {sizeof(void*), 2 * sizeof(void*), 3 * sizeof(void*)};
    EXPECT_EQ(expected, MemberOffsets()) << "in that order, after the table of virtual functions";
    EXPECT_EQ(3 * sizeof(void*) + sizeof(CAtlArray<Record*>), sizeof(Manager));
}

} // namespace ts::test
