#include "module/CcvReminderOptionUtilities.h"
#include "module/RegistryPaths.h"
#include "tests/platform/RegistryCalls.h"
#include "tests/support/HandleCount.h"
#include "tests/support/HeapKind.h"
#include "tests/support/RawRegistry.h"

#include <gtest/gtest.h>
#include <optional>
#include <string>

using Options = CcvReminderOptionUtilities;
using ts::test::Bytes;
using ts::test::KeyExists;
using ts::test::RawDword;
using ts::test::RawKey;
using ts::test::RawText;
using ts::test::RawValue;

namespace
{

const std::wstring kSettings = L"Software\\Corvane\\Tessaly\\25\\Settings";
constexpr wchar_t kInstalled[] = L"TopicAlertsLinkerInstalled";

/// One option of those that stand for themselves.
struct Option
{
    const wchar_t* name;
    bool defaultValue;
    bool (*get)();
    void (*set)(bool);
};

constexpr Option kOptions[] = {
    {L"PlayTicklerSound", true, Options::GetPlaySoundWithTickler, Options::SetPlaySoundWithTickler},
    {L"SynchronizeOutlookAppoints", true, Options::GetSynchronizeOutlookAppointments,
     Options::SetSynchronizeOutlookAppointments},
    {L"SynchInProgress", false, Options::GetSynchronizeInProgress, Options::SetSynchronizeInProgress},
    {L"DisableTopicAlertsLinkerOutlookEvents", false, Options::GetDisableOutlookEventsHandling, nullptr},
    {kInstalled, true, Options::GetAdminTopicAlertsLinkerInstalled, nullptr},
};

class CcvReminderOptionUtilitiesTest : public testing::Test
{
  protected:
    CcvReminderOptionUtilitiesTest() { DeleteSettings(); }
    ~CcvReminderOptionUtilitiesTest() override { DeleteSettings(); }

    static void DeleteSettings()
    {
        ts::test::DeleteKeyTree(kSettings);
        ts::test::DeleteKeyTree(kSettings, HKEY_LOCAL_MACHINE);
    }

    static void Store(const std::wstring& name, const RawValue& value, HKEY root = HKEY_CURRENT_USER)
    {
        RawKey(kSettings, root).Write(name, value);
    }
};

} // namespace

TEST_F(CcvReminderOptionUtilitiesTest, SettingsPath_OfTheProduct_IsFixed)
{
    EXPECT_EQ(kSettings, ts::kSettingsPath);
}

TEST_F(CcvReminderOptionUtilitiesTest, Read_WithoutSettingsKey_GivesTheDefault)
{
    for (const Option& option : kOptions)
    {
        EXPECT_EQ(option.defaultValue, option.get()) << option.name;
    }
    EXPECT_FALSE(KeyExists(kSettings)) << "reading creates nothing";
    EXPECT_FALSE(KeyExists(kSettings, HKEY_LOCAL_MACHINE));
}

TEST_F(CcvReminderOptionUtilitiesTest, Read_WithoutTheValue_GivesTheDefault)
{
    const RawKey settings(kSettings);
    const RawKey machine(kSettings, HKEY_LOCAL_MACHINE);
    for (const Option& option : kOptions)
    {
        EXPECT_EQ(option.defaultValue, option.get()) << option.name;
    }
}

TEST_F(CcvReminderOptionUtilitiesTest, Read_OfANumber_IsTrueUnlessZero)
{
    for (const Option& option : kOptions)
    {
        for (const std::uint32_t stored : {0u, 1u, 2u, 256u, 0x80000000u, 0xFFFFFFFFu})
        {
            Store(option.name, RawDword(stored));
            EXPECT_EQ(stored != 0, option.get()) << option.name << " = " << stored;
        }
        DeleteSettings();
    }
}

TEST_F(CcvReminderOptionUtilitiesTest, Read_OfAWrongTypeOrSize_GivesTheDefault)
{
    const RawValue wrong[] = {
        {REG_DWORD, {}},
        {REG_DWORD, {1}},
        {REG_DWORD, {0, 0, 0}},
        {REG_DWORD, {1, 0, 0, 0, 0}},
        {REG_DWORD, Bytes(8)},
        {REG_DWORD, Bytes(100'000, 1)},
        {REG_BINARY, {0, 0, 0, 0}},
        {REG_BINARY, {1, 0, 0, 0}},
        {REG_QWORD, Bytes(8)},
        {REG_QWORD, {0, 0, 0, 0}},
        {REG_DWORD_BIG_ENDIAN, {0, 0, 0, 0}},
        {REG_DWORD_BIG_ENDIAN, {0, 0, 0, 1}},
        {REG_NONE, {0, 0, 0, 0}},
        {REG_EXPAND_SZ, {0, 0, 0, 0}},
        {REG_MULTI_SZ, {0, 0, 0, 0}},
        RawText(L""),
        RawText(L"0"),
        RawText(L"10"),
        RawText(L"false"),
    };
    for (const Option& option : kOptions)
    {
        for (const RawValue& value : wrong)
        {
            Store(option.name, value);
            EXPECT_EQ(option.defaultValue, option.get())
                << option.name << ' ' << testing::PrintToString(value);
        }
        DeleteSettings();
    }
}

TEST_F(CcvReminderOptionUtilitiesTest, Write_WithoutSettingsKey_IsDropped)
{
    for (const Option& option : kOptions)
    {
        if (option.set != nullptr)
        {
            option.set(!option.defaultValue);
            EXPECT_EQ(option.defaultValue, option.get()) << option.name;
        }
    }
    EXPECT_FALSE(KeyExists(kSettings)) << "writing creates nothing";
    EXPECT_FALSE(KeyExists(kSettings, HKEY_LOCAL_MACHINE));
}

TEST_F(CcvReminderOptionUtilitiesTest, Write_IntoTheSettingsKey_StoresZeroOrOneAndNothingElse)
{
    const RawKey settings(kSettings);
    const RawKey machine(kSettings, HKEY_LOCAL_MACHINE);
    for (const Option& option : kOptions)
    {
        if (option.set == nullptr)
        {
            continue;
        }
        for (const bool value : {true, false, true})
        {
            option.set(value);
            EXPECT_EQ((ts::test::RawValues{{option.name, RawDword(value ? 1 : 0)}}), settings.Values());
            EXPECT_EQ(value, option.get()) << option.name;
        }
        settings.Delete(option.name);
    }
    EXPECT_TRUE(machine.Values().empty()) << "only the user's settings are written";
}

TEST_F(CcvReminderOptionUtilitiesTest, Write_OverAValueOfAnotherType_ReplacesIt)
{
    for (const Option& option : kOptions)
    {
        if (option.set != nullptr)
        {
            Store(option.name, RawText(L"a text that is longer than a number"));
            option.set(!option.defaultValue);
            EXPECT_EQ(RawDword(option.defaultValue ? 0 : 1), RawKey(kSettings).Read(option.name));
        }
    }
}

TEST_F(CcvReminderOptionUtilitiesTest, AddInInstalled_OfUserAndMachine_FollowsTheMachineWhereItSpeaks)
{
    const RawValue none = RawText(L"no number");
    struct Row
    {
        RawValue user;
        RawValue machine;
        bool installed;
    };
    const Row rows[] = {
        {none, none, true},
        {RawDword(0), none, false},
        {RawDword(1), none, true},
        {RawDword(2), none, true},
        {none, RawDword(0), false},
        {none, RawDword(1), true},
        {none, RawDword(2), true},
        {RawDword(1), RawDword(0), false},
        {RawDword(0), RawDword(1), true},
        {RawDword(0), RawDword(0), false},
        {RawDword(1), RawDword(1), true},
    };
    for (const Row& row : rows)
    {
        SCOPED_TRACE(testing::PrintToString(row.user) + " / " + testing::PrintToString(row.machine));
        Store(kInstalled, row.user);
        Store(kInstalled, row.machine, HKEY_LOCAL_MACHINE);
        EXPECT_EQ(row.installed, Options::GetAdminTopicAlertsLinkerInstalled());
        // Outlook is off wherever the add-in is not installed, whatever the user wants.
        for (const bool wanted : {true, false})
        {
            Options::SetSynchronizeOutlookAppointments(wanted);
            EXPECT_EQ(wanted && row.installed, Options::GetSynchronizeOutlookAppointments());
        }
    }
}

TEST_F(CcvReminderOptionUtilitiesTest, AddInInstalled_MachineOnly_NeedsNoUserKey)
{
    Store(kInstalled, RawDword(0), HKEY_LOCAL_MACHINE);
    EXPECT_FALSE(Options::GetAdminTopicAlertsLinkerInstalled());
    EXPECT_FALSE(Options::GetSynchronizeOutlookAppointments());
    EXPECT_TRUE(Options::GetPlaySoundWithTickler()) << "the machine has no word in the other options";
    Store(L"PlayTicklerSound", RawDword(0), HKEY_LOCAL_MACHINE);
    Store(L"SynchInProgress", RawDword(1), HKEY_LOCAL_MACHINE);
    EXPECT_TRUE(Options::GetPlaySoundWithTickler());
    EXPECT_FALSE(Options::GetSynchronizeInProgress());
}

TEST_F(CcvReminderOptionUtilitiesTest, Read_AfterAChangeByAnother_SeesIt)
{
    for (int round = 0; round < 3; ++round)
    {
        Store(L"SynchInProgress", RawDword(1));
        EXPECT_TRUE(Options::GetSynchronizeInProgress());
        Store(L"SynchInProgress", RawDword(0));
        EXPECT_FALSE(Options::GetSynchronizeInProgress());
        DeleteSettings();
        EXPECT_FALSE(Options::GetSynchronizeInProgress());
    }
}

TEST_F(CcvReminderOptionUtilitiesTest, Handles_AfterManyCalls_AreAsMany)
{
    Store(kInstalled, RawDword(1));
    Store(kInstalled, RawDword(1), HKEY_LOCAL_MACHINE);
    const std::size_t before = ts::test::HandleCount();
    for (int round = 0; round < ts::test::Rounds(1000); ++round)
    {
        Options::SetPlaySoundWithTickler(round % 2 == 0);
        ASSERT_EQ(round % 2 == 0, Options::GetPlaySoundWithTickler());
        ASSERT_TRUE(Options::GetSynchronizeOutlookAppointments());
    }
    EXPECT_EQ(before, ts::test::HandleCount());
}

TEST_F(CcvReminderOptionUtilitiesTest, Calls_OfEachKind_AskForTheirRightsAndCloseTheKey)
{
    using Lines = std::vector<std::wstring>;
    Store(L"SynchronizeOutlookAppoints", RawDword(1));
    Store(kInstalled, RawDword(1), HKEY_LOCAL_MACHINE);
    const std::wstring user = L"HKCU\\" + kSettings;
    ts::test::RegistryCalls calls;
    Options::SetPlaySoundWithTickler(false);
    EXPECT_EQ((Lines{L"open " + user + L" 20006", L"set PlayTicklerSound 4", L"close"}), calls.Take());
    EXPECT_FALSE(Options::GetPlaySoundWithTickler());
    EXPECT_EQ((Lines{L"open " + user + L" 20019", L"query PlayTicklerSound", L"close"}), calls.Take());
    EXPECT_TRUE(Options::GetSynchronizeOutlookAppointments());
    EXPECT_EQ((Lines{L"open " + user + L" 20019", L"query SynchronizeOutlookAppoints", L"close",
                     L"open " + user + L" 20019", L"query TopicAlertsLinkerInstalled", L"close",
                     L"open HKLM\\" + kSettings + L" 20019", L"query TopicAlertsLinkerInstalled", L"close"}),
              calls.Take());
}

TEST_F(CcvReminderOptionUtilitiesTest, Calls_ThatAreRefused_GiveTheDefaultAndChangeNothing)
{
    for (const Option& option : kOptions)
    {
        Store(option.name, RawDword(option.defaultValue ? 0 : 1));
    }
    const ts::test::RawValues before = RawKey(kSettings).Values();
    for (const wchar_t* refused : {L"query ", L"open "})
    {
        ts::test::RegistryCalls calls;
        calls.Refuse(refused);
        calls.Refuse(L"set ");
        for (const Option& option : kOptions)
        {
            EXPECT_EQ(option.defaultValue, option.get()) << refused << option.name;
            if (option.set != nullptr)
            {
                option.set(option.defaultValue);
            }
        }
    }
    EXPECT_EQ(before, RawKey(kSettings).Values());
}
