#include "ConsoleHarness.h"

#include <sstream>

namespace
{

class OptionsCommand : public ConsoleTest
{
  protected:
    static void WriteSetting(HKEY root, const wchar_t* name, DWORD value)
    {
        EXPECT_EQ(ERROR_SUCCESS,
                  RegSetKeyValueW(root, ts::kSettingsPath, name, REG_DWORD, &value, sizeof value));
    }
};

TEST_F(OptionsCommand, WithoutSettings_ShowsTheDefaultsAndAllNames)
{
    const std::pair<const char*, const char*> rows[] = {{"sound", "on"},
                                                        {"outlook", "on"},
                                                        {"in-progress", "off"},
                                                        {"disable-events", "off"},
                                                        {"add-in", "on"}};
    const std::string all = Succeed({"options"}, 120);
    for (const auto& [name, value] : rows)
    {
        EXPECT_EQ(std::string(name) + " " + value, Succeed({"options", name}));
        EXPECT_NE(std::string::npos, all.find(std::string("\n") + name)) << all;
    }
    for (const char* valueName : {"PlayTicklerSound", "SynchronizeOutlookAppoints", "SynchInProgress",
                                  "DisableTopicAlertsLinkerOutlookEvents", "TopicAlertsLinkerInstalled"})
    {
        EXPECT_NE(std::string::npos, all.find(valueName)) << all;
        EXPECT_EQ(Succeed({"options", valueName}).find(' '), Succeed({"options", valueName}).rfind(' '));
    }
    EXPECT_EQ("", Snapshot());
}

TEST_F(OptionsCommand, Write_IsSeenByTheLibrary)
{
    WriteSetting(HKEY_CURRENT_USER, L"Other", 1);
    for (const char* name : {"sound", "outlook", "in-progress", "PlayTicklerSound", "SYNCHINPROGRESS"})
    {
        EXPECT_TRUE(Succeed({"options", name, "off"}).ends_with(" off")) << name;
        EXPECT_TRUE(Succeed({"options", name}).ends_with(" off")) << name;
        EXPECT_TRUE(Succeed({"options", name, "ON"}).ends_with(" on")) << name;
        EXPECT_TRUE(Succeed({"options", name}).ends_with(" on")) << name;
    }
    EXPECT_TRUE(CcvReminderOptionUtilities::GetSynchronizeInProgress());
}

TEST_F(OptionsCommand, SettingsKeyMissing_IsMade)
{
    EXPECT_EQ("outlook off", Succeed({"options", "outlook", "off"}));
    EXPECT_FALSE(CcvReminderOptionUtilities::GetSynchronizeOutlookAppointments());
    EXPECT_TRUE(CcvReminderOptionUtilities::GetPlaySoundWithTickler()) << "the others keep their defaults";
}

TEST_F(OptionsCommand, ReadOnlyOptionWithoutSettings_MakesNoKey)
{
    ExpectFailure(1, "cannot be written", {"options", "add-in", "on"});
    HKEY settings = nullptr;
    EXPECT_EQ(ERROR_FILE_NOT_FOUND,
              RegOpenKeyExW(HKEY_CURRENT_USER, ts::kSettingsPath, 0, KEY_READ, &settings));
}

TEST_F(OptionsCommand, ValueOfAnotherKind_IsReplaced)
{
    ASSERT_EQ(ERROR_SUCCESS,
              RegSetKeyValueW(HKEY_CURRENT_USER, ts::kSettingsPath, L"PlayTicklerSound", REG_SZ, L"off", 8));
    EXPECT_EQ("sound off", Succeed({"options", "sound", "off"}));
}

TEST_F(OptionsCommand, ReadOnlyOption_Fails)
{
    WriteSetting(HKEY_CURRENT_USER, L"Other", 1);
    for (const char* name : {"disable-events", "add-in", "TopicAlertsLinkerInstalled"})
    {
        ExpectFailure(1, "cannot be written", {"options", name, "on"});
    }
}

TEST_F(OptionsCommand, OutlookWithoutAddIn_IsOffWhateverIsStored)
{
    WriteSetting(HKEY_CURRENT_USER, L"TopicAlertsLinkerInstalled", 1);
    WriteSetting(HKEY_LOCAL_MACHINE, L"TopicAlertsLinkerInstalled", 0);
    EXPECT_EQ("add-in off", Succeed({"options", "add-in"}));
    EXPECT_EQ("outlook is set to on, but stays off while the Outlook add-in is not installed.",
              Succeed({"options", "outlook", "on"}));
    EXPECT_EQ("outlook off", Succeed({"options", "outlook"}));
    EXPECT_EQ("outlook off", Succeed({"options", "outlook", "off"}));
}

TEST_F(OptionsCommand, OutlookCheckWhileOutlookIsOff_Fails)
{
    WriteSetting(HKEY_CURRENT_USER, L"SynchronizeOutlookAppoints", 0);
    ExpectFailure(1, "see 'reminders options outlook'", {"outlook-check"});
}

TEST_F(OptionsCommand, WrongUse_IsRefused)
{
    WriteSetting(HKEY_CURRENT_USER, L"Other", 1);
    ExpectFailure(2, "there is no option 'volume'", {"options", "volume"});
    ExpectFailure(2, "there is no option ''", {"options", ""});
    ExpectFailure(2, "on or off", {"options", "sound", "loud"});
    ExpectFailure(2, "on or off", {"options", "sound", ""});
    ExpectFailure(2, "extra", {"options", "sound", "on", "extra"});
}

} // namespace
