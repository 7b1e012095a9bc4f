#include "collection/CcvOutlookCommand.h"
#include "tests/collection/CollectionTest.h"
#include "tests/support/VirtualSlot.h"

#include <memory>

namespace ts::test
{
namespace
{

class CcvOutlookCommandTest : public CollectionTest
{
  protected:
    /// A command of each class for `record`, in the order of their kinds.
    static std::vector<std::unique_ptr<CcvOutlookCommand>> CommandsFor(CcvReminderData& record)
    {
        std::vector<std::unique_ptr<CcvOutlookCommand>> commands;
        commands.push_back(std::make_unique<CcvAddReminderToOutlookCommand>(&record));
        commands.push_back(std::make_unique<CcvModifyReminderInOutlookCommand>(&record));
        commands.push_back(std::make_unique<CcvRemoveReminderFromOutlookCommand>(&record));
        commands.push_back(std::make_unique<CcvDismissReminderInOutlookCommand>(&record, CTime(1)));
        return commands;
    }
};

} // namespace

static_assert(std::is_abstract_v<CcvOutlookCommand>);
static_assert(std::is_base_of_v<CObject, CcvOutlookCommand>);
static_assert(sizeof(CcvAddReminderToOutlookCommand) == sizeof(CcvOutlookCommand));
static_assert(sizeof(CcvModifyReminderInOutlookCommand) == sizeof(CcvOutlookCommand));
static_assert(sizeof(CcvRemoveReminderFromOutlookCommand) == sizeof(CcvOutlookCommand));
static_assert(sizeof(CcvDismissReminderInOutlookCommand) == sizeof(CcvOutlookCommand) + sizeof(CTime));

// What commands do not change of their base.
static_assert(
    std::is_same_v<decltype(&CcvDismissReminderInOutlookCommand::Serialize), void (CObject::*)(CArchive&)>);
static_assert(
    std::is_same_v<decltype(&CcvDismissReminderInOutlookCommand::AssertValid), void (CObject::*)() const>);
static_assert(std::is_same_v<decltype(&CcvDismissReminderInOutlookCommand::Dump),
                             void (CObject::*)(CDumpContext&) const>);

TEST_F(CcvOutlookCommandTest, VirtualFunctions_StandInTheirOrder)
{
    EXPECT_EQ(0, VirtualSlotOf(&CcvOutlookCommand::GetRuntimeClass));
    // The destructor takes two places.
    EXPECT_EQ(3, VirtualSlotOf(&CcvOutlookCommand::Serialize));
    EXPECT_EQ(4, VirtualSlotOf(&CcvOutlookCommand::AssertValid));
    EXPECT_EQ(5, VirtualSlotOf(&CcvOutlookCommand::Dump));
    EXPECT_EQ(6, VirtualSlotOf(&CcvOutlookCommand::Execute));
}

TEST_F(CcvOutlookCommandTest, RuntimeClass_OfEachCommand_IsItsOwnBelowTheCommonBase)
{
    const struct
    {
        const char* name;
        std::size_t size;
    } expected[] = {
        {"CcvAddReminderToOutlookCommand", sizeof(CcvAddReminderToOutlookCommand)},
        {"CcvModifyReminderInOutlookCommand", sizeof(CcvModifyReminderInOutlookCommand)},
        {"CcvRemoveReminderFromOutlookCommand", sizeof(CcvRemoveReminderFromOutlookCommand)},
        {"CcvDismissReminderInOutlookCommand", sizeof(CcvDismissReminderInOutlookCommand)},
    };
    CcvReminderData record = EmptyRecord();
    const auto commands = CommandsFor(record);
    for (std::size_t kind = 0; kind < commands.size(); ++kind)
    {
        const CObject& command = *commands[kind];
        const CRuntimeClass* const own = command.GetRuntimeClass();
        EXPECT_STREQ(expected[kind].name, own->m_lpszClassName);
        EXPECT_EQ(expected[kind].size, own->m_nObjectSize);
        EXPECT_EQ(RUNTIME_CLASS(CcvOutlookCommand), own->m_pBaseClass);
    }
    EXPECT_STREQ("CcvOutlookCommand", RUNTIME_CLASS(CcvOutlookCommand)->m_lpszClassName);
    EXPECT_EQ(sizeof(CcvOutlookCommand), RUNTIME_CLASS(CcvOutlookCommand)->m_nObjectSize);
    EXPECT_EQ(RUNTIME_CLASS(CObject), RUNTIME_CLASS(CcvOutlookCommand)->m_pBaseClass);
}

TEST_F(CcvOutlookCommandTest, Execute_WithoutAnObjectGuid_AsksOutlookForAnAddOnly)
{
    CcvReminderData record = DistinctRecord();
    record.SetOutlookObjectGuid(L"");
    WatchOutlook();
    const RecordFields before = FieldsOf(record);
    const auto commands = CommandsFor(record);
    for (std::size_t kind = 0; kind < commands.size(); ++kind)
    {
        commands[kind]->Execute();
        EXPECT_EQ(kind == 0, WasOutlookTried()) << kind;
        EXPECT_EQ(before, FieldsOf(record)) << kind;
    }
}

TEST_F(CcvOutlookCommandTest, Execute_WithAnObjectGuid_AsksOutlook)
{
    CcvReminderData record = DistinctRecord();
    WatchOutlook();
    const RecordFields before = FieldsOf(record);
    const auto commands = CommandsFor(record);
    for (std::size_t kind = 0; kind < commands.size(); ++kind)
    {
        commands[kind]->Execute();
        EXPECT_TRUE(WasOutlookTried()) << kind;
        EXPECT_EQ(before, FieldsOf(record)) << "Outlook is absent, so nothing changes: " << kind;
    }
    EXPECT_FALSE(KeyExists(kStore)) << "commands do not write to the store";
}

} // namespace ts::test
